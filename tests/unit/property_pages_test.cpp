#include "unit/page_player.h"

#include <string>

namespace tablio {
namespace {

TEST_F(PropertyPagesTest, GeneralShowsWhatTheControlHolds) {
    // First pages that have shown something else before, then new ones.
    playEach("Cols=%1; CheckBoxes=%2; PrimaryColumn=%3; WithFixedColumn=%4; "
             "load general; changed==; "
             "txtCols chkCheckboxes txtPrimaryColumn chkWithFixedColumn==%5; reopen; "
             "load general; txtCols chkCheckboxes txtPrimaryColumn chkWithFixedColumn==%5",
             {{"5", "0", "0", "False", "5 0 0 0"},
              {"6", "-1", "2", "True", "5 1 2 1"},
              {"6", "1", "1", "True", "5 1 1 1"},
              // Only the lowest bit counts.
              {"6", "2", "1", "True", "6 0 1 1"},
              {"1", "-1", "0", "False", "0 1 -1 0(off)"},
              // The two exclude each other, but this is what is held.
              {"5", "0", "0", "True", "5 0 0 1"},
              {"5", "0", "3", "False", "5 0 3 1"},
              {"5", "0", "7", "True", "5 0 4 1"}});
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
    play("RowMinHeight=240");
    playEach("load general; %1=%2; leave %1; changed==; %1=3; changed==general",
             {{"txtRows", "10"},
              {"txtCols", "5"},
              {"txtHeaderRowHeight", "300"},
              {"txtRowMinHeight", "240"},
              {"txtPrimaryColumn", "0"}});
    playEach("load general; chk%1; changed==%2", {{"Checkboxes", "general"},
                                                  {"HeaderFontBold", "general"},
                                                  {"WordWrap", "general"},
                                                  {"WithFixedColumn", "general"},
                                                  {"GridPopUpMenu", ""}});
    playEach("load general; txtIndex=0; load columns; apply columns; %1; changed==columns",
             {{"txtIndex=3"},
              {"txtColTextHeader=3"},
              {"txtColFormat=3"},
              {"txtColMaxLength=3"},
              {"txtColWidth=3"},
              {"cboColumnStyle=2"},
              {"cboColEditType=0"},
              {"cboDataType=0"},
              {"cboColDataAlignment=0"},
              {"cboColHeaderAlignment=0"}});
    const General &page = pages->general;
    for (const PageTextBox *box : {&page.txtRows, &page.txtCols, &page.txtHeaderRowHeight,
                                   &page.txtRowMinHeight, &page.txtPrimaryColumn}) {
        const auto takes = [&](char32_t key, int at) { return page.takesKey(*box, key, at, 0); };
        EXPECT_TRUE(takes(U'-', 0) && !takes(U'-', 1) && !takes(U'.', 1)) << box->name();
        EXPECT_FALSE(takes(U'\U00010037', 1)) << box->name() << ", in 16 bits \"7\"";
    }
    const Columns &columns = pages->columns;
    EXPECT_FALSE(columns.takesKey(columns.txtColMaxLength, U'x', 0, 0));
    EXPECT_FALSE(columns.takesKey(columns.txtColWidth, U'.', 0, 0));
    EXPECT_TRUE(columns.takesKey(columns.txtColTextHeader, U'x', 0, 0));
}

TEST_F(PropertyPagesTest, BoxesAndSpinnersFollowEachOther) {
    play("load general; RowUpDown=11; txtRows changed==11 general; ColUpDown=6; txtCols==6");
    play("ColUpDown=0; txtCols==6"); // Beyond the spinner's end.
    // The spinner writes to the box, whatever the box held.
    playEach("RowUpDown=11; ColUpDown=6; txtRows=%1; txtRows RowUpDown==%2; "
             "txtCols=%1; txtCols ColUpDown==%3; ColUpDown=%4; txtCols==%4",
             {{"025", "25 25", "25 25", "25"},
              {"1", "1 11", "1 1", "1"}, // On the way to 15: the spinner must not make 2 of it.
              {"", " 11", " 6", "6"},
              {"30x", "30 30", "30x 6", "6"},
              {"x", "x 11", "x 6", "6"},
              {"2.5", "2 2", "2 2", "2"},
              {"0", "0 11", "0 6", "6"},
              {"99999", "99999 11", "99999 6", "6"},
              {"1e99", "1e99 11", "1e99 6", "6"}});
}

TEST_F(PropertyPagesTest, LeavingACountRepairsIt) {
    // A click clears the fixed column's box, or it is disabled.
    playEach("WithFixedColumn=True; load general; txtRows=%1; leave txtRows; txtCols=%1; "
             "leave txtCols; txtRows txtCols chkWithFixedColumn==%2; "
             "chkWithFixedColumn; chkWithFixedColumn==%3",
             {{"1", "2 1 0(off)", "0(off)"},
              {"-3", "2 1 0(off)", "0(off)"},
              {"", "2 1 0(off)", "0(off)"},
              {"x", "2 1 0(off)", "0(off)"},
              {"2", "2 2 1", "0"},
              {"40", "40 40 1", "0"}});
    // Enter in the box applies without leaving it.
    play("txtCols=0; txtRows=0; apply; Cols Rows==1 1");
}

TEST_F(PropertyPagesTest, PrimaryAndFixedColumnExcludeEachOther) {
    playEach("reopen; txtCols=%1; txtPrimaryColumn=%2; txtPrimaryColumn chkWithFixedColumn==%3",
             {{"5", "7", "4 1"},
              {"5", "5", "4 1"},
              {"5", "4", "4 1"},
              {"5", "-2", "-2 0"},
              {"5", "3x", "3x 0"},
              {"1", "1", "0 0"},
              {"0", "1", "-1 0"},
              {"5", "1e400", "1e400 0"}});
    play("load general; chkWithFixedColumn; txtPrimaryColumn==1");
    // Only a column above 0 has a say, and ticking keeps a column that is not 0.
    play("txtPrimaryColumn=0; chkWithFixedColumn==1; chkWithFixedColumn; txtPrimaryColumn=3; "
         "chkWithFixedColumn==1; chkWithFixedColumn; chkWithFixedColumn; txtPrimaryColumn==3");
    // One column has no column 1.
    play("chkWithFixedColumn; txtCols=1; txtPrimaryColumn=0; chkWithFixedColumn; "
         "txtPrimaryColumn==0");
}

TEST_F(PropertyPagesTest, GeneralIsWrittenInItsOrder) {
    play(
        "load general; txtRows=20; txtCols=3; txtHeaderRowHeight=500; txtRowMinHeight=250; "
        "txtPrimaryColumn=2; chkCheckboxes; chkHeaderFontBold; chkWordWrap; chkGridPopUpMenu; "
        "forget; apply general; changed==; "
        "told==Rows Cols HeaderFontBold WordWrap GridPopUpMenu HeaderRowHeight "
        "RowMinHeight PrimaryColumn WithFixedColumn FixedCols CheckBoxes ColWidth ; "
        "Rows HeaderFontBold WordWrap GridPopUpMenu==20 True True False; "
        "HeaderRowHeight RowMinHeight==500 250; PrimaryColumn WithFixedColumn FixedCols==2 True 2");
    play("Cols CheckBoxes ColWidth3==4 -1 300"); // One more for the check boxes.
    play("load general; apply general; Cols CheckBoxes ColWidth3==4 -1 300"); // And no second one.
    // Fixed columns that there are stay, and columns without check boxes keep their widths.
    play("txtPrimaryColumn=1; chkCheckboxes; txtCols=6; apply general; "
         "FixedCols Cols CheckBoxes ColWidth5==2 6 0 960");
    // What the control refuses is skipped, and the rest goes on.
    playEach("CheckBoxes=0; Cols=5; Rows=10; WordWrap=False; HeaderRowHeight=300; RowMinHeight=0; "
             "reopen; load general; txtRows=%1; txtCols=%1; txtHeaderRowHeight=tall; "
             "txtRowMinHeight=-1; chkWordWrap; apply general; "
             "Rows Cols HeaderRowHeight RowMinHeight WordWrap==10 5 300 0 True",
             {{""}, {"x"}, {"40000"}, {"-1"}});
}

TEST_F(PropertyPagesTest, ColumnsRepairsTheIndexAndOffersWhatIsPossible) {
    // With Previous, Next and Remove.
    playEach("Cols=%1; txtIndex=%2; load columns; "
             "txtIndex cmdIndex(0) cmdIndex(1) cmdCommand(1)==%3; changed==columns",
             {{"4", "", "0 (off)  "},
              {"4", "abc", "0 (off)  "},
              {"4", "02", "2   "},
              {"4", " 1 of 4", "1   "},
              {"4", "3", "3  (off) "},
              {"4", "4", "3   "},
              {"4", "1e9", "3   "},
              {"4", "-1", "-1   "},
              {"1", "0", "0 (off) (off) (off)"},
              {"2", "1", "1  (off) "}});
    play("Cols=0; load columns; cmdCommand(0)");
}

TEST_F(PropertyPagesTest, AnIndexThatNoColumnHasDoesNoHarm) {
    playEach("fill; txtIndex=%1; apply columns; cmdCommand(1); Cols==3; "
             "txtIndex=%1; cmdCommand(0); Cols==4",
             {{"9"}, {"-7"}, {"-2147483648"}, {"1e300"}});
}

TEST_F(PropertyPagesTest, LoadingShowsTheColumnAndKeepsItWhenApplied) {
    play("fill");
    for (const char col : {'0', '1', '2', '3'}) {
        const std::string before = column(col);
        play(std::string("txtIndex=") + col + "; load columns; apply columns");
        EXPECT_EQ(column(col), before);
    }
    playEach("ColDataAlignment0=%1; ColHeaderAlignment1=%1; "
             "txtIndex=0; load columns; cboColDataAlignment==%2; "
             "txtIndex=1; load columns; cboColHeaderAlignment==%2",
             {{"1", "0"}, {"4", "1"}, {"7", "2"}, {"9", "2"}});
    // A stored value that no list has leaves the list as it is.
    play("txtIndex=0; load columns; ColStyle1=9; ColEditType1=9; ColDataType1=9; txtIndex=1; "
         "load columns; cboColumnStyle cboColEditType cboDataType txtColTextHeader==0 1 2 B");
}

TEST_F(PropertyPagesTest, TheEditKindDecidesWhatIsOffered) {
    const std::string shown = "cboCalcStyle cboDataType txtColMaxLength txtColFormat==";
    // Once the kind is chosen; then what is stored, which is shown after the rule has run.
    playEach(
        "txtIndex=0; load columns; txtColMaxLength=77; txtColFormat=typed; apply columns; "
        "cboColEditType=%1; changed==columns; cboCalcStyle* cboDataType*==%2; " +
            shown +
            "%3; ColEditType1=%1; ColDataType1=2; ColCalcStyle1=1; ColFormat1=stored; "
            "ColMaxLength1=33; txtIndex=1; load columns; " +
            shown + "%4",
        {{"0", "No Style(off) AllCase,UpperCase,LowerCase", "0(off) 0 77 typed",
          "0(off) 2 33 stored"},
         {"1", "No Style,Calc.Style AllValue,Positive,Negative", "0 0 77 typed", "1 2 33 stored"},
         {"2", "No Style,Calc.Style AllValue,Positive,Negative", "0 0 77 typed", "1 2 33 stored"},
         {"3", "No Style(off) Date(off)", "0(off) 0(off) 10(off) ##/##/####(off)",
          "0(off) 0(off) 33(off) stored(off)"},
         {"4", "No Style(off) Combo(off)", "0(off) 0(off) 0(off) (off)",
          "0(off) 0(off) 33(off) stored(off)"}});
    play("ColEditType0=0; txtIndex=0; load columns; txtColFormat=; txtColFormat=="); // Unlocked.
    playEach("txtColMaxLength=%1; txtColMaxLength==%2",
             {{"5000", "1024"}, {"1025", "1024"}, {"1023", "1023"}, {"", ""}});
}

TEST_F(PropertyPagesTest, AColumnIsWrittenInItsOrder) {
    play("fill; txtIndex=2; load columns; cboColEditType=2; cboColumnStyle=1; cboDataType=1; "
         "cboCalcStyle=1; txtColFormat=#,##0; txtColTextHeader=Pieces; txtColWidth=1200 twips; "
         "txtColMaxLength= 9 ; cboColDataAlignment=2; cboColHeaderAlignment=0");
    const std::string others = held("column1 column3");
    play("forget; apply columns; changed==; "
         "told==ColStyle ColEditType ColDataType ColCalcStyle ColFormat ColTextHeader "
         "ColWidth ColMaxLength ColDataAlignment ColHeaderAlignment ; "
         "column2==Pieces 1 2 1 1 #,##0 9 1200 7 1; column1 column3==" +
         others);
    // A length that the control refuses is skipped; the alignments after it are not.
    play("txtColMaxLength=-99999; cboColDataAlignment=1; apply columns; "
         "column2==Pieces 1 2 1 1 #,##0 9 1200 4 1");
}

TEST_F(PropertyPagesTest, MovingKeepsWhatWasEditedAndStopsAtTheEdges) {
    play("fill; txtIndex=1; load columns; txtColTextHeader=edited; cmdIndex(1); "
         "ColTextHeader1 txtColTextHeader focus==edited C txtColTextHeader; "
         "cmdIndex(1); cmdIndex(1); txtIndex cmdIndex(1)==3 (off); "
         "cmdIndex(0); cmdIndex(0); cmdIndex(0); cmdIndex(0); txtIndex txtColTextHeader==0 A");
    // The column of check boxes is never reached.
    playEach("CheckBoxes=%1; txtIndex=2; load columns; cmdIndex(1)==; cmdIndex(1); txtIndex==2",
             {{"-1"}, {"1"}});
}

const std::string allButCalcStyle = "ColStyle ColEditType ColDataType ColFormat ColMaxLength "
                                    "ColTextHeader ColWidth ColDataAlignment ColHeaderAlignment ";

TEST_F(PropertyPagesTest, InsertingMakesANewColumnBehindTheCurrentOne) {
    play("fill");
    const std::string a = column('0').substr(1);
    const std::string d = column('3').substr(1);
    const std::string added = " 2 0 1 0  64 960 1 1";
    // What is being edited stays with its column.
    playEach("fill; txtIndex=%1; load columns; txtColTextHeader=edited; forget; cmdCommand(0); "
             "txtColWidth cboDataType cmdCommand(1) txtIndex focus==960 1  %2 txtColTextHeader; "
             "column%1==edited%3; column%2==" +
                 added + "; ColTextHeader%4==%5; column4==%6",
             {{"0", "1", a, "3", "C", "D" + d},
              {"1", "2", column('1').substr(1), "3", "C", "D" + d},
              {"3", "4", d, "1", "B", added}});
    // Each column behind it is copied, then the new one is set.
    play("fill; txtIndex=0; load columns; forget; cmdCommand(0)");
    std::string told = "Cols ";
    for (int writes = 0; writes < 5; ++writes)
        told += "ColStyle ColEditType ColDataType ColCalcStyle " + allButCalcStyle.substr(33);
    EXPECT_EQ(notices.substr(0, told.size()), told);
}

TEST_F(PropertyPagesTest, RemovingMovesAllButTheCalculationStyles) {
    play("fill; txtIndex=1; load columns; forget; cmdCommand(1); "
         "ColTextHeader0 ColTextHeader1 ColTextHeader2 txtIndex focus==A C D 1 txtColTextHeader; "
         "column1==C 2 1 0 1 0.000 12 1002 7 1; told==" +
         allButCalcStyle + allButCalcStyle + allButCalcStyle + "Cols ");
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
    play("GridPopUpMenu changed==False "); // Nobody had marked it.
    // Inserted columns survive the other page's column count, unless that was edited, too.
    play("chkWordWrap; cmdCommand(0); apply; Cols GridPopUpMenu==6 False; "
         "txtCols=8; cmdCommand(0); apply; Cols==8; cmdCommand(1); show general; txtCols==7");
    EXPECT_FALSE(pages->general.Changed());
    // A fixed column is offered again when there are two columns.
    play("txtCols=1; leave txtCols; chkWithFixedColumn==0(off); apply; cmdCommand(0); "
         "show general; chkWithFixedColumn==0; Cols=3; txtCols=1; leave txtCols");
    pages->follow();
    play("txtCols chkWithFixedColumn==3 0");
    // What has come meanwhile is not written over.
    play("Rows=40; TextMatrix91=Zoe");
    pages->follow();
    play("txtRows==40; txtHeaderRowHeight=600; apply; Rows HeaderRowHeight TextMatrix91==40 600 "
         "Zoe");
}

TEST_F(PropertyPagesTest, DataGoesWithItsColumnAndComesBack) {
    // Numbers that are written while the settings move must not stand in anybody's data.
    const std::string start = "Nr:1 Code:A7 Price:12.345#t! Phone:555 ";
    const auto fill = [&] {
        play("reopen; CheckBoxes=0; PrimaryColumn=0; Cols=4; Rows=5; ColTextHeader0=Nr; "
             "ColTextHeader1=Code; ColTextHeader2=Price; ColTextHeader3=Phone; ColStyle0=3; "
             "ColStyle1=0; ColStyle2=0; ColStyle3=0; ColEditType2=1; ColFormat2=0.0; "
             "TextMatrix11=A7; TextMatrix12=12.345; TextMatrix13=555; PrimaryColumn=2");
        table.setCellTag(nullptr);
        table.CellTag()->setText(1, 2, "t");
        table.setCellBackColor(1, 2, Colour{255});
    };
    for (const auto &[steps, shown] : std::vector<std::pair<std::string, std::string>>{
             {"txtIndex=1; press cmdCommand(1)", "Nr:1 Price:12.345#t! Phone:555 |1"},
             {"txtIndex=3; press cmdCommand(1)", "Nr:1 Code:A7 Price:12.345#t! |2"},
             {"txtIndex=2; press cmdCommand(1); press cmdCommand(1)", "Nr:1 Code:A7 |1"},
             {"press cmdCommand(1)", "Code:A7 Price:12.345#t! Phone:555 |1"},
             {"press cmdCommand(0)", "Nr:1 : Code:A7 Price:12.345#t! Phone:555 |3"},
             {"txtIndex=3; press cmdCommand(0); press cmdIndex(0); press cmdCommand(1); "
              "txtIndex=0; press cmdCommand(0)",
              "Nr:1 : Code:A7 Price:12.345#t! : |3"}}) {
        SCOPED_TRACE(steps);
        fill();
        const std::string settings = held("column0 column1 column2 column3");
        play("show columns; " + steps);
        EXPECT_EQ(held("row") + "|" + held("PrimaryColumn"), shown);
        play("TextMatrix21=later; cancel; TextMatrix12 PrimaryColumn row==12.345 2 "
             "Nr:1 Code:A7 Price:12.345#t! Phone:555 ; column0 column1 column2 column3==" +
             settings);
    }
}

TEST_F(PropertyPagesTest, TicksGoWithTheirColumn) {
    playEach("CheckBoxes=0; Cols=4; TextMatrix13=; CheckBoxes=-1; ColWidth3=300; "
             "TextMatrix12=Bo; TextMatrix13=P; PrimaryColumn=2; reopen; show general; %1; apply; "
             "Cols CheckBoxes PrimaryColumn==%2; CheckBoxes=0; Cols=7; ColWidth2 ColWidth3==%3; "
             "TextMatrix12 TextMatrix13 TextMatrix15==%4",
             {{"chkCheckboxes", "3 0 2", "960 960", "Bo  "},
              {"chkCheckboxes; txtCols=4", "4 0 2", "960 960", "Bo  "},
              {"txtCols=5", "6 -1 2", "960 960", "Bo  P"},
              {"txtRows=12", "4 -1 2", "960 300", "Bo P "},
              {"txtCols=2", "3 -1 1", "300 960", "P  "}});
}

TEST_F(PropertyPagesTest, LookingAtAColumnChangesNothing) {
    play("fill; ColDataAlignment0=9; ColHeaderAlignment0=0; show columns; press cmdIndex(1); "
         "ColDataAlignment0 ColHeaderAlignment0==9 0");
    // What was edited stays with its column, and the box that is left loads the one it names.
    play("txtColTextHeader=edited; txtIndex=0; leave txtIndex; txtColTextHeader==A; apply; "
         "ColTextHeader0 ColTextHeader1 ColDataAlignment0==A edited 9; "
         "cboColDataAlignment=2; txtIndex=99; press cmdIndex(0); txtIndex ColDataAlignment0==2 7; "
         "txtIndex=-5; apply; txtIndex ColTextHeader0==0 A");
}

TEST_F(PropertyPagesTest, EntryHoldsTheRulesOfTyping) {
    play("show entry; cboEntryRules chkTabWalks changed==0 1(off) ; cboEntryRules=1; chkTabWalks; "
         "EntryRules==0; apply; EntryRules TabWalks==1 False; EntryRules=0");
    pages->follow();
    play("cboEntryRules chkTabWalks==0 0(off); TabWalks=True");
}

TEST_F(PropertyPagesTest, RowNumbersStandInTheirColumnsOnly) {
    play("Cols=3; Rows=5; ColStyle0=3; TextMatrix11=Ann; show general; txtRows=7; apply; "
         "TextMatrix10 TextMatrix60 TextMatrix11==1 6 Ann; "
         "show columns; press cmdCommand(0); TextMatrix10 TextMatrix60 TextMatrix11==1 6 ; "
         "txtIndex=0; load columns; press cmdCommand(1); TextMatrix10 TextMatrix60== ");
}

TEST_F(PropertyPagesTest, ThePreviewShowsWhatApplyGives) {
    const auto saved = [](const Tablio &control) {
        TextBag bag;
        control.WriteProperties(bag);
        return bag.text();
    };
    for (const char *steps : {"WithFixedColumn=True; show general; txtHeaderRowHeight=500",
                              "WithFixedColumn=False; show general; txtPrimaryColumn=2; txtCols=2",
                              "WithFixedColumn=True; PrimaryColumn=1; show general; txtCols=9; "
                              "show columns; txtColTextHeader=edited"}) {
        play(std::string("reopen; Cols=3; FixedCols=0; PrimaryColumn=0; ") + steps);
        Tablio sample;
        pages->preview(sample, {});
        play("apply");
        table.setRows(sample.Rows());
        EXPECT_EQ(saved(sample), saved(table)) << steps;
    }
}

TEST_F(PropertyPagesTest, ColumnsFollowsWhatGeneralApplies) {
    play("show general; show columns");
    playEach("txtCols=%1; apply; show columns; txtIndex cmdIndex(1) cmdCommand(1) changed==%2; "
             "cmdIndex(1); cmdIndex(1)",
             {{"1", "0 (off) (off) "}, {"5", "0   "}, {"2", "1 (off)  "}});
    // Columns has gone to it and does not write over it.
    play("cmdIndex(0); cmdIndex(1); changed==columns; txtCols=1; chkCheckboxes; apply; "
         "ColWidth1 txtColWidth==300 300");
}

} // namespace
} // namespace tablio
