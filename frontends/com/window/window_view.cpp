/// How the window shows the grid: its room beside the scroll bars, its picture, and the native
/// parts over it.

#include "window/window.h"

#include "window/editors/cell_button.h"
#include "window/editors/drop_list.h"
#include "window/editors/edit_box.h"
#include "window/editors/month_calendar.h"
#include "window/painting/gdi_painter.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace tablio::com {

namespace {

constexpr double usualDpi = 96;

double scaleOf(HWND window) {
    // Older systems have one resolution for all screens and no such function.
    using DpiOf = UINT(WINAPI *)(HWND);
    static const auto dpiOf = reinterpret_cast<DpiOf>(reinterpret_cast<void *>(
        GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")));
    if (dpiOf != nullptr && window != nullptr)
        return dpiOf(window) / usualDpi;
    const HDC device = GetDC(window);
    const int dpi = GetDeviceCaps(device, LOGPIXELSX);
    ReleaseDC(window, device);
    return dpi / usualDpi;
}

PixelRect fromRect(const RECT &area) {
    return {area.left, area.top, area.right - area.left, area.bottom - area.top};
}

std::vector<PixelRect> areasOf(HRGN region) {
    std::vector<std::byte> bytes(GetRegionData(region, 0, nullptr));
    std::vector<PixelRect> areas;
    if (bytes.empty())
        return areas;
    auto *const data = reinterpret_cast<RGNDATA *>(bytes.data());
    GetRegionData(region, static_cast<DWORD>(bytes.size()), data);
    const auto *const first = reinterpret_cast<const RECT *>(data->Buffer);
    std::transform(first, first + data->rdh.nCount, std::back_inserter(areas), fromRect);
    return areas;
}

} // namespace

void Window::measure() {
    scale_ = scaleOf(handle());
    for (std::size_t index = 0; index < systemColours_.size(); ++index)
        systemColours_[index] = Colour{GetSysColor(static_cast<int>(index))};
    face_.forgetNumberFormat();
    fonts_.setDefault(face_.defaultFont(), scale_);
}

void Window::showAnew() {
    if (core_ == nullptr)
        return;
    measure();
    if (!isOpen())
        return;
    editBox_->forgetLook();
    calendar_->measureAnew();
    list_->putAway();
    arrange();
    showScrolled();
    mirror();
    InvalidateRect(handle(), nullptr, FALSE);
}

void Window::showBars(bool shown) {
    hasBars_ = shown;
    arrange();
}

bool Window::isEnabled() const noexcept {
    return IsWindowEnabled(handle()) != FALSE &&
           (core_->Enabled() || screen().widget(WidgetId::picDate).isVisible);
}

Twips Window::twips(int pixels) const noexcept {
    return static_cast<Twips>(std::lround(pixels * twipsPerPixel / scale_));
}

Palette Window::palette() const noexcept {
    const auto at = [this](int index) { return systemColours_[static_cast<std::size_t>(index)]; };
    const Colour disabled = at(COLOR_GRAYTEXT);
    const auto [ground, text] =
        host_->formColours().value_or(std::pair(at(COLOR_BTNFACE), at(COLOR_BTNTEXT)));
    return {at(COLOR_WINDOW),
            isEnabled() ? at(COLOR_WINDOWTEXT) : disabled,
            disabled,
            at(COLOR_BTNFACE),
            at(COLOR_BTNTEXT),
            ground,
            text,
            at(COLOR_HIGHLIGHT),
            at(COLOR_HIGHLIGHTTEXT),
            at(COLOR_BTNSHADOW),
            at(COLOR_INFOBK),
            at(COLOR_INFOTEXT),
            systemColours_};
}

void Window::arrange() {
    // Telling the core about a size makes it report its scroll range, which comes back to here.
    if (arranging_ || !isOpen())
        return;
    arranging_ = true;
    RECT whole;
    GetWindowRect(handle(), &whole);
    const int breadth = hasBars_ ? GetSystemMetrics(SM_CXVSCROLL) : 0;
    const int depth = hasBars_ ? GetSystemMetrics(SM_CYHSCROLL) : 0;
    const Arrangement grid =
        screen().arranged(twips(whole.right - whole.left), twips(whole.bottom - whole.top),
                          twips(breadth), twips(depth));
    const LONG bars = WS_VSCROLL | WS_HSCROLL;
    const LONG wanted =
        !hasBars_ ? 0 : (grid.hasRowBar ? WS_VSCROLL : 0) | (grid.hasColBar ? WS_HSCROLL : 0);
    const LONG style = GetWindowLongW(handle(), GWL_STYLE);
    if ((style & bars) != wanted) {
        SetWindowLongW(handle(), GWL_STYLE, (style & ~bars) | wanted);
        SetWindowPos(handle(), nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    }
    tell([&](Input &input) { input.resized(grid.width, grid.height); });
    arranging_ = false;
}

void Window::showBar(int bar, const ScrollRange &range) {
    // Setting up a bar would show it.
    const LONG style = bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL;
    if ((GetWindowLongW(handle(), GWL_STYLE) & style) == 0)
        return;
    SCROLLINFO wanted{sizeof wanted,
                      SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL,
                      range.first,
                      range.last + range.page - 1,
                      static_cast<UINT>(range.page),
                      range.position,
                      0};
    SCROLLINFO now = wanted;
    GetScrollInfo(handle(), bar, &now);
    // A thumb that is being dragged must not be moved under the user's hand for nothing.
    if (now.nMin != wanted.nMin || now.nMax != wanted.nMax || now.nPage != wanted.nPage ||
        now.nPos != wanted.nPos)
        SetScrollInfo(handle(), bar, &wanted, TRUE);
}

void Window::showScrolled() {
    if (!isOpen())
        return;
    const ScrollRange rows = screen().rowRange();
    const ScrollRange cols = screen().colRange();
    showBar(SB_VERT, rows);
    showBar(SB_HORZ, cols);
    const int topRow = std::exchange(topRow_, rows.position);
    const int leftCol = std::exchange(leftCol_, cols.position);
    const ScrollMove move = screen().movedSince(topRow, leftCol, scale_);
    const auto scaled = [this](int pixels) { return static_cast<int>(pixels * scale_); };
    RECT area;
    GetClientRect(handle(), &area);
    area.top = scaled(move.top);
    if (move.distance == 0)
        InvalidateRect(handle(), nullptr, FALSE);
    else
        ScrollWindowEx(handle(), 0, scaled(move.distance), &area, &area, nullptr, nullptr,
                       SW_INVALIDATE);
}

void Window::tellReaders() {
    const std::optional<CellAddress> cell = hasKeyboard() ? screen().currentCell() : std::nullopt;
    if (cell && cell != told_)
        NotifyWinEvent(EVENT_OBJECT_FOCUS, handle(), OBJID_CLIENT, childOf(*cell));
    told_ = cell;
}

void Window::showArea(const Rect &area) {
    if (!isOpen())
        return core_ != nullptr ? host_->pictureChanged() : void();
    const RECT device = toRect(pixels().rect(area));
    InvalidateRect(handle(), &device, FALSE);
}

void Window::showCurrentCell() {
    if (!isOpen())
        return;
    if (const std::optional<CellAddress> cell = screen().currentCell())
        showArea(screen().cellRect(*cell));
}

void Window::paint() {
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    GetUpdateRgn(handle(), region, FALSE);
    const std::vector<PixelRect> areas = areasOf(region);
    DeleteObject(region);
    PAINTSTRUCT paint;
    const HDC device = BeginPaint(handle(), &paint);
    RECT room;
    GetClientRect(handle(), &room);
    if (frame_ == nullptr || frameSize_.cx < room.right || frameSize_.cy < room.bottom) {
        if (frame_ != nullptr)
            DeleteObject(frame_);
        frameSize_ = {room.right, room.bottom};
        frame_ = CreateCompatibleBitmap(device, room.right, room.bottom);
    }
    const HDC memory = CreateCompatibleDC(device);
    const HGDIOBJ before = SelectObject(memory, frame_);
    {
        GdiPainter painter(memory, fonts_);
        screen().paint(areas, {palette(), scale_, hasKeyboard(), isEnabled()}, painter);
    }
    for (const PixelRect &area : areas)
        BitBlt(device, area.left, area.top, area.width, area.height, memory, area.left, area.top,
               SRCCOPY);
    SelectObject(memory, before);
    DeleteDC(memory);
    EndPaint(handle(), &paint);
}

void Window::draw(HDC device, const RECT &area, double scale) {
    if (core_ == nullptr)
        return;
    const int saved = SaveDC(device);
    IntersectClipRect(device, area.left, area.top, area.right, area.bottom);
    OffsetViewportOrgEx(device, area.left, area.top, nullptr);
    const PixelRect room{0, 0, area.right - area.left, area.bottom - area.top};
    CellFonts fonts;
    fonts.setDefault(face_.defaultFont(), scale);
    {
        GdiPainter painter(device, fonts);
        screen().paint({&room, 1}, {palette(), scale, false, true}, painter);
    }
    RestoreDC(device, saved);
}

void Window::mirror() {
    if (!isOpen())
        return;
    const DevicePixels dots = pixels();
    const auto buttonPlace = [&](WidgetId id) {
        const ScreenWidget button = screen().widget(id);
        return button.isVisible ? dots.withoutLines(button.place) : PixelRect{};
    };
    // The box lies under the buttons, and the calendar over all.
    editBox_->mirror();
    lookupButton_->mirror(buttonPlace(WidgetId::cmdLookup));
    calendarButton_->mirror(buttonPlace(WidgetId::cmdCalender));
    const std::optional<ScreenEditor> editor = screen().editor();
    PixelRect arrow;
    PixelRect combo;
    if (editor && screen().widget(WidgetId::cboEdit).isVisible) {
        combo = dots.withoutLines(editor->frame);
        const int width = screen().devicePlaceOf(*editor, dots).width;
        arrow = {combo.left + width, combo.top, combo.width - width, combo.height};
    }
    arrowButton_->mirror(arrow);
    if (!combo.isEmpty() && screen().list().isDropped)
        list_->mirror(*editor, toRect(combo));
    else
        list_->putAway();
    calendar_->mirror();
    tellReaders();
}

} // namespace tablio::com
