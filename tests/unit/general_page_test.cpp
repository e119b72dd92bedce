#include "unit/notice_face.h"

#include <tablio/pages/general_page.h>
#include <tablio/tablio.h>

#include <gtest/gtest.h>

#include <string>

namespace tablio {
namespace {

class GeneralPage : public testing::Test {
protected:
    GeneralPage() {
        table.InitProperties();
        table.setCols(5);
        table.setRows(10);
        table.setWordWrap(false);
        table.setGridPopUpMenu(true);
    }
    /// Page editing is a matter of all controls; other tests expect it off.
    ~GeneralPage() override { Tablio().Show(); }

    Tablio table;
    PageListener listener;
    General page{table, listener};
};

TEST_F(GeneralPage, LoadingShowsWhatTheControlHolds) {
    const struct {
        int cols, checkBoxes, primary;
        bool fixed;
        const char *txtCols;
        int chkCheckboxes;
        const char *txtPrimaryColumn;
        int chkWithFixedColumn;
    } cases[] = {
        {5, 0, 0, false, "5", 0, "0", 0},
        {6, -1, 2, true, "5", 1, "2", 1},
        {6, 1, 1, true, "5", 1, "1", 1},
        {6, 2, 1, true, "6", 0, "1", 1}, // Only the lowest bit counts.
        {1, -1, 0, false, "0", 1, "-1", 0},
        {5, 0, 0, true, "5", 0, "0", 1}, // The two exclude each other, but this is what is held.
        {5, 0, 3, false, "5", 0, "3", 1},
        {5, 0, 7, true, "5", 0, "4", 1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.cols << " columns, primary " << c.primary);
        table.setCols(c.cols);
        table.setCheckBoxes(c.checkBoxes);
        table.setPrimaryColumn(c.primary);
        table.setWithFixedColumn(c.fixed);
        General fresh(table, listener);
        for (General *shown : {&fresh, &page}) { // A page that showed something else before, too.
            shown->SelectionChanged();
            EXPECT_EQ(shown->txtCols.Text(), c.txtCols);
            EXPECT_EQ(shown->chkCheckboxes.Value(), c.chkCheckboxes);
            EXPECT_EQ(shown->txtPrimaryColumn.Text(), c.txtPrimaryColumn);
            EXPECT_EQ(shown->chkWithFixedColumn.Value(), c.chkWithFixedColumn);
            EXPECT_FALSE(shown->Changed());
        }
    }

    table.setHeaderRowHeight(450);
    table.setRowMinHeight(240);
    table.setHeaderFontBold(true);
    table.setWordWrap(true);
    table.setGridPopUpMenu(false);
    page.SelectionChanged();
    EXPECT_EQ(page.txtRows.Text(), "10");
    EXPECT_EQ(page.RowUpDown.Value(), 10);
    EXPECT_EQ(page.txtHeaderRowHeight.Text(), "450");
    EXPECT_EQ(page.txtRowMinHeight.Text(), "240");
    EXPECT_TRUE(page.chkHeaderFontBold.isTicked());
    EXPECT_TRUE(page.chkWordWrap.isTicked());
    EXPECT_FALSE(page.chkGridPopUpMenu.isTicked());
}

TEST_F(GeneralPage, LoadingSwitchesPageEditingOnUntilAControlIsShown) {
    const auto fixedColumnKeepsItsText = [this] {
        table.setTextMatrix(1, 1, "kept");
        table.setColStyle(1, TColumnStyle::ColumnFixed);
        return table.TextMatrix(1, 1) == "kept";
    };
    EXPECT_TRUE(fixedColumnKeepsItsText());
    page.SelectionChanged();
    EXPECT_FALSE(fixedColumnKeepsItsText());
    Tablio().Show();
    EXPECT_TRUE(fixedColumnKeepsItsText());
}

TEST_F(GeneralPage, EveryChangeButTheMenuTickMarksThePage) {
    for (PageTextBox *box : {&page.txtRows, &page.txtCols, &page.txtHeaderRowHeight,
                             &page.txtRowMinHeight, &page.txtPrimaryColumn}) {
        page.SelectionChanged();
        page.typed(*box, box->Text());
        page.lostFocus(*box);
        EXPECT_FALSE(page.Changed()) << box->name();
        page.typed(*box, "3");
        EXPECT_TRUE(page.Changed()) << box->name();
        EXPECT_TRUE(page.takesKey(*box, U'-', 0, 0)) << box->name();
        EXPECT_FALSE(page.takesKey(*box, U'-', 1, 0)) << box->name();
        EXPECT_FALSE(page.takesKey(*box, U'.', 1, 0)) << box->name();
        EXPECT_FALSE(page.takesKey(*box, U'\U00010037', 1, 0)) << box->name(); // 16 bits: "7"
    }
    for (PageCheckBox *box : {&page.chkCheckboxes, &page.chkHeaderFontBold, &page.chkWordWrap,
                              &page.chkWithFixedColumn, &page.chkGridPopUpMenu}) {
        page.SelectionChanged();
        page.clicked(*box);
        EXPECT_EQ(page.Changed(), box != &page.chkGridPopUpMenu) << box->name();
    }
}

TEST_F(GeneralPage, BoxesAndSpinnersFollowEachOther) {
    page.SelectionChanged();
    page.spun(page.RowUpDown, 11);
    EXPECT_EQ(page.txtRows.Text(), "11");
    EXPECT_TRUE(page.Changed());
    page.spun(page.ColUpDown, 6);
    EXPECT_EQ(page.txtCols.Text(), "6");
    page.spun(page.ColUpDown, 0);
    EXPECT_EQ(page.txtCols.Text(), "6") << "beyond the spinner's end";

    const struct {
        const char *typed, *rows;
        int rowSpinner;
        const char *cols;
        int colSpinner;
    } cases[] = {
        {"25", "25", 25, "25", 25},   {"025", "25", 25, "25", 25},
        {"1", "1", 11, "1", 1}, // On the way to 15: the spinner must not make 2 of it.
        {"", "", 11, "", 6},          {"30x", "30", 30, "30x", 6},
        {"x", "x", 11, "x", 6},       {"2.5", "2", 2, "2", 2},
        {"0", "0", 11, "0", 6},       {"99999", "99999", 11, "99999", 6},
        {"1e9", "1e9", 11, "1e9", 6}, {"1e99", "1e99", 11, "1e99", 6},
    };
    for (const auto &c : cases) {
        page.spun(page.RowUpDown, 11);
        page.spun(page.ColUpDown, 6);
        page.typed(page.txtRows, c.typed);
        EXPECT_EQ(page.txtRows.Text(), c.rows) << c.typed;
        EXPECT_EQ(page.RowUpDown.Value(), c.rowSpinner) << c.typed;
        page.typed(page.txtCols, c.typed);
        EXPECT_EQ(page.txtCols.Text(), c.cols) << c.typed;
        EXPECT_EQ(page.ColUpDown.Value(), c.colSpinner) << c.typed;
        page.spun(page.ColUpDown, page.ColUpDown.Value());
        EXPECT_EQ(page.txtCols.Text(), std::to_string(c.colSpinner)) << "whatever the box held";
    }
}

TEST_F(GeneralPage, LeavingACountRepairsIt) {
    const struct {
        const char *typed, *rows, *cols;
        bool fixedIsOffered;
    } cases[] = {
        {"1", "2", "1", false},   {"0", "2", "1", false}, {"-3", "2", "1", false},
        {"", "2", "1", false},    {"x", "2", "1", false}, {"2", "2", "2", true},
        {"40", "40", "40", true},
    };
    for (const auto &c : cases) {
        page.SelectionChanged();
        page.chkWithFixedColumn.setValue(1);
        page.typed(page.txtRows, c.typed);
        page.lostFocus(page.txtRows);
        EXPECT_EQ(page.txtRows.Text(), c.rows) << c.typed;
        page.typed(page.txtCols, c.typed);
        page.lostFocus(page.txtCols);
        EXPECT_EQ(page.txtCols.Text(), c.cols) << c.typed;
        EXPECT_EQ(page.chkWithFixedColumn.Enabled(), c.fixedIsOffered) << c.typed;
        EXPECT_EQ(page.chkWithFixedColumn.isTicked(), c.fixedIsOffered) << c.typed;
        page.clicked(page.chkWithFixedColumn);
        EXPECT_FALSE(page.chkWithFixedColumn.isTicked()) << "cleared, or disabled";
    }
}

TEST_F(GeneralPage, PrimaryAndFixedColumnExcludeEachOther) {
    const struct {
        const char *cols, *typed, *primary;
        bool fixed;
    } cases[] = {
        {"5", "7", "4", true},    {"5", "5", "4", true},    {"5", "4", "4", true},
        {"5", "-2", "-2", false}, {"5", "3x", "3x", false}, {"5", "x", "x", false},
        {"1", "1", "0", false},   {"0", "1", "-1", false},  {"5", "1e400", "1e400", false},
    };
    for (const auto &c : cases) {
        General fresh(table, listener);
        fresh.typed(fresh.txtCols, c.cols);
        fresh.typed(fresh.txtPrimaryColumn, c.typed);
        EXPECT_EQ(fresh.txtPrimaryColumn.Text(), c.primary) << c.typed;
        EXPECT_EQ(fresh.chkWithFixedColumn.isTicked(), c.fixed) << c.typed;
    }

    page.SelectionChanged();
    page.clicked(page.chkWithFixedColumn);
    EXPECT_EQ(page.txtPrimaryColumn.Text(), "1");
    page.typed(page.txtPrimaryColumn, "0");
    EXPECT_TRUE(page.chkWithFixedColumn.isTicked()) << "only a column above 0 has a say";
    page.clicked(page.chkWithFixedColumn);
    page.typed(page.txtPrimaryColumn, "3");
    EXPECT_TRUE(page.chkWithFixedColumn.isTicked());
    page.clicked(page.chkWithFixedColumn);
    page.clicked(page.chkWithFixedColumn);
    EXPECT_EQ(page.txtPrimaryColumn.Text(), "3") << "ticking keeps a column that is not 0";

    page.typed(page.txtCols, "1");
    page.typed(page.txtPrimaryColumn, "0");
    page.chkWithFixedColumn.setValue(0);
    page.clicked(page.chkWithFixedColumn);
    EXPECT_EQ(page.txtPrimaryColumn.Text(), "0") << "one column has no column 1";
}

TEST_F(GeneralPage, ApplyingWritesTheWholePageInItsOrder) {
    page.SelectionChanged();
    page.typed(page.txtRows, "20");
    page.typed(page.txtCols, "3");
    page.typed(page.txtHeaderRowHeight, "500");
    page.typed(page.txtRowMinHeight, "250");
    page.typed(page.txtPrimaryColumn, "2");
    page.clicked(page.chkCheckboxes);
    page.clicked(page.chkHeaderFontBold);
    page.clicked(page.chkWordWrap);
    page.clicked(page.chkGridPopUpMenu);
    NoticeFace face;
    table.setFace(&face);
    page.ApplyChanges();
    table.setFace(nullptr);

    EXPECT_EQ(face.notices, "Rows Cols HeaderFontBold WordWrap GridPopUpMenu HeaderRowHeight "
                            "RowMinHeight PrimaryColumn WithFixedColumn FixedCols CheckBoxes "
                            "ColWidth ");
    EXPECT_EQ(table.Rows(), 20);
    EXPECT_EQ(table.Cols(), 4) << "one more for the check boxes";
    EXPECT_TRUE(table.HeaderFontBold());
    EXPECT_TRUE(table.WordWrap());
    EXPECT_FALSE(table.GridPopUpMenu());
    EXPECT_EQ(table.HeaderRowHeight(), 500);
    EXPECT_EQ(table.RowMinHeight(), 250);
    EXPECT_EQ(table.PrimaryColumn(), 2);
    EXPECT_TRUE(table.WithFixedColumn());
    EXPECT_EQ(table.FixedCols(), 2) << "from the primary column";
    EXPECT_EQ(table.CheckBoxes(), -1);
    EXPECT_EQ(table.ColWidth(3), 300);
    EXPECT_FALSE(page.Changed());

    // Fixed columns that there are stay, and columns without check boxes keep their widths.
    page.typed(page.txtPrimaryColumn, "1");
    page.clicked(page.chkCheckboxes);
    page.typed(page.txtCols, "6");
    page.ApplyChanges();
    EXPECT_EQ(table.FixedCols(), 2);
    EXPECT_EQ(table.Cols(), 6);
    EXPECT_EQ(table.CheckBoxes(), 0);
}

TEST_F(GeneralPage, ApplyingWithoutAChangeKeepsTheCheckBoxColumn) {
    table.setCols(6);
    table.setCheckBoxes(-1);
    page.SelectionChanged();
    page.ApplyChanges();
    EXPECT_EQ(table.Cols(), 6);
    EXPECT_EQ(table.CheckBoxes(), -1);
    EXPECT_EQ(table.ColWidth(5), 300);
    EXPECT_EQ(table.ColWidth(4), 960);
}

TEST_F(GeneralPage, WhatTheControlRefusesIsSkippedAndTheRestGoesOn) {
    for (const char *refused : {"", "x", "40000", "-1"}) {
        SCOPED_TRACE(refused);
        General fresh(table, listener);
        fresh.SelectionChanged();
        fresh.typed(fresh.txtRows, refused);
        fresh.typed(fresh.txtCols, refused);
        fresh.typed(fresh.txtHeaderRowHeight, "tall");
        fresh.typed(fresh.txtRowMinHeight, "-1");
        fresh.clicked(fresh.chkWordWrap);
        const bool wraps = fresh.chkWordWrap.isTicked();
        EXPECT_NO_THROW(fresh.ApplyChanges());
        EXPECT_EQ(table.Rows(), 10);
        EXPECT_EQ(table.Cols(), 5);
        EXPECT_EQ(table.HeaderRowHeight(), 300);
        EXPECT_EQ(table.RowMinHeight(), 0);
        EXPECT_EQ(table.WordWrap(), wraps);
    }
}

} // namespace
} // namespace tablio
