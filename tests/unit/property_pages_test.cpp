#include "unit/page_player.h"

#include <string>
#include <utility>
#include <vector>

namespace tablio {
namespace {

TEST_F(PropertyPagesTest, GeneralShowsWhatTheControlHolds) {
    const struct {
        const char *members, *shown;
    } cases[] = {
        {"Cols=5; CheckBoxes=0; PrimaryColumn=0; WithFixedColumn=False", "5 0 0 0"},
        {"Cols=6; CheckBoxes=-1; PrimaryColumn=2; WithFixedColumn=True", "5 1 2 1"},
        {"Cols=6; CheckBoxes=1; PrimaryColumn=1; WithFixedColumn=True", "5 1 1 1"},
        // Only the lowest bit counts.
        {"Cols=6; CheckBoxes=2; PrimaryColumn=1; WithFixedColumn=True", "6 0 1 1"},
        {"Cols=1; CheckBoxes=-1; PrimaryColumn=0; WithFixedColumn=False", "0 1 -1 0(off)"},
        // The two exclude each other, but this is what is held.
        {"Cols=5; CheckBoxes=0; PrimaryColumn=0; WithFixedColumn=True", "5 0 0 1"},
        {"Cols=5; CheckBoxes=0; PrimaryColumn=3; WithFixedColumn=False", "5 0 3 1"},
        {"Cols=5; CheckBoxes=0; PrimaryColumn=7; WithFixedColumn=True", "5 0 4 1"},
    };
    // First pages that have shown something else before, then new ones.
    for (const bool isNew : {false, true}) {
        for (const auto &c : cases) {
            SCOPED_TRACE(c.members);
            if (isNew)
                reopen();
            play(c.members);
            play("load general; changed==");
            EXPECT_EQ(held("txtCols chkCheckboxes txtPrimaryColumn chkWithFixedColumn"), c.shown);
        }
    }
    play("HeaderRowHeight=450; RowMinHeight=240; HeaderFontBold=True; WordWrap=True; "
         "GridPopUpMenu=False; load general; "
         "txtRows RowUpDown txtHeaderRowHeight txtRowMinHeight==10 10 450 240; "
         "chkHeaderFontBold chkWordWrap chkGridPopUpMenu==1 1 0");
}

TEST_F(PropertyPagesTest, LoadingSwitchesPageEditingOnUntilTheControlIsShownOrThePageGoes) {
    const std::string kept = "TextMatrix11=kept; ColStyle1=2; TextMatrix11==kept";
    const std::string blanked = "load general; ColStyle1=2; TextMatrix11==";
    play(kept + "; " + blanked);
    table.Show();
    play(kept + "; " + blanked);
    reopen();
    // A dialog edits what may hold data.
    play(kept + "; show general; ColStyle1=2; TextMatrix11==kept");
}

TEST_F(PropertyPagesTest, EveryChangeButTheMenuTickMarksItsPage) {
    General &page = pages->general;
    for (PageTextBox *box : {&page.txtRows, &page.txtCols, &page.txtHeaderRowHeight,
                             &page.txtRowMinHeight, &page.txtPrimaryColumn}) {
        const std::string &name = box->name();
        play("load general");
        play(name + "=" + box->Text() + "; leave " + name + "; changed==");
        play(name + "=3; changed==general");
        const auto takes = [&](char32_t key, int at) { return page.takesKey(*box, key, at, 0); };
        EXPECT_TRUE(takes(U'-', 0) && !takes(U'-', 1) && !takes(U'.', 1)) << name;
        EXPECT_FALSE(takes(U'\U00010037', 1)) << name << ", in 16 bits \"7\"";
    }
    for (const char *box : {"chkCheckboxes", "chkHeaderFontBold", "chkWordWrap",
                            "chkWithFixedColumn", "chkGridPopUpMenu"})
        play(std::string("load general; ") + box +
             "; changed==" + (box == page.chkGridPopUpMenu.name() ? "" : "general"));
    play("load general");
    for (const char *step :
         {"txtIndex=3", "txtColTextHeader=3", "txtColFormat=3", "txtColMaxLength=3",
          "txtColWidth=3", "cboColumnStyle=2", "cboColEditType=0", "cboDataType=0",
          "cboColDataAlignment=0", "cboColHeaderAlignment=0"}) {
        play("txtIndex=0; load columns");
        pages->columns.setChanged(false);
        play(std::string(step) + "; changed==columns");
    }
    const Columns &columns = pages->columns;
    EXPECT_FALSE(columns.takesKey(columns.txtColMaxLength, U'x', 0, 0));
    EXPECT_FALSE(columns.takesKey(columns.txtColWidth, U'.', 0, 0));
    EXPECT_TRUE(columns.takesKey(columns.txtColTextHeader, U'x', 0, 0));
}

TEST_F(PropertyPagesTest, BoxesAndSpinnersFollowEachOther) {
    play("load general; RowUpDown=11; txtRows changed==11 general; ColUpDown=6; txtCols==6");
    play("ColUpDown=0; txtCols==6"); // Beyond the spinner's end.
    const struct {
        const char *typed, *rows, *cols;
    } cases[] = {
        {"25", "25 25", "25 25"},   {"025", "25 25", "25 25"},
        {"1", "1 11", "1 1"}, // On the way to 15: the spinner must not make 2 of it.
        {"", " 11", " 6"},          {"30x", "30 30", "30x 6"},
        {"x", "x 11", "x 6"},       {"2.5", "2 2", "2 2"},
        {"0", "0 11", "0 6"},       {"99999", "99999 11", "99999 6"},
        {"1e9", "1e9 11", "1e9 6"}, {"1e99", "1e99 11", "1e99 6"},
    };
    for (const auto &c : cases) {
        const std::string typed = c.typed;
        play("RowUpDown=11; ColUpDown=6; txtRows=" + typed + "; txtRows RowUpDown==" + c.rows);
        play("txtCols=" + typed + "; txtCols ColUpDown==" + c.cols);
        const std::string spinner = held("ColUpDown");
        play("ColUpDown=" + spinner + "; txtCols==" + spinner); // Whatever the box held.
    }
}

TEST_F(PropertyPagesTest, LeavingACountRepairsIt) {
    const struct {
        const char *typed, *repaired, *fixed;
    } cases[] = {{"1", "2 1", "0(off)"}, {"0", "2 1", "0(off)"}, {"-3", "2 1", "0(off)"},
                 {"", "2 1", "0(off)"},  {"x", "2 1", "0(off)"}, {"2", "2 2", "1"},
                 {"40", "40 40", "1"}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.typed);
        play("WithFixedColumn=True; load general");
        play(std::string("txtRows=") + c.typed + "; leave txtRows; txtCols=" + c.typed);
        play(std::string("leave txtCols; txtRows txtCols==") + c.repaired);
        play(std::string("chkWithFixedColumn==") + c.fixed);
        play("chkWithFixedColumn"); // Is cleared, or disabled.
        EXPECT_EQ(held("chkWithFixedColumn").front(), '0');
    }
}

TEST_F(PropertyPagesTest, PrimaryAndFixedColumnExcludeEachOther) {
    const struct {
        const char *cols, *typed, *shown;
    } cases[] = {{"5", "7", "4 1"},   {"5", "5", "4 1"},   {"5", "4", "4 1"},
                 {"5", "-2", "-2 0"}, {"5", "3x", "3x 0"}, {"5", "x", "x 0"},
                 {"1", "1", "0 0"},   {"0", "1", "-1 0"},  {"5", "1e400", "1e400 0"}};
    for (const auto &c : cases) {
        reopen();
        play(std::string("txtCols=") + c.cols + "; txtPrimaryColumn=" + c.typed +
             "; txtPrimaryColumn chkWithFixedColumn==" + c.shown);
    }
    play("load general; chkWithFixedColumn; txtPrimaryColumn==1");
    // Only a column above 0 has a say, and ticking keeps a column that is not 0.
    play("txtPrimaryColumn=0; chkWithFixedColumn==1; chkWithFixedColumn; txtPrimaryColumn=3; "
         "chkWithFixedColumn==1; chkWithFixedColumn; chkWithFixedColumn; txtPrimaryColumn==3");
    // One column has no column 1.
    play("chkWithFixedColumn; txtCols=1; txtPrimaryColumn=0; chkWithFixedColumn; "
         "txtPrimaryColumn==0");
}

TEST_F(PropertyPagesTest, GeneralIsWrittenInItsOrder) {
    play("load general; txtRows=20; txtCols=3; txtHeaderRowHeight=500; txtRowMinHeight=250; "
         "txtPrimaryColumn=2; chkCheckboxes; chkHeaderFontBold; chkWordWrap; chkGridPopUpMenu");
    notices.clear();
    play("apply general; changed==");
    EXPECT_EQ(notices, "Rows Cols HeaderFontBold WordWrap GridPopUpMenu HeaderRowHeight "
                       "RowMinHeight PrimaryColumn WithFixedColumn FixedCols CheckBoxes ColWidth ");
    play(
        "Rows HeaderFontBold WordWrap GridPopUpMenu==20 True True False; "
        "HeaderRowHeight RowMinHeight==500 250; PrimaryColumn WithFixedColumn FixedCols==2 True 2");
    play("Cols CheckBoxes ColWidth3==4 -1 300"); // One more for the check boxes.
    play("load general; apply general; Cols CheckBoxes ColWidth3==4 -1 300"); // And no second one.
    // Fixed columns that there are stay, and columns without check boxes keep their widths.
    play("txtPrimaryColumn=1; chkCheckboxes; txtCols=6; apply general; "
         "FixedCols Cols CheckBoxes ColWidth5==2 6 0 960");
}

TEST_F(PropertyPagesTest, WhatTheControlRefusesIsSkippedAndTheRestGoesOn) {
    for (const char *refused : {"", "x", "40000", "-1"}) {
        reopen();
        play(std::string("WordWrap=False; load general; txtRows=") + refused +
             "; txtCols=" + refused);
        play("txtHeaderRowHeight=tall; txtRowMinHeight=-1; chkWordWrap; apply general; "
             "Rows Cols HeaderRowHeight RowMinHeight WordWrap==10 5 300 0 True");
    }
}

TEST_F(PropertyPagesTest, ColumnsRepairsTheIndexAndOffersWhatIsPossible) {
    const struct {
        const char *cols, *index;
        const char *shown; ///< With Previous, Next and Remove.
    } cases[] = {
        {"4", "", "0 (off)  "},   {"4", "abc", "0 (off)  "}, {"4", "02", "2   "},
        {"4", " 1 of 4", "1   "}, {"4", "3", "3  (off) "},   {"4", "4", "3   "},
        {"4", "1e9", "3   "},     {"4", "-1", "-1   "},      {"1", "0", "0 (off) (off) (off)"},
        {"2", "1", "1  (off) "},
    };
    for (const auto &c : cases) {
        play(std::string("Cols=") + c.cols + "; txtIndex=" + c.index + "; load columns; " +
             "txtIndex cmdIndex(0) cmdIndex(1) cmdCommand(1)==" + c.shown);
        play("changed==columns");
    }
    play("Cols=0; load columns; cmdCommand(0)");
}

TEST_F(PropertyPagesTest, AnIndexThatNoColumnHasDoesNoHarm) {
    for (const char *index : {"9", "-7", "-2147483648", "1e300"}) {
        fillColumns();
        play(std::string("txtIndex=") + index + "; apply columns; cmdCommand(1); Cols==3");
        play(std::string("txtIndex=") + index + "; cmdCommand(0); Cols==4");
    }
}

TEST_F(PropertyPagesTest, LoadingShowsTheColumnAndKeepsItWhenApplied) {
    fillColumns();
    for (int col = 0; col < 4; ++col) {
        const std::string before = column(col);
        play("txtIndex=" + std::to_string(col) + "; load columns; apply columns");
        EXPECT_EQ(column(col), before);
    }
    for (const auto &[stored, item] : {std::pair("1", "0"), {"4", "1"}, {"7", "2"}, {"9", "2"}}) {
        play(std::string("ColDataAlignment0=") + stored + "; ColHeaderAlignment1=" + stored);
        play(std::string("txtIndex=0; load columns; cboColDataAlignment==") + item);
        play(std::string("txtIndex=1; load columns; cboColHeaderAlignment==") + item);
    }
    // A stored value that no list has leaves the list as it is.
    play("txtIndex=0; load columns; ColStyle1=9; ColEditType1=9; ColDataType1=9; txtIndex=1; "
         "load columns; cboColumnStyle cboColEditType cboDataType txtColTextHeader==0 1 2 B");
}

TEST_F(PropertyPagesTest, TheEditKindDecidesWhatIsOffered) {
    using Items = std::vector<std::string>;
    const Items signs{"AllValue", "Positive", "Negative"};
    const Items styles{"No Style", "Calc.Style"};
    const struct {
        const char *kind;
        Items calcStyles;
        Items dataTypes;
        const char *shown;  ///< Both lists, maximum length and format, once the kind is chosen.
        const char *loaded; ///< The same for a stored column.
    } cases[] = {
        {"0",
         {"No Style"},
         {"AllCase", "UpperCase", "LowerCase"},
         "0(off) 0 77 typed",
         "0(off) 2 33 stored"},
        {"1", styles, signs, "0 0 77 typed", "1 2 33 stored"},
        {"2", styles, signs, "0 0 77 typed", "1 2 33 stored"},
        {"3",
         {"No Style"},
         {"Date"},
         "0(off) 0(off) 10(off) ##/##/####(off)",
         "0(off) 0(off) 33(off) stored(off)"},
        {"4",
         {"No Style"},
         {"Combo"},
         "0(off) 0(off) 0(off) (off)",
         "0(off) 0(off) 33(off) stored(off)"},
    };
    const std::string names = "cboCalcStyle cboDataType txtColMaxLength txtColFormat";
    for (const auto &c : cases) {
        SCOPED_TRACE(c.kind);
        play("txtIndex=0; load columns; txtColMaxLength=77; txtColFormat=typed");
        pages->columns.setChanged(false);
        play(std::string("cboColEditType=") + c.kind + "; changed==columns; " + names +
             "==" + c.shown);
        EXPECT_EQ(pages->columns.cboCalcStyle.items(), c.calcStyles);
        EXPECT_EQ(pages->columns.cboDataType.items(), c.dataTypes);
        // Loading shows what is stored, after the rule has run.
        play(std::string("ColEditType1=") + c.kind +
             "; ColDataType1=2; ColCalcStyle1=1; ColFormat1=stored; "
             "ColMaxLength1=33; txtIndex=1; load columns; " +
             names + "==" + c.loaded);
    }
    play("txtIndex=0; load columns; txtColFormat=; txtColFormat=="); // Unlocked again.
    for (const auto &[typed, shown] : {std::pair("5000", "1024"),
                                       {"1025", "1024"},
                                       {"1024", "1024"},
                                       {"1023", "1023"},
                                       {"", ""}})
        play(std::string("txtColMaxLength=") + typed + "; txtColMaxLength==" + shown);
}

TEST_F(PropertyPagesTest, AColumnIsWrittenInItsOrder) {
    fillColumns();
    const std::string others = column(1) + column(3);
    play("txtIndex=2; load columns; cboColEditType=2; cboColumnStyle=1; cboDataType=1; "
         "cboCalcStyle=1; txtColFormat=#,##0; txtColTextHeader=Pieces; txtColWidth=1200 twips; "
         "txtColMaxLength= 9 ; cboColDataAlignment=2; cboColHeaderAlignment=0");
    notices.clear();
    play("apply columns; changed==");
    EXPECT_EQ(notices, "ColStyle ColEditType ColDataType ColCalcStyle ColFormat ColTextHeader "
                       "ColWidth ColMaxLength ColDataAlignment ColHeaderAlignment ");
    EXPECT_EQ(column(2), "Pieces 1 2 1 1 #,##0 9 1200 7 1");
    EXPECT_EQ(column(1) + column(3), others);
    // A length that the control refuses is skipped; the alignments after it are not.
    play("txtColMaxLength=-99999; cboColDataAlignment=1; apply columns");
    EXPECT_EQ(column(2), "Pieces 1 2 1 1 #,##0 9 1200 4 1");
}

TEST_F(PropertyPagesTest, MovingKeepsWhatWasEditedAndStopsAtTheEdges) {
    fillColumns();
    play("txtIndex=1; load columns; txtColTextHeader=edited; cmdIndex(1); "
         "ColTextHeader1 txtColTextHeader==edited C");
    EXPECT_EQ(focus, "txtColTextHeader");
    play("cmdIndex(1); cmdIndex(1); txtIndex cmdIndex(1)==3 (off)");
    for (int press = 0; press < 5; ++press)
        play("cmdIndex(0)");
    play("txtIndex txtColTextHeader==0 A");
    for (const char *checkBoxes : {"-1", "1"}) // The column of check boxes is never reached.
        play(std::string("CheckBoxes=") + checkBoxes +
             "; txtIndex=2; load columns; cmdIndex(1)==; cmdIndex(1); txtIndex==2");
}

const std::string allButCalcStyle = "ColStyle ColEditType ColDataType ColFormat ColMaxLength "
                                    "ColTextHeader ColWidth ColDataAlignment ColHeaderAlignment ";

TEST_F(PropertyPagesTest, InsertingMakesANewColumnBehindTheCurrentOne) {
    for (const int at : {0, 1, 3}) {
        SCOPED_TRACE(at);
        fillColumns();
        std::vector<std::string> expected{column(0), column(1), column(2), column(3)};
        expected.insert(expected.begin() + at + 1, " 2 0 1 0  64 960 1 1");
        // What is being edited stays with its column.
        play("txtIndex=" + std::to_string(at) + "; load columns; txtColTextHeader=edited");
        expected[static_cast<std::size_t>(at)].replace(0, 1, "edited");
        notices.clear();
        play("cmdCommand(0); txtColWidth cboDataType cmdCommand(1)==960 1 ");
        EXPECT_EQ((std::vector{column(0), column(1), column(2), column(3), column(4)}), expected);
        EXPECT_EQ(held("txtIndex"), std::to_string(at + 1));
        EXPECT_EQ(focus, "txtColTextHeader");
        // Each column behind it is copied, then the new one is set.
        std::string told = "Cols ";
        for (int writes = 0; writes < 5 - at; ++writes)
            told += "ColStyle ColEditType ColDataType ColCalcStyle " + allButCalcStyle.substr(33);
        EXPECT_EQ(notices.substr(0, told.size()), told);
    }
}

TEST_F(PropertyPagesTest, RemovingMovesAllButTheCalculationStyles) {
    fillColumns();
    play("txtIndex=1; load columns");
    notices.clear();
    play("cmdCommand(1); ColTextHeader0 ColTextHeader1 ColTextHeader2 txtIndex==A C D 1");
    EXPECT_EQ(column(1), "C 2 1 0 1 0.000 12 1002 7 1");
    EXPECT_EQ(notices, allButCalcStyle + allButCalcStyle + allButCalcStyle + "Cols ");
    EXPECT_EQ(focus, "txtColTextHeader");
    // The page shows the column that has moved here.
    play("apply columns; ColTextHeader1 ColCalcStyle1 ColCalcStyle2==C 1 0");
    play("txtIndex=2; load columns; cmdCommand(1); "
         "Cols txtIndex txtColTextHeader cmdIndex(1)==2 1 C (off)");
    play("txtIndex=0; load columns; cmdCommand(1); Cols ColTextHeader0 ColCalcStyle0==1 C 0; "
         "cmdIndex(0) cmdIndex(1) cmdCommand(1)==(off) (off) (off); cmdCommand(1); Cols==1");
    play("cmdCommand(0); Cols ColTextHeader0 ColTextHeader1 cmdCommand(1)==2 C  ");
}

TEST_F(PropertyPagesTest, BothAreAppliedTogether) {
    play("ColTextHeader0=A; changed==; show general; changed==; chkGridPopUpMenu; show columns; "
         "changed==columns; txtColTextHeader=edited; show general");
    // The page keeps what was done; going to another applies nothing.
    notices.clear();
    play("chkGridPopUpMenu ColTextHeader0==0 A; apply; ColTextHeader0==edited");
    EXPECT_EQ(notices, "all ") << "once, when all is done";
    play("GridPopUpMenu changed==True "); // Nothing else was changed on its page.
    // Inserted columns survive the other page's column count, unless that was edited, too.
    play("chkWordWrap; cmdCommand(0); apply; Cols GridPopUpMenu==6 False; "
         "txtCols=8; cmdCommand(0); apply; Cols==8; cmdCommand(1); show general; txtCols==7");
    EXPECT_FALSE(pages->general.Changed());
    // A fixed column is offered again when there are two columns.
    play("txtCols=1; leave txtCols; chkWithFixedColumn==0(off); apply; cmdCommand(0); "
         "show general; chkWithFixedColumn==0; Cols=3; txtCols=1; leave txtCols");
    pages->follow();
    play("txtCols chkWithFixedColumn==3 0");
}

TEST_F(PropertyPagesTest, ColumnsFollowsWhatGeneralApplies) {
    play("show general; show columns");
    for (const auto &[cols, shown] :
         {std::pair("1", "0 (off) (off) "), {"5", "0   "}, {"2", "1 (off)  "}})
        play(std::string("txtCols=") + cols + "; apply; show columns; " +
             "txtIndex cmdIndex(1) cmdCommand(1) changed==" + shown + "; cmdIndex(1); cmdIndex(1)");
    // Columns has gone to it and does not write over it.
    play("cmdIndex(0); cmdIndex(1); changed==columns; txtCols=1; chkCheckboxes; apply; "
         "ColWidth1 txtColWidth==300 300");
}

} // namespace
} // namespace tablio
