#pragma once

/// Replaces a cell's content without typing: Delete and pasted blocks, through the same veto, rules
/// and events as an edit that the operator types, and values that the host has looked up.

#include "editing/edit_session.h"
#include "rows/row_stock.h"

namespace tablio {

class CellReplacement {
public:
    enum class Outcome {
        Written,
        /// The host, or the column's rules, did not let the text in.
        Refused,
        /// A handler changed the table, so that the cell may be another one.
        Gone,
    };

    CellReplacement(ControlState &state, EditSession &session, Navigator &navigator,
                    CellText &cells, Marker &marker, RowStock &rows)
        : state_(state), session_(session), navigator_(navigator), cells_(cells), marker_(marker),
          rows_(rows) {}

    /// Wipes the cell.
    Outcome clear(CellAddress cell);
    /// Puts a text into the cell as its column takes it.
    Outcome write(CellAddress cell, std::string_view text, KeyCode lastKey);
    /// Fills cells to the right and below from a text with tabs and line ends, beginning at the
    /// current cell, adding rows as they are needed. Cells that are no input cells keep their
    /// content.
    void pasteBlock(std::string_view text);
    /// A value that the host has looked up, at once, later, or after the operator has gone on to
    /// another cell: it lands in the cell that was asked for and the host is told. An edit of this
    /// cell then ends as with Enter, an edit of another cell is not disturbed. Nothing happens for
    /// a column without lookup. Throws GridError outside the grid.
    void setLookupResult(CellAddress cell, const std::string &value);

    /// Gives back what was cleared by mistake just now. Answers whether there was something.
    bool undoClear() { return rows_.undoClear(); }

    /// Whether a text holds more than one cell.
    [[nodiscard]] static bool isBlock(std::string_view text);

private:
    Outcome replace(CellAddress cell, std::string_view newText, bool taken, KeyCode lastKey);

    ControlState &state_;
    EditSession &session_;
    Navigator &navigator_;
    CellText &cells_;
    Marker &marker_;
    RowStock &rows_;
};

} // namespace tablio
