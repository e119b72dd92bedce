#pragma once

/// Clips the native text box and is the ground around its one line, which the platform cannot put
/// in the middle of a cell. It knows no editor.

#include "window/native_window.h"
#include "window/window.h"

#include <utility>

namespace tablio::com {

class EditFrame final : public NativeWindow {
public:
    explicit EditFrame(Window &window) : window_(window) {
        create(nullptr, window.handle(), WS_CHILD | WS_CLIPSIBLINGS | WS_VISIBLE,
               WS_EX_CONTROLPARENT);
    }
    ~EditFrame() override { DeleteObject(brush_); }
    void setColours(Colour text, Colour ground) {
        text_ = text;
        ground_ = ground;
        DeleteObject(std::exchange(brush_, CreateSolidBrush(ground.value)));
        RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }

private:
    LRESULT message(UINT message, WPARAM first, LPARAM second) override {
        const HDC device = reinterpret_cast<HDC>(first);
        if (message == WM_CTLCOLOREDIT && brush_ != nullptr) {
            SetTextColor(device, text_.value);
            SetBkColor(device, ground_.value);
            return reinterpret_cast<LRESULT>(brush_);
        }
        if (message == WM_ERASEBKGND && brush_ != nullptr) {
            RECT area;
            GetClientRect(handle(), &area);
            FillRect(device, &area, brush_);
            return 1;
        }
        return inherited(message, first, second);
    }
    [[nodiscard]] std::shared_ptr<void> keptAlive() override {
        return window_.weak_from_this().lock();
    }

    Window &window_;
    HBRUSH brush_ = nullptr;
    Colour text_;
    Colour ground_;
};

} // namespace tablio::com
