#pragma once

/// Moves the cursor as the operator's keys do, one cell, row or page at a time, and keeps it in
/// view. It knows the table's edges and nothing of editors.

#include "state/control_state.h"

namespace tablio {

class Navigator {
public:
    explicit Navigator(ControlState &state) : state_(state) {}

    /// Makes the cell current, row first, and scrolls it into view. A handler that hears the first
    /// step may change the table; the second step is then left out where it has no cell.
    void moveTo(CellAddress cell);
    /// The same in one step: no cell on the way is entered.
    void jumpTo(CellAddress cell);

    /// On from a cell that is done: one column right, from the last column to the first one of the
    /// next row. On the last row the column still returns and the row stays.
    void advance();
    /// The same from a cell that was not edited: at the end of a row the column returns first and
    /// the row follows.
    void advanceUnedited();
    void up();
    void down();
    /// Left stops at the first column that is not fixed.
    void left();
    /// From the last column to the first one of the next row, if there is one.
    void right();

    /// Cursor keys while no editor is open: arrows, Home, End and pages; with Ctrl to the table's
    /// corners. Answers whether the key is one of those.
    bool keyDown(KeyCode key, ShiftState shift);

private:
    [[nodiscard]] int firstRow() const noexcept;
    [[nodiscard]] int lastCol() const noexcept { return state_.grid.table.Cols() - 1; }
    [[nodiscard]] int firstReachableCol() const noexcept;

    ControlState &state_;
};

} // namespace tablio
