#include <tablio/face.h>

#include "model/text/utf16.h"

namespace tablio {

Twips Face::textWidth(std::string_view text, const Font &font) const {
    // Half of the letters' height, which is 9 points where nobody says another.
    constexpr float usualSize = 9;
    constexpr Twips twipsPerPoint = 20;
    const float size = font.size > 0 ? font.size : usualSize;
    return static_cast<Twips>(static_cast<float>(utf16::length(text) * twipsPerPoint) * size / 2);
}

char32_t Face::toUpper(char32_t character) const {
    const bool isLower = (character >= U'a' && character <= U'z') ||
                         (character >= 0xE0 && character <= 0xFE && character != 0xF7);
    return isLower ? character - 32 : character;
}

char32_t Face::toLower(char32_t character) const {
    const bool isUpper = (character >= U'A' && character <= U'Z') ||
                         (character >= 0xC0 && character <= 0xDE && character != 0xD7);
    return isUpper ? character + 32 : character;
}

} // namespace tablio
