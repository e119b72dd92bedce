#include "window/editors/month_calendar.h"

#include "window/painting/gdi_painter.h"
#include "window/window.h"

#include <commctrl.h>

#include <cmath>

namespace tablio::com {

namespace {

constexpr UINT pickedMessage = WM_USER + 1;

SYSTEMTIME toSystem(const Date &day) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(day.year);
    time.wMonth = static_cast<WORD>(day.month);
    time.wDay = static_cast<WORD>(day.day);
    return time;
}

Date fromSystem(const SYSTEMTIME &time) { return {time.wYear, time.wMonth, time.wDay}; }

} // namespace

/// The platform's calendar, but for the keyboard.
class MonthCalendar::Inner final : public NativeWindow {
public:
    Inner(Window &window, HWND frame) : window_(window) {
        INITCOMMONCONTROLSEX kinds{sizeof kinds, ICC_DATE_CLASSES};
        InitCommonControlsEx(&kinds);
        create(MONTHCAL_CLASSW, frame, WS_CHILD | WS_VISIBLE);
    }

private:
    LRESULT message(UINT message, WPARAM first, LPARAM second) override {
        const LRESULT result = inherited(message, first, second);
        // A year is typed into a box of the calendar's own, which is a child of it.
        if (message == WM_SETFOCUS || (message == WM_LBUTTONDOWN && GetFocus() == handle()))
            window_.takeKeyboard();
        return result;
    }
    [[nodiscard]] std::shared_ptr<void> keptAlive() override {
        return window_.weak_from_this().lock();
    }

    Window &window_;
};

MonthCalendar::MonthCalendar(Window &window) : window_(window) {
    create(nullptr, window.handle(), WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_BORDER);
    inner_ = std::make_unique<Inner>(window, handle());
}

MonthCalendar::~MonthCalendar() = default;

std::shared_ptr<void> MonthCalendar::keptAlive() { return window_.weak_from_this().lock(); }

HWND MonthCalendar::calendar() const noexcept { return inner_->handle(); }

/// A calendar has the size that its font asks for.
void MonthCalendar::measure() {
    SendMessageW(calendar(), WM_SETFONT, reinterpret_cast<WPARAM>(window_.fontOf({}).handle), 0);
    SYSTEMTIME range[2] = {toSystem(firstCellDay), toSystem(lastCellDay)};
    // The platform's own first day is later than the core's.
    range[0].wYear = 1753;
    SendMessageW(calendar(), MCM_SETRANGE, GDTR_MIN | GDTR_MAX, reinterpret_cast<LPARAM>(range));
    RECT least{};
    SendMessageW(calendar(), MCM_GETMINREQRECT, 0, reinterpret_cast<LPARAM>(&least));
    const auto today = static_cast<LONG>(SendMessageW(calendar(), MCM_GETMAXTODAYWIDTH, 0, 0));
    size_ = {std::max(least.right - least.left, today), least.bottom - least.top};
    SetWindowPos(calendar(), nullptr, 0, 0, size_.cx, size_.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

void MonthCalendar::mirror() {
    if (mirroring_)
        return;
    mirroring_ = true;
    const std::optional<ScreenEditor> editor = window_.screen().editor();
    ScreenWidget frame = window_.screen().widget(WidgetId::picDate);
    if (editor && frame.isVisible) {
        edit_ = editor->edit;
        if (size_.cx == 0)
            measure();
        const int border = GetSystemMetrics(SM_CXBORDER);
        const LONG width = size_.cx + 2 * border;
        const LONG height = size_.cy + 2 * border;
        const DevicePixels pixels = window_.pixels();
        if (pixels.edge(frame.place.width) != width || pixels.edge(frame.place.height) != height) {
            window_.tell([&](Input &input) {
                input.calendarSized(window_.twips(width), window_.twips(height));
            });
            frame = window_.screen().widget(WidgetId::picDate);
        }
        SYSTEMTIME day = toSystem(window_.screen().calendarDay());
        SYSTEMTIME shown{};
        SendMessageW(calendar(), MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&shown));
        if (fromSystem(day) != fromSystem(shown))
            SendMessageW(calendar(), MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&day));
        const LONG left = pixels.edge(frame.place.left);
        const LONG top = pixels.edge(frame.place.top);
        place({left, top, left + width, top + height});
    } else if (handle() != nullptr && isShown()) {
        hide();
    }
    mirroring_ = false;
}

LRESULT MonthCalendar::message(UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NOTIFY && !mirroring_) {
        const auto &notice = *reinterpret_cast<const NMSELCHANGE *>(second);
        const bool isPicked = notice.nmhdr.code == static_cast<UINT>(MCN_SELECT);
        if (isPicked || notice.nmhdr.code == static_cast<UINT>(MCN_SELCHANGE)) {
            const Date day = fromSystem(notice.stSelStart);
            // The platform's calendar is in the middle of a press, which a handler might end it in.
            PostMessageW(handle(), pickedMessage, isPicked ? 1 : 0,
                         static_cast<LPARAM>(day.dayNumber()));
        }
        return 0;
    }
    if (message == pickedMessage) {
        const Date day = Date::fromDayNumber(second);
        window_.tell([&](Input &input) {
            if (first != 0)
                input.calendarPicked(edit_, day);
            else
                input.calendarMoved(edit_, day);
        });
        return 0;
    }
    return inherited(message, first, second);
}

} // namespace tablio::com
