#include <tablio/errors.h>
#include <tablio/text_bag.h>
#include <tablio/tmatrix.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace tablio {
namespace {

/// Stored whatever the value is: nothing equals it.
const Value noDefault = Value::missing();

TEST(TextBag, IsPlainAsciiInTheOrderOfWriting) {
    TextBag bag;
    bag.writeProperty("Zoom", std::int16_t{-5}, 0);
    bag.writeProperty("Colour", SystemColour::ButtonText, 2147483666.0);
    bag.writeProperty("Flag", true, false);
    bag.writeProperty("Real", 0.1, 0);
    bag.writeProperty("Nothing", Value(), noDefault);
    bag.writeProperty("Text", "a \"b\" \\ \n\t\x01 Größe € \U0001F600 \xFF", "");
    bag.writeProperty("Font", Font{"Arial", 8.25F, true, true}, Font{});
    bag.writeProperty("Fine", Font{"Arial", 8, false, false, true, true, 300}, Font{});
    bag.writeProperty("zoom", std::int16_t{7}, 0);
    EXPECT_EQ(bag.text(),
              "Tablio properties 1\n"
              "Zoom Integer 7\n"
              "Colour Long -2147483630\n"
              "Flag Boolean True\n"
              "Real Double 0.1\n"
              "Nothing Empty\n"
              "Text String \"a \\\"b\\\" \\\\ \\n\\t\\u{1} Gr\\u{F6}\\u{DF}e \\u{20AC} \\u{1F600} "
              "\\x{FF}\"\n"
              "Font Font \"Arial\" 8.25 bold italic\n"
              "Fine Font \"Arial\" 8 underline strikethrough weight 300\n");
}

TEST(TextBag, ADefaultIsNotStoredAndTakesTheOldValueAway) {
    TextBag bag;
    bag.writeProperty("A", 2.0, std::int16_t{2});
    EXPECT_FALSE(bag.contains("A"));
    bag.writeProperty("A", 3, 2);
    bag.writeProperty("B", 1, 0);
    EXPECT_EQ(bag.readProperty("a", 9), Value(3));
    bag.writeProperty("a", 2, 2);
    EXPECT_EQ(bag.readProperty("A", 9), Value(9));
    // A copy is a store of its own.
    TextBag copy = bag;
    bag.writeProperty("B", 5, 0);
    copy.writeProperty("C", 1, 0);
    EXPECT_EQ(copy.text(), "Tablio properties 1\nB Long 1\nC Long 1\n");

    EXPECT_THROW(bag.writeProperty("two words", 1, 0), Error);
    EXPECT_THROW(bag.writeProperty("", 1, 0), Error);
    EXPECT_THROW(bag.writeProperty("D", std::make_shared<TMatrix>(), 0), TypeMismatch);
    EXPECT_THROW(bag.writeProperty("D", std::numeric_limits<double>::infinity(), 0), TypeMismatch);
}

TEST(TextBag, EveryValueSurvivesTheText) {
    std::string bytes = "\u00E9\uFFFF\U0010FFFF";
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    using Doubles = std::numeric_limits<double>;
    std::vector<Value> values{Value(),
                              true,
                              std::numeric_limits<std::int16_t>::min(),
                              std::numeric_limits<std::int32_t>::max(),
                              bytes,
                              Font{bytes, 8.25F, false, true, true, true, 300},
                              Doubles::max(),
                              Doubles::min(),
                              -0.0,
                              1 / 3e307};
    std::mt19937 random(20);
    for (int round = 0; round < 3000; ++round) {
        const double digits = random() - 2147483648.0;
        values.emplace_back(std::ldexp(digits / 3, static_cast<int>(random() % 600) - 300));
        values.emplace_back(Font{"", static_cast<float>(digits / 1e5), true, false});
    }
    TextBag bag;
    for (std::size_t place = 0; place < values.size(); ++place)
        bag.writeProperty("Key" + std::to_string(place), values[place], noDefault);
    const std::string text = bag.text();
    EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char byte) {
        return byte == '\n' || (byte >= ' ' && byte <= '~');
    }));
    const TextBag again = TextBag::parse(text);
    EXPECT_EQ(again.text(), text);
    for (std::size_t place = 0; place < values.size(); ++place)
        ASSERT_EQ(again.readProperty("key" + std::to_string(place), noDefault), values[place])
            << values[place].toText();
}

TEST(TextBag, ReadsWhatPeopleAndOlderProgramsLeave) {
    const TextBag bag = TextBag::parse("Tablio properties 1\r\n"
                                       "\r\n"
                                       "SomethingNew String \"kept\"\r\n"
                                       "Rows Long 5");
    EXPECT_EQ(bag.text(), "Tablio properties 1\nSomethingNew String \"kept\"\nRows Long 5\n");
    EXPECT_EQ(TextBag::parse("Tablio properties 1").text(), "Tablio properties 1\n");
}

TEST(TextBag, TellsWhichLineIsWrong) {
    const struct {
        const char *lines;
        const char *message;
    } cases[] = {
        {"A Long", "line 2: \"\" is no Long"},
        {"A Long 2147483648", "line 2: \"2147483648\" is no Long"},
        {"A Byte 1", "line 2: \"Byte\" is no type of a stored value"},
        {"A Long 1 2", "line 2: the line goes on after its value"},
        {"A Long 1\nB Long 1\na Long 1", "line 4: \"a\" stands here a second time"},
        {"A String b", "line 2: a text has to begin with a quotation mark"},
        {"A String \"b", "line 2: the closing quotation mark is missing"},
        {"A String \"b\"c", "line 2: a blank is missing before \"c\""},
        {"A String \"\\q\"", "line 2: unknown escape \\q"},
        {"A String \"\\u{110000}\"",
         "line 2: the number of an escape is no hexadecimal number or too great"},
        {"A String \"\\u41\"", "line 2: an escape needs a number in braces"},
        {"A Font \"\" big", "line 2: \"big\" is no font size"},
        {"A Font \"\" 9 blue", "line 2: \"blue\" is no font style"},
        {"\nA,B Long 1", "line 3: \"A,B\" is no name of a stored value"},
        {"<<<<<<< ours", "line 2: \"<<<<<<<\" is no name of a stored value"},
    };
    for (const auto &c : cases) {
        try {
            (void)TextBag::parse(std::string("Tablio properties 1\n") + c.lines + "\n");
            ADD_FAILURE() << c.lines;
        } catch (const Error &error) {
            EXPECT_STREQ(error.what(), c.message);
        }
    }
    for (const char *heading :
         {"", "Rows Long 5", "Tablio properties", "Tablio properties x", "Tablio properties 0"})
        EXPECT_THROW((void)TextBag::parse(heading), Error) << heading;
    EXPECT_THROW((void)TextBag::parse("Tablio properties 2\n"), Error);
}

} // namespace
} // namespace tablio
