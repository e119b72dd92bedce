#pragma once

/// How the property pages read the numbers in their text boxes. Unlike the cells of the table they
/// follow no locale, because design tools write what these boxes hold.

#include "model/text/leading_number.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

namespace tablio {

/// The whole number at the start of a text. Beyond 16 bits, where the control has no counts and
/// indexes, it is the greatest or least of them.
[[nodiscard]] inline int leadingIndex(std::string_view text) {
    using Limits = std::numeric_limits<std::int16_t>;
    return static_cast<int>(
        std::clamp<std::int64_t>(leadingWhole(text), Limits::min(), Limits::max()));
}

} // namespace tablio
