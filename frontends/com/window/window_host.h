#pragma once

/// What the window of a grid knows of the program that it stands in, and tells it besides the
/// control's own events. A COM container's site answers it, or a program that has none. It decides
/// nothing.

#include <tablio/types.h>

#include <windows.h>

#include <optional>

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
    /// The keyboard is inside the grid, before the control hears of it, or elsewhere in the form.
    virtual void keyboardCame() {}
    virtual void keyboardWent() {}
    /// What a handler threw while a message was dealt with, which cannot go on through Windows.
    virtual void handlerFailed(const char *what) noexcept { OutputDebugStringA(what); }
};

} // namespace tablio::com
