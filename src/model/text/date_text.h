#pragma once

/// Dates as the grid keeps them: text of the one shape dd/mm/yyyy, where a blank text means "no
/// date". Date cells, the date box and the calendar convert with these functions; they hold no
/// state, accept any text whatever, and never consult the platform's locale.

#include <tablio/date.h>

#include <array>
#include <string>
#include <string_view>

namespace tablio {

/// What a blank text stands for. A real 1 January 1900 therefore shows as blank.
inline constexpr Date noDate{1900, 1, 1};

/// The mask of the date box, which as a column format means day/month/year.
inline constexpr std::string_view dateEditMask = "##/##/####";

/// True for the empty text, the unfilled mask "__/__/____" and the cleared "  /  /    ".
bool IsBlankDate(std::string_view Text);

/// True unless `Text` is a day of a month with "/" in third and sixth place and a year of four
/// digits, all found by their place and the year at the end. Every year divisible by four has a
/// 29 February, and a blank text is invalid: callers that accept one ask IsBlankDate() first.
bool IsDateInvalid(std::string_view Text);

/// The date in `Text`, noDate when it is blank. Nothing is validated: parts out of range roll over
/// (31/02/2001 is 3 March 2001) and a part that is no number counts as 0.
Date TextToDate(std::string_view Text);

/// dd/mm/yyyy, or "  /  /    " for noDate.
std::string DateToText(const Date &Value);

/// The last `Width` characters of 10^Width plus the number in `Text`: ("7", 2) gives "07" and
/// ("12345", 2) gives "45". `Width` counts as 0 to 18.
std::string PadNumber(std::string_view Text, int Width);

/// Names for the pictures `mmm`, `mmmm`, `ddd` and `dddd`.
struct DateNames {
    std::array<std::string_view, 12> months;
    std::array<std::string_view, 12> shortMonths;
    std::array<std::string_view, 7> weekdays; ///< From Monday.
    std::array<std::string_view, 7> shortWeekdays;
};

extern const DateNames englishDateNames;

/// `date` as `picture` shows it: d, dd, m, mm, yy, yyyy in either case for the parts, ddd, dddd,
/// mmm, mmmm for the names; `"…"` and a backslash take characters as they are, and so is every
/// other character. The edit mask, an empty picture and one that names no part of a date show what
/// DateToText() does; noDate is never shown as a date, any other picture leaves it empty.
std::string formatDate(const Date &date, std::string_view picture,
                       const DateNames &names = englishDateNames);

} // namespace tablio
