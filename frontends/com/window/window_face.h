#pragma once

/// The core's view of the window: what has changed is shown in it, as long as there is one. Nothing
/// here waits for the user.

#include "object/platform_face.h"

namespace tablio::com {

class Window;

class WindowFace final : public PlatformFace {
public:
    WindowFace(Window &window, WindowHost &host) : PlatformFace(host), window_(window) {}

    void shown() override;
    [[nodiscard]] bool canTakeFocus() const override;
    void takeFocus() override;
    void areaChanged(const Rect &area) override;
    void scrolled() override;
    void popUpMenu(Twips x, Twips y) override;
    void showWarning(std::string_view title, std::string_view text) override;
    [[nodiscard]] bool showQuestion(std::string_view title, std::string_view text) override;

    [[nodiscard]] Font defaultFont() const override;

    void letPendingEventsRun() override;

    [[nodiscard]] Window &window() const noexcept { return window_; }

private:
    Window &window_;
    /// Of letPendingEventsRun(), in milliseconds of the system's clock.
    unsigned calls_ = 0;
    ULONGLONG lastLook_ = 0;
    ULONGLONG lastEvents_ = 0;
};

} // namespace tablio::com
