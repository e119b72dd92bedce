#pragma once

/// The cells of a `Tablio` as values with types, singly and by rows. A host that keeps numbers and
/// dates uses it instead of the texts that the table shows. It keeps nothing itself, raises no
/// event and moves no cursor.

#include <tablio/cell_value.h>

#include <span>
#include <vector>

namespace tablio {

class Tablio;

/// Rows and columns are the grid's own, from 0; one that the grid does not have throws GridError.
/// A column's edit kind says of which type its data cells are: nothing for an empty cell, else
/// text, a decimal number, a whole one, a date; a tick is True or False. What cannot be of the
/// column's type is read as text, and writing it throws TypeMismatch. Whatever is thrown, nothing
/// has changed.
class Cells {
public:
    /// The control must live as long as this object is used.
    explicit Cells(Tablio &control) noexcept : control_(control) {}

    [[nodiscard]] CellValue value(int row, int col) const;
    void setValue(int row, int col, const CellValue &value);
    /// Nothing is shown there and nothing is kept behind it.
    [[nodiscard]] bool isEmpty(int row, int col) const;
    void clear(int row, int col) { setValue(row, col, {}); }

    /// All columns from the first one that is not fixed, the tick included.
    [[nodiscard]] std::vector<CellValue> rowValues(int row) const;
    /// The same columns; those behind the last value stay as they are. Too many values throw
    /// GridError.
    void setRowValues(int row, std::span<const CellValue> values);
    /// Writes rows of so many values behind the last row that holds data, into blank rows and then
    /// into new ones. Values that are no whole rows throw GridError, too many rows OverflowError.
    /// Answers the first row written.
    int appendRows(std::span<const CellValue> values, int valuesPerRow);

private:
    Tablio &control_;
};

} // namespace tablio
