#pragma once

/// Amounts of money are whole hundredths: they are multiplied, added and stored exactly, and an
/// amount that does not fit is answered as none instead of a wrong one.

#include <QLocale>
#include <QString>
#include <QtNumeric>

#include <optional>

using Hundredths = qint64;

inline std::optional<Hundredths> product(Hundredths amount, qint64 factor) {
    Hundredths result = 0;
    return qMulOverflow(amount, factor, &result) ? std::nullopt : std::optional(result);
}

inline std::optional<Hundredths> sum(std::optional<Hundredths> one,
                                     std::optional<Hundredths> other) {
    Hundredths result = 0;
    return !one || !other || qAddOverflow(*one, *other, &result) ? std::nullopt
                                                                 : std::optional(result);
}

/// Grouped as this user groups, with two decimals. Orders hold no negative amounts.
inline QString shown(Hundredths amount, const QLocale &locale) {
    return locale.toString(amount / 100) + locale.decimalPoint() +
           QString::number(amount % 100).rightJustified(2, u'0');
}
