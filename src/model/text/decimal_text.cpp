#include "model/text/decimal_text.h"

#include "model/text/ascii.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace tablio {

namespace {

using ascii::isDigit;

/// The greatest exponent that is worth telling apart; far beyond any text that fits into memory.
constexpr std::int64_t exponentCeiling = 1'000'000'000'000;

/// The first digits of the greatest double, up to where rounding would still reach it.
constexpr std::string_view greatestDigits = "1797693134862315807";
constexpr int greatestPower = 308;
/// Smaller numbers are taken as zero. Those kept have a double other than zero, so that the exact
/// number and its double always agree on which numbers are zero.
constexpr int leastPower = -323;

constexpr std::string_view noBreakSpace = "\xC2\xA0";
constexpr std::string_view narrowNoBreakSpace = "\xE2\x80\xAF";
constexpr std::string_view thinSpace = "\xE2\x80\x89";
constexpr std::string_view minusSign = "\xE2\x88\x92";
constexpr std::string_view curlyApostrophe = "\xE2\x80\x99";

std::size_t matchLength(std::string_view text, std::size_t position,
                        std::string_view sign) noexcept {
    if (sign.empty() || position >= text.size() || text[position] != sign[0])
        return 0;
    return text.compare(position, sign.size(), sign) == 0 ? sign.size() : 0;
}

std::size_t apostropheLength(std::string_view text, std::size_t position) noexcept {
    return matchLength(text, position, "'") + matchLength(text, position, curlyApostrophe);
}

/// Where the digit stands that follows the grouping signs at `position`; `position` itself when
/// there are none or something else follows.
std::size_t skipGrouping(std::string_view text, std::size_t position,
                         const NumberFormat &format) noexcept {
    std::size_t next = position;
    while (const std::size_t length = groupSignLength(text, next, format))
        next += length;
    return next < text.size() && isDigit(text[next]) ? next : position;
}

/// Reads the exponent at `position` (after its letter) and moves on behind it.
std::optional<std::int64_t> readExponent(std::string_view text, std::size_t &position) noexcept {
    const bool negative = position < text.size() && text[position] == '-';
    if (negative || (position < text.size() && text[position] == '+'))
        ++position;
    if (position >= text.size() || !isDigit(text[position]))
        return std::nullopt;
    std::int64_t exponent = 0;
    for (; position < text.size() && isDigit(text[position]); ++position)
        exponent = std::min(exponent * 10 + (text[position] - '0'), exponentCeiling);
    return negative ? -exponent : exponent;
}

} // namespace

Decimal::Decimal(std::int64_t value) : digits_(std::to_string(value)), negative_(value < 0) {
    digits_.erase(0, negative_ ? 1 : 0);
    dropTrailingZeros();
}

std::optional<Decimal> Decimal::fromDouble(double value) {
    if (!std::isfinite(value))
        return std::nullopt;
    constexpr int mostDigits = 17;
    std::array<char, 40> text{};
    for (int digits = 1; digits <= mostDigits; ++digits) {
        std::snprintf(text.data(), text.size(), "%.*e", digits - 1, value);
        if (std::strtod(text.data(), nullptr) == value)
            break;
    }
    // The host's C locale may write another sign than a point.
    std::string number;
    for (const char *at = text.data(); *at != '\0'; ++at)
        number += isDigit(*at) || *at == '-' || *at == '+' || *at == 'e' ? *at : '.';
    return parse(number);
}

std::optional<Decimal> Decimal::parse(std::string_view text, const NumberFormat &format) {
    Decimal number;
    std::size_t position = skipBlanks(text, 0);
    bool hasSign = false;
    if (const std::size_t length = minusLength(text, position)) {
        number.negative_ = hasSign = true;
        position = skipBlanks(text, position + length);
    } else if (position < text.size() && text[position] == '+') {
        hasSign = true;
        position = skipBlanks(text, position + 1);
    }

    bool hasDigits = false;
    bool inFraction = false;
    std::int64_t exponent = 0;
    while (position < text.size()) {
        const char character = text[position];
        if (isDigit(character)) {
            hasDigits = true;
            if (inFraction)
                --exponent;
            if (character != '0' || !number.digits_.empty())
                number.digits_ += character;
            ++position;
        } else if (inFraction) {
            break;
        } else if (const std::size_t length = decimalSignLength(text, position, format)) {
            inFraction = true;
            position += length;
        } else if (const std::size_t digit = skipGrouping(text, position, format);
                   hasDigits && digit != position) {
            position = digit;
        } else {
            break;
        }
    }
    if (!hasDigits)
        return std::nullopt;

    const bool hasExponent =
        position < text.size() && (text[position] == 'e' || text[position] == 'E');
    if (hasExponent) {
        const std::optional<std::int64_t> given = readExponent(text, ++position);
        if (!given)
            return std::nullopt;
        exponent += *given;
    }
    position = skipBlanks(text, position);
    if (const std::size_t length = hasSign ? 0 : minusLength(text, position)) {
        number.negative_ = true;
        position = skipBlanks(text, position + length);
    }
    if (position != text.size())
        return std::nullopt;

    const std::int64_t leading = exponent + static_cast<std::int64_t>(number.digits_.size()) - 1;
    if (number.digits_.empty() || leading < leastPower)
        return Decimal();
    // Digits that stand there are all kept; an exponent may not ask for more than a double has.
    const bool isTooGreat = leading > greatestPower || (leading == greatestPower &&
                                                        number.digits_.compare(greatestDigits) > 0);
    if (hasExponent && isTooGreat)
        return std::nullopt;
    number.exponent_ = static_cast<int>(exponent);
    number.dropTrailingZeros();
    return number;
}

