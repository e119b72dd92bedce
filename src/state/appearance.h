#pragma once

/// Colours of the whole grid, stripes, header and single cells. It styles cells without moving the
/// operator's cell entry: the host hears no CellFocus from it.

#include "state/control_state.h"

#include <optional>

namespace tablio {

class Appearance {
public:
    explicit Appearance(ControlState &state) : state_(state) {}

    template <typename T> void changeLook(T GridLook::*member, const T &value) {
        GridLook look = state_.grid.table.look();
        look.*member = value;
        state_.grid.table.setLook(look);
    }
    /// Colours every second data row from the primary column on, and the others in the grid's own
    /// colour. Own colours that those cells had are lost.
    void PaintStripes();
    /// Stripes that cannot be seen are not painted.
    void repaintStripes();
    /// Bold or plain header cells as the setting says, unless the whole grid is bold.
    void showHeaderFontBold();

    /// Styles one cell. Font changes leave the grid's current cell there, colour changes put it
    /// back to the cell last entered.
    template <typename T>
    void styleFont(CellAddress cell, std::optional<T> CellStyle::*member, const T &value) {
        visit(cell);
        state_.grid.changeCellStyle([&](CellStyle &style) { style.*member = value; });
    }
    void styleColour(CellAddress cell, std::optional<Colour> CellStyle::*member, Colour value) {
        styleAndReturn(cell, state_.cursor.cell(), member, value);
    }
    void styleHeader(int col, std::optional<Colour> CellStyle::*member, Colour value) {
        styleAndReturn({0, col}, state_.grid.current(), member, value);
    }
    /// Makes the cell the grid's current one, where reading its look leaves it.
    void visit(CellAddress cell) { state_.grid.setCurrentQuietly(cell); }

private:
    void styleAndReturn(CellAddress cell, CellAddress back,
                        std::optional<Colour> CellStyle::*member, Colour value) {
        styleFont(cell, member, value);
        if (state_.grid.table.hasCell(back.row, back.col))
            visit(back);
    }

    ControlState &state_;
};

} // namespace tablio
