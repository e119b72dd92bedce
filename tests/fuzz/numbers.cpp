/// Numbers under pictures and locales, against arithmetic on long integers.

#include "fuzz.h"

#include "model/text/number_picture.h"
#include "model/text/number_text.h"

#include <cstdlib>

namespace tablio::fuzz {

namespace {

constexpr std::int64_t tenTo(int power) {
    std::int64_t result = 1;
    for (; power > 0; --power)
        result *= 10;
    return result;
}

const std::array<NumberFormat, 5> &formats() {
    static const std::array<NumberFormat, 5> all{
        {{".", ","}, {",", "."}, {",", "\u202f"}, {".", "'"}, {"\u066b", "\u066c"}}};
    return all;
}

/// A whole number of 10^-decimals, as a reader would write it by hand.
std::string byHand(std::int64_t scaled, int decimals, bool grouped, const NumberFormat &format) {
    const std::int64_t size = std::abs(scaled);
    std::string whole = std::to_string(size / tenTo(decimals));
    if (grouped) {
        std::string groups;
        for (std::size_t place = 0; place < whole.size(); ++place) {
            if (place > 0 && (whole.size() - place) % 3 == 0)
                groups += format.groupSign;
            groups += whole[place];
        }
        whole = groups;
    }
    std::string text = (scaled < 0 ? "-" : "") + whole;
    if (decimals > 0) {
        const std::string fraction = std::to_string(size % tenTo(decimals));
        text += format.decimalSign +
                std::string(static_cast<std::size_t>(decimals) - fraction.size(), '0') + fraction;
    }
    return text;
}

} // namespace

void numbers(Bytes &bytes) {
    const NumberFormat &format = bytes.pick(formats());
    // Up to 12 digits with up to 5 decimals, shown with fewer or more of them.
    const int decimals = bytes.below(6);
    const std::int64_t scaled =
        std::int64_t{bytes.number()} * (1 + bytes.below(200)) + bytes.below(100);
    const int shownDecimals = bytes.below(6);
    std::string picture = bytes.chance(2) ? "###,##0" : "0";
    const bool grouped = picture.size() > 1;
    if (shownDecimals > 0)
        picture += "." + std::string(static_cast<std::size_t>(shownDecimals), '0');

    const std::string given = byHand(scaled, decimals, bytes.chance(2), format);
    const auto decimal = Decimal::parse(given, format);
    expect(decimal.has_value(), given + " is not read");
    std::int64_t wanted = std::abs(scaled);
    if (shownDecimals >= decimals) {
        wanted *= tenTo(shownDecimals - decimals);
    } else {
        const std::int64_t step = tenTo(decimals - shownDecimals);
        wanted = (wanted + step / 2) / step;
    }
    const std::string shown = formatNumber(*decimal, picture, format);
    const std::string right = byHand(scaled < 0 ? -wanted : wanted, shownDecimals, grouped, format);
    expect(shown == right, given + " through " + picture + " is " + shown + " and not " + right);
    const auto again = Decimal::parse(shown, format);
    expect(again && *again == decimal->rounded(shownDecimals),
           shown + " is read as another number");

    // Typed digit by digit it groups as a picture would, and stays that number.
    std::string typed;
    const std::string plain = byHand(scaled, decimals, false, format);
    for (const char character : plain) {
        typed = groupWhileTyping(typed + character, NumberKind::Decimal, format);
        // A sign of more than one byte is only whole at its last.
        if (static_cast<unsigned char>(character) >= 0x80)
            typed = plain.substr(0, 0).append(typed);
    }
    const auto typedNumber = Decimal::parse(typed, format);
    expect(typedNumber && *typedNumber == *decimal, plain + " typed is " + typed);

    // Anything else is a number or none, without harm.
    std::string any = bytes.text(30);
    (void)formatNumber(textToDecimal(any, format), bytes.text(20), format);
    (void)groupWhileTyping(any, NumberKind::Integer, format);
    (void)isTypedNumber(any, NumberKind::Decimal, TDataType::Negative, format);
    (void)TextToNumber(any, format);
}

} // namespace tablio::fuzz
