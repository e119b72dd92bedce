#include "editing/navigator.h"

#include <algorithm>

namespace tablio {

void Navigator::moveTo(CellAddress cell) {
    FlexGrid &grid = state_.grid;
    const GridTable &table = grid.table;
    if (cell.row != grid.Row() && table.hasCell(cell.row, grid.Col()))
        grid.setRow(cell.row);
    const std::uint64_t stamp = grid.cursorStamp();
    if (cell.col != grid.Col() && table.hasCell(grid.Row(), cell.col) &&
        stamp == grid.cursorStamp())
        grid.setCol(cell.col);
    grid.view.ensureVisible(grid.Row(), grid.Col());
}

void Navigator::advance() {
    const FlexGrid &grid = state_.grid;
    if (grid.Col() < lastCol()) {
        moveTo({grid.Row(), grid.Col() + 1});
        return;
    }
    const int row = grid.Row() < state_.lastDataRow() ? grid.Row() + 1 : grid.Row();
    moveTo({row, state_.firstColumn()});
}

void Navigator::up() {
    const FlexGrid &grid = state_.grid;
    moveTo({std::max(grid.Row() - 1, firstRow()), grid.Col()});
}

void Navigator::down() {
    const FlexGrid &grid = state_.grid;
    if (grid.Row() < state_.lastDataRow())
        moveTo({grid.Row() + 1, grid.Col()});
}

void Navigator::left() {
    const FlexGrid &grid = state_.grid;
    if (grid.Col() > firstReachableCol())
        moveTo({grid.Row(), grid.Col() - 1});
}

void Navigator::right() {
    const FlexGrid &grid = state_.grid;
    if (grid.Col() < lastCol())
        moveTo({grid.Row(), grid.Col() + 1});
    else if (grid.Row() < state_.lastDataRow())
        moveTo({grid.Row() + 1, state_.firstColumn()});
}

bool Navigator::keyDown(KeyCode key, ShiftState shift) {
    if (shift != Shift::None && shift != Shift::Ctrl)
        return false;
    const bool ctrl = shift == Shift::Ctrl;
    const FlexGrid &grid = state_.grid;
    const int bottom = std::max(firstRow(), grid.table.Rows() - 1);
    const int page = grid.view.pageRows();
    switch (key) {
    case Key::Left:
        ctrl ? moveTo({grid.Row(), firstReachableCol()}) : left();
        return true;
    case Key::Right:
        if (ctrl)
            moveTo({grid.Row(), lastCol()});
        else if (grid.Col() < lastCol())
            right();
        return true;
    case Key::Up:
        moveTo({ctrl ? firstRow() : std::max(firstRow(), grid.Row() - 1), grid.Col()});
        return true;
    case Key::Down:
        moveTo({ctrl ? bottom : std::min(bottom, grid.Row() + 1), grid.Col()});
        return true;
    case Key::PageUp:
        moveTo({std::max(firstRow(), grid.Row() - page), grid.Col()});
        return true;
    case Key::PageDown:
        moveTo({std::min(bottom, grid.Row() + page), grid.Col()});
        return true;
    case Key::Home:
        moveTo({ctrl ? firstRow() : grid.Row(), firstReachableCol()});
        return true;
    case Key::End:
        moveTo({ctrl ? bottom : grid.Row(), lastCol()});
        return true;
    default:
        return false;
    }
}

/// Row 0 is the header even of a table that fixes no row.
int Navigator::firstRow() const noexcept { return std::max(1, state_.grid.table.FixedRows()); }

int Navigator::firstReachableCol() const noexcept {
    return std::max(state_.settings.WithFixedColumn ? 1 : 0, state_.grid.table.FixedCols());
}

} // namespace tablio
