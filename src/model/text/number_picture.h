#pragma once

/// Shows numbers through format pictures such as `###,##0.00`. Cells, editors and the column
/// settings use it; it never parses what it has shown (see decimal_text.h for reading).

#include "model/text/decimal_text.h"

#include <string>
#include <string_view>

namespace tablio {

/// `value` as `picture` shows it with the signs of `format`. In a picture
/// - `0` is a digit that is always shown, `#` one that is shown when the number has it; digits left
///   of the first placeholder are all shown, digits right of the last are rounded half away from
///   zero;
/// - `.` is the decimal sign, always shown; `,` between placeholders groups, and each `,` directly
///   right of the last placeholder of the integer part or of the picture divides by 1000;
/// - `%` multiplies by 100 and is shown; `"…"` and a backslash take characters as they are, and so
///   is every other character;
/// - `;` separates what is shown for positive, negative and zero values. An empty second or third
///   part means the first one, with a minus sign for negative values. A value that rounds to zero
///   is shown as zero.
/// An empty picture gives the plain text of the number; a part without placeholders only its own
/// characters. No picture is an error: an open quote ends with the picture, and a backslash at the
/// very end shows nothing.
std::string formatNumber(const Decimal &value, std::string_view picture,
                         const NumberFormat &format);

/// How many decimals `picture` allows to be typed: the number of characters after its first ".",
/// whatever they are, and 0 without one.
int decimalsOfPicture(std::string_view picture) noexcept;

} // namespace tablio
