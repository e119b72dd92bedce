/// Columns of a `CellStore` that come and go.

#include "model/grid/cell_store.h"

#include <unordered_set>
#include <utility>

namespace tablio {

namespace {

void shift(RowStyles &list, int col, int by) {
    if (list.size() <= static_cast<std::size_t>(col))
        return;
    if (by > 0)
        list.emplace(list.begin() + col);
    else
        list.erase(list.begin() + col);
}

CompactText taken(TextRow &texts, int col) {
    CompactText result;
    if (CompactText *const text = texts.find(col))
        result = std::move(*text);
    texts.erase(col);
    return result;
}

} // namespace

void CellStore::setCols(int count, int keeping) {
    if (count < cols_) {
        for (int index = 0; index < rows(); ++index) {
            GridRow &row = rows_[index];
            if (index >= keeping)
                row.texts.cut(count);
            if (row.values)
                row.values->cut(count);
            // Whichever row comes first cuts the list for all that share it.
            if (row.styles && row.styles->size() > static_cast<std::size_t>(count))
                row.styles->resize(static_cast<std::size_t>(count));
        }
    }
    cols_ = count;
    numbers_.cut(rows(), count);
    stripes_.cutCols(count);
}

void CellStore::settle() {
    numberRows({}, 0, 0);
    settleStripes();
}

void CellStore::takeFirstRowTexts(CellStore &from) {
    if (rows() > 0 && from.rows() > 0)
        rows_[0].texts = std::move(from.rows_[0].texts);
}

void CellStore::shiftStyles(int col, int by) {
    std::unordered_set<const RowStyles *> done;
    for (int row = 0; row < rows(); ++row) {
        const std::shared_ptr<RowStyles> &styles = rows_[row].styles;
        if (styles && done.insert(styles.get()).second)
            shift(*styles, col, by);
    }
}

void CellStore::insertCol(int col, ColumnCells cells) {
    for (int index = 0; index < rows(); ++index) {
        GridRow &row = rows_[index];
        row.texts.insert(col);
        if (row.values)
            row.values->insert(col);
    }
    shiftStyles(col, 1);
    ++cols_;
    filledEnd_ = rows();
    for (ColumnCell &cell : cells) {
        if (cell.row >= rows())
            continue;
        GridRow &row = rows_[cell.row];
        if (!cell.text.empty())
            row.texts.made(col, cols_) = std::move(cell.text);
        if (!cell.value.empty()) {
            if (!row.values)
                row.values = std::make_unique<TextRow>();
            row.values->made(col, cols_) = std::move(cell.value);
        }
        setStyle(cell.row, col, cell.style);
    }
}

CellStore::ColumnCells CellStore::takeCol(int col) {
    ColumnCells result;
    for (int index = 0; index < rows(); ++index) {
        GridRow &row = rows_[index];
        const StyleId look = style(index, col);
        ColumnCell cell{index, taken(row.texts, col), {}, look};
        if (row.values)
            cell.value = taken(*row.values, col);
        if (!cell.text.empty() || !cell.value.empty() || look != plainStyle)
            result.push_back(std::move(cell));
    }
    shiftStyles(col, -1);
    --cols_;
    filledEnd_ = rows();
    return result;
}

} // namespace tablio
