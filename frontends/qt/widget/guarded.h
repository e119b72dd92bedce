#pragma once

/// Where Qt's event loop ends and the control begins. What the control or a host's slot throws
/// while an event is being delivered must not unwind through Qt, which is not made for it.

#include <QObject>

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

/// The same when Qt has finished with the object, which a handler may delete, if it still exists
/// then.
template <typename Action> void guardedLater(QObject *object, Action action) {
    QMetaObject::invokeMethod(
        object, [action] { guarded(action); }, Qt::QueuedConnection);
}

} // namespace tablio::qt
