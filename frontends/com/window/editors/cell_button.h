#pragma once

/// A button at the end of the cell that is being edited: for a lookup, the calendar or a list. It
/// is pressed by the mouse and never takes the keyboard; what a press means the core knows.

#include "window/native_window.h"

#include <tablio/pixels.h>

#include <functional>

namespace tablio::com {

class Window;

class CellButton final : public NativeWindow {
public:
    enum class Sign { Dots, Arrow };

    CellButton(Window &window, Sign sign, const wchar_t *name, std::function<void()> pressed);
    /// Shows it there, or hides it where the area is empty.
    void mirror(const PixelRect &area);
    void draw(HDC device, const RECT &area) const;

private:
    LRESULT message(UINT message, WPARAM first, LPARAM second) override;
    [[nodiscard]] std::shared_ptr<void> keptAlive() override;

    Window &window_;
    Sign sign_;
    std::function<void()> pressed_;
    PixelRect area_;
    bool isDown_ = false;
};

} // namespace tablio::com
