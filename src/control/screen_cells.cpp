/// Single cells, for who asks about them by number or by place.

#include <tablio/screen.h>

#include "control/control.h"

namespace tablio {

Rect Screen::cellRect(CellAddress cell) const {
    return control_.state.grid.view.cellRect(cell.row, cell.col);
}

std::optional<CellAddress> Screen::cellAt(Twips x, Twips y) const {
    return control_.state.grid.view.hitTest(x, y);
}

std::optional<CellAddress> Screen::currentCell() const {
    const FlexGrid &grid = control_.state.grid;
    const CellAddress cell = grid.current();
    return grid.table.hasCell(cell.row, cell.col) ? std::optional(cell) : std::nullopt;
}

bool Screen::isRightToLeft() const noexcept { return control_.state.grid.view.isRightToLeft(); }

bool Screen::offers(CellAddress cell, CellAction action) const {
    return control_.state.settings.Enabled && control_.gridInput.offers(cell, action);
}

CellFacts Screen::facts(CellAddress cell) const {
    const ControlState &state = control_.state;
    const GridTable &table = state.grid.table;
    CellFacts facts;
    facts.text = table.TextMatrix(cell.row, cell.col);
    if (table.FixedRows() > 0)
        facts.header = table.TextMatrix(0, cell.col);
    facts.type = state.columns.ColEditType(cell.col);
    facts.dataType = state.columns.ColDataType(cell.col);
    facts.isFixed = state.grid.isFixed(cell.row, cell.col);
    facts.isCheckBox = !facts.isFixed && state.isCheckCell(cell);
    facts.isTicked = facts.isCheckBox && control_.checks.isChecked(cell.row);
    facts.isReadOnly = facts.isFixed || (!facts.isCheckBox && !state.columns.isInput(cell.col));
    facts.isMarked = control_.marker.isMarked() && control_.marker.MarkRow() == cell.row;
    facts.isEdited = control_.session.isOpen() && control_.session.cell() == cell;
    facts.isRefused = control_.session.isRefused(cell);
    return facts;
}

} // namespace tablio
