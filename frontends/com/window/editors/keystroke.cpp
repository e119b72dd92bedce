#include "window/editors/keystroke.h"

#include <tablio/types.h>

namespace tablio::com {

namespace {

constexpr UINT queued = PM_REMOVE | PM_NOYIELD | PM_QS_POSTMESSAGE | PM_QS_INPUT;

bool isCommand(ShiftState shift) {
    const ShiftState command = shift & (Shift::Ctrl | Shift::Alt);
    // Both together are what the platform makes of AltGr, which types characters.
    return command == Shift::Ctrl || command == Shift::Alt;
}

} // namespace

ShiftState heldKeys() noexcept {
    const auto isHeld = [](int key) { return GetKeyState(key) < 0; };
    return static_cast<ShiftState>((isHeld(VK_SHIFT) ? Shift::Shift : 0) |
                                   (isHeld(VK_CONTROL) ? Shift::Ctrl : 0) |
                                   (isHeld(VK_MENU) ? Shift::Alt : 0));
}

bool typesText(WPARAM key, ShiftState shift) noexcept {
    if (isCommand(shift))
        return false;
    const UINT character = MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_CHAR) & 0xFFFFU;
    return key == VK_PACKET || (character >= L' ' && character != 0x7F);
}

std::u32string charactersOf(const std::wstring &text) {
    std::u32string characters;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const wchar_t unit = text[at];
        const bool isPair =
            IS_HIGH_SURROGATE(unit) && at + 1 < text.size() && IS_LOW_SURROGATE(text[at + 1]);
        if (isPair) {
            characters +=
                static_cast<char32_t>(0x10000 + ((unit - 0xD800) << 10) + (text[at + 1] - 0xDC00));
            ++at;
        } else if (!IS_HIGH_SURROGATE(unit) && !IS_LOW_SURROGATE(unit) &&
                   (unit >= L' ' || unit == Key::Back) && unit != 0x7F) {
            characters += static_cast<char32_t>(unit);
        }
    }
    return characters;
}

std::u32string takeCharacters(HWND window, ShiftState shift) {
    std::wstring text;
    MSG message;
    while (PeekMessageW(&message, window, WM_CHAR, WM_CHAR, queued) != FALSE)
        text += static_cast<wchar_t>(message.wParam);
    return isCommand(shift) ? std::u32string() : charactersOf(text);
}

void dropCommand(HWND window) {
    MSG message;
    while (PeekMessageW(&message, window, WM_SYSCHAR, WM_SYSDEADCHAR, queued) != FALSE) {
    }
}

} // namespace tablio::com
