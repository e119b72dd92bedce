#pragma once

/// A month calendar with one chosen day. Keys move the day; picking it is the business of whoever
/// shows the calendar.

#include "widgets/widget.h"

namespace tablio {

class Calendar : public Widget {
public:
    using Widget::Widget;

    [[nodiscard]] const Date &Value() const noexcept { return value_; }
    /// A day that no cell can hold becomes the nearest one.
    void setValue(const Date &value);
    /// Arrows a day or a week, pages a month or with Ctrl a year, Home and End to the ends of the
    /// month. Answers whether the key is one of those.
    bool keyDown(KeyCode key, ShiftState shift);

private:
    Date value_{2000, 1, 1};
};

} // namespace tablio
