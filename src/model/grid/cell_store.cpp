#include "model/grid/cell_store.h"

#include <unordered_set>

namespace tablio {

namespace {

/// Stands for an unformatted value that is empty, which is not the same as none.
constexpr std::string_view emptyValue("\0", 1);

template <typename T> bool has(const std::vector<T> &list, int index) noexcept {
    return static_cast<std::size_t>(index) < list.size();
}

/// The entry, made when the list is still too short; the whole row is made at once, since who
/// writes one cell of a row usually writes them all.
template <typename T> T &made(std::vector<T> &list, int index, int count) {
    if (!has(list, index)) {
        list.reserve(static_cast<std::size_t>(count));
        list.resize(static_cast<std::size_t>(count));
    }
    return list[static_cast<std::size_t>(index)];
}

/// Makes room for a column, or closes the gap that one leaves.
template <typename T> void shift(std::vector<T> &list, int index, int by) {
    if (by > 0 && list.size() > static_cast<std::size_t>(index))
        list.emplace(list.begin() + index);
    else if (by < 0 && has(list, index))
        list.erase(list.begin() + index);
}

template <typename T> void cut(std::vector<T> &list, int count) {
    if (list.size() > static_cast<std::size_t>(count))
        list.resize(static_cast<std::size_t>(count));
}

} // namespace

void CellStore::setCols(int count, int keeping) {
    if (count < cols_) {
        for (Row &row : rows_) {
            if (keeping-- <= 0)
                cut(row.texts, count);
            if (row.values)
                cut(*row.values, count);
            // Whichever row comes first cuts the list for all that share it.
            if (row.styles)
                cut(*row.styles, count);
        }
    }
    cols_ = count;
}

void CellStore::insertRow(int row) { rows_.emplace(rows_.begin() + row); }

void CellStore::removeRow(int row) { rows_.erase(rows_.begin() + row); }

void CellStore::shiftStyles(int col, int by) {
    std::unordered_set<const RowStyles *> done;
    for (Row &row : rows_) {
        if (row.styles && done.insert(row.styles.get()).second)
            shift(*row.styles, col, by);
    }
}

void CellStore::insertCol(int col, ColumnCells cells) {
    for (Row &row : rows_) {
        shift(row.texts, col, 1);
        if (row.values)
            shift(*row.values, col, 1);
    }
    shiftStyles(col, 1);
    ++cols_;
    for (ColumnCell &cell : cells) {
        if (cell.row >= rows())
            continue;
        Row &row = at(cell.row);
        if (!cell.text.empty())
            made(row.texts, col, cols_) = std::move(cell.text);
        if (!cell.value.empty()) {
            if (!row.values)
                row.values = std::make_unique<Texts>();
            made(*row.values, col, cols_) = std::move(cell.value);
        }
        setStyle(cell.row, col, cell.style);
    }
}

CellStore::ColumnCells CellStore::takeCol(int col) {
    const auto at = static_cast<std::size_t>(col);
    ColumnCells taken;
    for (int index = 0; index < rows(); ++index) {
        Row &row = this->at(index);
        ColumnCell cell{index, {}, {}, style(index, col)};
        if (has(row.texts, col))
            cell.text = std::move(row.texts[at]);
        if (row.values && has(*row.values, col))
            cell.value = std::move((*row.values)[at]);
        shift(row.texts, col, -1);
        if (row.values)
            shift(*row.values, col, -1);
        if (!cell.text.empty() || !cell.value.empty() || cell.style != plainStyle)
            taken.push_back(std::move(cell));
    }
    shiftStyles(col, -1);
    --cols_;
    return taken;
}

void CellStore::setFirstRowTexts(const CellStore &from) {
    if (!rows_.empty() && !from.rows_.empty())
        rows_.front().texts = from.rows_.front().texts;
}

void CellStore::clear() {
    for (Row &row : rows_) {
        row.texts = {};
        row.values.reset();
        row.styles.reset();
    }
}

std::string_view CellStore::text(int row, int col) const noexcept {
    const Row &held = at(row);
    return has(held.texts, col) ? held.texts[static_cast<std::size_t>(col)].view()
                                : std::string_view();
}

void CellStore::setText(int row, int col, std::string_view text) {
    Row &held = at(row);
    if (!text.empty() || has(held.texts, col))
        made(held.texts, col, cols_).assign(text);
    if (held.values && has(*held.values, col))
        (*held.values)[static_cast<std::size_t>(col)].assign({});
}

std::string_view CellStore::value(int row, int col) const noexcept {
    const Row &held = at(row);
    if (held.values && has(*held.values, col)) {
        const CompactText &value = (*held.values)[static_cast<std::size_t>(col)];
        if (!value.empty())
            return value.view() == emptyValue ? std::string_view() : value.view();
    }
    return text(row, col);
}

void CellStore::setValue(int row, int col, std::string_view value) {
    std::unique_ptr<Texts> &values = at(row).values;
    if (value == text(row, col))
        value = {};
    else if (value.empty())
        value = emptyValue;
    if (!values && !value.empty())
        values = std::make_unique<Texts>();
    if (!value.empty() || (values && has(*values, col)))
        made(*values, col, cols_).assign(value);
}

StyleId CellStore::style(int row, int col) const noexcept {
    const std::shared_ptr<RowStyles> &styles = at(row).styles;
    return styles && has(*styles, col) ? (*styles)[static_cast<std::size_t>(col)] : plainStyle;
}

void CellStore::setStyle(int row, int col, StyleId style) {
    if (style == this->style(row, col))
        return;
    std::shared_ptr<RowStyles> &styles = at(row).styles;
    if (!styles)
        styles = std::make_shared<RowStyles>();
    else if (styles.use_count() > 1)
        styles = std::make_shared<RowStyles>(*styles);
    made(*styles, col, cols_) = style;
}

} // namespace tablio
