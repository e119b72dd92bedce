#include "editing/navigator.h"

#include <algorithm>

namespace tablio {

void Navigator::moveTo(CellAddress cell) {
    FlexGrid &grid = state_.grid;
    const GridTable &table = grid.table;
    const std::uint64_t claims = grid.claims();
    if (cell.row != grid.Row() && table.hasCell(cell.row, grid.Col()))
        grid.setRow(cell.row);
    if (cell.col != grid.Col() && table.hasCell(grid.Row(), cell.col) && claims == grid.claims())
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
    if (const std::optional<CellAddress> next = nextInput()) {
        moveTo(*next);
        return;
    }
    if (grid.Col() < lastCol()) {
        moveTo({grid.Row(), grid.Col() + 1});
        return;
    }
    const int row = grid.Row() < state_.lastDataRow() ? grid.Row() + 1 : grid.Row();
    moveTo({row, state_.firstColumn()});
}

void Navigator::advanceUnedited() {
    const FlexGrid &grid = state_.grid;
    if (grid.Col() != lastCol() || nextInput()) {
        advance();
        return;
    }
    const CellAddress returned{grid.Row(), state_.firstColumn()};
    const std::uint64_t claims = grid.claims();
    moveTo(returned);
    // A handler that hears the first step may have gone elsewhere.
    if (claims == grid.claims() && grid.current() == returned &&
        returned.row < state_.lastDataRow())
        moveTo({returned.row + 1, returned.col});
}

std::optional<CellAddress> Navigator::nextInput() const {
    const FlexGrid &grid = state_.grid;
    const auto takesInput = [&](int col) {
        return isOpenCol(col) && (state_.columns.isInput(col) || state_.isCheckCell({0, col}));
    };
    const auto firstFrom = [&](int col) {
        while (col <= lastCol() && !takesInput(col))
            ++col;
        return col;
    };
    if (!state_.rules().skipsClosedCells)
        return std::nullopt;
    if (const int col = firstFrom(grid.Col() + 1); col <= lastCol())
        return CellAddress{grid.Row(), col};
    const int first = firstFrom(state_.firstColumn());
    if (first > lastCol())
        return std::nullopt;
    return CellAddress{nextRow(grid.Row(), std::max(grid.Row(), state_.lastDataRow())), first};
}

bool Navigator::isOpenCol(int col) const {
    return !state_.rules().skipsClosedCells || state_.grid.table.ColWidth(col) > 0;
}

int Navigator::nextRow(int from, int last) const {
    const int step = last < from ? -1 : 1;
    for (int row = from; row != last;) {
        row += step;
        if (!state_.rules().skipsClosedCells || state_.grid.table.RowHeight(row) > 0)
            return row;
    }
    return from;
}

int Navigator::nextCol(int from, int last) const {
    const int step = last < from ? -1 : 1;
    for (int col = from; col != last;) {
        col += step;
        if (isOpenCol(col))
            return col;
    }
    return from;
}

std::optional<CellAddress> Navigator::walked(bool back) const {
    const auto [row, col] = state_.grid.current();
    const int first = firstReachableCol();
    const int edge = back ? first : lastCol();
    if (state_.grid.table.hasCell(row, col) && (back ? col > edge : col < edge)) {
        if (const int next = nextCol(col, edge); next != col)
            return CellAddress{row, next};
    }
    const int last = back ? firstRow() : state_.grid.table.Rows() - 1;
    if (back ? row <= last : row >= last)
        return std::nullopt;
    const int next = nextRow(row, last);
    const int start = back ? lastCol() : first;
    const int open = start <= lastCol() && isOpenCol(start) ? start : nextCol(start, edge);
    if (next == row || !state_.grid.table.hasCell(next, open))
        return std::nullopt;
    return CellAddress{next, open};
}

void Navigator::walk(bool back) {
    if (const std::optional<CellAddress> cell = walked(back))
        moveTo(*cell);
}

void Navigator::up() {
    const FlexGrid &grid = state_.grid;
    const int first = firstRow();
    moveTo({grid.Row() > first ? nextRow(grid.Row(), first) : first, grid.Col()});
}

void Navigator::down() {
    const FlexGrid &grid = state_.grid;
    if (grid.Row() < state_.lastDataRow())
        moveTo({nextRow(grid.Row(), state_.lastDataRow()), grid.Col()});
}

void Navigator::left() {
    const FlexGrid &grid = state_.grid;
    if (grid.Col() > firstReachableCol())
        moveTo({grid.Row(), nextCol(grid.Col(), firstReachableCol())});
}

void Navigator::right() {
    const FlexGrid &grid = state_.grid;
    const int next = grid.Col() < lastCol() ? nextCol(grid.Col(), lastCol()) : grid.Col();
    if (next != grid.Col())
        moveTo({grid.Row(), next});
    else if (grid.Row() < state_.lastDataRow())
        moveTo({nextRow(grid.Row(), state_.lastDataRow()), state_.firstColumn()});
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
            moveTo({grid.Row(), nextCol(grid.Col(), lastCol())});
        return true;
    case Key::Up:
        jumpTo({ctrl || grid.Row() <= firstRow() ? firstRow() : nextRow(grid.Row(), firstRow()),
                grid.Col()});
        return true;
    case Key::Down:
        jumpTo({ctrl || grid.Row() >= bottom ? bottom : nextRow(grid.Row(), bottom), grid.Col()});
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
