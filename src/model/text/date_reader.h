#pragma once

/// Reads dates that somebody wrote elsewhere and that arrive whole: pasted, dropped or settled.
/// What is not surely one date is none, so that no date becomes another on its way.

#include <tablio/date.h>

#include <optional>
#include <string>
#include <string_view>

namespace tablio {

/// The date in `text` as dd/mm/yyyy. Its parts stand in `order` or, behind a year of four digits,
/// month before day; between them are "/", ".", "-" or blanks. Day and month may have one digit,
/// and two digits of a year stand for 1950 to 2049. A time of day may follow. Eight digits alone
/// are day, month, year or, where only that is a date, year, month, day. Nothing is answered for
/// anything else, nor for a day that does not exist.
std::optional<std::string> readDate(std::string_view text, DateOrder order);

/// Tells people why a text of the date box, or one that was pasted, is no date.
std::string whatIsWrongWith(std::string_view text);

} // namespace tablio
