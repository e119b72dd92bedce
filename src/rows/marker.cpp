#include "rows/marker.h"

#include <utility>

namespace tablio {

template <typename Change> void Marker::restyle(int row, int firstCol, Change change) {
    GridTable &table = state_.grid.table;
    for (int col = firstCol; table.hasCell(row, col); ++col) {
        CellStyle style = table.cellStyle(row, col);
        if (change(col, style))
            table.setCellStyle(row, col, style);
    }
}

void Marker::passOver(int row) {
    FlexGrid &grid = state_.grid;
    const std::uint64_t claims = grid.claims();
    const auto canGoOn = [&](int col) {
        return claims == grid.claims() && grid.table.hasCell(row, col);
    };
    for (int col = state_.settings.WithFixedColumn ? 1 : 0; canGoOn(col); ++col) {
        grid.setRow(row);
        if (canGoOn(col))
            grid.setCol(col);
    }
}

void Marker::toggle() {
    const CellAddress entered = state_.cursor.cell();
    const std::uint64_t claims = state_.grid.claims();
    const auto mayReturn = [&](int row, int col) {
        return claims == state_.grid.claims() && state_.grid.table.hasCell(row, col);
    };
    {
        const StatusOff statusOff(state_);
        const int row = isMarked() ? MarkRow() : state_.cursor.CurrentRow();
        // All of the mark is there, or gone, before the first handler hears of it.
        if (isMarked())
            unmarkQuietly();
        else
            mark(row);
        try {
            passOver(row);
        } catch (...) {
            // Not where a handler has thrown: an editor may be open over the cell.
            if (mayReturn(entered.row, entered.col)) {
                state_.grid.setCurrentQuietly(entered);
                state_.cursor.enter(entered);
            }
            throw;
        }
        if (mayReturn(entered.row, entered.col)) {
            state_.grid.setCol(entered.col);
            if (mayReturn(entered.row, state_.grid.Col()))
                state_.grid.setRow(entered.row);
        }
    }
    state_.grid.setFocusRect(2);
}

void Marker::mark(int row) {
    MarkRow_ = to16Bit(row, "MarkRow");
    isMarked_ = true;
    state_.link.markChanged();
    before_.clear();
    firstCol_ = state_.settings.WithFixedColumn ? 1 : 0;
    const GridLook &look = state_.grid.table.look();
    markColour_ = look.ForeColorSel;
    restyle(row, firstCol_, [&](int col, CellStyle &style) {
        before_.push_back({style.backColor, style.foreColor});
        if (col == 0)
            style.fontBold = true;
        style.backColor = look.BackColorSel;
        style.foreColor = look.ForeColorSel;
        return true;
    });
}

void Marker::forget() {
    isMarked_ = false;
    MarkRow_ = -1;
    before_.clear();
    state_.link.markChanged();
}

void Marker::unmarkQuietly() {
    const int row = std::exchange(MarkRow_, std::int16_t{-1});
    isMarked_ = false;
    state_.link.markChanged();
    restyle(row, firstCol_, [&](int col, CellStyle &style) {
        const auto at = static_cast<std::size_t>(col - firstCol_);
        if (at >= before_.size())
            return false;
        if (col == 0)
            style.fontBold = false;
        style.backColor = before_[at].back;
        // A box that was ticked meanwhile has its tick's colour by right.
        if (!state_.isCheckCell({row, col}) || style.foreColor == markColour_)
            style.foreColor = before_[at].fore;
        return true;
    });
    before_.clear();
}

} // namespace tablio
