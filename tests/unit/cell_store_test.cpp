#include "model/cell_store.h"

#include <gtest/gtest.h>

namespace tablio {
namespace {

class CellStoreTest : public testing::Test {
protected:
    CellStoreTest() {
        store.setRows(4);
        store.setCols(3);
    }
    CellStore store;
};

TEST_F(CellStoreTest, ACellThatWasNeverWrittenIsBlankAndPlain) {
    EXPECT_EQ(store.text(3, 2), "");
    EXPECT_EQ(store.value(3, 2), "");
    EXPECT_EQ(store.style(3, 2), plainStyle);
    EXPECT_EQ(store.height(3), -1);
}

TEST_F(CellStoreTest, TheUnformattedValueLastsUntilTheNextText) {
    store.setText(1, 1, "1,250.50");
    EXPECT_EQ(store.value(1, 1), "1,250.50");
    store.setValue(1, 1, "1250.5");
    EXPECT_EQ(store.value(1, 1), "1250.5");
    EXPECT_EQ(store.value(1, 2), "");
    store.setText(1, 1, "7.00");
    EXPECT_EQ(store.value(1, 1), "7.00");
}

TEST_F(CellStoreTest, AValueBehindABlankTextGoesWithTheNextBlankTextToo) {
    // A picture that shows nothing of the number, in a row that never held a text.
    store.setText(1, 1, "");
    store.setValue(1, 1, "0.4");
    EXPECT_EQ(store.value(1, 1), "0.4");
    store.setText(1, 1, "");
    EXPECT_EQ(store.value(1, 1), "");
}

TEST_F(CellStoreTest, RowsMoveWithAllThatBelongsToThem) {
    store.setText(1, 0, "one");
    store.setText(2, 0, "two");
    store.setValue(2, 0, "2");
    store.setStyle(2, 1, 5);
    store.setHeight(2, 450);
    store.insertRow(1);
    EXPECT_EQ(store.rows(), 5);
    EXPECT_EQ(store.text(1, 0), "");
    EXPECT_EQ(store.height(1), -1);
    EXPECT_EQ(store.text(2, 0), "one");
    EXPECT_EQ(store.text(3, 0), "two");
    EXPECT_EQ(store.value(3, 0), "2");
    EXPECT_EQ(store.style(3, 1), 5U);
    EXPECT_EQ(store.height(3), 450);
    store.removeRow(2);
    EXPECT_EQ(store.rows(), 4);
    EXPECT_EQ(store.text(2, 0), "two");
    EXPECT_EQ(store.style(2, 1), 5U);
    EXPECT_EQ(store.height(2), 450);
}

TEST_F(CellStoreTest, ColumnsThatGoTakeTextsValuesAndLooksAlong) {
    store.setText(1, 2, "text");
    store.setValue(1, 2, "value");
    store.setStyle(1, 2, 3);
    store.setText(1, 1, "stays");
    store.setCols(2);
    store.setCols(4);
    EXPECT_EQ(store.text(1, 2), "");
    EXPECT_EQ(store.value(1, 2), "");
    EXPECT_EQ(store.style(1, 2), plainStyle);
    EXPECT_EQ(store.text(1, 1), "stays");
    store.setText(1, 3, "new");
    EXPECT_EQ(store.text(1, 3), "new");
}

TEST_F(CellStoreTest, RowsThatGoAreBlankWhenTheyComeBack) {
    store.setText(3, 0, "text");
    store.setHeight(3, 450);
    store.setRows(2);
    store.setRows(4);
    EXPECT_EQ(store.text(3, 0), "");
    EXPECT_EQ(store.height(3), -1);
}

TEST_F(CellStoreTest, ClearingWipesTextsValuesAndLooksButNoHeights) {
    store.setText(1, 1, "text");
    store.setValue(1, 1, "value");
    store.setStyle(1, 1, 3);
    store.setHeight(1, 450);
    store.clear();
    EXPECT_EQ(store.text(1, 1), "");
    EXPECT_EQ(store.value(1, 1), "");
    EXPECT_EQ(store.style(1, 1), plainStyle);
    EXPECT_EQ(store.height(1), 450);
    EXPECT_EQ(store.rows(), 4);
    EXPECT_EQ(store.cols(), 3);
}

TEST_F(CellStoreTest, APlainLookTakesAStyleBack) {
    store.setStyle(1, 1, 3);
    store.setStyle(1, 1, plainStyle);
    EXPECT_EQ(store.style(1, 1), plainStyle);
    EXPECT_EQ(store.style(1, 0), plainStyle);
}

} // namespace
} // namespace tablio
