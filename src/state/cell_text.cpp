#include "state/cell_text.h"

#include "model/text/date_text.h"
#include "model/text/number_text.h"

#include <tablio/errors.h>
#include <tablio/members.h>

namespace tablio {

std::string CellText::read(int row, int col) const {
    const GridTable &table = state_.grid.table;
    const std::string_view shown = table.TextMatrix(row, col);
    if (!state_.columns.isNumeric(col))
        return std::string(shown);
    const std::string_view given = row < 1 ? shown : table.CellData(row, col);
    const NumberFormat signs = state_.link.face().numberFormat();
    return textToDecimal(given, signs).plainText(signs);
}

void CellText::show(int row, int col, std::string_view value) {
    GridTable &table = state_.grid.table;
    // Where there is no such cell, writing its text says so.
    if (!table.hasCell(row, col) || state_.columns.ColFormat(col).empty()) {
        table.setTextMatrix(row, col, value);
        return;
    }
    const std::string given(value);
    if (state_.columns.isNumeric(col))
        table.setCell(row, col, shownNumber(col, state_.columns.ColFormat(col), given), given);
    else
        table.setCell(row, col, formatted(col, given), given);
}

std::string_view CellText::shownNumber(int col, const std::string &picture,
                                       std::string_view value) const {
    const auto at = static_cast<std::size_t>(col);
    if (at >= showers_.size())
        showers_.resize(at + 1);
    std::optional<NumberShower> &shower = showers_[at];
    if (!shower || shower->picture() != picture)
        shower.emplace(picture);
    return shower->shown(value, state_.link.face().numberFormat());
}

void CellText::write(int row, int col, std::string_view value) {
    show(row, col, value);
    state_.link.propertyChanged(Number::TextMatrix);
}

int CellText::rowsOfBlock(CellAddress first, int cols, std::size_t values) const {
    const GridTable &table = state_.grid.table;
    table.checkCol(first.col, "block of texts");
    if (cols < 1 || cols > table.Cols() - first.col)
        throw GridError("block of texts: " + std::to_string(cols) + " columns from column " +
                        std::to_string(first.col) + " on are not in the grid");
    const std::size_t rows = values / static_cast<std::size_t>(cols);
    if (rows * static_cast<std::size_t>(cols) != values)
        throw GridError("block of texts: " + std::to_string(values) +
                        " texts are no whole rows of " + std::to_string(cols));
    if (rows > GridTable::maxRows)
        throw OverflowError("block of texts: " + std::to_string(rows) + " rows do not fit 16 bits");
    return static_cast<int>(rows);
}

void CellText::writeBlock(CellAddress first, int cols, std::span<const std::string_view> values) {
    const int rows = rowsOfBlock(first, cols, values.size());
    if (rows == 0)
        return;
    state_.grid.table.checkRow(first.row, "block of texts");
    state_.grid.table.checkRow(first.row + rows - 1, "block of texts");
    {
        const RepaintOnce repaintOnce(state_.grid);
        bool hasFormats = false;
        for (int col = first.col; col < first.col + cols; ++col)
            hasFormats = hasFormats || !state_.columns.ColFormat(col).empty();
        const auto width = static_cast<std::size_t>(cols);
        for (int row = first.row; !values.empty(); ++row, values = values.subspan(width)) {
            if (!hasFormats)
                state_.grid.table.setTexts(row, first.col, values.first(width));
            for (std::size_t at = 0; hasFormats && at < width; ++at)
                show(row, first.col + static_cast<int>(at), values[at]);
        }
        state_.grid.table.cellsChanged();
    }
    state_.link.propertyChanged(Number::TextMatrix);
}

CellContent CellText::content(CellAddress cell) const {
    const GridTable &table = state_.grid.table;
    return {std::string(table.TextMatrix(cell.row, cell.col)),
            std::string(table.CellData(cell.row, cell.col))};
}

void CellText::putBack(CellAddress cell, const CellContent &content) {
    state_.grid.table.setCell(cell.row, cell.col, content.shown, content.value);
}

std::string CellText::formatted(int col, std::string_view value) const {
    const std::string &picture = state_.columns.ColFormat(col);
    if (picture.empty())
        return std::string(value);
    if (state_.columns.isNumeric(col))
        return std::string(shownNumber(col, picture, value));
    if (state_.columns.ColEditType(col) == TColumnType::ColumnDate) {
        if (IsBlankDate(value))
            return DateToText(noDate);
        // A leap day that only this control knows stays as it was entered.
        if (IsDateInvalid(value) || picture == dateEditMask)
            return std::string(value);
        return formatDate(TextToDate(value), picture);
    }
    return std::string(value);
}

} // namespace tablio
