#include "model/text/number_picture.h"
#include "model/text/number_shower.h"
#include "model/text/number_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tablio {
namespace {

const NumberFormat english;
const NumberFormat german{",", ".", 3};
const NumberFormat french{",", "\u202F", 3};
const NumberFormat ungrouped{".", ",", 0};

std::string shown(const char *number, std::string_view picture,
                  const NumberFormat &format = english) {
    return formatNumber(*Decimal::parse(number, english), picture, format);
}

TEST(NumberPicture, ShowsNumbersThroughPictures) {
    const struct {
        const char *number;
        const char *picture;
        const char *expected;
    } cases[] = {
        // Placeholders and rounding.
        {"1250.5", "###,##0.00", "1,250.50"},
        {"0", "###,##0.00", "0.00"},
        {"0", "#", ""},
        {"0.25", "#.00", ".25"},
        {"12.5", ".00", "12.50"},
        {"5", "#.##", "5."},
        {"1.005", "0.00", "1.01"},
        {"-0.004", "0.00", "0.00"},
        {"999.995", "###,##0.00", "1,000.00"},
        {"12", "###,##0.0#########", "12.0"},
        {"123456789012345678.0123456789", "###,##0.0#########",
         "123,456,789,012,345,678.0123456789"},
        {"0.12345678905", "###,##0.0#########", "0.1234567891"},
        {"7", "000,000", "000,007"},
        {"7", "0#0", "007"},
        {"1.25", "0.0#0", "1.250"},
        // Grouping and scaling commas.
        {"1234567", "#,##0,", "1,235"},
        {"1234567", "0,,.00", "1.23"},
        {"1500", "0,\"k\"", "2k"},
        {"5", ",0", ",5"},
        // Percent, literals and escapes.
        {"0.125", "0.0%", "12.5%"},
        {"0.5", "%0", "%50"},
        {"5", "\"#0\"0", "#05"},
        {"5", "\\#0 \u20AC", "#5 \u20AC"},
        {"-5", "$0", "-$5"},
        {"1234567", "(000) 0-0", "(12345) 6-7"},
        {"1.25", "0.0-0", "1.2-5"},
        // Sections.
        {"5", "0;(0);nil", "5"},
        {"-5", "0;(0);nil", "(5)"},
        {"0", "0;(0);nil", "nil"},
        {"-0.4", "0;(0);nil", "nil"},
        {"-0.4", "0.0;(0)", "0.0"},
        {"-0.4", "0;\"neg\"", "neg"},
        {"0", "0.0;(0);", "0.0"},
        {"5", "0\";\";(0)", "5;"},
        {"0", "0;0;z;null", "z"},
        {"5", ";(0)", ""},
        // Nothing to show a number with, and ends that are missing.
        {"-1250.50", "", "-1250.5"},
        {"-5", "n.a.", "n.a."},
        {"5", "100", "105"},
        {"5", "0\"abc", "5abc"},
        {"5", ";;;", ""},
    };
    for (const auto &c : cases)
        EXPECT_EQ(shown(c.number, c.picture), c.expected) << c.number << " as " << c.picture;
}

TEST(NumberPicture, UsesTheSignsOfTheFormat) {
    EXPECT_EQ(shown("-1234567.5", "###,##0.00", german), "-1.234.567,50");
    EXPECT_EQ(shown("1234567.5", "###,##0.00", french), "1\u202F234\u202F567,50");
    EXPECT_EQ(shown("1234567.5", "###,##0.00", ungrouped), "1234567.50");
    EXPECT_EQ(shown("1234567.5", "###,##0.00", NumberFormat{",", ",", 3}), "1234567,50");
    EXPECT_EQ(shown("1234567.5", "###,##0.00", NumberFormat{"", "_", 4}), "123_4567.50");
    EXPECT_EQ(shown("0.5", "", german), "0,5");
}

TEST(NumberPicture, WhatIsShownReadsBackAsTheRoundedNumber) {
    std::mt19937 random(77);
    for (int round = 0; round < 5000; ++round) {
        const std::string text = (random() % 2 != 0 ? "-" : "") + std::to_string(random()) +
                                 std::to_string(random()) + "e-" + std::to_string(random() % 24);
        const Decimal number = *Decimal::parse(text, english);
        for (const NumberFormat &format : {english, german, french, ungrouped})
            ASSERT_EQ(Decimal::parse(formatNumber(number, "###,##0.00##", format), format),
                      number.rounded(4))
                << text;
    }
}

/// And a column, which takes its picture apart only once, shows the same.
TEST(NumberPicture, AnyPictureHasAnOutcome) {
    std::mt19937 random(4711);
    constexpr std::string_view letters = "0#.,0#%;\"\\-a \xC3\xA4";
    for (int round = 0; round < 50000; ++round) {
        std::string picture;
        const std::size_t kinds = random() % 2 != 0 ? 6 : letters.size();
        for (unsigned length = random() % 9; length > 0; --length)
            picture += letters[random() % kinds];
        NumberShower column(picture);
        const std::string fraction =
            "." + std::to_string(1000 + random() % 100'000).substr(random() % 4);
        for (const std::string &number :
             {std::string("0"), std::string("-0.004"), std::string("123456789.987"),
              "99" + fraction, std::to_string(random()), "-" + fraction, fraction}) {
            const std::string expected =
                formatNumber(textToDecimal(number, english), picture, english);
            ASSERT_LT(expected.size(), 60u) << picture;
            ASSERT_EQ(column.shown(number, english), expected) << number << " as " << picture;
        }
    }
    NumberShower column("#,##0.00#");
    for (const NumberFormat &format : {english, german, french, ungrouped}) {
        for (const char *number :
             {"", "x", "1,234.5", "1.234,5", "-,5", "1e3", " 7-", "0.995", "12345,6785"})
            EXPECT_EQ(column.shown(number, format),
                      formatNumber(textToDecimal(number, format), column.picture(), format));
    }
}

TEST(NumberPicture, CountsTheDecimalsThatAPictureAllows) {
    const struct {
        const char *picture;
        int expected;
    } cases[] = {{"###,##0.00", 2}, {"###,##0", 0}, {"", 0},          {"0.", 0},
                 {"0.0#%", 3},      {"0.0.0", 3},   {"0.0 \u20AC", 3}};
    for (const auto &c : cases)
        EXPECT_EQ(decimalsOfPicture(c.picture), c.expected) << c.picture;
}

} // namespace
} // namespace tablio
