#include "model/text/date_reader.h"

#include "model/text/date_text.h"
#include "model/text/trim.h"

#include <algorithm>
#include <array>

namespace tablio {

namespace {

constexpr int firstShortYear = 1950;

std::size_t digitsAtStart(std::string_view text) noexcept {
    return std::min(text.find_first_not_of("0123456789"), text.size());
}

std::string_view take(std::string_view &text, std::size_t length) noexcept {
    const std::string_view taken = text.substr(0, length);
    text.remove_prefix(length);
    return taken;
}

/// One sign, and blanks on either side of it; or blanks alone.
bool takeSeparator(std::string_view &text) noexcept {
    const std::size_t before = text.size();
    text = trimmed(text);
    if (!text.empty() && (text[0] == '/' || text[0] == '.' || text[0] == '-'))
        text = trimmed(text.substr(1));
    return text.size() < before;
}

bool isTimeOfDay(std::string_view text) noexcept {
    const std::size_t hours = digitsAtStart(text);
    return (hours == 1 || hours == 2) && text.substr(hours, 1) == ":" &&
           text.find_first_not_of("0123456789:.,+- AaPpMmZz") == std::string_view::npos;
}

/// Whatever may stand behind a date.
bool isRest(std::string_view text) noexcept {
    if (!text.empty() && text[0] == '.')
        text.remove_prefix(1);
    if (text.empty())
        return true;
    const bool isApart = text[0] == ' ' || text[0] == 'T' || text[0] == ',';
    return isApart && isTimeOfDay(trimmed(text.substr(1)));
}

std::optional<std::string> dateOf(std::string_view day, std::string_view month,
                                  std::string_view year) {
    if (day.empty() || day.size() > 2 || month.empty() || month.size() > 2 ||
        (year.size() != 2 && year.size() != 4))
        return std::nullopt;
    std::string fullYear(year);
    if (year.size() == 2) {
        const int century = firstShortYear / 100;
        const bool isEarly = year < std::to_string(firstShortYear % 100);
        fullYear = std::to_string(isEarly ? century + 1 : century).append(year);
    }
    std::string date = PadNumber(day, 2) + '/' + PadNumber(month, 2) + '/' + fullYear;
    return IsDateInvalid(date) ? std::nullopt : std::optional(std::move(date));
}

std::optional<std::string> readDigits(std::string_view text) {
    auto dayFirst = dateOf(text.substr(0, 2), text.substr(2, 2), text.substr(4));
    auto yearFirst = dateOf(text.substr(6), text.substr(4, 2), text.substr(0, 4));
    if (dayFirst && yearFirst)
        return std::nullopt;
    return dayFirst ? dayFirst : yearFirst;
}

} // namespace

std::optional<std::string> readDate(std::string_view text, DateOrder order) {
    text = trimmed(text);
    if (text.size() == 8 && digitsAtStart(text) == 8)
        return readDigits(text);
    std::array<std::string_view, 3> parts;
    for (std::string_view &part : parts) {
        if (&part != &parts.front() && !takeSeparator(text))
            return std::nullopt;
        part = take(text, digitsAtStart(text));
    }
    if (!isRest(text))
        return std::nullopt;
    const auto &[first, second, third] = parts;
    const bool isShort = first.size() <= 2 && third.size() <= 2;
    if (first.size() == 4 || (order == DateOrder::YearMonthDay && isShort))
        return dateOf(third, second, first);
    return order == DateOrder::MonthDayYear ? dateOf(second, first, third)
                                            : dateOf(first, second, third);
}

std::string whatIsWrongWith(std::string_view text) {
    const std::string typed(text);
    if (text.size() != 10 || text[2] != '/' || text[5] != '/')
        return "This is no date: " + typed;
    if (text.find('_') != std::string_view::npos)
        return "The date is not complete: " + typed;
    const std::string month(text.substr(3, 2));
    const std::string year(text.substr(6));
    if (year < "1000")
        return "A year has four digits, from 1000 on: " + typed;
    for (int last = 31; last > 27; --last) {
        const std::string day = std::to_string(last);
        if (!IsDateInvalid(day + '/' + month + '/' + year))
            return typed + ": month " + month + " of " + year + " has the days 1 to " + day;
    }
    return "There are the months 1 to 12: " + typed;
}

} // namespace tablio
