#pragma once

/// What the control knows of single characters without asking anybody: ASCII digits and the case of
/// ASCII letters. Names, numbers and dates are made of these; letters of other scripts are the
/// face's business.

#include <string>
#include <string_view>

namespace tablio::ascii {

[[nodiscard]] constexpr bool isDigit(char32_t character) noexcept {
    return character >= U'0' && character <= U'9';
}
/// A byte of UTF-8: none beyond ASCII is a digit.
[[nodiscard]] constexpr bool isDigit(char byte) noexcept { return byte >= '0' && byte <= '9'; }

[[nodiscard]] constexpr char lower(char byte) noexcept {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

[[nodiscard]] inline std::string lower(std::string_view text) {
    std::string result(text);
    for (char &byte : result)
        byte = lower(byte);
    return result;
}

} // namespace tablio::ascii
