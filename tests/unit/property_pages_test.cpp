#include <tablio/pages/property_pages.h>
#include <tablio/tablio.h>

#include <gtest/gtest.h>

namespace tablio {
namespace {

class BothPages : public testing::Test {
protected:
    BothPages() {
        table.InitProperties();
        table.setCols(4);
        table.setColTextHeader(0, "A");
    }
    /// Page editing is a matter of all controls; other tests expect it off.
    ~BothPages() override { Tablio().Show(); }

    Tablio table;
    PageListener listener;
    PropertyPages pages{table, listener};
};

TEST_F(BothPages, AreAppliedTogether) {
    EXPECT_FALSE(pages.canApply());
    pages.show(pages.general);
    EXPECT_FALSE(pages.canApply());
    pages.general.clicked(pages.general.chkGridPopUpMenu);
    pages.show(pages.columns);
    EXPECT_TRUE(pages.canApply());
    pages.columns.typed(pages.columns.txtColTextHeader, "edited");
    pages.show(pages.general);
    EXPECT_FALSE(pages.general.chkGridPopUpMenu.isTicked()) << "the page keeps what was done";
    EXPECT_EQ(table.ColTextHeader(0), "A") << "going to another page applies nothing";
    pages.apply();
    EXPECT_EQ(table.ColTextHeader(0), "edited");
    EXPECT_TRUE(table.GridPopUpMenu()) << "nothing else was changed on its page";
    EXPECT_FALSE(pages.canApply());

    // Inserted columns survive the other page's column count, unless that was edited, too.
    pages.general.clicked(pages.general.chkWordWrap);
    pages.columns.pressed(pages.columns.cmdCommand[0]);
    pages.apply();
    EXPECT_EQ(table.Cols(), 5);
    EXPECT_FALSE(table.GridPopUpMenu());
    pages.general.typed(pages.general.txtCols, "7");
    pages.columns.pressed(pages.columns.cmdCommand[0]);
    pages.apply();
    EXPECT_EQ(table.Cols(), 7);
    pages.columns.pressed(pages.columns.cmdCommand[1]);
    pages.show(pages.general);
    EXPECT_EQ(pages.general.txtCols.Text(), "6");
    EXPECT_FALSE(pages.general.Changed());

    // A fixed column is offered again when there are two columns.
    pages.general.typed(pages.general.txtCols, "1");
    pages.general.lostFocus(pages.general.txtCols);
    EXPECT_FALSE(pages.general.chkWithFixedColumn.Enabled());
    pages.apply();
    pages.columns.pressed(pages.columns.cmdCommand[0]);
    pages.show(pages.general);
    EXPECT_TRUE(pages.general.chkWithFixedColumn.Enabled());

    table.setCols(3);
    pages.general.typed(pages.general.txtCols, "1");
    pages.general.lostFocus(pages.general.txtCols);
    pages.selectionChanged();
    EXPECT_EQ(pages.general.txtCols.Text(), "3");
    EXPECT_TRUE(pages.general.chkWithFixedColumn.Enabled());
}

TEST_F(BothPages, ColumnsFollowsWhatGeneralApplies) {
    pages.show(pages.general);
    pages.show(pages.columns);
    const struct {
        const char *cols, *index;
        bool next, remove;
    } counts[] = {{"1", "0", false, false}, {"5", "0", true, true}, {"2", "1", false, true}};
    for (const auto &c : counts) {
        pages.general.typed(pages.general.txtCols, c.cols);
        pages.apply();
        pages.show(pages.columns);
        EXPECT_EQ(pages.columns.txtIndex.Text(), c.index) << c.cols;
        EXPECT_EQ(pages.columns.cmdIndex[1].Enabled(), c.next) << c.cols;
        EXPECT_EQ(pages.columns.cmdCommand[1].Enabled(), c.remove) << c.cols;
        EXPECT_FALSE(pages.canApply());
        pages.columns.pressed(pages.columns.cmdIndex[1]);
        pages.columns.pressed(pages.columns.cmdIndex[1]);
    }

    // Columns has gone to it and does not write over it.
    pages.columns.pressed(pages.columns.cmdIndex[0]);
    pages.columns.pressed(pages.columns.cmdIndex[1]);
    ASSERT_TRUE(pages.columns.Changed());
    pages.general.typed(pages.general.txtCols, "1");
    pages.general.clicked(pages.general.chkCheckboxes);
    pages.apply();
    EXPECT_EQ(table.ColWidth(1), 300);
    EXPECT_EQ(pages.columns.txtColWidth.Text(), "300");
}

} // namespace
} // namespace tablio
