/// What a face reads that no scenario looks at.

#include <tablio/tablio.h>

#include <gtest/gtest.h>

#include <string>

namespace tablio {
namespace {

struct Calendars final : Face {
    [[nodiscard]] Date today() const override { return now; }
    Date now{2024, 5, 17};
};

TEST(ScreenTest, ACalendarMonthIsSixWeeksWithADayOfTheMonthBefore) {
    struct Case {
        const char *cell;
        int firstWeekday;
        Date first;
        /// Of each day: before or after the month, out of range, chosen, today, or none of these.
        const char *days;
    };
    const Case cases[] = {
        {"16/05/2024", 0, {2024, 4, 29}, "oo...............ct..............ooooooooo"},
        {"01/05/2024", 2, {2024, 4, 24}, "oooooooc...............t..............oooo"},
        {"29/02/2024", 6, {2024, 1, 28}, "oooo............................cooooooooo"},
        {"31/12/9999", 0, {9999, 11, 29}, "oo..............................cxxxxxxxxx"},
    };
    Calendars face;
    Tablio table;
    table.setFace(&face);
    table.setColEditType(0, TColumnType::ColumnDate);
    table.setColStyle(0, TColumnStyle::ColumnInput);
    for (const Case &each : cases) {
        table.setTextMatrix(1, 0, each.cell);
        table.CellFocus(1, 0);
        table.input().keyDown(Key::F10, Shift::None);
        const CalendarMonth month = table.screen().calendarMonth(each.firstWeekday);
        std::string days;
        for (const CalendarMonth::Day &day : month.days)
            days += day.isOutOfRange   ? 'x'
                    : day.isOtherMonth ? 'o'
                    : day.isChosen     ? 'c'
                    : day.isToday      ? 't'
                                       : '.';
        EXPECT_EQ(month.days.front().date, each.first) << each.cell;
        EXPECT_EQ(days, each.days) << each.cell;
        table.input().keyDown(Key::Escape, Shift::None);
    }
    table.setFace(nullptr);
}

TEST(ScreenTest, FactsOfACellSayWhatCanBeDoneWithIt) {
    Tablio table;
    table.setCols(4);
    table.setRows(4);
    table.setCheckBoxes(1);
    table.setColStyle(0, TColumnStyle::ColumnFixed);
    table.SetColProperty(1, "Count", 900, TColumnStyle::ColumnInput, TColumnType::ColumnInteger);
    table.SetColProperty(2, "Code", 900, TColumnStyle::ColumnInput);
    table.setColDataType(2, TDataType::UpperCase);
    table.setTextMatrix(2, 1, "7");
    table.Check(2, true);
    table.CellFocus(2, 1);
    table.MarkActiveRow();
    const auto said = [&table](int row, int col) {
        const CellFacts facts = table.screen().facts({row, col});
        std::string text = std::string(facts.header) + "=" + std::string(facts.text);
        const std::pair<bool, const char *> marks[] = {
            {facts.isFixed, " fixed"},
            {facts.isReadOnly, " read-only"},
            {facts.isCheckBox, " box"},
            {facts.isTicked, " ticked"},
            {facts.isMarked, " marked"},
            {facts.isEdited, " edited"},
            {facts.type == TColumnType::ColumnInteger, " integer"},
            {facts.dataType == TDataType::UpperCase, " upper"}};
        for (const auto &[isSo, word] : marks)
            text += isSo ? word : "";
        return text;
    };
    EXPECT_EQ(said(0, 1), "Count=Count fixed read-only integer");
    EXPECT_EQ(said(1, 0), "= read-only");
    EXPECT_EQ(said(2, 1), "Count=7 marked integer");
    EXPECT_EQ(said(2, 3), "=P box ticked marked");
    EXPECT_EQ(said(1, 3), "= box");
    table.CellFocus(3, 2);
    table.input().keyPress(U'a');
    EXPECT_EQ(said(3, 2), "Code= edited upper") << "the mark goes when an edit begins";
    EXPECT_THROW(static_cast<void>(said(4, 0)), GridError);
}

TEST(ScreenTest, ACellSaysThatItsLastEditWasRefused) {
    struct Refuser final : HostEvents {
        void EditPostValidation(std::int16_t &, std::int16_t &, bool &Valid, std::string &,
                                std::string &NewData, std::int16_t &) override {
            Valid = Valid && NewData != "x";
        }
    } host;
    Tablio table;
    table.setRows(4);
    table.setHost(&host);
    table.CellFocus(1, 0);
    table.input().typeText("x");
    table.input().endEdit();
    EXPECT_TRUE(table.screen().facts({1, 0}).isRefused);
    EXPECT_FALSE(table.screen().facts({2, 0}).isRefused);
    table.input().typeText("y");
    table.input().endEdit();
    EXPECT_FALSE(table.screen().facts({1, 0}).isRefused);
    table.setHost(nullptr);
}

TEST(ScreenTest, AColumnIsAsWideAsItsLongestText) {
    Tablio table;
    table.setRows(5001);
    table.setCols(2);
    for (int row = 1; row <= 5000; ++row)
        table.setTextMatrix(row, 0, "some text");
    table.setTextMatrix(4000, 0, "the longest one of all of them");
    table.setColTextHeader(1, "A header above nothing");
    table.setColWidth(1, 0);
    // A face that cannot measure takes 90 twips a letter; 105 lie beside the text.
    table.ResizeColumns();
    EXPECT_EQ(table.Layout(), "columns 2805 0") << "one that was hidden stays so";
    table.ResizeColumn(1);
    EXPECT_EQ(table.ColWidth(1), 2085);
    EXPECT_THROW(table.ResizeColumn(2), GridError);
}

TEST(ScreenTest, AWheelKeepsWhatIsLessThanARow) {
    Tablio table;
    table.setRows(50);
    table.input().resized(3000, 1800);
    const auto top = [&table] { return table.screen().rowRange().position; };
    for (int turn = 0; turn < 5; ++turn)
        table.input().wheelTurned(WheelUnit::Part, 0, -50);
    EXPECT_EQ(top(), 3) << "250 parts are two rows";
    // A row has 20 pixels.
    for (int turn = 0; turn < 3; ++turn)
        table.input().wheelTurned(WheelUnit::Pixel, 0, -15);
    EXPECT_EQ(top(), 5);
    table.input().wheelTurned(WheelUnit::Part, 0, 130);
    EXPECT_EQ(top(), 4) << "ten parts were left from before";
    table.setRows(3);
    EXPECT_EQ(table.input().wheelTurned(WheelUnit::Part, 0, -120), Dealt::No);
}

} // namespace
} // namespace tablio
