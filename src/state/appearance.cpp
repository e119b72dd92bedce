#include "state/appearance.h"

namespace tablio {

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

} // namespace tablio
