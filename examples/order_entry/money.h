#pragma once

/// An amount of money, exact to the hundredth. The order form multiplies, adds and stores amounts
/// with it, never in binary floating point, and an amount that does not fit is answered as none
/// instead of a wrong one.

#include <QString>
#include <QStringView>

#include <compare>
#include <optional>

class Money {
public:
    /// Zero.
    constexpr Money() = default;

    static constexpr Money ofHundredths(qint64 hundredths) noexcept {
        Money money;
        money.hundredths_ = hundredths;
        return money;
    }

    /// Reads a number without grouping, as `TextMatrix` of a numeric column answers it. Decimals
    /// beyond the second are rounded half away from zero. Nothing for text that is no number.
    static std::optional<Money> fromText(QStringView text, QStringView decimalSign);

    /// Always with two decimals and without grouping.
    [[nodiscard]] QString text(QStringView decimalSign) const;

    [[nodiscard]] constexpr qint64 hundredths() const noexcept { return hundredths_; }

    [[nodiscard]] std::optional<Money> times(qint64 factor) const;
    [[nodiscard]] std::optional<Money> plus(Money other) const;

    friend constexpr auto operator<=>(Money, Money) = default;

private:
    qint64 hundredths_ = 0;
};
