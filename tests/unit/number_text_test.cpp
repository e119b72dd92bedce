#include "model/text/number_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tablio {
namespace {

const NumberFormat english;
const NumberFormat german{",", ".", 3};
const NumberFormat french{",", "\u202F", 3};
const NumberFormat arabic{"\u066B", "\u066C", 3};
const NumberFormat odd{";", ",", 3};

constexpr std::int16_t backspace = 8;
constexpr auto all = TDataType::AllValue;
constexpr auto positive = TDataType::Positive;
constexpr auto negative = TDataType::Negative;
constexpr auto noRule = static_cast<TDataType>(3);

TEST(NumberText, BlankTextIsNormalisedToZero) {
    EXPECT_EQ(NormalizeNumberText(""), "0");
    EXPECT_EQ(NormalizeNumberText("  "), "0");
    EXPECT_EQ(NormalizeNumberText(" 12,5 "), "12,5");
    EXPECT_EQ(NormalizeNumberText("a b"), "a b");
    EXPECT_EQ(NormalizeNumberText("a b", 2), "\x0F\x0F");
}

TEST(NumberText, TextThatIsNoNumberIsRepaired) {
    const struct {
        const char *text;
        const NumberFormat &format;
        double number;
        const char *repaired;
    } cases[] = {
        {"abc", english, 0, "0"},
        {"", english, 0, "0"},
        {"1e-400", english, 0, "0"},
        {"1e999", english, 0, "0"},
        {" 1,250.5 ", english, 1250.5, " 1,250.5 "},
        {"5-", english, -5, "5-"},
        {"1.250,5", german, 1250.5, "1.250,5"},
    };
    for (const auto &c : cases) {
        std::string text = c.text;
        EXPECT_EQ(TextToNumber(text, c.format), c.number) << c.text;
        EXPECT_EQ(text, c.repaired) << c.text;
    }
    EXPECT_EQ(textToDecimal("123456789012345678", english).plainText(english),
              "123456789012345678");
    EXPECT_TRUE(textToDecimal("x", english).isZero());
}

TEST(NumberText, KeyFiltersTakeOnlyWhatANumberCanHold) {
    const struct {
        const char *text;
        int selStart;
        int selLength;
        std::int16_t key;
        TDataType dataType;
        bool decimalTakes;
        bool integerTakes;
    } cases[] = {
        {"12", 2, 0, '5', all, true, true},
        {"12", 2, 0, 'e', all, false, false},
        {"12", 2, 0, 'e', noRule, true, true},
        {"12", 1, 0, backspace, positive, true, true},
        // The decimal sign, once.
        {"12", 2, 0, '.', all, true, false},
        {"12", 2, 0, ',', all, false, false},
        {"12.5", 4, 0, '.', all, false, false},
        {"12.5", 0, 4, '.', positive, true, false}, // in place of the other one
        {"12.5", 1, 2, '.', all, true, false},
        {"-12", 0, 2, '-', all, true, true},
        // The minus sign, once and in front.
        {"12", 0, 0, '-', all, true, true},
        {"12", 1, 0, '-', negative, false, false},
        {"12", 0, 0, '-', positive, false, false},
        {"-12", 0, 3, '-', all, true, true},
        {"-12", 0, 0, '-', all, false, false},
        {"", 0, 0, '-', negative, true, true},
        // Nothing goes in front of the minus sign.
        {"-12", 0, 0, '5', all, false, false},
        {"-12", 0, 0, backspace, all, false, false},
        {"-12", 1, 0, '5', all, true, true},
        {"-12", 0, 0, '5', positive, true, true},
        {"-\u20AC\U0001F4B6", 0, 4, '5', all, true, true}, // Lengths are UTF-16 units.
    };
    for (const auto &c : cases) {
        const EditorText editor{c.text, c.selStart, c.selLength};
        std::int16_t key = c.key;
        FilterDecimalKey(key, editor, c.dataType, english);
        EXPECT_EQ(key, c.decimalTakes ? c.key : 0) << c.text << " takes " << c.key;
        key = c.key;
        FilterIntegerKey(key, editor, c.dataType);
        EXPECT_EQ(key, c.integerTakes ? c.key : 0) << c.text << " takes " << c.key;
    }
}

TEST(NumberText, TheDecimalKeyFollowsTheFormat) {
    const struct {
        const NumberFormat &format;
        std::int16_t keypad;
        bool takesPoint;
        bool takesComma;
    } cases[] = {
        {english, '.', true, false},  {german, ',', false, true}, {french, ',', false, true},
        {arabic, 0x66B, false, true}, {odd, ';', false, false},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(decimalKey(c.format), c.keypad);
        EXPECT_TRUE(isDecimalKey(c.keypad, c.format));
        EXPECT_EQ(isDecimalKey('.', c.format), c.takesPoint) << c.format.decimalSign;
        EXPECT_EQ(isDecimalKey(',', c.format), c.takesComma) << c.format.decimalSign;
        std::int16_t key = c.keypad;
        FilterDecimalKey(key, {"1" + c.format.decimalSign, 0, 0}, positive, c.format);
        EXPECT_EQ(key, 0) << "a second " << c.format.decimalSign;
    }
    EXPECT_EQ(decimalKey({"\u2396", "", 0}), 0x2396);
    EXPECT_EQ(decimalKey({"::", "", 0}), ',');
    EXPECT_FALSE(isDecimalKey(0, {"::", "", 0}));
}

TEST(NumberText, GroupsWhatHasBeenTypedSoFar) {
    const struct {
        const char *text;
        const char *integer;
        const char *decimal;
    } cases[] = {
        {"", "", ""},
        {"-", "-", "-"},
        {"-.", "-.", "-."},
        {"0", "0", "0"},
        {"00", "00", "0"},
        {"1234", "1,234", "1,234"},
        {"-1234567", "-1,234,567", "-1,234,567"},
        {",234", "234", "234"},
        {"-,234", "-234", "-234"},
        {"1,,567", "1,567", "1,567"},
        {"1234-", "-1,234", "-1,234"},
        {"+5", "5", "5"},
        {"-.5", "-1", "-0.5"},
        {"-0.", "-0.", "-0."},
        {"1234.50", "1,235", "1,234.50"},
        {"1.12345678901", "1", "1.1234567890"},
        {"123456789012345678.0123456789", "123,456,789,012,345,678",
         "123,456,789,012,345,678.0123456789"},
        {"1.2.3", "1.2.3", "1.2.3"},
        {"1.5e3", "1,500", "1,500"},
        {"1.5e-1", "0", "0.15"},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(groupWhileTyping(c.text, NumberKind::Integer, english), c.integer) << c.text;
        EXPECT_EQ(groupWhileTyping(c.text, NumberKind::Decimal, english), c.decimal) << c.text;
    }
    EXPECT_EQ(groupWhileTyping("1.2345,6", NumberKind::Decimal, german), "12.345,6");
    EXPECT_EQ(groupWhileTyping("1 2345,", NumberKind::Decimal, french), "12\u202F345,");
    EXPECT_EQ(groupWhileTyping("1234,5", NumberKind::Decimal, arabic), "1\u066C234,5");
    const std::string tooLong(400, '9');
    const std::string grouped = groupWhileTyping(tooLong, NumberKind::Integer, english);
    EXPECT_EQ(textToDecimal(grouped, english).plainText(english), tooLong);
}

} // namespace
} // namespace tablio
