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
    if (checked)
        tickCurrent();
    else
        grid.setText("");
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
    if (trimmed(grid.Text()).empty())
        tickCurrent();
    else
        grid.setText("");
    return true;
}

void CheckColumn::tickCurrent() {
    state_.grid.changeCellStyle([this](CellStyle &style) {
        style.fontName = tickFont;
        style.fontSize = 12.0F;
        style.fontBold = true;
        style.foreColor = state_.settings.CheckBoxColor;
        style.alignment = 4;
    });
    state_.grid.setText(tick);
}

} // namespace tablio
