#pragma once

/// The list of a combo cell, a list box of the platform in a window above all others. It never
/// takes the keyboard; a press elsewhere closes it, and the core knows what follows.

#include "window/native_window.h"

#include <tablio/screen.h>

#include <string>
#include <vector>

namespace tablio::com {

class Window;

class DropList final : public NativeWindow {
public:
    explicit DropList(Window &window) : window_(window) {}
    ~DropList() override { putAway(); }
    /// Shows the list below that area of the window, or above where there is no room.
    void mirror(const ScreenEditor &editor, const RECT &area);
    void putAway();

private:
    LRESULT message(UINT message, WPARAM first, LPARAM second) override;
    [[nodiscard]] std::shared_ptr<void> keptAlive() override;
    void show(const RECT &area, const Font &font);
    [[nodiscard]] int itemAt(POINT at);
    static LRESULT CALLBACK mouseElsewhere(int code, WPARAM message, LPARAM data);

    Window &window_;
    EditNumber edit_ = 0;
    std::vector<std::string> items_;
    HHOOK elsewhere_ = nullptr;
};

} // namespace tablio::com
