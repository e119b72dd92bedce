#include "model/grid/grid_view.h"

#include <tablio/errors.h>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace tablio {

static void PrintTo(const Rect &rect, std::ostream *stream) {
    *stream << rect.left << ' ' << rect.top << ' ' << rect.width << ' ' << rect.height;
}

namespace {

/// One header row, one fixed column; rows are 300 high and columns 1,000 wide.
class GridViewTest : public testing::Test, public GridTableObserver, public GridViewObserver {
protected:
    GridViewTest() {
        table.setRows(21);
        table.setCols(6);
        table.setFixedCols(1);
        for (int col = 0; col < 6; ++col)
            table.setColWidth(col, 1000);
        view.setSize(3500, 1600);
        forget();
    }

    void cellChanged(int row, int col) override { view.invalidateCell(row, col); }
    void tableChanged() override { view.tableChanged(); }
    void areaChanged(const Rect &area) override { areas.push_back(area); }
    void scrolled() override { ++scrolls; }

    void forget() {
        areas.clear();
        scrolls = 0;
    }

    [[nodiscard]] static std::string indexes(const std::vector<GridView::Span> &spans) {
        std::string result;
        for (const GridView::Span &span : spans)
            result += (result.empty() ? "" : " ") + std::to_string(span.index);
        return result;
    }

