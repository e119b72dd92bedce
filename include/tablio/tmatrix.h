#pragma once

/// `TMatrix`, a sparse matrix of values that grows as it is written. Hosts hang their own values
/// on cells with it; the control keeps it in step with the rows. It never fails.

#include <tablio/date.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tablio {

/// What a cell of a `TMatrix` may hold; nothing stored reads as "". Each integer type goes into the
/// least of these that holds all of it.
using MatrixValue = std::variant<std::string, std::int32_t, double, bool, std::shared_ptr<void>,
                                 std::int16_t, std::int64_t, Date>;

class TMatrix {
public:
    TMatrix();
    TMatrix(const TMatrix &other);
    TMatrix &operator=(const TMatrix &other);
    ~TMatrix();

    /// The value stored for the cell, or "" where there is none. Row and column are 16-bit; a
    /// wider number has no cell.
    [[nodiscard]] MatrixValue Text(int Row, int Col) const;

    /// Stores a value, in place of any that the cell has. Cells whose joined decimal numbers read
    /// alike, such as (1, 11) and (11, 1), are one cell.
    void setText(int Row, int Col, MatrixValue Value);

    /// Forgets the cell's value.
    void remove(int Row, int Col) noexcept;

    /// Moves the values of rows from FirstRow on, in columns from FirstCol on, down (By 1) or up
    /// (By −1) with their rows. Upwards those of FirstRow itself are dropped.
    void shiftRows(int FirstRow, int By, int FirstCol);
    /// The values of one column with their rows.
    using Column = std::vector<std::pair<int, MatrixValue>>;
    /// Makes room for a column that will have this number, with these values.
    void insertCol(int Col, Column &&Cells = {});
    /// Takes the column with this number away; those behind it close the gap.
    Column takeCol(int Col);
    /// Forgets the values of the rows from FirstRow on.
    void removeRowsFrom(int FirstRow) noexcept;

    [[nodiscard]] bool isEmpty() const noexcept;
    [[nodiscard]] std::size_t size() const noexcept;

private:
    struct Columns;

    std::unique_ptr<Columns> columns_;
};

} // namespace tablio
