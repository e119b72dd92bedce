#include "widgets/calendar.h"

#include <algorithm>

namespace tablio {

void Calendar::setValue(const Date &value) {
    set(value_, std::clamp(value, firstCellDay, lastCellDay));
}

bool Calendar::keyDown(KeyCode key, ShiftState shift) {
    const int months = (shift & Shift::Ctrl) != 0 ? 12 : 1;
    switch (key) {
    case Key::Left:
        setValue(value_.addDays(-1));
        return true;
    case Key::Right:
        setValue(value_.addDays(1));
        return true;
    case Key::Up:
        setValue(value_.addDays(-7));
        return true;
    case Key::Down:
        setValue(value_.addDays(7));
        return true;
    case Key::PageUp:
        setValue(value_.addMonths(-months));
        return true;
    case Key::PageDown:
        setValue(value_.addMonths(months));
        return true;
    case Key::Home:
        setValue({value_.year, value_.month, 1});
        return true;
    case Key::End:
        setValue({value_.year, value_.month, daysInMonth(value_.year, value_.month)});
        return true;
    default:
        return false;
    }
}

} // namespace tablio
