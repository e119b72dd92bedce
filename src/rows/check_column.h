#pragma once

/// The tick column: the grid's last one while check boxes are on. A ticked cell holds "P" in the
/// font "Wingdings 2", where that character is a tick; few machines have the font, so a tick is
/// painted as a shape.

#include "state/control_state.h"

#include <string_view>

namespace tablio {

class CheckColumn {
public:
    explicit CheckColumn(ControlState &state) : state_(state) {}

    /// Ticks or clears a row's box and leaves the cursor on it; nothing while the column is off.
    void check(int row, bool checked);
    [[nodiscard]] bool isChecked(int row) const;
    /// Ticks or clears a tick cell and moves no cursor.
    void put(CellAddress cell, bool checked);
    /// Ticks or clears the current cell, if it is a tick cell. Answers whether it is.
    bool toggleCurrent();
    /// Whether a cell of this look and text shows a tick.
    [[nodiscard]] static bool isTick(const CellStyle &style, std::string_view text) {
        return style.fontName == tickFont && text == tick;
    }

private:
    static constexpr std::string_view tickFont = "Wingdings 2";
    static constexpr std::string_view tick = "P";

    [[nodiscard]] bool isOn() const noexcept {
        return state_.isCheckCell({0, state_.grid.table.Cols() - 1});
    }

    ControlState &state_;
};

} // namespace tablio
