#include "object/text.h"

#include <new>

namespace tablio::com {

namespace {

constexpr char32_t replacement = 0xFFFD;

void append(std::string &text, char32_t character) {
    const auto byte = [&text](char32_t value) { text += static_cast<char>(value); };
    if (character < 0x80) {
        byte(character);
    } else if (character < 0x800) {
        byte(0xC0 | (character >> 6U));
        byte(0x80 | (character & 0x3FU));
    } else if (character < 0x10000) {
        byte(0xE0 | (character >> 12U));
        byte(0x80 | ((character >> 6U) & 0x3FU));
        byte(0x80 | (character & 0x3FU));
    } else {
        byte(0xF0 | (character >> 18U));
        byte(0x80 | ((character >> 12U) & 0x3FU));
        byte(0x80 | ((character >> 6U) & 0x3FU));
        byte(0x80 | (character & 0x3FU));
    }
}

} // namespace

WideText wide(std::string_view text) {
    WideText result;
    widen(text, result);
    return result;
}

void widen(std::string_view text, WideText &result) {
    result.clear();
    result.reserve(text.size());
    bool isAscii = true;
    for (const char byte : text) {
        isAscii = isAscii && static_cast<unsigned char>(byte) < 0x80;
        result += static_cast<OLECHAR>(static_cast<unsigned char>(byte));
    }
    if (isAscii)
        return;
    const int length = static_cast<int>(text.size());
    result.resize(text.size()); // UTF-16 has no more units than UTF-8 has bytes
    result.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(), length)));
}

std::string narrow(WideView text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t place = 0; place < text.size(); ++place) {
        char32_t unit = text[place];
        if (unit >= 0xD800 && unit < 0xE000) {
            const bool isPair =
                unit < 0xDC00 && place + 1 < text.size() && (text[place + 1] & 0xFC00) == 0xDC00;
            unit = isPair ? 0x10000 + ((unit - 0xD800) << 10U) + (text[++place] - 0xDC00U)
                          : replacement;
        }
        append(result, unit);
    }
    return result;
}

BSTR newBstr(std::string_view text) {
    const WideText units = wide(text);
    BSTR result = SysAllocStringLen(units.data(), static_cast<UINT>(units.size()));
    if (result == nullptr)
        throw std::bad_alloc();
    return result;
}

} // namespace tablio::com
