#include "pages/page_numbers.h"

#include <tablio/value.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace tablio {

int leadingIndex(std::string_view text) {
    constexpr double least = std::numeric_limits<std::int16_t>::min();
    constexpr double greatest = std::numeric_limits<std::int16_t>::max();
    return Value(std::clamp(leadingNumber(text), least, greatest)).toLong();
}

} // namespace tablio
