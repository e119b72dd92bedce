#pragma once

/// The tick column: the grid's last one while check boxes are on. A ticked cell holds "P" in the
/// font "Wingdings 2", where that character is a tick; a face may draw the tick its own way.

#include "state/control_state.h"

namespace tablio {

class CheckColumn {
public:
    explicit CheckColumn(ControlState &state) : state_(state) {}

    /// Ticks or clears a row's box and leaves the cursor on it; nothing while the column is off.
    void check(int row, bool checked);
    [[nodiscard]] bool isChecked(int row) const;
    /// Ticks or clears the current cell, if it is a tick cell. Answers whether it is.
    bool toggleCurrent();

private:
    [[nodiscard]] bool isOn() const noexcept {
        return state_.isCheckCell({0, state_.grid.table.Cols() - 1});
    }
    void tickCurrent();

    ControlState &state_;
};

} // namespace tablio
