#include "model/text/decimal_text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>

namespace tablio {
namespace {

const NumberFormat english;
const NumberFormat german{",", ".", 3};
const NumberFormat french{",", "\u202F", 3};
const NumberFormat swiss{".", "\u2019", 3};
const NumberFormat arabic{"\u066B", "\u066C", 3};

TEST(DecimalText, ReadsWhatAUserWrites) {
    const struct {
        const char *text;
        const NumberFormat &format;
        const char *expected; ///< As plain text.
    } cases[] = {
        {"0", english, "0"},
        {"-0.00", english, "0"},
        {"007", english, "7"},
        {" \t12.50 ", english, "12.5"},
        {"\u00A0\u202F12\u00A0", english, "12"},
        {"5-", english, "-5"},
        {" 5.25 - ", english, "-5.25"},
        {"\u22125", english, "-5"},
        {"+5", english, "5"},
        {"1,234,567.5", english, "1234567.5"},
        {"1,2,,34", english, "1234"},
        {"1 234\u00A0567,5 ", french, "1234567,5"},
        {"1'234\u2019567.5", swiss, "1234567.5"},
        {"1\u066C234\u066B5", arabic, "1234\u066B5"},
        {"1,5", arabic, "1\u066B5"},
        {"1,5", NumberFormat{";", ",", 3}, "15"},
        {"-1.5E-3", english, "-0.0015"},
        {"1e+2-", english, "-100"},
        {"1e-400", english, "0"},
    };
    for (const auto &c : cases) {
        const std::optional<Decimal> number = Decimal::parse(c.text, c.format);
        ASSERT_TRUE(number) << '"' << c.text << '"';
        EXPECT_EQ(number->plainText(c.format), c.expected) << '"' << c.text << '"';
    }
    EXPECT_TRUE(Decimal::parse("1e-99999999999999999999", english)->isZero());
    const char *const noNumbers[] = {
        "1e999999999", "1.8e308", "",    " ",  "-",     ".",  "-.", "abc",   "12a",   "1e",  "1e+",
        "e5",          "-5-",     "--5", "5+", "1.2.3", ",5", "5,", "1.5,5", "1 234", "\xE2"};
    for (const char *text : noNumbers)
        EXPECT_FALSE(Decimal::parse(text, english)) << '"' << text << '"';
    EXPECT_FALSE(Decimal::parse("179769313486231590e291", english));
    EXPECT_FALSE(Decimal::parse("\u0663", english));
    EXPECT_FALSE(Decimal::parse("1\xE2\x80", french));
}

TEST(DecimalText, RoundsHalfAwayFromZeroOnItsDigits) {
    const struct {
        const char *text;
        int places;
        const char *expected;
    } cases[] = {
        {"0.5", 0, "1"},        {"-0.5", 0, "-1"},    {"0.49999999999999999999", 0, "0"},
        {"2.5", 0, "3"},        {"1.005", 2, "1.01"}, {"2.675", 2, "2.68"},
        {"-2.675", 2, "-2.68"}, {"9.995", 2, "10"},   {"999999999999999999.5", 0, "1e18"},
        {"0.04", 1, "0"},       {"-0.04", 1, "0"},    {"0.004", 1, "0"},
        {"0.05", 1, "0.1"},     {"1200", 5, "1200"},  {"1250", -2, "1300"},
        {"49", -2, "0"},        {"50", -2, "100"},    {"99.99", 1, "100"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Decimal::parse(c.text, english)->rounded(c.places),
                  Decimal::parse(c.expected, english))
            << c.text << " to " << c.places;
}

TEST(DecimalText, ShiftsNegatesAndNumbersItsDigits) {
    const Decimal number = *Decimal::parse("120.05", english);
    EXPECT_EQ(number.timesPowerOfTen(2).plainText(english), "12005");
    EXPECT_EQ(number.timesPowerOfTen(-4).plainText(german), "0,012005");
    EXPECT_EQ(number.leadingPower(), 2);
    EXPECT_EQ(number.fractionDigits(), 2);
    std::string digits;
    for (int power = 3; power >= -3; --power)
        digits += number.digitAt(power);
    EXPECT_EQ(digits, "0120050");
}

TEST(DecimalText, RandomNumbersKeepTheirDigitsAndTheirDouble) {
    std::mt19937 random(20240305);
    const auto upTo = [&](unsigned limit) { return random() % (limit + 1); };
    for (int round = 0; round < 20000; ++round) {
        std::string digits(1, static_cast<char>('1' + upTo(8)));
        for (unsigned count = upTo(24); count > 0; --count)
            digits += static_cast<char>('0' + upTo(9));
        digits.back() = static_cast<char>('1' + upTo(8));
        if (const std::size_t point = upTo(30); point < digits.size() && point > 0)
            digits.insert(point, ".");
        const std::string text = (upTo(1) != 0 ? "-" : "") + digits;

        const Decimal number = *Decimal::parse(text, english);
        ASSERT_EQ(number.plainText(english), text);
        ASSERT_EQ(number.toDouble(), std::strtod(text.c_str(), nullptr)) << text;
        ASSERT_EQ(*Decimal::parse(number.plainText(french), french), number) << text;

        const std::string scaled = text + "e" + std::to_string(static_cast<int>(upTo(660)) - 350);
        const double expected = std::strtod(scaled.c_str(), nullptr);
        const std::optional<Decimal> large = Decimal::parse(scaled, english);
        ASSERT_EQ(large.has_value(), expected - expected == 0.0) << scaled;
        if (large) {
            ASSERT_EQ(large->isZero(), large->toDouble() == 0.0) << scaled;
            ASSERT_TRUE(large->isZero() || large->toDouble() == expected) << scaled;
        }
    }
}

} // namespace
} // namespace tablio
