#include "window/editors/cell_button.h"

#include "window/painting/gdi_painter.h"
#include "window/window.h"

#include <utility>

namespace tablio::com {

CellButton::CellButton(Window &window, Sign sign, const wchar_t *name,
                       std::function<void()> pressed)
    : window_(window), sign_(sign), pressed_(std::move(pressed)) {
    create(nullptr, window.handle(), WS_CHILD | WS_CLIPSIBLINGS);
    SetWindowTextW(handle(), name);
}

std::shared_ptr<void> CellButton::keptAlive() { return window_.weak_from_this().lock(); }

void CellButton::mirror(const PixelRect &area) {
    if (area == area_ && isShown() != area.isEmpty())
        return;
    area_ = area;
    if (area.isEmpty())
        hide();
    else
        place(toRect(area));
}

LRESULT CellButton::message(UINT message, WPARAM first, LPARAM second) {
    RECT area;
    GetClientRect(handle(), &area);
    const bool isInside = PtInRect(&area, pointOf(second)) != FALSE;
    switch (message) {
    case WM_MOUSEACTIVATE:
        return MA_ACTIVATE;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        SetCapture(handle());
        isDown_ = true;
        break;
    case WM_MOUSEMOVE:
        if (GetCapture() != handle() || isDown_ == isInside)
            return 0;
        isDown_ = isInside;
        break;
    case WM_LBUTTONUP:
        if (GetCapture() != handle())
            return 0;
        isDown_ = false;
        ReleaseCapture();
        InvalidateRect(handle(), nullptr, FALSE);
        if (isInside)
            pressed_();
        return 0;
    case WM_CAPTURECHANGED:
        isDown_ = false;
        break;
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT: {
        PAINTSTRUCT paint;
        draw(BeginPaint(handle(), &paint), area);
        EndPaint(handle(), &paint);
        return 0;
    }
    default:
        return inherited(message, first, second);
    }
    InvalidateRect(handle(), nullptr, FALSE);
    return 0;
}

void CellButton::draw(HDC device, const RECT &area) const {
    RECT face = area;
    const UINT down = isDown_ ? DFCS_PUSHED : 0U;
    if (sign_ == Sign::Arrow) {
        DrawFrameControl(device, &face, DFC_SCROLL, DFCS_SCROLLCOMBOBOX | down);
        return;
    }
    DrawFrameControl(device, &face, DFC_BUTTON, DFCS_BUTTONPUSH | down);
    const int saved = SaveDC(device);
    SelectObject(device, window_.fontOf({}).handle);
    SetBkMode(device, TRANSPARENT);
    SetTextColor(device, GetSysColor(COLOR_BTNTEXT));
    DrawTextW(device, L"\u2026", 1, &face, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    RestoreDC(device, saved);
}

} // namespace tablio::com
