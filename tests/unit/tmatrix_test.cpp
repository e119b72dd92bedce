#include <tablio/tmatrix.h>

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace tablio {
namespace {

std::string textAt(const TMatrix &matrix, int row, int col) {
    return std::get<std::string>(matrix.Text(row, col));
}

/// So (1, 11) and (11, 1) share a value; the minus sign is part of the number.
TEST(TMatrix, KeysAreAlikeExactlyWhenTheJoinedTextsAre) {
    // The numbers around each power of ten, where a packed key could go wrong.
    const int numbers[] = {0,   1,    9,    10,    11,    12,     99, 100, 101, 110,
                           111, 1000, 1111, 10000, 32767, -32768, -1, -10, -11, -100};
    TMatrix matrix;
    EXPECT_EQ(textAt(matrix, 3, 12), "");
    std::map<std::string, std::string> expected;
    for (const int row : numbers) {
        for (const int col : numbers) {
            const std::string joined = std::to_string(row) + std::to_string(col);
            const std::string value = std::to_string(row) + " " + std::to_string(col);
            matrix.setText(row, col, value);
            expected[joined] = value;
        }
    }
    EXPECT_EQ(matrix.size(), expected.size());
    for (const int row : numbers) {
        for (const int col : numbers)
            ASSERT_EQ(textAt(matrix, row, col),
                      expected[std::to_string(row) + std::to_string(col)]);
    }
}

TEST(TMatrix, NumbersBeyond16BitsHaveNoCell) {
    TMatrix matrix;
    matrix.setText(32768, 1, "x");
    matrix.setText(1, -32769, "x");
    EXPECT_TRUE(matrix.isEmpty());
    EXPECT_EQ(textAt(matrix, 32768, 1), "");
}

TEST(TMatrix, RowsShiftWithTheirValuesAndDropWhatLeaves) {
    TMatrix matrix;
    for (int row = 1; row <= 3; ++row) {
        matrix.setText(row, 0, "fixed");
        matrix.setText(row, 2, "row " + std::to_string(row));
    }
    const auto texts = [&] {
        return textAt(matrix, 1, 2) + "|" + textAt(matrix, 2, 2) + "|" + textAt(matrix, 3, 2);
    };
    matrix.shiftRows(2, -1, 1);
    EXPECT_EQ(texts(), "row 1|row 3|");
    matrix.shiftRows(1, 1, 1);
    EXPECT_EQ(texts(), "|row 1|row 3");
    matrix.removeRowsFrom(3);
    EXPECT_EQ(texts(), "|row 1|");
    EXPECT_EQ(textAt(matrix, 2, 0), "fixed") << "columns before the first stay";
}

} // namespace
} // namespace tablio