    GridTable table{*this};
    GridView view{table, *this};
    std::vector<Rect> areas;
    int scrolls = 0;
};

/// Rows come and go, grow and shrink; the places of far rows are not found by walking there.
TEST_F(GridViewTest, ARowStandsBehindAllRowsBeforeIt) {
    std::mt19937 random(5);
    const auto below = [&random](int end) { return static_cast<int>(random() % unsigned(end)); };
    table.setRows(900);
    for (int row = 1; row < 900; ++row)
        table.setRowHeight(row, 10 * below(90));
    for (int step = 0; step < 600; ++step) {
        const int row = 1 + below(table.Rows() - 1);
        const int what = below(40);
        if (what < 6)
            table.AddItem("", row);
        else if (what < 12 && table.Rows() > 5)
            table.RemoveItem(row);
        else if (what == 12)
            table.setRows(table.Rows() - below(5) + 5);
        else if (what == 13)
            table.setRowHeightMin(below(3) * 200);
        else
            table.setRowHeight(row, 100 * below(7) - 100);
        Twips top = 0;
        for (int next = 0; next < table.Rows(); ++next) {
            ASSERT_EQ(table.heightOfRows(0, next), top) << next << " after step " << step;
            top += table.RowHeight(next);
        }
    }
}

/// One state of the view goes into the next. 1,600 twips are the header and four and a third rows,
/// 3,500 are three and a half columns.
TEST_F(GridViewTest, ListsWhatIsVisibleAndScrollsNoFurtherThanNeeded) {
    EXPECT_EQ(view.maxTopRow(), 17);
    const struct {
        const char *what;
        std::function<void()> act;
        const char *shown;
    } cases[] = {
        {"at first", [] {}, "0 1 2 3 4 5 x 0 1 2 3"},
        {"a cell in sight", [&] { view.ensureVisible(4, 2); }, "0 1 2 3 4 5 x 0 1 2 3"},
        {"a cell in sight by a part", [&] { view.ensureVisible(5, 3); }, "0 2 3 4 5 6 x 0 2 3 4"},
        {"back to the first", [&] { view.ensureVisible(1, 1); }, "0 1 2 3 4 5 x 0 1 2 3"},
        {"the header", [&] { view.setTopRow(0); }, "0 1 2 3 4 5 x 0 1 2 3"},
        {"scrolled", [&] { view.setTopRow(10), view.setLeftCol(3); }, "0 10 11 12 13 14 x 0 3 4 5"},
        {"a header cell", [&] { view.ensureVisible(0, 4); }, "0 10 11 12 13 14 x 0 3 4 5"},
        {"the ends", [&] { view.setTopRow(20), view.setLeftCol(5); }, "0 17 18 19 20 x 0 4 5"},
        {"back again", [&] { view.setTopRow(1), view.setLeftCol(1); }, "0 1 2 3 4 5 x 0 1 2 3"},
        {"hidden ones",
         [&] { table.setRowHeight(2, 0), table.setColWidth(1, 0), table.setColWidth(2, 2000); },
         "0 1 3 4 5 6 x 0 2 3"},
        {"a last row higher than the view",
         [&] { table.setRowHeight(20, 5000), view.ensureVisible(20, 2); }, "0 20 x 0 2 3"},
        {"fewer", [&] { table.setRows(3), table.setCols(2); }, "0 1 x 0"},
        {"none", [&] { table.setRows(0), table.setCols(0); }, " x "},
    };
    for (const auto &each : cases) {
        each.act();
        EXPECT_EQ(indexes(view.visibleRows()) + " x " + indexes(view.visibleCols()), each.shown)
            << each.what;
    }
    EXPECT_EQ(view.hitTest(10, 10), std::nullopt);
    table.setRows(40);
    table.setCols(2);
    EXPECT_EQ(view.hitTest(10, 10), (CellAddress{0, 0}));
    EXPECT_EQ(view.pageRows(), 4);
    EXPECT_THROW(view.setTopRow(40), GridError);
    EXPECT_THROW(view.setLeftCol(-1), GridError);
}

TEST_F(GridViewTest, EveryPointBelongsToTheCellWhoseRectangleHasIt) {
    table.setRowHeight(3, 450);
    table.setColWidth(2, 333);
    view.setTopRow(2);
    view.setLeftCol(2);
    for (Twips y = 0; y < view.Height(); y += 70) {
        for (Twips x = 0; x < view.Width(); x += 111) {
            const std::optional<CellAddress> cell = view.hitTest(x, y);
            if (cell) {
                EXPECT_TRUE(view.cellRect(cell->row, cell->col).contains(x, y)) << x << ' ' << y;
            }
        }
    }
    // Scrolled away they lie outside of the view.
    EXPECT_EQ(view.cellRect(1, 2), (Rect{1000, -300, 333, 300}));
    EXPECT_EQ(view.cellRect(2, 1), (Rect{-1000, 300, 1000, 300}));
    EXPECT_EQ(view.hitTest(1000, 300), (CellAddress{2, 2}));
    EXPECT_EQ(view.hitTest(999, 299), (CellAddress{0, 0}));
    EXPECT_EQ(view.hitTest(-1, 0), std::nullopt);
    table.setCols(3);
    EXPECT_EQ(view.hitTest(3000, 300), std::nullopt) << "right of the last column";
}

TEST_F(GridViewTest, FindsColumnBordersInTheHeaderOnly) {
    EXPECT_EQ(view.columnEdgeAt(2000, 10, 60), 1);
    EXPECT_EQ(view.columnEdgeAt(1941, 299, 60), 1);
    EXPECT_EQ(view.columnEdgeAt(1939, 10, 60), std::nullopt);
    EXPECT_EQ(view.columnEdgeAt(2000, 300, 60), std::nullopt);
    view.setLeftCol(3);
    EXPECT_EQ(view.columnEdgeAt(2000, 10, 60), 3);
}

TEST_F(GridViewTest, PaintsACellOnlyWhereItIsSeen) {
    const struct {
        int topRow;
        int leftCol;
        CellAddress written;
        std::vector<Rect> painted;
    } cases[] = {
        {1, 1, {2, 1}, {{1000, 600, 1000, 300}}},
        {1, 1, {15, 1}, {}},
        {1, 1, {2, 5}, {}},
        {14, 3, {15, 3}, {{1000, 600, 1000, 300}}},
        {14, 3, {2, 3}, {}},
        {14, 3, {15, 1}, {}},
        // The fixed column never scrolls.
        {14, 3, {15, 0}, {{0, 600, 1000, 300}}},
    };
    for (const auto &each : cases) {
        view.setTopRow(each.topRow);
        view.setLeftCol(each.leftCol);
        table.setTextMatrix(each.written.row, each.written.col, "");
        forget();
        table.setTextMatrix(each.written.row, each.written.col, "x");
        EXPECT_EQ(areas, each.painted);
    }
}

TEST_F(GridViewTest, WithoutRedrawNothingIsReportedUntilItComesBack) {
    view.setRedraw(false);
    table.setTextMatrix(2, 1, "x");
    view.setTopRow(5);
    table.setRows(30);
    EXPECT_TRUE(areas.empty());
    EXPECT_EQ(scrolls, 0);
    view.setRedraw(true);
    ASSERT_EQ(areas.size(), 1U);
    EXPECT_EQ(areas[0], (Rect{0, 0, 3500, 1600}));
    EXPECT_EQ(scrolls, 1);
    forget();
    view.setRedraw(false);
    view.setRedraw(true);
    EXPECT_TRUE(areas.empty()) << "nothing had changed";
}

TEST_F(GridViewTest, ACellWrittenAfterTheRowsMovedIsStillFound) {
    // The last visible row is remembered; sizes and counts must make it be looked up again.
    table.setTextMatrix(5, 1, "x");
    forget();
    table.setRowHeight(1, 1300);
    forget();
    table.setTextMatrix(5, 1, "y");
    EXPECT_TRUE(areas.empty()) << "pushed out of the view";
    table.setRowHeight(1, 30);
    forget();
    table.setTextMatrix(5, 1, "z");
    EXPECT_EQ(areas.size(), 1U);
    view.setSize(3500, 3200);
    forget();
    table.setTextMatrix(9, 1, "z");
    EXPECT_EQ(areas.size(), 1U);
}

} // namespace
} // namespace tablio
