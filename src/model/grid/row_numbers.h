#pragma once

/// The columns that number their rows: 1 in the first row of a range, 2 in the next … A number
/// follows from a row's place and takes no memory in its cell. The cell store shows it where a cell
/// has no text of its own.

#include <string_view>
#include <vector>

namespace tablio {

struct RowNumbers {
    /// No row has a greater one.
    static constexpr int greatest = 32767;

    std::vector<bool> cols;
    int first = 0;
    /// One past the last row that has a number.
    int end = 0;

    [[nodiscard]] bool hasCol(int col) const noexcept {
        return static_cast<std::size_t>(col) < cols.size() && cols[static_cast<std::size_t>(col)];
    }
    [[nodiscard]] bool has(int row, int col) const noexcept {
        return row >= first && row < end && hasCol(col);
    }
    /// Valid for ever. Only of a row within the range.
    [[nodiscard]] std::string_view textOf(int row) const noexcept;

    void insertRow(int row) noexcept {
        first += row < first ? 1 : 0;
        end += row < end ? 1 : 0;
    }
    void removeRow(int row) noexcept {
        first -= row < first ? 1 : 0;
        end -= row < end ? 1 : 0;
    }
    void cut(int rows, int colCount);
};

} // namespace tablio
