#pragma once

/// Reads and writes cells the way the control does: numbers and dates are shown through the
/// column's format and read back as they were given. Every value that reaches a data cell from an
/// edit, a host or a paste goes through `write`.

#include "model/text/number_shower.h"
#include "state/control_state.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tablio {

/// Everything that is in a cell, for putting it back to the letter.
struct CellContent {
    std::string shown;
    std::string value;
};

class CellText {
public:
    explicit CellText(ControlState &state) : state_(state) {}

    /// The cell's text; of a numeric column the plain number, "0" for an empty or unreadable cell.
    /// Throws GridError outside the grid.
    [[nodiscard]] std::string read(int row, int col) const;
    /// Shows the value through the column's format and remembers it unformatted. Throws GridError
    /// outside the grid.
    void write(int row, int col, std::string_view value);

    /// The same, and nobody is told.
    void show(int row, int col, std::string_view value);
    /// How many rows such a block of values has. Throws GridError where they are no whole rows or
    /// reach beyond the last column.
    [[nodiscard]] int rowsOfBlock(CellAddress first, int cols, std::size_t values) const;
    /// Writes a block of values, `cols` of them a row, whose first one belongs into this cell, as
    /// `write` would one by one; painted and told once. Throws GridError, with nothing written,
    /// where the block reaches beyond the grid.
    void writeBlock(CellAddress first, int cols, std::span<const std::string_view> values);

    [[nodiscard]] CellContent content(CellAddress cell) const;
    void putBack(CellAddress cell, const CellContent &content);

    /// What a value looks like in the cell.
    [[nodiscard]] std::string formatted(int col, std::string_view value) const;

private:
    /// Valid until the next call.
    [[nodiscard]] std::string_view shownNumber(int col, const std::string &picture,
                                               std::string_view value) const;

    ControlState &state_;
    /// By column; made when one is needed, and anew when its column has another picture.
    mutable std::vector<std::optional<NumberShower>> showers_;
};

} // namespace tablio
