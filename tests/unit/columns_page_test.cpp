#include <tablio/pages/columns_page.h>
#include <tablio/tablio.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tablio {
namespace {

/// Writes down which properties are set and which control has the focus.
class Recorder final : public Face, public PageListener {
public:
    void propertyChanged(std::string_view name) override { notices.append(name).append(" "); }
    void focusMoved(const PageControl &control) override { focus = control.name(); }
    std::string notices;
    std::string focus;
};

const std::string allSettings = "ColStyle ColEditType ColDataType ColCalcStyle ColFormat "
                                "ColMaxLength ColTextHeader ColWidth ColDataAlignment "
                                "ColHeaderAlignment ";
const std::string allButCalcStyle = "ColStyle ColEditType ColDataType ColFormat ColMaxLength "
                                    "ColTextHeader ColWidth ColDataAlignment ColHeaderAlignment ";

class ColumnsPage : public testing::Test {
protected:
    ColumnsPage() {
        table.InitProperties();
        table.setCols(4);
        table.setFace(&recorder);
    }
    ~ColumnsPage() override {
        table.setFace(nullptr);
        // Page editing is a matter of all controls; other tests expect it off.
        Tablio().Show();
    }

    /// Decimal columns that differ in every setting that can differ.
    void fillColumns() {
        for (int col = 0; col < table.Cols(); ++col) {
            table.setColStyle(col, static_cast<TColumnStyle>(col % 3));
            table.setColEditType(col, TColumnType::ColumnDecimal);
            table.setColDataType(col, static_cast<TDataType>(2 - col % 3));
            table.setColCalcStyle(col, static_cast<TCalcStyle>(col % 2));
            table.setColFormat(col, std::string("0.") + std::string(col + 1, '0'));
            table.setColMaxLength(col, 10 + col);
            table.setColTextHeader(col, std::string(1, static_cast<char>('A' + col)));
            table.setColWidth(col, 1000 + col);
            table.setColDataAlignment(col, static_cast<TColumnAlignment>(1 + col % 3 * 3));
            table.setColHeaderAlignment(col, static_cast<TColumnAlignment>(7 - col % 3 * 3));
        }
    }

    [[nodiscard]] std::string columnText(int col) const {
        const auto number = [](auto value) {
            return std::to_string(static_cast<int>(value)) + " ";
        };
        return table.ColTextHeader(col) + "|" + number(table.ColStyle(col)) +
               number(table.ColEditType(col)) + number(table.ColDataType(col)) +
               number(table.ColCalcStyle(col)) + table.ColFormat(col) + " " +
               number(table.ColMaxLength(col)) + number(table.ColWidth(col)) +
               number(table.ColDataAlignment(col)) + number(table.ColHeaderAlignment(col));
    }

    /// Each column as its header and its calculation style.
    [[nodiscard]] std::string headers() const {
        std::string text;
        for (int col = 0; col < table.Cols(); ++col)
            text += table.ColTextHeader(col) +
                    std::to_string(static_cast<int>(table.ColCalcStyle(col))) + " ";
        return text;
    }

    void load(int col) {
        page.txtIndex.setText(std::to_string(col));
        page.SelectionChanged();
        recorder.notices.clear();
    }

    Tablio table;
    Recorder recorder;
    Columns page{table, recorder};
    PageButton &previous = page.cmdIndex[0];
    PageButton &next = page.cmdIndex[1];
    PageButton &insert = page.cmdCommand[0];
    PageButton &remove = page.cmdCommand[1];
};

TEST_F(ColumnsPage, LoadingRepairsTheIndexAndOffersWhatIsPossible) {
    const struct {
        int cols;
        const char *index, *shown;
        bool previous, next, remove;
    } cases[] = {
        {4, "", "0", false, true, true},    {4, "abc", "0", false, true, true},
        {4, "02", "2", true, true, true},   {4, " 1 of 4", "1", true, true, true},
        {4, "3", "3", true, false, true},   {4, "4", "3", true, true, true},
        {4, "1e9", "3", true, true, true},  {4, "-1", "-1", true, true, true},
        {1, "0", "0", false, false, false}, {2, "1", "1", true, false, true},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.index << " of " << c.cols);
        table.setCols(c.cols);
        page.typed(page.txtIndex, c.index);
        page.SelectionChanged();
        EXPECT_EQ(page.txtIndex.Text(), c.shown);
        EXPECT_EQ(previous.Enabled(), c.previous);
        EXPECT_EQ(next.Enabled(), c.next);
        EXPECT_EQ(remove.Enabled(), c.remove);
        EXPECT_TRUE(page.Changed());
    }
    table.setCols(0);
    EXPECT_NO_THROW(page.SelectionChanged());
    EXPECT_NO_THROW(page.pressed(insert));
}

