#pragma once

/// Searches the primary column for a key that occurs in another row.

#include "rows/row_stock.h"

namespace tablio {

class Duplicates {
public:
    Duplicates(ControlState &state, const RowStock &rows) : state_(state), rows_(rows) {}

    /// The first other used row with the key of this row, blind to case and to blanks around it;
    /// −1 for none. Switches painting on. Throws GridError outside the grid.
    [[nodiscard]] int find(int row) const;

private:
    ControlState &state_;
    const RowStock &rows_;
};

} // namespace tablio
