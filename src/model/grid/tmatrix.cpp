#include <tablio/tmatrix.h>

#include "model/grid/sparse_lines.h"

#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace tablio {

namespace {

using Rows = SparseLines<MatrixValue>;
using Limits = std::numeric_limits<std::int16_t>;

bool fits16Bit(int number) noexcept { return number >= Limits::min() && number <= Limits::max(); }

/// The least power of ten that is greater than the number.
int scaleOf(int number) noexcept {
    int scale = 10;
    while (scale <= number)
        scale *= 10;
    return scale;
}

/// Calls for each other cell whose joined numbers have these digits: some of the row's last ones
/// stand in the column, or some of the column's first ones in the row. A minus sign ends a number.
template <typename Visit> void visitAlike(int row, int col, Visit visit) {
    if (col < 0)
        return;
    const int sign = row < 0 ? -1 : 1;
    std::int64_t digits = col;
    std::int64_t scale = scaleOf(col);
    for (int rest = row * sign; rest >= 10; scale *= 10) {
        const int digit = rest % 10;
        rest /= 10;
        digits += digit * scale;
        // No number begins with a zero.
        if (digit != 0 && digits <= Limits::max())
            visit(rest * sign, static_cast<int>(digits));
    }
    if (row == 0)
        return;
    std::int64_t longer = row;
    int rest = col;
    for (int below = scaleOf(col) / 10; below >= 10; below /= 10) {
        longer = longer * 10 + sign * (rest / below);
        rest %= below;
        if (longer < Limits::min() || longer > Limits::max())
            return;
        if (below == 10 || rest >= below / 10)
            visit(static_cast<int>(longer), rest);
    }
}

} // namespace

/// Each value stands in its column at the row it was written for. Cells that are alike share one
/// value: at most one of them has it.
struct TMatrix::Columns {
    std::map<int, Rows> byCol;

    [[nodiscard]] Rows *find(int col) {
        const auto found = byCol.find(col);
        return found == byCol.end() ? nullptr : &found->second;
    }
    void remove(int row, int col) {
        const auto found = byCol.find(col);
        if (found == byCol.end())
            return;
        found->second.take(row);
        if (found->second.isEmpty())
            byCol.erase(found);
    }
    /// After cells have moved two that are alike may both have a value; `isLater` says of two
    /// which one was moved there later, and keeps its own.
    template <typename IsLater> void settle(IsLater isLater) {
        using Cell = std::pair<int, int>;
        std::vector<Cell> covered;
        for (const auto &[col, rows] : byCol) {
            // Only a column of several digits has cells alike in a shorter one.
            if (col < 10 || byCol.begin()->first >= col)
                continue;
            rows.visit(Limits::min() / 10, [&, at = col](int row, const MatrixValue &) {
                if (row > Limits::max() / 10)
                    return false;
                visitAlike(row, at, [&, row](int otherRow, int otherCol) {
                    const Rows *const others = otherCol < at ? find(otherCol) : nullptr;
                    if (others == nullptr || others->find(otherRow) == nullptr)
                        return;
                    const Cell cell(row, at);
                    const Cell other(otherRow, otherCol);
                    covered.push_back(isLater(cell, other) ? other : cell);
                });
                return true;
            });
        }
        for (const auto &[row, col] : covered)
            remove(row, col);
    }
    void shiftCols(int firstCol, int by) {
        std::map<int, Rows> moved;
        for (auto &[col, rows] : byCol) {
            const int now = col >= firstCol ? col + by : col;
            if (fits16Bit(now))
                moved.emplace(now, std::move(rows));
        }
        byCol = std::move(moved);
        settle([=](const auto &left, const auto &right) {
            const auto order = [=](const auto &cell) {
                const bool isMoved = cell.second - by >= firstCol;
                return std::pair(isMoved ? 1 : 0, std::pair(cell.second, cell.first));
            };
            return order(left) > order(right);
        });
    }
};

TMatrix::TMatrix() : columns_(std::make_unique<Columns>()) {}
TMatrix::TMatrix(const TMatrix &other) : columns_(std::make_unique<Columns>(*other.columns_)) {}
TMatrix &TMatrix::operator=(const TMatrix &other) {
    if (this != &other)
        *columns_ = *other.columns_;
    return *this;
}
TMatrix::~TMatrix() = default;

MatrixValue TMatrix::Text(int Row, int Col) const {
    const MatrixValue *found = nullptr;
    const auto look = [&](int row, int col) {
        const Rows *const rows = found == nullptr ? columns_->find(col) : nullptr;
        found = rows != nullptr ? rows->find(row) : found;
    };
    if (fits16Bit(Row) && fits16Bit(Col) && !isEmpty()) {
        look(Row, Col);
        visitAlike(Row, Col, look);
    }
    return found != nullptr ? *found : MatrixValue(std::string());
}

void TMatrix::setText(int Row, int Col, MatrixValue Value) {
    if (!fits16Bit(Row) || !fits16Bit(Col))
        return;
    remove(Row, Col);
    columns_->byCol[Col].set(Row, std::move(Value));
}

void TMatrix::remove(int Row, int Col) noexcept {
    if (!fits16Bit(Row) || !fits16Bit(Col) || isEmpty())
        return;
    columns_->remove(Row, Col);
    visitAlike(Row, Col, [this](int row, int col) { columns_->remove(row, col); });
}

void TMatrix::removeRowsFrom(int FirstRow) noexcept {
    auto &columns = columns_->byCol;
    for (auto column = columns.begin(); column != columns.end();) {
        column->second.cut(FirstRow);
        column = column->second.isEmpty() ? columns.erase(column) : std::next(column);
    }
}

void TMatrix::insertCol(int Col, Column &&Cells) {
    columns_->shiftCols(Col, 1);
    for (auto &[row, value] : Cells)
        setText(row, Col, std::move(value));
}

TMatrix::Column TMatrix::takeCol(int Col) {
    Column taken;
    if (const Rows *const rows = columns_->find(Col)) {
        rows->visit(Limits::min(), [&taken](int row, const MatrixValue &value) {
            taken.emplace_back(row, value);
            return true;
        });
        columns_->byCol.erase(Col);
    }
    columns_->shiftCols(Col + 1, -1);
    return taken;
}

void TMatrix::shiftRows(int FirstRow, int By, int FirstCol) {
    auto &columns = columns_->byCol;
    for (auto column = columns.lower_bound(FirstCol); column != columns.end();) {
        Rows &rows = column->second;
        for (int leaving = FirstRow; leaving < FirstRow - By; ++leaving)
            rows.take(leaving);
        rows.shift(FirstRow, By);
        rows.cut(Limits::max() + 1);
        column = rows.isEmpty() ? columns.erase(column) : std::next(column);
    }
    // As if the rows had been copied one by one: the one that is reached last keeps its value.
    columns_->settle([=](const auto &left, const auto &right) {
        const auto order = [=](const auto &cell) {
            const bool isMoved = cell.second >= FirstCol && cell.first - By >= FirstRow;
            return std::pair(isMoved ? 1 : 0, By < 0 ? cell.first : -cell.first);
        };
        return order(left) > order(right);
    });
}

bool TMatrix::isEmpty() const noexcept { return columns_->byCol.empty(); }

std::size_t TMatrix::size() const noexcept {
    std::size_t count = 0;
    for (const auto &[col, rows] : columns_->byCol)
        count += rows.size();
    return count;
}

} // namespace tablio
