#include "model/grid/cell_store.h"

#include "model/text/trim.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace tablio {

namespace {

/// Stands for an unformatted value that is empty, which is not the same as none.
constexpr std::string_view emptyValue("\0", 1);

} // namespace

void CellStore::setRows(int count) {
    rows_.resize(count);
    numbers_.cut(count, cols_);
    overwritten_.cut(count);
    stripes_.cutRows(count);
    styled_.cut(count);
    filledEnd_ = std::min(filledEnd_, count);
}

void CellStore::insertRow(int row) {
    rows_.insert(row);
    numbers_.insertRow(row);
    overwritten_.insertRow(row);
    stripes_.insertRow(row);
    styled_.insertRow(row);
    filledEnd_ += row < filledEnd_ ? 1 : 0;
}

void CellStore::removeRow(int row) {
    rows_.erase(row);
    numbers_.removeRow(row);
    overwritten_.removeRow(row);
    stripes_.removeRow(row);
    styled_.removeRow(row);
    filledEnd_ -= row < filledEnd_ ? 1 : 0;
}

void CellStore::clear() {
    rows_.wipe();
    numbers_ = {};
    overwritten_ = styled_ = {};
    stripes_ = {};
    filledEnd_ = valuesEnd_ = 0;
}

void CellStore::setTexts(int row, int col, std::span<const std::string_view> texts) {
    GridRow &held = rows_[row];
    const bool isNumbered = !numbers_.cols.empty() && row >= numbers_.first && row < numbers_.end;
    if (held.values || isNumbered) {
        for (const std::string_view text : texts)
            setText(held, row, col++, text);
        return;
    }
    const int end = col + static_cast<int>(texts.size());
    if (filledCol_ >= col && filledCol_ < end)
        filledEnd_ = std::max(filledEnd_, row + 1);
    while (!texts.empty()) {
        const std::span<CompactText> room = held.texts.madeFrom(col, cols_);
        const std::size_t count = std::min(room.size(), texts.size());
        for (std::size_t at = 0; at < count; ++at)
            room[at].assign(texts[at]);
        texts = texts.subspan(count);
        col += static_cast<int>(count);
    }
}

void CellStore::wipe(GridRow &held, int col) {
    if (CompactText *const own = held.texts.find(col))
        *own = CompactText();
    if (held.values)
        forgetValue(held, col);
}

void CellStore::wipeCol(int col, int first) {
    for (int row = first; row < rows(); ++row)
        wipe(rows_[row], col);
}

void CellStore::forgetValue(GridRow &held, int col) {
    if (CompactText *const value = held.values->find(col))
        value->assign({});
}

std::string_view CellStore::value(int row, int col) const noexcept {
    const std::unique_ptr<TextRow> &values = rows_[row].values;
    const CompactText *const value = values ? values->find(col) : nullptr;
    if (value != nullptr && !value->empty())
        return value->view() == emptyValue ? std::string_view() : value->view();
    return text(row, col);
}

void CellStore::setValue(int row, int col, std::string_view value) {
    std::unique_ptr<TextRow> &values = rows_[row].values;
    if (value == text(row, col)) {
        if (CompactText *const own = values ? values->find(col) : nullptr)
            own->assign({});
        return;
    }
    if (!values)
        values = std::make_unique<TextRow>();
    valuesEnd_ = std::max(valuesEnd_, col + 1);
    values->made(col, valuesEnd_).assign(value.empty() ? emptyValue : value);
}

int CellStore::lastFilled(int col, int last) const {
    if (col != filledCol_) {
        filledCol_ = col;
        filledEnd_ = rows();
    }
    const bool isWhole = last >= filledEnd_ - 1;
    int row = std::min(last, filledEnd_ - 1);
    while (row >= 1 && trimmed(text(row, col)).empty())
        --row;
    if (isWhole)
        filledEnd_ = row + 1;
    return std::max(row, 0);
}

bool CellStore::numberRows(std::vector<bool> cols, int first, int end, FormerNumbers former) {
    RowNumbers before = std::exchange(numbers_, {std::move(cols), first, end});
    if (before.cols.empty() && numbers_.cols.empty())
        return false;
    const bool isSame = before.cols == numbers_.cols && before.first == first && before.end <= end;
    const auto renumberAll = [&](int from, int to) {
        for (int row = from; row < to; ++row)
            renumber(row, before);
        return from < to;
    };
    bool isChanged = false;
    if (isSame) {
        const RowRange overwritten = overwritten_;
        isChanged = renumberAll(overwritten.first, overwritten.end);
        isChanged = renumberAll(before.end, end) || isChanged;
    } else {
        if (former == FormerNumbers::Vanish)
            before.cols.clear();
        isChanged = renumberAll(0, rows());
    }
    overwritten_ = {};
    if (numbers_.hasCol(filledCol_))
        filledEnd_ = std::max(filledEnd_, end);
    return isChanged;
}

