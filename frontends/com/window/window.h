#pragma once

/// The grid as a window of the platform: it is painted here, hears mouse and scroll bars, and holds
/// the native parts in which the core's editors are shown. Any program can put it into its own
/// window; it knows nothing of components. What happens in it the core decides.

#include "window/native_window.h"
#include "window/painting/cell_fonts.h"
#include "window/window_face.h"
#include "window/window_host.h"

#include <tablio/palette.h>
#include <tablio/pixels.h>
#include <tablio/tablio.h>

#include <array>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tablio::com {

class CellButton;
class DropList;
class EditBox;
class MonthCalendar;

/// Where nothing else is said, places are device pixels of the window. While it lives it is the
/// face of its control, with a native window or without.
class Window final : public NativeWindow, public std::enable_shared_from_this<Window> {
public:
    /// Both must live until retire().
    [[nodiscard]] static std::shared_ptr<Window> of(Tablio &core, WindowHost &host);
    ~Window() override;
    /// The control is about to go: nothing is told or asked any more.
    void retire() noexcept;

    /// Makes the native window, a child of that one. False when the platform cannot.
    bool open(HWND parent, const RECT &place);
    /// The native window goes, the control stays.
    void close() noexcept;
    /// A program that scrolls the grid by itself shows no bars. They are shown at first.
    void showBars(bool shown);
    /// Takes the platform's keyboard for the control.
    void takeKeyboard();
    /// Whether the platform's keyboard is in this window.
    [[nodiscard]] bool hasKeyboard() const noexcept;
    /// Whether the control takes this key of the message loop before its form does.
    [[nodiscard]] bool wantsKey(const MSG &key) const;
    /// Colours, fonts, language or screen are others: shows everything anew.
    void showAnew();
    /// Draws the grid into that area of another device.
    void draw(HDC device, const RECT &area, double scale);

    // For the parts of the window.
    /// False once the control or the native window is gone.
    [[nodiscard]] bool isOpen() const noexcept { return core_ != nullptr && handle() != nullptr; }
    /// Tells the control. What handlers throw is reported and goes no further. False when the
    /// window is gone after it.
    template <typename Action> bool tell(Action action) noexcept {
        try {
            if (core_ != nullptr)
                action(core_->input());
        } catch (const std::exception &error) {
            failed(error.what());
        } catch (...) {
            failed("unknown");
        }
        return isOpen();
    }
    [[nodiscard]] const Screen &screen() const noexcept { return core_->screen(); }
    /// Of the whole table, headers included.
    [[nodiscard]] int rows() const { return core_->Rows(); }
    [[nodiscard]] int cols() const { return core_->Cols(); }
    /// The number that a cell has for screen readers.
    [[nodiscard]] LONG childOf(CellAddress cell) const { return cell.row * cols() + cell.col + 1; }
    [[nodiscard]] WindowHost &host() const noexcept { return *host_; }
    [[nodiscard]] WindowFace &face() noexcept { return face_; }
    [[nodiscard]] bool isEnabled() const noexcept;
    [[nodiscard]] DevicePixels pixels() const noexcept { return DevicePixels(scale_); }
    [[nodiscard]] Twips twips(int pixels) const noexcept;
    [[nodiscard]] PaletteColours colours() const noexcept { return {palette(), isEnabled()}; }
    [[nodiscard]] const CellFont &fontOf(const Font &font) { return fonts_.of(font); }
    /// The keyboard has come: tells the control, unless it knows.
    bool enter();
    /// The same when the platform has finished with it.
    void enterLater() { PostMessageW(handle(), enterMessage, 0, 0); }
    /// The keyboard has gone to that window.
    void leftFor(HWND other);
    /// It has gone to another part of the form.
    void leftForForm();
    void showCurrentCell();

    // For its face.
    void mirror();
    void showArea(const Rect &area);
    /// Lays the grid out beside its scroll bars and shows where it is scrolled to.
    void arrange();
    void showScrolled();
    void popUpMenu(POINT at);
    void ask(std::wstring title, std::wstring text, UINT kind);

private:
    static constexpr UINT enterMessage = WM_USER + 1;
    static constexpr UINT menuMessage = WM_USER + 2;
    static constexpr UINT boxMessage = WM_USER + 3;

    /// A warning or a question that waits for its turn.
    struct Box {
        std::wstring title;
        std::wstring text;
        UINT kind = 0;
    };

    Window(Tablio &core, WindowHost &host);
    LRESULT message(UINT message, WPARAM first, LPARAM second) override;
    [[nodiscard]] std::shared_ptr<void> keptAlive() override { return weak_from_this().lock(); }
    std::optional<LRESULT> mouseMessage(UINT message, WPARAM first, LPARAM second);
    void failed(const char *what) noexcept;
    void tellReaders();
    void measure();
    [[nodiscard]] Palette palette() const noexcept;
    void paint();
    void mousePressed(MouseButton button, POINT at);
    void mouseReleased(MouseButton button, POINT at);
    bool wheelTurned(bool isUpright, int distance);
    void scrollBarMoved(int bar, WORD action);
    void showBar(int bar, const ScrollRange &range);
    void runMenu(POINT at);
    void runBox();
    void shownOrHidden(bool isShownNow);

    Tablio *core_;
    WindowHost *host_;
    WindowFace face_;
    CellFonts fonts_;
    std::array<Colour, 31> systemColours_{};
    std::vector<Box> boxes_;
    double scale_ = 1;
    bool hasBars_ = true;
    bool arranging_ = false;
    /// The scroll position that was shown last.
    int topRow_ = 0;
    int leftCol_ = 0;
    /// Where screen readers were told last that the keyboard is.
    std::optional<CellAddress> told_;
    /// Grows with the window and is kept: a frame is painted many times a second.
    HBITMAP frame_ = nullptr;
    SIZE frameSize_{};

    std::unique_ptr<EditBox> editBox_;
    std::unique_ptr<CellButton> lookupButton_;
    std::unique_ptr<CellButton> calendarButton_;
    std::unique_ptr<CellButton> arrowButton_;
    std::unique_ptr<DropList> list_;
    std::unique_ptr<MonthCalendar> calendar_;
};

} // namespace tablio::com
