#pragma once

/// Keys on their way from the message loop to the core: what went down, what is held, and what is
/// typed by it. It asks the keyboard and the queue and decides nothing.

#include <tablio/types.h>

#include <windows.h>

#include <string>

namespace tablio::com {

/// Shift, Ctrl and Alt as they were when the message that is being dealt with was made.
[[nodiscard]] ShiftState heldKeys() noexcept;
/// Whether this key types a text with those held.
[[nodiscard]] bool typesText(WPARAM key, ShiftState shift) noexcept;
/// The characters that the key which has just gone down types. They wait in the window's queue, and
/// are taken from there before a handler can run a message loop of its own.
[[nodiscard]] std::u32string takeCharacters(HWND window, ShiftState shift);
/// Takes what a command with Alt would beep about.
void dropCommand(HWND window);
/// The characters of a text, broken halves left out.
[[nodiscard]] std::u32string charactersOf(const std::wstring &text);

} // namespace tablio::com
