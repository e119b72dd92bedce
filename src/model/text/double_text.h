#pragma once

/// Binary numbers as decimal text that follows no locale: what values turn into and what stores
/// keep. Every digit is exact; numbers that users type never become binary and are not written
/// here.

#include <string>

namespace tablio {

/// At most so many significant digits, correctly rounded, without needless zeros; with an exponent
/// behind `exponentSign` ('E' or 'e') when it is below -4 or not below `digits`. Zero has no sign;
/// what is no number is "INF", "-INF" or "NAN".
[[nodiscard]] std::string textOfDouble(double number, int digits, char exponentSign);

} // namespace tablio
