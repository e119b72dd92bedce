#include "rows/marker.h"

namespace tablio {

template <typename Visit> void Marker::passOver(int row, Visit visit) {
    FlexGrid &grid = state_.grid;
    for (int col = state_.settings.WithFixedColumn ? 1 : 0; col < grid.table.Cols(); ++col) {
        if (!grid.table.hasCell(row, col))
            return;
        grid.setRow(row);
        if (!grid.table.hasCell(row, col))
            return;
        grid.setCol(col);
        if (grid.current() == CellAddress{row, col})
            visit(col);
    }
}

void Marker::toggle() {
    const CellAddress entered = state_.cursor.cell();
    {
        const StatusOff statusOff(state_);
        if (isMarked())
            restore();
        else
            mark(state_.cursor.CurrentRow());
        if (state_.grid.table.hasCell(entered.row, entered.col)) {
            state_.grid.setCol(entered.col);
            if (state_.grid.table.hasCell(entered.row, state_.grid.Col()))
                state_.grid.setRow(entered.row);
        }
    }
    state_.grid.setFocusRect(2);
}

void Marker::mark(int row) {
    isMarked_ = true;
    MarkRow_ = to16Bit(row, "MarkRow");
    state_.link.markChanged();
    before_.assign(static_cast<std::size_t>(state_.grid.table.Cols()), {});
    const GridLook &look = state_.grid.table.look();
    passOver(row, [&](int col) {
        state_.grid.changeCellStyle([&](CellStyle &style) {
            if (static_cast<std::size_t>(col) < before_.size())
                before_[static_cast<std::size_t>(col)] = {style.backColor, style.foreColor};
            if (col == 0)
                style.fontBold = true;
            style.backColor = look.BackColorSel;
            style.foreColor = look.ForeColorSel;
        });
    });
}

void Marker::restore() {
    isMarked_ = false;
    state_.link.markChanged();
    const std::vector<Colours> before = std::exchange(before_, {});
    passOver(MarkRow_, [&](int col) {
        if (static_cast<std::size_t>(col) >= before.size())
            return;
        const Colours &own = before[static_cast<std::size_t>(col)];
        state_.grid.changeCellStyle([&](CellStyle &style) {
            if (col == 0)
                style.fontBold = false;
            style.backColor = own.back;
            style.foreColor = own.fore;
        });
    });
    MarkRow_ = -1;
}

} // namespace tablio
