#include "model/text/direction.h"

#include "model/text/utf16.h"

namespace tablio {

namespace {

bool isWithin(char32_t character, char32_t first, char32_t last) {
    return character >= first && character <= last;
}

/// Hebrew, Arabic, Syriac, Thaana, N'Ko and their neighbours, with the forms that are kept for old
/// texts, and the mark that says nothing else.
bool runsLeft(char32_t character) {
    return character == 0x200F || isWithin(character, 0x5BE, 0x5F4) ||
           isWithin(character, 0x608, 0x64A) || isWithin(character, 0x66D, 0x6D5) ||
           isWithin(character, 0x6FA, 0x8FF) || isWithin(character, 0xFB1D, 0xFDFF) ||
           isWithin(character, 0xFE70, 0xFEFC) || isWithin(character, 0x10800, 0x10FFF) ||
           isWithin(character, 0x1E800, 0x1EFFF);
}

/// Letters; below them and between stand digits, signs and punctuation.
bool runsRight(char32_t character) {
    return isWithin(character, U'A', U'Z') || isWithin(character, U'a', U'z') ||
           isWithin(character, 0xC0, 0x58F) || isWithin(character, 0x900, 0x1FFF) ||
           character == 0x200E || isWithin(character, 0x2C00, 0x2DFF) || character >= 0x3040;
}

} // namespace

bool runsRightToLeft(std::string_view text) noexcept {
    for (std::size_t at = 0; at < text.size(); at += utf16::characterAt(text, at).bytes) {
        const char32_t character = utf16::decoded(text, at);
        if (runsLeft(character))
            return true;
        if (runsRight(character))
            return false;
    }
    return false;
}

} // namespace tablio
