#pragma once

/// The calendar of a date cell: the platform's own, in a frame inside the control. It never keeps
/// the keyboard, which the text box holds; keys that move its day go through the core.

#include "window/native_window.h"

#include <tablio/screen.h>

namespace tablio::com {

class Window;

class MonthCalendar final : public NativeWindow {
public:
    explicit MonthCalendar(Window &window);
    ~MonthCalendar() override;
    void mirror();
    /// Font or screen are others.
    void measureAnew() { size_ = {}; }
    [[nodiscard]] HWND calendar() const noexcept;

private:
    class Inner;

    LRESULT message(UINT message, WPARAM first, LPARAM second) override;
    [[nodiscard]] std::shared_ptr<void> keptAlive() override;
    void measure();

    Window &window_;
    std::unique_ptr<Inner> inner_;
    EditNumber edit_ = 0;
    SIZE size_{};
    bool mirroring_ = false;
};

} // namespace tablio::com
