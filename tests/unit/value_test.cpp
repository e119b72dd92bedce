#include <tablio/errors.h>
#include <tablio/tmatrix.h>
#include <tablio/value.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>

namespace tablio {
namespace {

using Type = Value::Type;

/// The text of a converted value, or the kind of error that the conversion ends in.
std::string converted(const Value &value, Type type) {
    try {
        return value.convertedTo(type).toText();
    } catch (const TypeMismatch &) {
        return "mismatch";
    } catch (const OverflowError &) {
        return "overflow";
    }
}

TEST(Value, WritesFifteenDigitsOfADouble) {
    const std::pair<double, const char *> cases[] = {
        {1.0 / 3, "0.333333333333333"},
        {0.0001, "0.0001"},
        {0.00001234, "1.234E-05"},
        {999999999999999, "999999999999999"},
        {1e15, "1E+15"},
        {-999999999999999.5, "-1E+15"},
        // Of two equally near ones the even one.
        {1000000000000005, "1E+15"},
        {1000000000000015, "1.00000000000002E+15"},
        {std::numeric_limits<double>::max(), "1.79769313486232E+308"},
        {std::numeric_limits<double>::min(), "2.2250738585072E-308"},
        {std::numeric_limits<double>::denorm_min(), "4.94065645841247E-324"},
    };
    for (const auto &[number, text] : cases)
        EXPECT_EQ(Value(number).toText(), text);
}

TEST(Value, ConvertsAsAutomationDoes) {
    const struct {
        Value value;
        const char *boolean;
        const char *integer;
        const char *number32;
        const char *real;
        const char *text;
    } cases[] = {
        {{}, "False", "0", "0", "0", ""},
        {true, "True", "-1", "-1", "-1", "True"},
        {std::int16_t{-32768}, "True", "-32768", "-32768", "-32768", "-32768"},
        {32768, "True", "overflow", "32768", "32768", "32768"},
        {std::numeric_limits<std::int32_t>::min(), "True", "overflow", "-2147483648", "-2147483648",
         "-2147483648"},
        // A half goes to the even neighbour.
        {0.5, "True", "0", "0", "0.5", "0.5"},
        {1.5, "True", "2", "2", "1.5", "1.5"},
        {-32768.5, "True", "-32768", "-32768", "-32768.5", "-32768.5"},
        {2147483647.5, "True", "overflow", "overflow", "2147483647.5", "2147483647.5"},
        {2147483666.0, "True", "overflow", "overflow", "2147483666", "2147483666"},
        {1e300, "True", "overflow", "overflow", "1E+300", "1E+300"},
        {0.1, "True", "0", "0", "0.1", "0.1"},
        {std::nan(""), "True", "overflow", "overflow", "NAN", "NAN"},
        {"", "mismatch", "mismatch", "mismatch", "mismatch", ""},
        {"tRUE", "True", "mismatch", "mismatch", "mismatch", "tRUE"},
        {"0", "False", "0", "0", "0", "0"},
        {" -12.50 ", "True", "-12", "-12", "-12.5", " -12.50 "},
        {"70000", "True", "overflow", "70000", "70000", "70000"},
        // No locale: a comma neither groups nor separates.
        {"1,5", "mismatch", "mismatch", "mismatch", "mismatch", "1,5"},
        {"12x", "mismatch", "mismatch", "mismatch", "mismatch", "12x"},
        {Font{}, "mismatch", "mismatch", "mismatch", "mismatch", "mismatch"},
        {std::make_shared<TMatrix>(), "mismatch", "mismatch", "mismatch", "mismatch", "mismatch"},
        {Value::missing(), "mismatch", "mismatch", "mismatch", "mismatch", "mismatch"},
        {SystemColour::ButtonText, "True", "overflow", "-2147483630", "-2147483630", "-2147483630"},
    };
    for (const auto &c : cases) {
        const std::string what = std::string(nameOf(c.value.type())) + " " + c.text;
        EXPECT_EQ(converted(c.value, Type::Boolean), c.boolean) << what;
        EXPECT_EQ(converted(c.value, Type::Integer), c.integer) << what;
        EXPECT_EQ(converted(c.value, Type::Long), c.number32) << what;
        EXPECT_EQ(converted(c.value, Type::Double), c.real) << what;
        EXPECT_EQ(converted(c.value, Type::String), c.text) << what;
    }
}

TEST(Value, ColoursFontsAndObjects) {
    EXPECT_EQ(Value(2147483666.0).toColour(), SystemColour::ButtonText);
    EXPECT_EQ(Value("2147483666").toColour(), SystemColour::ButtonText);
    EXPECT_EQ(Value(SystemColour::ButtonText).toColour(), SystemColour::ButtonText);
    EXPECT_EQ(Value(255.0).toColour(), Colour{255});
    EXPECT_THROW((void)Value(4294967296.0).toColour(), OverflowError);
    EXPECT_THROW((void)Value("red").toColour(), TypeMismatch);

    EXPECT_EQ(Value(Font{"Arial", 9, true, false}).toFont().name, "Arial");
    EXPECT_THROW((void)Value("Arial").toFont(), TypeMismatch);
    EXPECT_EQ(Value().toObject(), nullptr);
    EXPECT_THROW((void)Value(0).toObject(), TypeMismatch);
}

TEST(Value, ComparesByWorthNotByType) {
    const auto matrix = std::make_shared<TMatrix>();
    const struct {
        Value left;
        Value right;
        bool equal;
    } cases[] = {
        {2.0, std::int16_t{2}, true},
        {true, -1, true},
        {true, 1, false},
        {"64", std::int16_t{64}, true},
        {"", 0, false},
        {"", Value(), true},
        {Value(), 0, true},
        {"true", true, true},
        {Font{"A", 1}, Font{"A", 1}, true},
        {Font{"A", 1}, Font{"A", 2}, false},
        {matrix, matrix, true},
        {matrix, std::make_shared<TMatrix>(), false},
        {std::shared_ptr<TMatrix>(), Value(), true},
        {matrix, Value(), false},
        {Value::missing(), Value(), false},
        // The unsigned reading of a colour is another number than the colour.
        {2147483666.0, SystemColour::ButtonText, false},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(comparesEqual(c.left, c.right), c.equal)
            << nameOf(c.left.type()) << " and " << nameOf(c.right.type());
        EXPECT_EQ(comparesEqual(c.right, c.left), c.equal)
            << nameOf(c.right.type()) << " and " << nameOf(c.left.type());
    }
}

} // namespace
} // namespace tablio
