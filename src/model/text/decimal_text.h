#pragma once

/// The signs that a number is made of in a text that a user types or a cell holds. `Decimal` reads
/// numbers by them, and whoever filters or groups what is typed.

#include <tablio/decimal.h>

#include <cstddef>
#include <string_view>

namespace tablio {

/// The first place from `position` on where no blank stands.
std::size_t skipBlanks(std::string_view text, std::size_t position) noexcept;

/// The decimal sign of `format`, "." when it names none; valid as long as `format` is.
std::string_view decimalSignOf(const NumberFormat &format) noexcept;

/// The number of bytes of the blank (space, tab, no-break or narrow space …) that stands at byte
/// `position` of `text`; 0 when none does.
std::size_t blankLength(std::string_view text, std::size_t position) noexcept;

/// The same for a minus sign: the hyphen or U+2212.
std::size_t minusLength(std::string_view text, std::size_t position) noexcept;

/// The same for a decimal sign. Besides the sign of `format` a comma counts when that sign is
/// neither "." nor "," and the comma does not group: it is what numeric keyboards offer there.
std::size_t decimalSignLength(std::string_view text, std::size_t position,
                              const NumberFormat &format) noexcept;

/// The same for a grouping sign. Where a blank groups, any blank does, and where an apostrophe
/// groups, both the straight and the curly one do, because users type what their keyboard has.
std::size_t groupSignLength(std::string_view text, std::size_t position,
                            const NumberFormat &format) noexcept;

/// The byte position of the first decimal sign in `text`, or npos.
std::size_t findDecimalSign(std::string_view text, const NumberFormat &format) noexcept;

} // namespace tablio