TEST_F(ColumnsPage, LoadingShowsTheColumnAndKeepsItWhenApplied) {
    fillColumns();
    for (int col = 0; col < 4; ++col) {
        const std::string before = columnText(col);
        load(col);
        page.ApplyChanges();
        EXPECT_EQ(columnText(col), before);
    }

    const struct { int stored, item; } alignments[] = {{1, 0}, {4, 1}, {7, 2}, {0, 2}, {9, 2}};
    for (const auto &c : alignments) {
        table.setColDataAlignment(0, static_cast<TColumnAlignment>(c.stored));
        table.setColHeaderAlignment(1, static_cast<TColumnAlignment>(c.stored));
        load(0);
        EXPECT_EQ(page.cboColDataAlignment.ListIndex(), c.item) << c.stored;
        load(1);
        EXPECT_EQ(page.cboColHeaderAlignment.ListIndex(), c.item) << c.stored;
    }
}

TEST_F(ColumnsPage, TheEditKindDecidesWhatIsOffered) {
    using Items = std::vector<std::string>;
    const Items signs{"AllValue", "Positive", "Negative"};
    const Items styles{"No Style", "Calc.Style"};
    const struct {
        int kind;
        Items calcStyles;
        Items dataTypes;
        bool isNumeric, hasLimits;
        const char *maxLength, *format;
        int loadedDataType, loadedCalcStyle;
    } cases[] = {
        {0, {"No Style"}, {"AllCase", "UpperCase", "LowerCase"}, false, true, "77", "typed", 2, 0},
        {1, styles, signs, true, true, "77", "typed", 2, 1},
        {2, styles, signs, true, true, "77", "typed", 2, 1},
        {3, {"No Style"}, {"Date"}, false, false, "10", "##/##/####", 0, 0},
        {4, {"No Style"}, {"Combo"}, false, false, "0", "", 0, 0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.kind);
        load(0);
        page.typed(page.txtColMaxLength, "77");
        page.typed(page.txtColFormat, "typed");
        page.setChanged(false);
        page.chosen(page.cboColEditType, c.kind);
        EXPECT_EQ(page.cboCalcStyle.items(), c.calcStyles);
        EXPECT_EQ(page.cboCalcStyle.Enabled(), c.isNumeric);
        EXPECT_EQ(page.cboDataType.items(), c.dataTypes);
        EXPECT_EQ(page.cboDataType.Enabled(), c.hasLimits);
        EXPECT_EQ(page.cboDataType.ListIndex(), 0);
        EXPECT_EQ(page.cboCalcStyle.ListIndex(), 0);
        EXPECT_EQ(page.txtColMaxLength.Enabled(), c.hasLimits);
        EXPECT_EQ(page.txtColFormat.Enabled(), c.hasLimits);
        EXPECT_EQ(page.txtColMaxLength.Text(), c.maxLength);
        EXPECT_EQ(page.txtColFormat.Text(), c.format);
        EXPECT_TRUE(page.Changed());

        // Loading shows what is stored, after the rule has run.
        table.setColEditType(1, static_cast<TColumnType>(c.kind));
        table.setColDataType(1, TDataType::Negative);
        table.setColCalcStyle(1, TCalcStyle::CalcStyle);
        table.setColFormat(1, "stored");
        table.setColMaxLength(1, 33);
        load(1);
        EXPECT_EQ(page.cboDataType.ListIndex(), c.loadedDataType);
        EXPECT_EQ(page.cboCalcStyle.ListIndex(), c.loadedCalcStyle);
        EXPECT_EQ(page.txtColFormat.Text(), "stored");
        EXPECT_EQ(page.txtColMaxLength.Text(), "33");
        EXPECT_EQ(page.txtColFormat.Enabled(), c.hasLimits);
    }
    load(0);
    EXPECT_TRUE(page.txtColFormat.Enabled()) << "unlocked again";
}

