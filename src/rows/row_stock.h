#pragma once

/// The stock of rows as a whole: adding, clearing, counting and numbering them. It keeps tags in
/// step with rows and raises one TableChange for each change; it never edits a single cell for the
/// operator.

#include "editing/edit_session.h"

namespace tablio {

class RowStock {
public:
    RowStock(ControlState &state, EditSession &session) : state_(state), session_(session) {}

    /// Throws OverflowError, with nothing changed, when the last row would not fit 16 bits.
    void add();
    /// Appends a blank row, numbered like the others; no event, and the cursor stays.
    void append();
    void clear();
    /// The last row whose primary cell is not blank.
    [[nodiscard]] int dataCount() const;
    /// Writes 1, 2, 3 … into the auto-number columns.
    void RenumberFixedColumns();

private:
    void bringCursorTo(CellAddress cell);

    ControlState &state_;
    EditSession &session_;
};

} // namespace tablio
