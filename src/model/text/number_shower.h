#pragma once

/// Shows the numbers of one column through its picture, which is taken apart once. Numbers that are
/// written with digits and a decimal sign alone are read, rounded and grouped where they stand; all
/// others, and unusual pictures, go the long way through `Decimal` and `formatNumber`, with the
/// same result.

#include <tablio/number_format.h>

#include <array>
#include <string>
#include <string_view>

namespace tablio {

class NumberShower {
public:
    explicit NumberShower(std::string_view picture);

    [[nodiscard]] const std::string &picture() const noexcept { return picture_; }
    /// What the number that the text holds looks like, 0 for a text without one. Valid until the
    /// next call.
    [[nodiscard]] std::string_view shown(std::string_view text, const NumberFormat &format);

private:
    /// Where the text is as simple as the picture; else nothing is answered.
    [[nodiscard]] std::string_view shownSimply(std::string_view text, const NumberFormat &format);

    /// Of a text and of a picture.
    static constexpr std::size_t mostDigits = 40;
    static constexpr std::size_t longestSign = 4;

    std::string picture_;
    /// Nothing but places, grouping commas and a decimal sign before the last places.
    bool isSimple_ = false;
    bool groups_ = false;
    int wholeZeros_ = 0;
    int fractionPlaces_ = 0;
    int fractionZeros_ = 0;
    std::string result_;
    std::array<char, 2 * (mostDigits + 2) * (longestSign + 1)> buffer_{};
};

} // namespace tablio
