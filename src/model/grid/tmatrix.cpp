#include <tablio/tmatrix.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

namespace tablio {

namespace {

bool fits16Bit(int number) noexcept {
    return number >= std::numeric_limits<std::int16_t>::min() &&
           number <= std::numeric_limits<std::int16_t>::max();
}

/// Appends the number's decimal text to the key, four bits a character. Two 16-bit numbers have
/// at most twelve characters, so the joined text fits and no two texts share a key.
std::uint64_t appendDigits(std::uint64_t key, int number) noexcept {
    constexpr std::uint64_t minus = 11;
    if (number < 0) {
        key = (key << 4U) | minus;
        number = -number;
    }
    int scale = 1;
    while (number / scale >= 10)
        scale *= 10;
    for (; scale > 0; scale /= 10)
        key = (key << 4U) | static_cast<std::uint64_t>(number / scale % 10 + 1);
    return key;
}

std::uint64_t keyOf(int row, int col) noexcept { return appendDigits(appendDigits(0, row), col); }

} // namespace

MatrixValue TMatrix::Text(int Row, int Col) const {
    if (!fits16Bit(Row) || !fits16Bit(Col))
        return std::string();
    const auto found = values_.find(keyOf(Row, Col));
    return found == values_.end() ? MatrixValue(std::string()) : found->second.value;
}

void TMatrix::setText(int Row, int Col, MatrixValue Value) {
    if (fits16Bit(Row) && fits16Bit(Col))
        values_.insert_or_assign(keyOf(Row, Col), Entry{Row, Col, std::move(Value)});
}

void TMatrix::remove(int Row, int Col) noexcept {
    if (fits16Bit(Row) && fits16Bit(Col))
        values_.erase(keyOf(Row, Col));
}

void TMatrix::removeRowsFrom(int FirstRow) noexcept {
    for (auto entry = values_.begin(); entry != values_.end();)
        entry = entry->second.row >= FirstRow ? values_.erase(entry) : std::next(entry);
}

void TMatrix::shiftCols(int FirstCol, int By) {
    std::vector<Entry> moved;
    for (auto entry = values_.begin(); entry != values_.end();) {
        const bool moves = entry->second.col >= FirstCol;
        if (moves)
            moved.push_back(std::move(entry->second));
        entry = moves ? values_.erase(entry) : std::next(entry);
    }
    // Where two cells come to share a key, it is always the same one that keeps it.
    std::sort(moved.begin(), moved.end(), [](const Entry &left, const Entry &right) {
        return std::pair(left.col, left.row) < std::pair(right.col, right.row);
    });
    for (Entry &entry : moved)
        setText(entry.row, entry.col + By, std::move(entry.value));
}

void TMatrix::insertCol(int Col, Column &&Cells) {
    shiftCols(Col, 1);
    for (auto &[row, value] : Cells)
        setText(row, Col, std::move(value));
}

TMatrix::Column TMatrix::takeCol(int Col) {
    Column taken;
    for (auto entry = values_.begin(); entry != values_.end();) {
        const bool goes = entry->second.col == Col;
        if (goes)
            taken.emplace_back(entry->second.row, std::move(entry->second.value));
        entry = goes ? values_.erase(entry) : std::next(entry);
    }
    shiftCols(Col + 1, -1);
    return taken;
}

void TMatrix::shiftRows(int FirstRow, int By, int FirstCol) {
    std::vector<Entry> moved;
    for (auto entry = values_.begin(); entry != values_.end();) {
        const bool moves = entry->second.row >= FirstRow && entry->second.col >= FirstCol;
        if (moves)
            moved.push_back(std::move(entry->second));
        entry = moves ? values_.erase(entry) : std::next(entry);
    }
    // Where two cells come to share a key, the one that is reached last keeps it, as if the rows
    // had been copied one by one.
    std::sort(moved.begin(), moved.end(), [By](const Entry &left, const Entry &right) {
        return By < 0 ? left.row < right.row : left.row > right.row;
    });
    for (Entry &entry : moved) {
        const int row = entry.row + By;
        if (row >= FirstRow)
            setText(row, entry.col, std::move(entry.value));
    }
}

} // namespace tablio
