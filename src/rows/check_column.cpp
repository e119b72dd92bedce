#include "rows/check_column.h"

#include "model/text/trim.h"

namespace tablio {

void CheckColumn::check(int row, bool checked) {
    if (!isOn())
        return;
    FlexGrid &grid = state_.grid;
    const CellAddress cell{row, grid.table.Cols() - 1};
    grid.stepTo(cell);
    // A handler may have taken the cursor elsewhere.
    if (grid.current() != cell)
        return;
    put(cell, checked);
}

bool CheckColumn::isChecked(int row) const {
    if (!isOn())
        return false;
    const GridTable &table = state_.grid.table;
    return !trimmed(table.TextMatrix(row, table.Cols() - 1)).empty();
}

bool CheckColumn::toggleCurrent() {
    FlexGrid &grid = state_.grid;
    const CellAddress cell = grid.current();
    if (!state_.isCheckCell(cell) || !grid.table.hasCell(cell.row, cell.col) ||
        cell.row < grid.table.FixedRows())
        return false;
    put(cell, trimmed(grid.Text()).empty());
    return true;
}

void CheckColumn::put(CellAddress cell, bool checked) {
    GridTable &table = state_.grid.table;
    if (checked) {
        CellStyle style = table.cellStyle(cell.row, cell.col);
        style.fontName = tickFont;
        style.fontSize = 12.0F;
        style.fontBold = true;
        style.foreColor = state_.settings.CheckBoxColor;
        style.alignment = 4;
        table.setCellStyle(cell.row, cell.col, style);
    }
    table.setTextMatrix(cell.row, cell.col, checked ? tick : std::string_view());
}

} // namespace tablio
