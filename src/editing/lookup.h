#pragma once

/// A looked-up value comes back from the host: at once, later, or after the operator has gone on to
/// another cell. The value lands in the cell that was asked for, and an edit of another cell is not
/// disturbed.

#include "editing/edit_session.h"

namespace tablio {

class Lookup {
public:
    Lookup(ControlState &state, EditSession &session, Navigator &navigator, CellText &cells)
        : state_(state), session_(session), navigator_(navigator), cells_(cells) {}

    /// Writes the value and tells the host; an edit of this cell then ends as with Enter. Nothing
    /// happens for a column without lookup. Throws GridError outside the grid.
    void setResult(CellAddress cell, const std::string &value);

private:
    ControlState &state_;
    EditSession &session_;
    Navigator &navigator_;
    CellText &cells_;
};

} // namespace tablio
