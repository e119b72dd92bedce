#include <tablio/tmatrix.h>

#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <random>
#include <string>

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

/// One entry for each joined text; what moves is taken out and put back in the order in which rows
/// or columns would be copied one by one.
class Reference {
public:
    void set(int row, int col, const std::string &value) {
        if (row <= 32767)
            cells_[key(row, col)] = {row, col, value};
    }
    void remove(int row, int col) { cells_.erase(key(row, col)); }
    [[nodiscard]] std::string at(int row, int col) const {
        const auto found = cells_.find(key(row, col));
        return found == cells_.end() ? "" : found->second.value;
    }
    void shift(int firstRow, int byRows, int firstCol, int byCols) {
        std::multimap<int, Cell> moved;
        for (auto cell = cells_.begin(); cell != cells_.end();) {
            const Cell &here = cell->second;
            const bool moves = here.row >= firstRow && here.col >= firstCol;
            const int order = byCols != 0 ? here.col * 40000 + here.row : -byRows * here.row;
            if (moves)
                moved.emplace(order, here);
            cell = moves ? cells_.erase(cell) : std::next(cell);
        }
        for (const auto &[order, cell] : moved) {
            if (cell.row + byRows >= firstRow && cell.col + byCols >= firstCol)
                set(cell.row + byRows, cell.col + byCols, cell.value);
        }
    }
    [[nodiscard]] std::size_t size() const { return cells_.size(); }

private:
    struct Cell {
        int row;
        int col;
        std::string value;
    };
    static std::string key(int row, int col) { return std::to_string(row) + std::to_string(col); }

    std::map<std::string, Cell> cells_;
};

TEST(TMatrix, RowsAndColumnsMoveAsIfTheirCellsWereCopiedOneByOne) {
    std::mt19937 random(3);
    const auto below = [&random](int end) { return static_cast<int>(random() % unsigned(end)); };
    const auto anyRow = [&] { return below(3) == 0 ? 32700 + below(68) : below(1300); };
    const auto anyCol = [&] { return below(3) == 0 ? below(130) : below(13); };
    TMatrix matrix;
    Reference expected;
    for (int step = 0; step < 6000; ++step) {
        const int row = anyRow();
        const int col = anyCol();
        const int what = below(30);
        if (what == 0) {
            matrix.shiftRows(row, 1, col % 3);
            expected.shift(row, 1, col % 3, 0);
        } else if (what == 1) {
            matrix.shiftRows(row, -1, col % 3);
            expected.shift(row, -1, col % 3, 0);
        } else if (what == 2 && below(4) == 0) {
            matrix.insertCol(col);
            expected.shift(-32768, 0, col, 1);
        } else if (what == 3 && below(4) == 0) {
            (void)matrix.takeCol(col);
            expected.shift(-32768, 0, col, -1);
        } else if (what < 8) {
            matrix.remove(row, col);
            expected.remove(row, col);
        } else {
            matrix.setText(row, col, std::to_string(step));
            expected.set(row, col, std::to_string(step));
        }
        ASSERT_EQ(matrix.size(), expected.size()) << "step " << step;
        for (int look = 0; look < 20; ++look) {
            const int atRow = anyRow();
            const int atCol = anyCol();
            ASSERT_EQ(textAt(matrix, atRow, atCol), expected.at(atRow, atCol))
                << atRow << ", " << atCol << " after step " << step;
        }
    }
    matrix.removeRowsFrom(600);
    EXPECT_EQ(textAt(matrix, 32767, 1), "");
}

} // namespace
} // namespace tablio
