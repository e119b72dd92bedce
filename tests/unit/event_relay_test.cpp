#include <tablio/dispatch.h>
#include <tablio/errors.h>

#include <gtest/gtest.h>

#include <span>
#include <string>

namespace tablio {
namespace {

/// Logs events and answers with what it is given.
struct Sink final : EventSink {
    void event(MemberNumber number, std::span<Value> arguments) override {
        log += std::to_string(number) + ":";
        for (const Value &argument : arguments)
            log += std::string(nameOf(argument.type())).substr(0, 1) + argument.toText() + " ";
        for (std::size_t place = 0; place < arguments.size() && place < answers.size(); ++place)
            if (!answers[place].isMissing())
                arguments[place] = answers[place];
    }
    std::string log;
    Values answers;
};

/// What goes out, scenarios show: they hear all events this way.
TEST(EventRelay, AnswersComeBackConvertedOrNotAtAll) {
    Sink sink;
    const std::unique_ptr<HostEvents> relay = relayTo(sink);
    std::int16_t a = 1;
    std::int16_t b = 2;
    std::int16_t c = 3;
    bool flag = true;
    std::string text = "old";
    std::string other = "new";
    sink.answers = {"7", 8.0, 0};
    relay->EditPreValidation(a, b, flag);
    EXPECT_TRUE(a == 7 && b == 8 && !flag);
    sink.answers = {Value::missing(), Value::missing(), 12};
    relay->EditOnChange(a, b, text);
    EXPECT_EQ(text, "12");
    sink.answers = {9, 9, -1, "x", true, 13};
    relay->EditPostValidation(a, b, flag, text, other, c);
    EXPECT_TRUE(a == 9 && flag && text == "x" && other == "True" && c == 13);
    EXPECT_EQ(sink.log, "1:I1 I2 BTrue 2:I7 I8 Sold 3:I7 I8 BFalse S12 Snew I3 ");

    // An answer that does not fit changes nothing.
    sink.answers = {1, "no number"};
    EXPECT_THROW(relay->DoubleClick(a, b), TypeMismatch);
    sink.answers = {40000};
    EXPECT_THROW(relay->DoubleClick(a, b), OverflowError);
    EXPECT_TRUE(a == 9 && b == 9);
}

} // namespace
} // namespace tablio
