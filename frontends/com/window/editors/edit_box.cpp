#include "window/editors/edit_box.h"

#include "object/text.h"
#include "window/editors/edit_frame.h"
#include "window/editors/keystroke.h"
#include "window/painting/gdi_painter.h"
#include "window/window.h"

#include <utility>

namespace tablio::com {

EditBox::EditBox(Window &window) : window_(window), frame_(std::make_unique<EditFrame>(window)) {
    create(L"EDIT", frame(), WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL | ES_NOHIDESEL);
    // The core knows the column's length; a box of its own opinion would cut a cell's old text.
    SendMessageW(handle(), EM_SETLIMITTEXT, 0x7FFFFFFE, 0);
}

EditBox::~EditBox() = default;

std::shared_ptr<void> EditBox::keptAlive() { return window_.weak_from_this().lock(); }

HWND EditBox::frame() const noexcept { return frame_->handle(); }

std::wstring EditBox::text() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(handle())) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(handle(), text.data(), static_cast<int>(text.size()))));
    return text;
}

bool EditBox::wantsKey(const MSG &key) const {
    const ShiftState shift = heldKeys();
    bool isWanted = isComposing_;
    window_.tell([&](const Input &input) {
        isWanted |=
            input.wantsKey(static_cast<KeyCode>(key.wParam), shift, typesText(key.wParam, shift));
    });
    return isWanted;
}

/// A message ends with a call into the core, or looks whether the box is still there after it.
LRESULT EditBox::message(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return keyDown(message, first, second);
    case WM_CHAR:
    case WM_IME_CHAR:
        return characterCame(static_cast<wchar_t>(first));
    case WM_GETDLGCODE: {
        const auto *const key = reinterpret_cast<const MSG *>(second);
        const bool isKey =
            key != nullptr && (key->message == WM_KEYDOWN || key->message == WM_CHAR);
        return DLGC_WANTCHARS | (isKey && wantsKey(*key) ? DLGC_WANTMESSAGE : 0);
    }
    case WM_SETFOCUS:
        window_.host().keyboardCame();
        window_.showCurrentCell();
        window_.enterLater();
        return inherited(message, first, second);
    case WM_KILLFOCUS: {
        const LRESULT result = inherited(message, first, second);
        window_.leftFor(reinterpret_cast<HWND>(first));
        return result;
    }
    case WM_IME_STARTCOMPOSITION:
    case WM_IME_COMPOSITION:
    case WM_IME_ENDCOMPOSITION:
        return composing(message, first, second);
    // The box's own menu; what is pasted obeys the column's rules.
    case WM_CUT:
        sendKey(Key::X, Shift::Ctrl);
        return 0;
    case WM_COPY:
        sendKey(Key::C, Shift::Ctrl);
        return 0;
    case WM_PASTE:
        sendKey(Key::V, Shift::Ctrl);
        return 0;
    case WM_CLEAR:
        sendKey(Key::Delete, Shift::None);
        return 0;
    case WM_UNDO:
    case EM_UNDO:
        sendKey(Key::Z, Shift::Ctrl);
        return TRUE;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
    case WM_CONTEXTMENU:
    case WM_SETTEXT:
    case EM_SETSEL:
    case EM_REPLACESEL:
        return natively(message, first, second);
    default:
        return inherited(message, first, second);
    }
}

LRESULT EditBox::keyDown(UINT message, WPARAM key, LPARAM data) {
    // The key belongs to the input method.
    if (key == VK_PROCESSKEY)
        return inherited(message, key, data);
    const ShiftState shift = heldKeys();
    const std::u32string characters = takeCharacters(handle(), shift);
    if (isComposing_ || !window_.enter())
        return 0;
    // A key whose handler fails has been dealt with.
    Dealt dealt = Dealt::Yes;
    const auto tell = [&](auto action) {
        dealt = Dealt::Yes;
        return window_.tell([&](Input &input) { dealt = action(input); });
    };
    if (!tell([&](Input &input) { return input.keyDown(static_cast<KeyCode>(key), shift); }))
        return 0;
    const bool isCommand = message == WM_SYSKEYDOWN;
    if (isCommand) {
        if (dealt == Dealt::No)
            return inherited(message, key, data);
        dropCommand(handle());
        return 0;
    }
    if (dealt == Dealt::Yes)
        return 0;
    for (const char32_t character : characters) {
        if (!tell([&](Input &input) { return input.keyPress(character); }))
            return 0;
    }
    // Ctrl+arrow and the like: every platform has its own.
    if (dealt == Dealt::No && (shift & Shift::Ctrl) != 0 && (shift & Shift::Alt) == 0 &&
        window_.screen().editor())
        return natively(message, key, data);
    if (dealt == Dealt::No)
        window_.host().keyLeft({handle(), message, key, data, 0, {}});
    return 0;
}

/// A character that no key of ours has typed: the result of an input method, a number typed with
/// Alt, or another program's. What follows it in the queue is one text with it.
LRESULT EditBox::characterCame(wchar_t unit) {
    std::wstring text(1, unit);
    MSG next;
    while (PeekMessageW(&next, handle(), WM_CHAR, WM_CHAR,
                        PM_REMOVE | PM_NOYIELD | PM_QS_POSTMESSAGE) != FALSE)
        text += static_cast<wchar_t>(next.wParam);
    // The other half of a character comes in a message of its own.
    if (IS_HIGH_SURROGATE(text.back())) {
        pending_ += text;
        return 0;
    }
    text.insert(0, std::exchange(pending_, {}));
    if (window_.enter() && !charactersOf(text).empty())
        window_.tell([&](Input &input) { input.typeText(narrow(text)); });
    return 0;
}

void EditBox::sendKey(KeyCode key, ShiftState shift) {
    if (window_.enter())
        window_.tell([&](Input &input) { input.keyDown(key, shift); });
}

LRESULT EditBox::natively(UINT message, WPARAM first, LPARAM second) {
    ++nativeDepth_;
    const LRESULT result = inherited(message, first, second);
    if (--nativeDepth_ == 0 && !mirroring_)
        settle();
    return result;
}

void EditBox::settle() {
    if (!window_.isOpen() || !window_.screen().editor() || isComposing_)
        return;
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                 reinterpret_cast<LPARAM>(&to));
    // The box does not say at which end its caret is, but shows it.
    POINT caret{};
    GetCaretPos(&caret);
    const auto start = static_cast<short>(LOWORD(SendMessageW(handle(), EM_POSFROMCHAR, from, 0)));
    if (from != to && GetFocus() == handle() && caret.x <= start)
        std::swap(from, to);
    window_.tell([&](Input &input) {
        input.textSettled(edit_, narrow(text()), static_cast<int>(from), static_cast<int>(to));
    });
}

} // namespace tablio::com
