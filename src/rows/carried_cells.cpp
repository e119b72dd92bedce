#include "rows/carried_cells.h"

#include <utility>

namespace tablio {

CarriedCells::CarriedCells(ControlState &state, Marker &marker, RowStock &rows)
    : state_(state), rows_(rows) {
    marker.unmark();
    body_ = state.grid.table.takeBody();
}

CarriedCells::~CarriedCells() {
    state_.grid.table.giveBody(std::move(body_));
    // Those of columns that were written meanwhile have gone with the table they stood in.
    rows_.RenumberFixedColumns();
    rows_.rewatchNumbers();
}

void CarriedCells::setCols(int count) {
    while (Cols() > count)
        (void)takeCol(Cols() - 1);
    body_.cells.setCols(count);
}

void CarriedCells::insertCol(int col, Column column) {
    body_.cells.insertCol(col, std::move(column.cells));
    rows_.CellTag()->insertCol(col, std::move(column.tags));
}

CarriedCells::Column CarriedCells::takeCol(int col) {
    return {body_.cells.takeCol(col), rows_.CellTag()->takeCol(col)};
}

} // namespace tablio
