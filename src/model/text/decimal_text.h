#pragma once

/// An exact decimal number, read from the text that a user types or a cell holds, and the signs
/// such a text is made of. Everything that commits, shows or groups numbers uses it, so that 18
/// typed digits come back as 18 digits; it never goes through binary floating point on the way.

#include <tablio/number_format.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tablio {

class Decimal {
public:
    /// Zero.
    Decimal() = default;

    /// Reads a number as `format` writes it. Accepted are blanks around it (also the no-break
    /// ones), a leading `-` or `+` or a trailing `-`, grouping signs anywhere between two digits of
    /// the integer part, the decimal sign, and an exponent. Nothing is answered for any other text
    /// and for an exponent that makes more of it than a double can hold (about 1.8e308); below
    /// 1e-323 the number is 0.
    /// Cost and memory follow the length of the text, whatever its exponent says.
    static std::optional<Decimal> parse(std::string_view text, const NumberFormat &format);

    bool isZero() const noexcept { return digits_.empty(); }
    /// False for zero: there is no negative zero.
    bool isNegative() const noexcept { return negative_; }

    /// Half away from zero after `places` digits of the fraction; negative: to tens, hundreds …
    Decimal rounded(int places) const;
    /// The number times 10 to the power `power`.
    Decimal timesPowerOfTen(int power) const;

    /// The power of ten at which the first digit stands (2 for 123, -2 for 0.05); -1 for zero.
    int leadingPower() const noexcept;
    /// How many digits stand after the decimal sign when none of them is a needless zero.
    int fractionDigits() const noexcept { return exponent_ < 0 ? -exponent_ : 0; }
    /// The digit that stands at 10 to the power `power`, '0' outside the number.
    char digitAt(int power) const noexcept;

    /// The nearest double; the greatest one for what is beyond it.
    double toDouble() const;
    /// All digits with the decimal sign of `format`; no grouping, no exponent, no needless zeros.
    std::string plainText(const NumberFormat &format) const;

    friend bool operator==(const Decimal &, const Decimal &) = default;

private:
    void dropTrailingZeros();

    // The value is digits_ * 10^exponent_. digits_ neither starts nor ends with '0' and is empty
    // for zero, so equal numbers have equal members. Up to 15 digits need no allocation.
    std::string digits_;
    int exponent_ = 0;
    bool negative_ = false;
};

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
