#pragma once

/// How the property pages read the numbers in their text boxes. Unlike the cells of the table they
/// follow no locale, because design tools write what these boxes hold.

#include "model/text/leading_number.h"

#include <string_view>

namespace tablio {

/// The number at the start of a text as a whole number, a half rounded to its even neighbour.
/// Beyond 16 bits, where the control has no counts and indexes, it is the greatest or least of
/// them.
[[nodiscard]] int leadingIndex(std::string_view text);

} // namespace tablio