TEST_F(ColumnsPage, AStoredValueThatNoListHasLeavesTheListAsItIs) {
    load(0);
    table.setColStyle(1, static_cast<TColumnStyle>(9));
    table.setColEditType(1, static_cast<TColumnType>(9));
    table.setColDataType(1, static_cast<TDataType>(9));
    table.setColTextHeader(1, "next");
    load(1);
    EXPECT_EQ(page.cboColumnStyle.ListIndex(), 0);
    EXPECT_EQ(page.cboColEditType.ListIndex(), 0);
    EXPECT_EQ(page.cboDataType.ListIndex(), 0);
    EXPECT_EQ(page.txtColTextHeader.Text(), "next");
}

TEST_F(ColumnsPage, TheGreatestMaximumLengthIs1024) {
    load(0);
    const char *const cases[][2] = {{"5000", "1024"}, {"1025", "1024"}, {"1024", "1024"},
                                    {"1023", "1023"}, {"", ""},         {"99999999999", "1024"}};
    for (const auto &[typed, shown] : cases) {
        page.typed(page.txtColMaxLength, typed);
        EXPECT_EQ(page.txtColMaxLength.Text(), shown);
    }
    EXPECT_FALSE(page.takesKey(page.txtColMaxLength, U'x', 0, 0));
    EXPECT_FALSE(page.takesKey(page.txtColWidth, U'.', 0, 0));
    EXPECT_TRUE(page.takesKey(page.txtColTextHeader, U'x', 0, 0));
}

TEST_F(ColumnsPage, ApplyingWritesTheColumnInItsOrder) {
    fillColumns();
    load(2);
    page.chosen(page.cboColEditType, 2);
    page.chosen(page.cboColumnStyle, 1);
    page.chosen(page.cboDataType, 1);
    page.chosen(page.cboCalcStyle, 1);
    page.typed(page.txtColFormat, "#,##0");
    page.typed(page.txtColTextHeader, "Pieces");
    page.typed(page.txtColWidth, "1200 twips");
    page.typed(page.txtColMaxLength, " 9 ");
    page.chosen(page.cboColDataAlignment, 2);
    page.chosen(page.cboColHeaderAlignment, 0);
    const std::string others = columnText(1) + columnText(3);
    page.ApplyChanges();
    EXPECT_EQ(recorder.notices, "ColStyle ColEditType ColDataType ColCalcStyle ColFormat "
                                "ColTextHeader ColWidth ColMaxLength ColDataAlignment "
                                "ColHeaderAlignment ");
    EXPECT_EQ(columnText(2), "Pieces|1 2 1 1 #,##0 9 1200 7 1 ");
    EXPECT_EQ(columnText(1) + columnText(3), others);
    EXPECT_FALSE(page.Changed());

    // A length that the control refuses is skipped; the alignments after it are not.
    page.typed(page.txtColMaxLength, "-99999");
    page.chosen(page.cboColDataAlignment, 1);
    EXPECT_NO_THROW(page.ApplyChanges());
    EXPECT_EQ(columnText(2), "Pieces|1 2 1 1 #,##0 9 1200 4 1 ");
}

TEST_F(ColumnsPage, EveryEditMarksThePage) {
    for (PageTextBox *box : {&page.txtIndex, &page.txtColTextHeader, &page.txtColFormat,
                             &page.txtColMaxLength, &page.txtColWidth}) {
        load(0);
        page.setChanged(false);
        page.typed(*box, "3");
        EXPECT_TRUE(page.Changed()) << box->name();
    }
    for (PageList *list : {&page.cboColumnStyle, &page.cboColEditType, &page.cboDataType,
                           &page.cboColDataAlignment, &page.cboColHeaderAlignment}) {
        load(0);
        page.setChanged(false);
        page.chosen(*list, list->ListIndex());
        EXPECT_TRUE(page.Changed()) << list->name();
    }
}

