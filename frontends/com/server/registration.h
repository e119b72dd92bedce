#pragma once

/// What the registry says of the control: its classes, their names, the type library and its
/// interfaces. One list says it all; registering writes it and unregistering takes every key away.

#include <windows.h>

namespace tablio::com {

/// How containers treat the control before they have made one: it is active while it is seen, wants
/// its site first, and is painted anew when its size changes.
inline constexpr DWORD miscStatus = 0x20191;

/// For all users of the machine. For the current user alone, where the variable TABLIO_REGISTER of
/// the environment is `user` or the machine's part may not be written.
HRESULT registerServer() noexcept;
/// Wherever it is registered.
HRESULT unregisterServer() noexcept;

} // namespace tablio::com
