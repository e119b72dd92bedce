/// What a face sends that no scenario does: reports that come too late, a clipboard that comes with
/// an event, and the question whose key it is.

#include "control/inside.h"

#include <gtest/gtest.h>

#include <thread>

namespace tablio {
namespace {

class ClipboardFace final : public Face {
public:
    std::string clipboard = "the platform's";
    std::string clipboardText() override { return clipboard; }
    void setClipboardText(std::string_view text) override { clipboard = text; }
};

class InputTest : public testing::Test {
protected:
    InputTest() {
        table.setFace(&face);
        table.setRows(5);
        table.setCols(3);
        table.setColEditType(1, TColumnType::ColumnCombo);
        table.setColEditType(2, TColumnType::ColumnDate);
        table.Show();
        table.ComboAddItem("Bag");
        input.focusEntered();
    }

    EditNumber open(int col) {
        table.CellFocus(2, col);
        input.keyDown(Key::F2, Shift::None);
        return control.session.openEdit();
    }

    ClipboardFace face;
    Tablio table;
    Control &control = Inside::of(table);
    Input &input = table.input();
};

TEST_F(InputTest, ACellDoesWhatItOffers) {
    table.setCheckBoxes(1);
    table.setCols(4);
    table.setColStyle(0, TColumnStyle::ColumnInputWithLookup);
    const auto offered = [this](CellAddress cell) {
        std::string text;
        for (const auto &[action, letter] :
             {std::pair(CellAction::Reach, 'r'), std::pair(CellAction::Edit, 'e'),
              std::pair(CellAction::Tick, 't'), std::pair(CellAction::OpenList, 'l'),
              std::pair(CellAction::OpenCalendar, 'c'), std::pair(CellAction::LookUp, '?')})
            text += table.screen().offers(cell, action) ? std::string(1, letter) : std::string();
        return text;
    };
    EXPECT_EQ(offered({2, 0}) + offered({2, 1}) + offered({2, 2}) + offered({2, 3}), "re?relrecrt");
    EXPECT_EQ(offered({0, 0}) + offered({9, 0}), "") << "a header, and no cell at all";
    EXPECT_EQ(input.act({0, 0}, CellAction::Edit), Dealt::No);
    input.act({2, 3}, CellAction::Tick);
    EXPECT_TRUE(table.Checked(2));
    input.act({3, 1}, CellAction::OpenList);
    EXPECT_TRUE(table.screen().list().isDropped);
    input.act({3, 2}, CellAction::OpenCalendar);
    EXPECT_EQ(table.screen().focusOwner(), WidgetId::mvCalender);
    input.act({1, 0}, CellAction::Reach);
    EXPECT_EQ(table.screen().focusOwner(), WidgetId::Grid);
    EXPECT_EQ(table.CurrentRow(), 1);
    EXPECT_FALSE(table.IsEditing());
    table.setEnabled(false);
    EXPECT_EQ(offered({2, 0}), "");
}

TEST_F(InputTest, AReportForAnotherThanTheOpenEditIsDropped) {
    const EditNumber text = open(0);
    input.textSettled(text, "kept", 4, 4);
    EXPECT_EQ(control.state.widgets.txtEdit.Text(), "kept");
    const EditNumber combo = open(1);
    input.textSettled(text, "late", 4, 4);
    EXPECT_EQ(control.state.widgets.cboEdit.Text(), "");
    const EditNumber date = open(2);
    input.textSettled(combo, "01/01/2001", 0, 0);
    input.comboItemChosen(combo, 0);
    input.comboDropped(combo, true);
    EXPECT_FALSE(control.state.widgets.cboEdit.DroppedDown());
    EXPECT_EQ(control.state.widgets.cboEdit.Text(), "");
    EXPECT_EQ(control.state.widgets.txtDateEdit.Text(), "__/__/____");
    input.keyDown(Key::F4, Shift::None);
    const Date shown = control.state.widgets.mvCalender.Value();
    input.calendarMoved(date, {2001, 77, 1});
    input.calendarPicked(date, {2001, 2, 30});
    input.calendarMoved(combo, {2001, 1, 1});
    input.calendarPicked(combo, {2001, 1, 1});
    EXPECT_EQ(control.state.widgets.mvCalender.Value(), shown);
    EXPECT_EQ(control.session.openEdit(), date);
    input.focusLeft();
    input.textSettled(0, "nobody's", 0, 0);
    EXPECT_EQ(table.TextMatrix(2, 0), "kept");
    EXPECT_EQ(table.TextMatrix(2, 1) + table.TextMatrix(2, 2), "");
}

TEST_F(InputTest, AClipboardThatComesWithAnEventTakesTheWayOfTheKey) {
    EXPECT_EQ(input.paste("one\n\ttwo"), Dealt::Yes);
    EXPECT_EQ(table.TextMatrix(1, 0), "one");
    EXPECT_EQ(table.TextMatrix(2, 1), "two");
    EXPECT_EQ(input.copy(), "one");
    EXPECT_EQ(input.cut(), std::nullopt) << "a cell is not cut";
    open(0);
    EXPECT_EQ(input.copy(), std::nullopt) << "nothing is selected";
    input.paste("four");
    input.keyDown(Key::Left, Shift::Shift);
    EXPECT_EQ(input.cut(), "r");
    input.keyDown(Key::Enter, Shift::None);
    EXPECT_EQ(table.TextMatrix(2, 0), "fou");
    EXPECT_EQ(face.clipboard, "the platform's");
}

TEST_F(InputTest, TakesTheKeysThatItUsesBeforeAShortcutDoes) {
    const struct {
        KeyCode key;
        ShiftState shift;
        bool onTheGrid;
        bool inAnEditor;
    } cases[] = {
        {Key::Enter, Shift::None, true, true},   {Key::Left, Shift::Ctrl, true, true},
        {Key::Left, Shift::Alt, false, false},   {Key::Delete, Shift::Shift, true, true},
        {Key::Escape, Shift::None, false, true}, {Key::Back, Shift::None, false, true},
        {Key::F2, Shift::None, true, true},      {Key::F2, Shift::Ctrl, false, false},
        {Key::V, Shift::Ctrl, true, true},       {Key::Z, Shift::Ctrl, false, true},
        {'S', Shift::Ctrl, false, false},        {Key::F4, Shift::None, false, false},
    };
    for (const bool isEditing : {false, true}) {
        EXPECT_EQ(isEditing, isEditing ? open(0) != 0 : control.session.isOpen());
        for (const auto &each : cases) {
            EXPECT_EQ(input.wantsKey(each.key, each.shift, false),
                      isEditing ? each.inAnEditor : each.onTheGrid)
                << each.key << " with " << each.shift << (isEditing ? ", editing" : "");
        }
        EXPECT_TRUE(input.wantsKey('S', Shift::None, true)) << "a letter is typed";
        EXPECT_TRUE(input.wantsKey(Key::C, Shift::None, true));
    }
}

#ifndef NDEBUG
TEST_F(InputTest, AnotherThreadIsTold) {
    std::thread([this] {
        EXPECT_THROW(table.setRows(3), Error);
        EXPECT_THROW(input.typeText("x"), Error);
    }).join();
    EXPECT_EQ(table.Rows(), 5);
}
#endif

} // namespace
} // namespace tablio
