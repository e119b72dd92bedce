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

void Navigator::jumpTo(CellAddress cell) {
    FlexGrid &grid = state_.grid;
    if (cell != grid.current() && grid.table.hasCell(cell.row, cell.col))
        grid.setCell(cell);
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

void Navigator::advanceUnedited() {
    const FlexGrid &grid = state_.grid;
    if (grid.Col() != lastCol()) {
        advance();
        return;
    }
    const CellAddress returned{grid.Row(), state_.firstColumn()};
    moveTo(returned);
    // A handler that hears the first step may have gone elsewhere.
    if (grid.current() == returned && returned.row < state_.lastDataRow())
        moveTo({returned.row + 1, returned.col});
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
        ctrl ? jumpTo({grid.Row(), firstReachableCol()}) : left();
        return true;
    case Key::Right:
        if (ctrl)
            jumpTo({grid.Row(), lastCol()});
        else if (grid.Col() < lastCol())
            right();
        return true;
    case Key::Up:
        jumpTo({ctrl ? firstRow() : std::max(firstRow(), grid.Row() - 1), grid.Col()});
        return true;
    case Key::Down:
        jumpTo({ctrl ? bottom : std::min(bottom, grid.Row() + 1), grid.Col()});
        return true;
    case Key::PageUp:
        jumpTo({std::max(firstRow(), grid.Row() - page), grid.Col()});
        return true;
    case Key::PageDown:
        jumpTo({std::min(bottom, grid.Row() + page), grid.Col()});
        return true;
    case Key::Home:
        jumpTo({ctrl ? firstRow() : grid.Row(), firstReachableCol()});
        return true;
    case Key::End:
        jumpTo({ctrl ? bottom : grid.Row(), lastCol()});
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