void Decimal::dropTrailingZeros() {
    const std::size_t last = digits_.find_last_not_of('0');
    const std::size_t kept = last == std::string::npos ? 0 : last + 1;
    exponent_ += static_cast<int>(digits_.size() - kept);
    digits_.resize(kept);
    if (digits_.empty()) {
        exponent_ = 0;
        negative_ = false;
    }
}

int Decimal::leadingPower() const noexcept {
    return isZero() ? -1 : exponent_ + static_cast<int>(digits_.size()) - 1;
}

char Decimal::digitAt(int power) const noexcept {
    const int index = leadingPower() - power;
    return index >= 0 && index < static_cast<int>(digits_.size())
               ? digits_[static_cast<std::size_t>(index)]
               : '0';
}

Decimal Decimal::rounded(int places) const {
    if (isZero() || exponent_ >= -places)
        return *this;
    Decimal result;
    const int kept = leadingPower() + places + 1;
    if (kept < 0)
        return result;

    // A tie has the digit 5 here and so has anything above it: no need to look further right.
    const bool up = digits_[static_cast<std::size_t>(kept)] >= '5';
    result.negative_ = negative_;
    result.exponent_ = -places;
    result.digits_.assign(digits_, 0, static_cast<std::size_t>(kept));
    if (up) {
        std::size_t index = result.digits_.size();
        while (index > 0 && result.digits_[index - 1] == '9')
            result.digits_[--index] = '0';
        if (index > 0)
            ++result.digits_[index - 1];
        else
            result.digits_.insert(result.digits_.begin(), '1');
    }
    result.dropTrailingZeros();
    return result;
}

Decimal Decimal::timesPowerOfTen(int power) const {
    Decimal result = *this;
    if (!isZero())
        result.exponent_ += power;
    return result;
}

double Decimal::toDouble() const {
    if (isZero())
        return 0.0;
    // Both operands are exact doubles here, so that one operation rounds once and correctly.
    static constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    if (FLT_EVAL_METHOD == 0 && digits_.size() <= 15 && exponent_ >= -22 && exponent_ <= 22) {
        std::int64_t whole = 0;
        for (const char digit : digits_)
            whole = whole * 10 + (digit - '0');
        const double magnitude = exponent_ < 0 ? static_cast<double>(whole) / powers[-exponent_]
                                               : static_cast<double>(whole) * powers[exponent_];
        return negative_ ? -magnitude : magnitude;
    }
    // Without a decimal sign the text means the same in every locale the host may have set.
    const std::string text = digits_ + 'e' + std::to_string(exponent_);
    const double magnitude = std::min(std::strtod(text.c_str(), nullptr), DBL_MAX);
    return negative_ ? -magnitude : magnitude;
}

std::string Decimal::plainText(const NumberFormat &format) const {
    std::string text;
    if (negative_)
        text += '-';
    for (int power = std::max(leadingPower(), 0); power >= 0; --power)
        text += digitAt(power);
    if (exponent_ < 0) {
        text += decimalSignOf(format);
        for (int power = -1; power >= exponent_; --power)
            text += digitAt(power);
    }
    return text;
}

std::string_view decimalSignOf(const NumberFormat &format) noexcept {
    return format.decimalSign.empty() ? std::string_view(".") : format.decimalSign;
}

std::size_t blankLength(std::string_view text, std::size_t position) noexcept {
    if (position >= text.size())
        return 0;
    const char character = text[position];
    if (character == ' ' || (character >= '\t' && character <= '\r'))
        return 1;
    return matchLength(text, position, noBreakSpace) +
           matchLength(text, position, narrowNoBreakSpace) + matchLength(text, position, thinSpace);
}

std::size_t skipBlanks(std::string_view text, std::size_t position) noexcept {
    while (const std::size_t length = blankLength(text, position))
        position += length;
    return position;
}

std::size_t minusLength(std::string_view text, std::size_t position) noexcept {
    return matchLength(text, position, "-") + matchLength(text, position, minusSign);
}

std::size_t decimalSignLength(std::string_view text, std::size_t position,
                              const NumberFormat &format) noexcept {
    const std::string_view own = decimalSignOf(format);
    if (const std::size_t length = matchLength(text, position, own))
        return length;
    return own != "." && format.groupSign != "," ? matchLength(text, position, ",") : 0;
}

std::size_t groupSignLength(std::string_view text, std::size_t position,
                            const NumberFormat &format) noexcept {
    if (const std::size_t length = matchLength(text, position, format.groupSign))
        return length;
    if (blankLength(format.groupSign, 0) > 0)
        return blankLength(text, position);
    return apostropheLength(format.groupSign, 0) > 0 ? apostropheLength(text, position) : 0;
}

std::size_t findDecimalSign(std::string_view text, const NumberFormat &format) noexcept {
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (decimalSignLength(text, position, format) > 0)
            return position;
    }
    return std::string_view::npos;
}

} // namespace tablio
