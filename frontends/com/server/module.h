#pragma once

/// The file that this code has been linked into, as the component runtime sees it: whether it may
/// be unloaded, where it lies, and the type library in it.

#include "object/text.h"

#include <windows.h>

namespace tablio::com {

/// Every object that a host may hold a reference to has one as a member or base, and every lock on
/// the server is one.
class KeepsModule {
public:
    KeepsModule() noexcept;
    ~KeepsModule();
    KeepsModule(const KeepsModule &) noexcept : KeepsModule() {}
    KeepsModule &operator=(const KeepsModule &) noexcept = default;
};

/// How many of them there are; the file may be unloaded when there is none.
[[nodiscard]] long moduleUsers() noexcept;
/// As LockServer counts.
void lockModule(bool locks) noexcept;

[[nodiscard]] HINSTANCE moduleHandle() noexcept;
[[nodiscard]] WideText modulePath();

} // namespace tablio::com
