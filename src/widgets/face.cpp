#include <tablio/face.h>

namespace tablio {

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
