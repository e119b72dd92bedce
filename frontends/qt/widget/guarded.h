#pragma once

/// Where Qt's event loop ends and the control begins. What the control or a host's slot throws
/// while an event is being delivered must not unwind through Qt, which is not made for it.

#include <QtGlobal>

#include <exception>
#include <utility>

namespace tablio::qt {

/// Runs an action for an event. An exception is reported and goes no further.
template <typename Action> void guarded(Action &&action) noexcept {
    try {
        std::forward<Action>(action)();
    } catch (const std::exception &error) {
        qCritical("Tablio: a handler failed: %s", error.what());
    } catch (...) {
        qCritical("Tablio: a handler failed");
    }
}

} // namespace tablio::qt
