/// Cells as values with types, whatever the user's locale and the columns' pictures are.

#include <tablio/cells.h>
#include <tablio/errors.h>
#include <tablio/tablio.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tablio {
namespace {

class GermanFace final : public Face {
public:
    [[nodiscard]] NumberFormat numberFormat() const override {
        return {.decimalSign = ",", .groupSign = "."};
    }
};

class CellsTest : public testing::Test {
protected:
    CellsTest() {
        table.setFace(&face);
        table.InitProperties();
        table.setRows(4);
        table.setCols(6);
        table.setCheckBoxes(1);
        const auto column = [this](int col, TColumnType type, const char *picture) {
            table.setColEditType(col, type);
            table.setColFormat(col, picture);
        };
        column(0, TColumnType::ColumnString, "");
        column(1, TColumnType::ColumnDecimal, "#,##0.00");
        column(2, TColumnType::ColumnInteger, "#,##0");
        column(3, TColumnType::ColumnDate, "d mmm yyyy");
        column(4, TColumnType::ColumnCombo, "");
        table.Show();
    }
    /// What a row shows.
    std::string shown(int row) {
        std::string all;
        for (int col = 0; col < table.Cols(); ++col)
            all += std::string(table.screen().facts({row, col}).text) + "|";
        return all;
    }

    GermanFace face;
    Tablio table;
    Cells cells{table};
};

TEST_F(CellsTest, ValuesComeBackAsTheyWereGivenInEveryLocale) {
    const std::vector<CellValue> row{
        "Bolt", *Decimal::parse("123456789012345678.05"), 1234567, Date{2004, 3, 5}, "Box", true};
    cells.setRowValues(2, row);
    EXPECT_EQ(cells.rowValues(2), row);
    EXPECT_EQ(shown(2), "Bolt|123.456.789.012.345.678,05|1.234.567|5 Mar 2004|Box|P|");
    // The example that a host got wrong by way of a text.
    cells.setValue(1, 1, 0.75);
    EXPECT_EQ(cells.value(1, 1).toDouble(), 0.75);
    EXPECT_EQ(shown(1), "|0,75|||||");
    for (const double number : {0.1, -1e-7, 1.0 / 3, 123456.789, 1e15, -0.0})
        EXPECT_EQ(CellValue(number).toDouble(), number);
    EXPECT_EQ(CellValue(0.1).toText(), "0.1");
    EXPECT_EQ(CellValue(std::numeric_limits<std::int64_t>::min()).toText(), "-9223372036854775808");
    // Typed by the operator, and a text that a column takes.
    table.setTextMatrix(1, 2, "77");
    EXPECT_EQ(cells.value(1, 2), CellValue(77));
    cells.setValue(1, 3, "2004-12-31");
    EXPECT_EQ(cells.value(1, 3), CellValue(Date{2004, 12, 31}));
    EXPECT_EQ(cells.value(0, 1), CellValue());
    cells.setValue(0, 1, "Price");
    EXPECT_EQ(cells.value(0, 1), CellValue("Price"));
}

TEST_F(CellsTest, AnEmptyCellIsNoZero) {
    for (int col = 0; col < 5; ++col)
        EXPECT_TRUE(cells.isEmpty(1, col)) << col;
    EXPECT_EQ(cells.value(1, 5), CellValue(false));
    cells.setRowValues(1, std::vector<CellValue>{"x", 0, 0, Date{2004, 3, 5}, "y", true});
    EXPECT_EQ(shown(1), "x|0,00|0|5 Mar 2004|y|P|");
    EXPECT_EQ(cells.value(1, 1), CellValue(Decimal(0)));
    for (int col = 0; col < 6; ++col)
        cells.clear(1, col);
    EXPECT_EQ(shown(1), "||||||");
    EXPECT_TRUE(cells.isEmpty(1, 1));
}

TEST_F(CellsTest, WhatAColumnCannotHoldIsRefusedAndNothingIsWritten) {
    const std::vector<CellValue> good{"x", 1, 1, Date{2004, 3, 5}};
    for (const auto &[col, value] : std::vector<std::pair<int, CellValue>>{{1, "1,5"},
                                                                           {1, true},
                                                                           {1, Date{2004, 3, 5}},
                                                                           {2, 1.5},
                                                                           {2, "x"},
                                                                           {3, 5},
                                                                           {3, "31/02/2004"}}) {
        std::vector<CellValue> row = good;
        row[static_cast<std::size_t>(col)] = value;
        EXPECT_THROW(cells.setRowValues(1, row), TypeMismatch) << value.toText();
        row.insert(row.begin(), good.begin(), good.end());
        EXPECT_THROW(cells.appendRows(row, 4), TypeMismatch) << value.toText();
    }
    EXPECT_THROW(cells.setRowValues(1, std::vector<CellValue>(7)), GridError);
    EXPECT_THROW(cells.setValue(9, 1, 5), GridError);
    EXPECT_THROW(cells.appendRows(good, 3), GridError);
    EXPECT_THROW(cells.appendRows(std::vector<CellValue>(40000, "x"), 1), OverflowError);
    EXPECT_THROW(CellValue(std::nan("")), OverflowError);
    EXPECT_EQ(shown(1) + shown(2) + std::to_string(table.Rows()), "||||||||||||4");
    // What got in by another way is a text.
    table.setTextMatrix(1, 4, "z");
    table.setColEditType(4, TColumnType::ColumnInteger);
    EXPECT_EQ(cells.value(1, 4), CellValue("z"));
}

TEST_F(CellsTest, RowsAreAppendedBehindTheData) {
    cells.setValue(1, 0, "first");
    std::vector<CellValue> values;
    for (int row = 0; row < 5; ++row)
        values.insert(values.end(), {"row", row * 0.5});
    EXPECT_EQ(cells.appendRows(values, 2), 2);
    EXPECT_EQ(table.Rows(), 7);
    EXPECT_EQ(shown(2) + shown(6), "row|0,00|||||row|2,00|||||");
    EXPECT_EQ(cells.appendRows({}, 2), 7);
    EXPECT_EQ(table.Rows(), 7);
}

} // namespace
} // namespace tablio
