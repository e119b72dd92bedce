#pragma once

/// Digits of other scripts, which people type and paste where their keyboards have them. The
/// control itself computes with, and shows, those of ASCII.

#include "model/text/utf16.h"

#include <array>
#include <string>
#include <string_view>

namespace tablio {

/// The ASCII digit of the same value; any other character stays as it is.
[[nodiscard]] constexpr char32_t plainDigit(char32_t character) noexcept {
    // Where each script's zero stands; its other digits follow.
    constexpr std::array<char32_t, 19> zeros{0x0660, 0x06F0, 0x07C0, 0x0966, 0x09E6, 0x0A66, 0x0AE6,
                                             0x0B66, 0x0BE6, 0x0C66, 0x0CE6, 0x0D66, 0x0E50, 0x0ED0,
                                             0x0F20, 0x1040, 0x17E0, 0x1810, 0xFF10};
    for (const char32_t zero : zeros) {
        if (character >= zero && character <= zero + 9)
            return character - zero + U'0';
    }
    return character;
}

/// The text with plain digits and without the marks of direction that some locales write with their
/// signs.
[[nodiscard]] inline std::string withPlainDigits(std::string_view text) {
    std::string result;
    for (const char32_t character : utf16::characters(text)) {
        if (character != 0x200E && character != 0x200F && character != 0x061C)
            utf16::append(result, plainDigit(character));
    }
    return result;
}

} // namespace tablio
