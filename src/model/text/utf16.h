#pragma once

/// Positions in UTF-8 text, counted in UTF-16 code units as every stock text box counts them.
/// Only the widget models convert; everything else hands positions through.

#include <cstddef>
#include <string>
#include <string_view>

namespace tablio::utf16 {

/// Bytes and UTF-16 units of the character that begins here; a stray byte counts as one.
struct CharacterSize {
    std::size_t bytes;
    int units;
};

[[nodiscard]] inline CharacterSize characterAt(std::string_view text, std::size_t offset) noexcept {
    const auto lead = static_cast<unsigned char>(text[offset]);
    const std::size_t wanted = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
    std::size_t bytes = 1;
    while (bytes < wanted && offset + bytes < text.size() &&
           (static_cast<unsigned char>(text[offset + bytes]) & 0xC0U) == 0x80U)
        ++bytes;
    return {bytes, bytes == 4 ? 2 : 1};
}

[[nodiscard]] constexpr int units(char32_t character) noexcept {
    return character > 0xFFFF ? 2 : 1;
}

/// Length of the text in UTF-16 units.
[[nodiscard]] inline int length(std::string_view text) noexcept {
    int units = 0;
    for (std::size_t offset = 0; offset < text.size();) {
        const CharacterSize size = characterAt(text, offset);
        offset += size.bytes;
        units += size.units;
    }
    return units;
}

/// Byte offset of a position; one inside a character or behind the end is moved back.
[[nodiscard]] inline std::size_t byteOffset(std::string_view text, int position) noexcept {
    std::size_t offset = 0;
    while (offset < text.size()) {
        const CharacterSize size = characterAt(text, offset);
        if (size.units > position)
            break;
        position -= size.units;
        offset += size.bytes;
    }
    return offset;
}

/// The character that begins here; a stray byte reads as the replacement character.
[[nodiscard]] inline char32_t decoded(std::string_view text, std::size_t offset) noexcept {
    const std::size_t bytes = characterAt(text, offset).bytes;
    const auto lead = static_cast<unsigned char>(text[offset]);
    if (bytes == 1)
        return lead < 0x80 ? lead : U'\uFFFD';
    char32_t character = lead & (0x7FU >> bytes);
    for (std::size_t next = 1; next < bytes; ++next)
        character = (character << 6U) | (static_cast<unsigned char>(text[offset + next]) & 0x3FU);
    return character;
}

[[nodiscard]] inline std::u32string characters(std::string_view text) {
    std::u32string result;
    for (std::size_t offset = 0; offset < text.size(); offset += characterAt(text, offset).bytes)
        result += decoded(text, offset);
    return result;
}

inline void append(std::string &text, char32_t character) {
    const auto put = [&text](char32_t bits) { text += static_cast<char>(bits); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0U | (character >> 6U));
        put(0x80U | (character & 0x3FU));
    } else if (character < 0x10000) {
        put(0xE0U | (character >> 12U));
        put(0x80U | ((character >> 6U) & 0x3FU));
        put(0x80U | (character & 0x3FU));
    } else {
        put(0xF0U | (character >> 18U));
        put(0x80U | ((character >> 12U) & 0x3FU));
        put(0x80U | ((character >> 6U) & 0x3FU));
        put(0x80U | (character & 0x3FU));
    }
}

} // namespace tablio::utf16
