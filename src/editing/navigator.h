#pragma once

/// Moves the cursor as the operator's keys do, one cell, row or page at a time, and keeps it in
/// view. It knows the table's edges and nothing of editors.

#include "state/control_state.h"

#include <optional>

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

    /// To the next or the previous cell of the table, over the ends of rows. Where there is none,
    /// canWalk answers False and nothing moves.
    [[nodiscard]] bool canWalk(bool back) const { return walked(back).has_value(); }
    void walk(bool back);

    /// Cursor keys while no editor is open: arrows, Home, End and pages; with Ctrl to the table's
    /// corners. Answers whether the key is one of those.
    bool keyDown(KeyCode key, ShiftState shift);

private:
    [[nodiscard]] int firstRow() const noexcept;
    /// The nearest row, or column, that may be entered on one side of this one and not beyond last;
    /// `from` itself where there is none.
    [[nodiscard]] int nextRow(int from, int last) const;
    [[nodiscard]] int nextCol(int from, int last) const;
    [[nodiscard]] bool isOpenCol(int col) const;
    [[nodiscard]] std::optional<CellAddress> walked(bool back) const;
    /// Where Enter goes on by the careful rules; nothing where no column takes input.
    [[nodiscard]] std::optional<CellAddress> nextInput() const;
    [[nodiscard]] int lastCol() const noexcept { return state_.grid.table.Cols() - 1; }
    [[nodiscard]] int firstReachableCol() const noexcept;

    ControlState &state_;
};

} // namespace tablio
