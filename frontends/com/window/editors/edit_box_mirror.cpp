/// How the native text box shows what the core's editor holds, and what an input method composes.

#include "window/editors/edit_box.h"

#include "object/text.h"
#include "window/editors/edit_frame.h"
#include "window/painting/gdi_painter.h"
#include "window/window.h"

#include <imm.h>

#include <algorithm>

namespace tablio::com {

namespace {

/// Beside the text, in logical pixels, so that it does not move when the editor opens over it.
constexpr double textMargin = 3;
/// Behind a right-aligned text, for the caret.
constexpr int caretRoom = 2;

std::wstring composed(HWND box, DWORD what) {
    std::wstring text;
    if (const HIMC method = ImmGetContext(box)) {
        const LONG bytes = ImmGetCompositionStringW(method, what, nullptr, 0);
        text.resize(static_cast<std::size_t>(std::max(0L, bytes)) / sizeof(wchar_t));
        ImmGetCompositionStringW(method, what, text.data(),
                                 static_cast<DWORD>(text.size() * sizeof(wchar_t)));
        ImmReleaseContext(box, method);
    }
    return text;
}

void endComposition(HWND box, DWORD how) {
    if (const HIMC method = ImmGetContext(box)) {
        ImmNotifyIME(method, NI_COMPOSITIONSTR, how, 0);
        ImmReleaseContext(box, method);
    }
}

} // namespace

void EditBox::mirror() {
    mirroring_ = true;
    if (const std::optional<ScreenEditor> editor = window_.screen().editor()) {
        edit_ = editor->edit;
        setLook(*editor);
        place(*editor);
        // Setting a text would end a composition.
        if (!isComposing_)
            setContent(*editor);
    } else {
        park();
    }
    mirroring_ = false;
}

void EditBox::place(const ScreenEditor &editor) {
    const DevicePixels pixels = window_.pixels();
    const EditorPlace where = window_.screen().devicePlaceOf(editor, pixels);
    const CellFont &font = window_.fontOf(editor.Font);
    const int side = pixels.length(textMargin);
    const int width = std::max(1, where.width - 2 * side - where.covered);
    const int top = aligned(0, where.frame.height, font.height, Third::Middle);
    const PixelRect line{side, top, width + caretRoom, font.height};
    const auto move = [](const NativeWindow &part, HWND frame, const PixelRect &place) {
        RECT now;
        GetWindowRect(part.handle(), &now);
        MapWindowPoints(nullptr, frame, reinterpret_cast<POINT *>(&now), 2);
        const RECT wanted = toRect(place);
        if (EqualRect(&now, &wanted) == FALSE)
            part.place(wanted);
    };
    move(*frame_, window_.handle(), where.frame);
    move(*this, frame(), line);
    int margin = 0;
    if (editor.alignsRight) {
        const HDC device = GetDC(handle());
        const HGDIOBJ before = SelectObject(device, font.handle);
        margin = std::max(0, width - font.widthOf(device, wide(editor.text)));
        SelectObject(device, before);
        ReleaseDC(handle(), device);
    }
    // A box cannot change its alignment while it lives.
    if (margin != margin_) {
        margin_ = margin;
        SendMessageW(handle(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN,
                     MAKELPARAM(margin, 0));
        InvalidateRect(handle(), nullptr, TRUE);
    }
}

void EditBox::setLook(const ScreenEditor &editor) {
    const Look look{editor.BackColor, editor.ForeColor, editor.Font};
    if (look_ == look)
        return;
    look_ = look;
    SendMessageW(handle(), WM_SETFONT, reinterpret_cast<WPARAM>(window_.fontOf(look.font).handle),
                 FALSE);
    // A font brings margins of its own.
    margin_ = -1;
    const PaletteColours colours = window_.colours();
    frame_->setColours(colours.text(look.fore, look.back), colours.of(look.back));
}

void EditBox::setContent(const ScreenEditor &editor) {
    const std::wstring wanted = wide(editor.text);
    if (text() != wanted)
        SetWindowTextW(handle(), wanted.c_str());
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                 reinterpret_cast<LPARAM>(&to));
    const auto [least, most] = std::minmax(editor.anchor, editor.caret);
    if (from == static_cast<DWORD>(least) && to == static_cast<DWORD>(most))
        return;
    SendMessageW(handle(), EM_SETSEL, static_cast<WPARAM>(editor.anchor), editor.caret);
    SendMessageW(handle(), EM_SCROLLCARET, 0, 0);
}

void EditBox::park() {
    if (isComposing_)
        endComposition(handle(), CPS_CANCEL);
    if (GetWindowTextLengthW(handle()) > 0)
        SetWindowTextW(handle(), L"");
    RECT now;
    GetWindowRect(frame(), &now);
    if (now.right > now.left)
        SetWindowPos(frame(), nullptr, 0, 0, 0, 0, SWP_NOZORDER | SWP_NOACTIVATE);
}

void EditBox::commitComposition() {
    if (isComposing_)
        endComposition(handle(), CPS_COMPLETE);
}

/// The box shows what is being composed; what comes of it the core gets like any typed text.
LRESULT EditBox::composing(UINT message, WPARAM first, LPARAM second) {
    if (message == WM_IME_ENDCOMPOSITION) {
        isComposing_ = false;
        mirroring_ = true;
        const LRESULT result = inherited(message, first, second);
        mirroring_ = false;
        if (window_.isOpen())
            mirror();
        return result;
    }
    if (message == WM_IME_STARTCOMPOSITION) {
        Dealt dealt = Dealt::No;
        if (!window_.enter() ||
            !window_.tell([&](Input &input) { dealt = input.beginComposition(); }))
            return 0;
        if (dealt == Dealt::No) {
            endComposition(handle(), CPS_CANCEL);
            return 0;
        }
        isComposing_ = true;
        return inherited(message, first, second);
    }
    if ((second & GCS_RESULTSTR) == 0)
        return inherited(message, first, second);
    const std::wstring result = composed(handle(), GCS_RESULTSTR);
    const bool wasComposing = std::exchange(isComposing_, false);
    // What is still shown of the composition is not the core's.
    mirroring_ = true;
    inherited(message, first, second & ~GCS_RESULTSTR);
    mirroring_ = false;
    if (!window_.enter() || !window_.tell([&](Input &input) { input.typeText(narrow(result)); }))
        return 0;
    isComposing_ = wasComposing && (second & GCS_COMPSTR) != 0;
    mirror();
    return 0;
}

} // namespace tablio::com
