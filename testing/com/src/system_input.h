#pragma once

/// A user's hands on the whole desktop: keys and mouse as the system's own input, and what of this
/// thread's windows they find there. It knows no control.

#include <windows.h>

#include <optional>

namespace tablio::scenario {

void sendKey(WORD key, bool isDown);
/// Moves the mouse there and does this with it.
void sendMouse(POINT at, DWORD action);
void click(POINT at);
/// On the screen.
[[nodiscard]] POINT middleOf(HWND window, const RECT &area);

/// A window of this kind that is to be seen; null for none.
[[nodiscard]] HWND ownWindow(const wchar_t *kind);
/// The first window inside another of this kind, and with this text where it has one.
[[nodiscard]] HWND childOf(HWND parent, const wchar_t *kind, const wchar_t *text = nullptr);

/// The entry that is to be chosen in the menu which is open, or none.
[[nodiscard]] std::optional<UINT> &menuChoice();
/// Whether a menu or a message has been put aside since this was set.
[[nodiscard]] bool &hasPutAside();
/// For a timer: a menu or a message runs a loop of its own until the user puts it aside.
void CALLBACK putAside(HWND, UINT, UINT_PTR, DWORD);

} // namespace tablio::scenario
