#pragma once

/// Colours of the whole grid, stripes, header and single cells. It styles cells without moving the
/// operator's cell entry: the host hears no CellFocus from it.

#include "state/control_state.h"

#include <functional>

namespace tablio {

class Appearance {
public:
    explicit Appearance(ControlState &state) : state_(state) {}

    void changeLook(const std::function<void(GridLook &)> &change);
    /// Colours every second data row from the primary column on, and the others in the grid's own
    /// colour. Own colours that those cells had are lost.
    void PaintStripes();
    /// Stripes that cannot be seen are not painted.
    void repaintStripes();
    /// Bold or plain header cells as the setting says, unless the whole grid is bold.
    void showHeaderFontBold();

    /// Styles one cell. Font changes leave the grid's current cell there, colour changes put it
    /// back to the cell last entered.
    void styleFont(CellAddress cell, const std::function<void(CellStyle &)> &change);
    void styleColour(CellAddress cell, const std::function<void(CellStyle &)> &change);
    /// Makes the cell the grid's current one, where reading its look leaves it.
    void visit(CellAddress cell) { state_.grid.setCurrentQuietly(cell); }
    void styleHeader(int col, const std::function<void(CellStyle &)> &change);

private:
    ControlState &state_;
};

} // namespace tablio
