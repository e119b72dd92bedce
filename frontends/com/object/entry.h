#pragma once

/// The border between hosts and the control: every function of an interface that does more than
/// answer a number begins here. Nothing that is thrown gets out, and the object lives at least as
/// long as the call, whatever a handler does with its references.

#include "object/part.h"

#include <type_traits>

namespace tablio::com {

/// The code for the exception that is being handled. What a host's handler answered comes back as
/// it was.
[[nodiscard]] HRESULT codeOfException() noexcept;

/// Runs a call into an object; one that answers nothing succeeds.
template <typename Action> HRESULT entry(IUnknown &object, const Action &action) noexcept {
    const ComPtr<IUnknown> keeps(&object);
    try {
        if constexpr (std::is_void_v<decltype(action())>) {
            action();
            return S_OK;
        } else {
            return action();
        }
    } catch (...) {
        return codeOfException();
    }
}

template <typename Action> HRESULT entry(Control &control, const Action &action) noexcept {
    return entry(outermost(control), action);
}

} // namespace tablio::com
