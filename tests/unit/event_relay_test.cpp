#include "control/control.h"

#include <tablio/dispatch.h>
#include <tablio/errors.h>
#include <tablio/tablio.h>

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
        if (answeredEvent != 0 && answeredEvent != number)
            return;
        for (std::size_t place = 0; place < arguments.size() && place < answers.size(); ++place)
            if (!answers[place].isMissing())
                arguments[place] = answers[place];
    }
    std::string log;
    Values answers;
    MemberNumber answeredEvent = 0; ///< 0: all.
};

TEST(EventRelay, EachEventGoesOutByItsNumberAndComesBackChanged) {
    Sink sink;
    EventRelay relay(sink);
    std::int16_t a = 1;
    std::int16_t b = 2;
    std::int16_t c = 3;
    std::int16_t d = 4;
    bool flag = true;
    std::string text = "old";
    std::string other = "new";
    relay.EditLookup(a, b);
    relay.CellFocus(a, b);
    relay.CellKeyPress(a, b, c);
    relay.TableChange();
    relay.TableKeyDown(a, b, c, d);
    relay.TableRowChange(a, b);
    relay.DoubleClick(a, b);
    EXPECT_EQ(sink.log, "4:I1 I2 5:I1 I2 6:I1 I2 I3 7:8:I1 I2 I3 I4 9:I1 I2 10:I1 I2 ");

    sink.log.clear();
    sink.answers = {"7", 8.0, 0};
    relay.EditPreValidation(a, b, flag);
    EXPECT_TRUE(a == 7 && b == 8 && !flag);
    sink.answers = {Value::missing(), Value::missing(), 12};
    relay.EditOnChange(a, b, text);
    EXPECT_EQ(text, "12");
    sink.answers = {9, 9, -1, "x", true, 13};
    relay.EditPostValidation(a, b, flag, text, other, c);
    EXPECT_TRUE(a == 9 && flag && text == "x" && other == "True" && c == 13);
    EXPECT_EQ(sink.log, "1:I1 I2 BTrue 2:I7 I8 Sold 3:I7 I8 BFalse S12 Snew I3 ");

    // An answer that does not fit changes nothing.
    sink.answers = {1, "no number"};
    EXPECT_THROW(relay.DoubleClick(a, b), TypeMismatch);
    sink.answers = {40000};
    EXPECT_THROW(relay.DoubleClick(a, b), OverflowError);
    EXPECT_TRUE(a == 9 && b == 9);
}

TEST(EventRelay, ALateBoundHostCanVeto) {
    Tablio table;
    table.Show();
    Sink sink;
    EventRelay relay(sink);
    table.setHost(&relay);
    table.CellFocus(1, 0);
    sink.log.clear();
    sink.answers = {Value::missing(), Value::missing(), "True"};
    sink.answeredEvent = Dispatch::numberOfEvent("EditPreValidation");
    table.input().keyDown(Key::F2, Shift::None);
    EXPECT_NE(sink.log.find("1:I1 I0 BFalse"), std::string::npos) << sink.log;
    EXPECT_FALSE(table.control().state.widgets.txtEdit.Visible());
    sink.answers.clear();
    table.input().keyDown(Key::F2, Shift::None);
    EXPECT_TRUE(table.control().state.widgets.txtEdit.Visible());
    table.setHost(nullptr);
}

} // namespace
} // namespace tablio
