#pragma once

/// The one native text box of the control. It holds the keyboard all the time, so that starting an
/// edit moves no native focus and no key can be lost on the way. Keys go to the core; the box shows
/// what the core's editor holds. Only what the platform's box does by itself (composing, mouse
/// selection, word keys) happens here first and is then reported.

#include "window/native_window.h"

#include <tablio/screen.h>

#include <optional>
#include <string>

namespace tablio::com {

class EditFrame;
class Window;

class EditBox final : public NativeWindow {
public:
    explicit EditBox(Window &window);
    ~EditBox() override;

    /// Shows the open editor of the core; without one the box is parked: it keeps the keyboard, is
    /// empty and clipped to nothing.
    void mirror();
    /// Font, colours or screen are others: the next mirroring sets all of them.
    void forgetLook() { look_.reset(); }
    /// Ends a composition by putting its text in.
    void commitComposition();
    /// Whether the control takes this key of the message loop before its host's form does.
    [[nodiscard]] bool wantsKey(const MSG &key) const;
    [[nodiscard]] HWND frame() const noexcept;

private:
    struct Look {
        Colour back;
        Colour fore;
        Font font;

        friend bool operator==(const Look &, const Look &) = default;
    };

    LRESULT message(UINT message, WPARAM first, LPARAM second) override;
    [[nodiscard]] std::shared_ptr<void> keptAlive() override;

    LRESULT keyDown(UINT message, WPARAM key, LPARAM data);
    LRESULT characterCame(wchar_t unit);
    LRESULT composing(UINT message, WPARAM first, LPARAM second);
    void sendKey(KeyCode key, ShiftState shift);
    /// What the box does by itself, followed by a report of what came out.
    LRESULT natively(UINT message, WPARAM first, LPARAM second);
    void settle();

    void place(const ScreenEditor &editor);
    void setLook(const ScreenEditor &editor);
    void setContent(const ScreenEditor &editor);
    void park();

    [[nodiscard]] std::wstring text() const;

    Window &window_;
    std::unique_ptr<EditFrame> frame_;
    std::optional<Look> look_;
    /// The edit that the box shows.
    EditNumber edit_ = 0;
    /// The box is being set to what the core holds: its changes are no news.
    bool mirroring_ = false;
    /// The box is doing something by itself, which is reported at its end.
    int nativeDepth_ = 0;
    bool isComposing_ = false;
    int margin_ = -1;
    /// The first half of a character whose other half is still to come.
    std::wstring pending_;
};

} // namespace tablio::com
