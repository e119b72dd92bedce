#include "state/appearance.h"

namespace tablio {

void Appearance::changeLook(const std::function<void(GridLook &)> &change) {
    GridLook look = state_.grid.table.look();
    change(look);
    state_.grid.table.setLook(look);
}

void Appearance::PaintStripes() {
    {
        const StatusOff statusOff(state_);
        GridTable &table = state_.grid.table;
        table.paintStripes(state_.lastDataRow(), state_.settings.PrimaryColumn,
                           table.look().BackColor, state_.settings.StripeColor);
    }
    state_.grid.setFocusRect(2);
}

void Appearance::repaintStripes() {
    if (state_.settings.StripeColor != state_.grid.table.look().BackColor)
        PaintStripes();
}

void Appearance::showHeaderFontBold() {
    const StatusOff statusOff(state_);
    GridTable &table = state_.grid.table;
    if (table.look().Font.bold || table.Rows() == 0)
        return;
    for (int col = 0; col < table.Cols(); ++col) {
        CellStyle style = table.cellStyle(0, col);
        style.fontBold = state_.settings.HeaderFontBold;
        table.setCellStyle(0, col, style);
    }
}

void Appearance::styleFont(CellAddress cell, const std::function<void(CellStyle &)> &change) {
    visit(cell);
    state_.grid.changeCellStyle(change);
}

void Appearance::styleColour(CellAddress cell, const std::function<void(CellStyle &)> &change) {
    visit(cell);
    state_.grid.changeCellStyle(change);
    const CellAddress entered = state_.cursor.cell();
    if (state_.grid.table.hasCell(entered.row, entered.col))
        visit(entered);
}

void Appearance::styleHeader(int col, const std::function<void(CellStyle &)> &change) {
    const CellAddress before = state_.grid.current();
    visit({0, col});
    state_.grid.changeCellStyle(change);
    if (state_.grid.table.hasCell(before.row, before.col))
        visit(before);
}

} // namespace tablio
