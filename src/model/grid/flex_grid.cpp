#include "model/grid/flex_grid.h"

#include <algorithm>
#include <utility>

namespace tablio {

FlexGrid::FlexGrid(FlexGridEvents &events) : table(*this), view(table, *this), events_(events) {}

void FlexGrid::setRow(int row) {
    table.checkRow(row, "Row");
    moveTo({row, current_.col});
}

void FlexGrid::setCol(int col) {
    table.checkCol(col, "Col");
    moveTo({current_.row, col});
}

void FlexGrid::stepTo(CellAddress cell) {
    const std::uint64_t before = claims_;
    setRow(cell.row);
    if (before == claims_)
        setCol(cell.col);
}

void FlexGrid::setCell(CellAddress cell) {
    table.checkCell(cell, "current cell");
    moveTo(cell);
}

void FlexGrid::moveTo(CellAddress cell) {
    ++cursorStamp_;
    if (cell == current_)
        return;
    const CellAddress old = current_;
    setCurrentQuietly(cell);
    events_.gridEnterCell();
    if (cell.row != old.row)
        events_.gridRowChange(old.row, cell.row);
}

void FlexGrid::setCurrentQuietly(CellAddress cell) {
    table.checkCell(cell, "current cell");
    if (cell == current_)
        return;
    if (table.hasCell(current_.row, current_.col))
        view.invalidateCell(current_.row, current_.col);
    current_ = cell;
    view.invalidateCell(cell.row, cell.col);
}

void FlexGrid::setFocusRect(int focusRect) {
    if (focusRect == focusRect_)
        return;
    focusRect_ = focusRect;
    if (table.hasCell(current_.row, current_.col))
        view.invalidateCell(current_.row, current_.col);
}

std::string_view FlexGrid::Text() const { return table.TextMatrix(current_.row, current_.col); }

void FlexGrid::setText(std::string_view text) {
    table.setTextMatrix(current_.row, current_.col, text);
}

void FlexGrid::changeCellStyle(const std::function<void(CellStyle &)> &change) {
    CellStyle style = table.cellStyle(current_.row, current_.col);
    change(style);
    table.setCellStyle(current_.row, current_.col, style);
}

Colour FlexGrid::backColorOf(int row, int col) const {
    const GridLook &look = table.look();
    return table.cellStyle(row, col).backColor.value_or(isFixed(row, col) ? look.BackColorFixed
                                                                          : look.BackColor);
}

Colour FlexGrid::foreColorOf(int row, int col) const {
    const GridLook &look = table.look();
    return table.cellStyle(row, col).foreColor.value_or(isFixed(row, col) ? look.ForeColorFixed
                                                                          : look.ForeColor);
}

Font FlexGrid::fontOf(int row, int col) const {
    Font font = table.look().Font;
    table.cellStyle(row, col).dress(font);
    return font;
}

int FlexGrid::alignmentOf(int row, int col) const {
    const int ofColumn = isFixed(row, col) ? table.FixedAlignment(col) : table.ColAlignment(col);
    return table.cellStyle(row, col).alignment.value_or(static_cast<std::int16_t>(ofColumn));
}

bool FlexGrid::isFixed(int row, int col) const noexcept {
    return row < table.FixedRows() || col < table.FixedCols();
}

void FlexGrid::cellChanged(int row, int col) { view.invalidateCell(row, col); }

void FlexGrid::tableChanged() {
    view.tableChanged();
    const CellAddress kept{std::clamp(current_.row, 0, std::max(0, table.Rows() - 1)),
                           std::clamp(current_.col, 0, std::max(0, table.Cols() - 1))};
    const bool wasNowhere = std::exchange(isNowhere_, !table.hasCell(kept.row, kept.col));
    if (isNowhere_) {
        current_ = kept;
    } else if (kept != current_) {
        moveTo(kept);
    } else if (wasNowhere) {
        ++cursorStamp_;
        events_.gridEnterCell();
    }
}

void FlexGrid::looksChanged() { view.invalidateAll(); }

void FlexGrid::areaChanged(const Rect &area) { events_.gridAreaChanged(area); }

void FlexGrid::scrolled() { events_.gridScroll(); }

} // namespace tablio
