#pragma once

/// An exact decimal number. Everything that commits, shows or groups numbers uses it, so that 18
/// typed digits come back as 18 digits; hosts get and give it where a `double` would round. It
/// keeps no locale.

#include <tablio/number_format.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tablio {

class Decimal {
public:
    /// Zero.
    Decimal() = default;
    Decimal(std::int64_t value);
    /// The shortest decimal number that this double is the nearest one to: 0.1 for 0.1. Nothing for
    /// what is not finite.
    static std::optional<Decimal> fromDouble(double value);

    /// Reads a number as `format` writes it. Accepted are blanks around it (also the no-break
    /// ones), a leading `-` or `+` or a trailing `-`, grouping signs anywhere between two digits of
    /// the integer part, the decimal sign, and an exponent. Nothing is answered for any other text
    /// and for an exponent that makes more of it than a double can hold (about 1.8e308); below
    /// 1e-323 the number is 0.
    /// Cost and memory follow the length of the text, whatever its exponent says.
    static std::optional<Decimal> parse(std::string_view text, const NumberFormat &format = {});

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
    std::string plainText(const NumberFormat &format = {}) const;

    friend bool operator==(const Decimal &, const Decimal &) = default;

private:
    void dropTrailingZeros();

    // The value is digits_ * 10^exponent_. digits_ neither starts nor ends with '0' and is empty
    // for zero, so equal numbers have equal members. Up to 15 digits need no allocation.
    std::string digits_;
    int exponent_ = 0;
    bool negative_ = false;
};

} // namespace tablio