TEST_F(ColumnsPage, MovingKeepsWhatWasEditedAndStopsAtTheEdges) {
    fillColumns();
    load(1);
    page.typed(page.txtColTextHeader, "edited");
    page.pressed(next);
    EXPECT_EQ(table.ColTextHeader(1), "edited");
    EXPECT_EQ(page.txtColTextHeader.Text(), "C");
    EXPECT_EQ(recorder.focus, "txtColTextHeader");
    page.pressed(next);
    page.pressed(next);
    EXPECT_EQ(page.txtIndex.Text(), "3");
    EXPECT_FALSE(next.Enabled());
    for (int press = 0; press < 5; ++press)
        page.pressed(previous);
    EXPECT_EQ(page.txtIndex.Text(), "0");
    EXPECT_EQ(page.txtColTextHeader.Text(), "A");

    for (const int checkBoxes : {-1, 1}) { // The column of check boxes is never reached.
        table.setCheckBoxes(checkBoxes);
        load(2);
        EXPECT_TRUE(next.Enabled());
        page.pressed(next);
        EXPECT_EQ(page.txtIndex.Text(), "2");
    }
}

TEST_F(ColumnsPage, InsertingMakesANewColumnBehindTheCurrentOne) {
    for (const int at : {0, 1, 3}) {
        SCOPED_TRACE(at);
        table.setCols(4);
        fillColumns();
        std::vector<std::string> expected;
        for (int col = 0; col < 4; ++col)
            expected.push_back(columnText(col));
        expected.insert(expected.begin() + at + 1, "|2 0 1 0  64 960 1 1 ");
        load(at);
        page.typed(page.txtColTextHeader, "edited"); // What is being edited stays with its column.
        expected[at].replace(0, 1, "edited");
        page.pressed(insert);
        std::vector<std::string> columns;
        for (int col = 0; col < table.Cols(); ++col)
            columns.push_back(columnText(col));
        EXPECT_EQ(columns, expected);
        EXPECT_EQ(page.txtIndex.Text(), std::to_string(at + 1));
        EXPECT_EQ(page.txtColWidth.Text(), "960");
        EXPECT_EQ(page.cboDataType.ListIndex(), 1);
        EXPECT_TRUE(remove.Enabled());
        EXPECT_EQ(recorder.focus, "txtColTextHeader");
        // Each column behind it is copied, then the new one is set.
        std::string notices = "Cols ";
        for (int writes = 0; writes < 5 - at; ++writes)
            notices += allSettings;
        EXPECT_EQ(recorder.notices.substr(0, notices.size()), notices);
    }
}

TEST_F(ColumnsPage, RemovingMovesAllButTheCalculationStyles) {
    fillColumns();
    load(1);
    page.pressed(remove);
    EXPECT_EQ(headers(), "A0 C1 D0 ");
    EXPECT_EQ(columnText(1), "C|2 1 0 1 0.000 12 1002 7 1 ");
    EXPECT_EQ(recorder.notices, allButCalcStyle + allButCalcStyle + allButCalcStyle + "Cols ");
    EXPECT_EQ(page.txtIndex.Text(), "1");
    EXPECT_EQ(recorder.focus, "txtColTextHeader");
    page.ApplyChanges();
    EXPECT_EQ(headers(), "A0 C1 D0 ") << "the page shows the column that has moved here";

    load(2);
    page.pressed(remove);
    EXPECT_EQ(headers(), "A0 C1 ");
    EXPECT_EQ(page.txtIndex.Text(), "1");
    EXPECT_EQ(page.txtColTextHeader.Text(), "C");
    EXPECT_FALSE(next.Enabled());
    load(0);
    page.pressed(remove);
    EXPECT_EQ(headers(), "C0 ");
    EXPECT_FALSE(remove.Enabled() || next.Enabled() || previous.Enabled());
    page.pressed(remove);
    EXPECT_EQ(table.Cols(), 1);
    page.pressed(insert);
    EXPECT_TRUE(remove.Enabled());
    EXPECT_EQ(headers(), "C0 0 ");
}

TEST_F(ColumnsPage, AnIndexThatNoColumnHasDoesNoHarm) {
    for (const char *index : {"9", "-7", "-2147483648", "1e300"}) {
        SCOPED_TRACE(index);
        table.setCols(4);
        fillColumns();
        page.typed(page.txtIndex, index);
        EXPECT_NO_THROW(page.ApplyChanges());
        EXPECT_NO_THROW(page.pressed(remove));
        EXPECT_EQ(table.Cols(), 3);
        page.typed(page.txtIndex, index);
        EXPECT_NO_THROW(page.pressed(insert));
        EXPECT_EQ(table.Cols(), 4);
    }
}

} // namespace
} // namespace tablio
