#pragma once

/// The cells of a table while its columns are being rearranged: they are out of the table for the
/// life of this object, so that no setting which is written meanwhile touches them, and come back
/// with its end, whatever happens. Texts, unformatted values, looks and tags go with their column;
/// captions, widths and the like are settings, which somebody else writes.

#include "rows/row_stock.h"

namespace tablio {

class CarriedCells {
public:
    /// What the cells of one column hold.
    struct Column {
        CellStore::ColumnCells cells;
        TMatrix::Column tags;
    };

    /// A marked row is unmarked first. An open edit must have ended.
    CarriedCells(ControlState &state, Marker &marker, RowStock &rows);
    /// Columns that the table does not have are lost, those that are missing are blank.
    ~CarriedCells();
    CarriedCells(const CarriedCells &) = delete;
    CarriedCells &operator=(const CarriedCells &) = delete;

    [[nodiscard]] int Cols() const noexcept { return body_.cells.cols(); }
    void setCols(int count);
    /// The column will have this index, which is at most their count.
    void insertCol(int col, Column column = {});
    [[nodiscard]] Column takeCol(int col);

private:
    ControlState &state_;
    RowStock &rows_;
    GridTable::Content body_;
};

} // namespace tablio
