#pragma once

/// A calendar day and the arithmetic that date cells and the calendar need, in the Gregorian
/// calendar carried back before its introduction. Plain value, any year; it never asks for today's
/// date and knows nothing of text (see date_text.h).

#include <algorithm>
#include <compare>
#include <cstdint>

namespace tablio {

constexpr bool isLeapYear(int year) noexcept {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// `month` is 1 to 12.
constexpr int daysInMonth(int year, int month) noexcept {
    if (month == 2)
        return isLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

/// In which order a locale writes the parts of a date.
enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };

/// Members are as people count them: `month` 1 to 12, `day` 1 to daysInMonth().
struct Date {
    int year = 1900;
    int month = 1;
    int day = 1;

    // clang-tidy takes the zero that the comparison is made of for a pointer.
    friend constexpr auto operator<=>(const Date &,
                                      const Date &) = default; // NOLINT(modernize-use-nullptr)

    /// Days since 1 January 1970, negative before it.
    constexpr std::int64_t dayNumber() const noexcept;
    static constexpr Date fromDayNumber(std::int64_t dayNumber) noexcept;

    /// The day that parts out of range roll over to: day 31 of month 4 is 1 May, month 13 is
    /// January of the next year, day 0 the last day of the month before.
    static constexpr Date rolledOver(int year, int month, int day) noexcept;

    /// 0 is Monday, 6 is Sunday.
    constexpr int weekday() const noexcept;
    constexpr Date addDays(int days) const noexcept;
    /// The same day of another month, or that month's last day when it is shorter.
    constexpr Date addMonths(int months) const noexcept;
};

namespace detail {

/// Division that rounds towards minus infinity, as counting years and eras before 0 needs.
constexpr std::int64_t floorDivide(std::int64_t value, std::int64_t divisor) noexcept {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// A computational year begins on 1 March, so that the leap day is its last day and the lengths of
// the months before it follow one straight line: (153 * month + 2) / 5 days precede `month`.
// 400 such years are always 146,097 days. 1 January 1970 is day 719,468 of this count.
constexpr std::int64_t daysPerEra = 146097;
constexpr std::int64_t epochShift = 719468;

} // namespace detail

constexpr std::int64_t Date::dayNumber() const noexcept {
    const std::int64_t marchYear = std::int64_t{year} - (month <= 2 ? 1 : 0);
    const std::int64_t era = detail::floorDivide(marchYear, 400);
    const std::int64_t yearOfEra = marchYear - era * 400;
    const std::int64_t dayOfYear = (153 * ((month + 9) % 12) + 2) / 5 + day - 1;
    return era * detail::daysPerEra + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 +
           dayOfYear - detail::epochShift;
}

constexpr Date Date::fromDayNumber(std::int64_t dayNumber) noexcept {
    const std::int64_t shifted = dayNumber + detail::epochShift;
    const std::int64_t era = detail::floorDivide(shifted, detail::daysPerEra);
    const std::int64_t dayOfEra = shifted - era * detail::daysPerEra;
    // Leap days are taken out first, so that the rest divides into years of 365 days.
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t marchMonth = (5 * dayOfYear + 2) / 153;
    const int day = static_cast<int>(dayOfYear - (153 * marchMonth + 2) / 5 + 1);
    const int month = static_cast<int>(marchMonth < 10 ? marchMonth + 3 : marchMonth - 9);
    return {static_cast<int>(era * 400 + yearOfEra + (month <= 2 ? 1 : 0)), month, day};
}

constexpr Date Date::rolledOver(int year, int month, int day) noexcept {
    const std::int64_t months = std::int64_t{year} * 12 + month - 1;
    const std::int64_t wholeYears = detail::floorDivide(months, 12);
    const Date first{static_cast<int>(wholeYears), static_cast<int>(months - wholeYears * 12) + 1,
                     1};
    return fromDayNumber(first.dayNumber() + day - 1);
}

constexpr int Date::weekday() const noexcept {
    const std::int64_t fromMonday = dayNumber() + 3; // 1 January 1970 was a Thursday.
    return static_cast<int>(fromMonday - detail::floorDivide(fromMonday, 7) * 7);
}

constexpr Date Date::addDays(int days) const noexcept { return fromDayNumber(dayNumber() + days); }

constexpr Date Date::addMonths(int months) const noexcept {
    const std::int64_t target = std::int64_t{year} * 12 + month - 1 + months;
    const std::int64_t wholeYears = detail::floorDivide(target, 12);
    Date result{static_cast<int>(wholeYears), static_cast<int>(target - wholeYears * 12) + 1, 1};
    result.day = std::min(day, daysInMonth(result.year, result.month));
    return result;
}

/// The first and the last day that a date cell can hold.
inline constexpr Date firstCellDay{1000, 1, 1};
inline constexpr Date lastCellDay{9999, 12, 31};

} // namespace tablio
