#include "model/grid/cell_store.h"

#include <gtest/gtest.h>

#include <string>

namespace tablio {
namespace {

class CellStoreTest : public testing::Test {
protected:
    CellStoreTest() {
        store.setRows(4);
        store.setCols(3);
    }

    void fill(int row, int col, const std::string &text) {
        store.setText(row, col, text);
        store.setValue(row, col, "value of " + text);
        store.setStyle(row, col, 5);
    }
    /// Text, unformatted value and look of a cell.
    [[nodiscard]] std::string all(int row, int col) const {
        return std::string(store.text(row, col)) + "|" + std::string(store.value(row, col)) + "|" +
               std::to_string(store.style(row, col));
    }
    const std::string blank = "||0";
    CellStore store;
};

TEST_F(CellStoreTest, TheUnformattedValueLastsUntilTheNextText) {
    for (const char *text : {"1,250.50", ""}) {
        // A blank one: a picture that shows nothing of the number.
        store.setText(1, 1, text);
        store.setValue(1, 1, "1250.5");
        EXPECT_EQ(store.value(1, 1), "1250.5");
        EXPECT_EQ(store.value(1, 2), "");
        store.setText(1, 1, text);
        EXPECT_EQ(store.value(1, 1), text);
    }
}

TEST_F(CellStoreTest, RowsMoveWithAllThatBelongsToThem) {
    fill(2, 1, "two");
    store.insertRow(1);
    EXPECT_EQ(all(1, 1), blank);
    EXPECT_EQ(all(3, 1), "two|value of two|5");
    store.removeRow(2);
    EXPECT_EQ(all(2, 1), "two|value of two|5");
    EXPECT_EQ(store.rows(), 4);
    store.setRows(2);
    store.setRows(4);
    EXPECT_EQ(all(2, 1), blank) << "rows that go are blank when they come back";
}

TEST_F(CellStoreTest, ColumnsThatGoAndAClearTakeTextsValuesAndLooksAlong) {
    fill(1, 2, "text");
    fill(1, 1, "stays");
    store.setCols(2);
    store.setCols(4);
    EXPECT_EQ(all(1, 2), blank);
    EXPECT_EQ(all(1, 1), "stays|value of stays|5");
    store.setText(1, 3, "new");
    EXPECT_EQ(store.text(1, 3), "new");
    store.setStyle(1, 1, plainStyle);
    EXPECT_EQ(store.style(1, 1), plainStyle);
    store.clear();
    EXPECT_EQ(all(1, 1), blank);
}

} // namespace
} // namespace tablio
