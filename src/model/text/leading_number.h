#pragma once

/// Numbers in texts that follow no locale: stored column settings, the parts of a date, and the
/// boxes of property pages, which design tools write. The cells of the table are read by
/// `decimal_text.h`.

#include <cstdint>
#include <string_view>

namespace tablio {

/// The number at the start of a text, 0 where there is none: "12 mm" is 12, "abc" is 0. Blanks
/// count for nothing, wherever they stand.
[[nodiscard]] double leadingNumber(std::string_view text);

/// The same as a whole number, the even one of two neighbours; at most 18 digits are told apart.
[[nodiscard]] std::int64_t leadingWhole(std::string_view text);

/// The nearest whole number, the even one of two.
[[nodiscard]] double nearestWhole(double number) noexcept;

} // namespace tablio