void CellStore::renumber(int row, const RowNumbers &before) {
    const GridRow &seen = std::as_const(rows_)[row];
    const bool hadNumbers = row >= before.first && row < before.end && !before.cols.empty();
    if (!hadNumbers && !seen.texts.hasAny() && !seen.values)
        return;
    GridRow &held = rows_[row];
    const auto cols = static_cast<int>(std::max(before.cols.size(), numbers_.cols.size()));
    for (int col = 0; col < cols; ++col) {
        if (numbers_.has(row, col)) {
            wipe(held, col);
        } else if (before.has(row, col)) {
            CompactText &own = held.texts.made(col, cols_);
            if (own.empty())
                own.assign(before.textOf(row));
            else if (own.view().empty())
                own.assign({});
        }
    }
}

void CellStore::overwriteNumber(GridRow &held, int row, int col) {
    CompactText &own = held.texts.made(col, cols_);
    if (own.view().empty())
        own.assignBlank();
    overwritten_.add(row);
}

StyleId CellStore::style(int row, int col) const noexcept {
    const std::shared_ptr<RowStyles> &styles = rows_[row].styles;
    if (!styles)
        return stripes_.at(row, col);
    const auto at = static_cast<std::size_t>(col);
    return at < styles->size() ? (*styles)[at] : plainStyle;
}

void CellStore::setStyle(int row, int col, StyleId style) {
    if (style == this->style(row, col))
        return;
    std::shared_ptr<RowStyles> &styles = rows_[row].styles;
    if (!styles) {
        styles = std::make_shared<RowStyles>(stripesOf(row));
        if (row > 0)
            styled_.add(row);
    } else if (styles.use_count() > 1) {
        styles = std::make_shared<RowStyles>(*styles);
    }
    const auto at = static_cast<std::size_t>(col);
    if (at >= styles->size())
        styles->resize(static_cast<std::size_t>(cols_));
    (*styles)[at] = style;
}

RowStyles CellStore::stripesOf(int row) const {
    RowStyles result;
    result.reserve(static_cast<std::size_t>(cols_));
    const StyleId look = stripes_.of(row);
    if (look == plainStyle)
        return result;
    result.resize(static_cast<std::size_t>(stripes_.looks().endCol));
    std::fill(result.begin() + std::min(stripes_.looks().firstCol, stripes_.looks().endCol),
              result.end(), look);
    return result;
}

void CellStore::settleStripes() {
    std::array<std::pair<StyleId, std::shared_ptr<RowStyles>>, 2> lists;
    for (int row = 1; row < stripes_.end(); ++row) {
        const StyleId look = stripes_.of(row);
        if (look == plainStyle || rows_[row].styles)
            continue;
        auto &[known, list] = lists[look == stripes_.looks().odd ? 1 : 0];
        if (!list || known != look) {
            known = look;
            list = std::make_shared<RowStyles>(stripesOf(row));
        }
        rows_[row].styles = list;
        styled_.add(row);
    }
    stripes_.clear();
}

void CellStore::paintStripes(int end, const Stripes::Looks &looks,
                             const std::function<StyleId(StyleId, bool)> &painted) {
    // Older stripes beside or below the new ones stay.
    if (stripes_.end() > end || (!stripes_.isEmpty() && stripes_.looks().firstCol < looks.firstCol))
        settleStripes();
    stripes_.paint(end, looks);
    struct Answer {
        std::shared_ptr<RowStyles> from;
        std::shared_ptr<RowStyles> to;
    };
    // Rows that looked alike will look alike, so the answer for one serves the next like it.
    std::array<Answer, 2> answers;
    RowRange styled;
    for (int row = styled_.first; row < styled_.end; ++row) {
        std::shared_ptr<RowStyles> &styles = rows_[row].styles;
        if (!styles)
            continue;
        const bool isOdd = row % 2 != 0;
        Answer &answer = answers[isOdd ? 1 : 0];
        const bool isKnown = answer.from && (styles == answer.from || *styles == *answer.from);
        if (row < end && !isKnown) {
            RowStyles list(*styles);
            list.resize(static_cast<std::size_t>(cols_));
            std::optional<StyleId> known;
            StyleId changed = plainStyle;
            for (auto style = list.begin() + looks.firstCol; style != list.end(); ++style) {
                if (*style != known)
                    changed = painted(*(known = *style), isOdd);
                *style = changed;
            }
            answer = {styles, list == stripesOf(row)
                                  ? nullptr
                                  : std::make_shared<RowStyles>(std::move(list))};
        }
        if (row < end)
            styles = answer.to;
        if (styles)
            styled.add(row);
    }
    styled_ = styled;
}

void CellStore::markStyles(std::vector<bool> &used) const {
    const auto mark = [&](int row) {
        if (const std::shared_ptr<RowStyles> &styles = rows_[row].styles) {
            for (const StyleId style : *styles)
                used[style] = true;
        }
    };
    if (rows() > 0)
        mark(0);
    for (int row = styled_.first; row < styled_.end; ++row)
        mark(row);
    used[stripes_.looks().odd] = used[stripes_.looks().even] = true;
}

} // namespace tablio
