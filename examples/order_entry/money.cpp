#include "money.h"

#include <QtNumeric>

namespace {

bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

} // namespace

std::optional<Money> Money::fromText(QStringView text, QStringView decimalSign) {
    text = text.trimmed();
    const bool negative = text.startsWith(u'-');
    if (negative)
        text = text.mid(1);
    const qsizetype sign = text.indexOf(decimalSign);
    const QStringView whole = sign < 0 ? text : text.left(sign);
    const QStringView fraction = sign < 0 ? QStringView() : text.mid(sign + decimalSign.size());
    if (whole.isEmpty() && fraction.isEmpty())
        return std::nullopt;

    qint64 hundredths = 0;
    const auto append = [&hundredths](int digit) {
        return !qMulOverflow(hundredths, qint64{10}, &hundredths) &&
               !qAddOverflow(hundredths, qint64{digit}, &hundredths);
    };
    for (const QChar digit : whole) {
        if (!isDigit(digit) || !append(digit.digitValue()))
            return std::nullopt;
    }
    for (const QChar digit : fraction) {
        if (!isDigit(digit))
            return std::nullopt;
    }
    for (qsizetype place = 0; place < 2; ++place) {
        if (!append(place < fraction.size() ? fraction[place].digitValue() : 0))
            return std::nullopt;
    }
    if (fraction.size() > 2 && fraction[2] >= u'5' &&
        qAddOverflow(hundredths, qint64{1}, &hundredths))
        return std::nullopt;
    return ofHundredths(negative ? -hundredths : hundredths);
}

QString Money::text(QStringView decimalSign) const {
    // Unsigned, because the smallest number has no positive counterpart.
    const auto magnitude =
        hundredths_ < 0 ? 0 - static_cast<quint64>(hundredths_) : static_cast<quint64>(hundredths_);
    QString text = hundredths_ < 0 ? QStringLiteral("-") : QString();
    text += QString::number(magnitude / 100);
    text += decimalSign;
    text += QString::number(magnitude % 100).rightJustified(2, u'0');
    return text;
}

std::optional<Money> Money::times(qint64 factor) const {
    qint64 product = 0;
    if (qMulOverflow(hundredths_, factor, &product))
        return std::nullopt;
    return ofHundredths(product);
}

std::optional<Money> Money::plus(Money other) const {
    qint64 sum = 0;
    if (qAddOverflow(hundredths_, other.hundredths_, &sum))
        return std::nullopt;
    return ofHundredths(sum);
}
