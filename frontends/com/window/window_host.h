#pragma once

/// What the window of a grid knows of the program that it stands in, and tells it besides the
/// control's own events. A COM container's site answers it, or a program that has none. It decides
/// nothing.

#include <tablio/types.h>

#include <windows.h>

#include <optional>
#include <utility>

namespace tablio::com {

/// Every function has a neutral answer. Nothing here throws.
class WindowHost {
public:
    virtual ~WindowHost() = default;

    /// The language whose signs, names and order of dates the user sees.
    [[nodiscard]] virtual LCID locale() const noexcept { return LOCALE_USER_DEFAULT; }
    /// The font of the form around the grid; nothing for the desktop's own.
    [[nodiscard]] virtual std::optional<Font> formFont() const { return std::nullopt; }
    /// A form that is being designed shows the grid, but nothing is typed or clicked there.
    [[nodiscard]] virtual bool isDesigned() const noexcept { return false; }

    virtual void propertyChanged(MemberNumber /*number*/) {}
    virtual void setHostKeyPreview(bool /*preview*/) {}
    /// The colours that the form has, for its ground and for texts on it; nothing for the
    /// desktop's.
    [[nodiscard]] virtual std::optional<std::pair<Colour, Colour>> formColours() const {
        return std::nullopt;
    }

    /// The keyboard is inside the grid, before the control hears of it, or elsewhere in the form.
    virtual void keyboardCame() {}
    virtual void keyboardWent() {}
    /// A key that the control wanted to see and leaves to the form: Tab. A dialog goes to its
    /// next control.
    virtual void keyLeft(const MSG &key) {
        if (key.wParam == VK_TAB)
            SendMessageW(GetAncestor(key.hwnd, GA_ROOT), WM_NEXTDLGCTL, GetKeyState(VK_SHIFT) < 0,
                         FALSE);
    }
    /// The grid looks different while it has no window.
    virtual void pictureChanged() {}
    /// What a handler threw while a message was dealt with, which cannot go on through Windows.
    virtual void handlerFailed(const char *what) noexcept { OutputDebugStringA(what); }
};

} // namespace tablio::com
