#include "model/grid/grid_table.h"

#include <tablio/errors.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace tablio {

namespace {

std::string outside(std::string_view operation, std::string_view what, long value, long from,
                    long to) {
    std::string message(operation);
    message.append(": ").append(what).append(" ").append(std::to_string(value));
    if (to < from)
        return message.append(" does not exist, the grid has none");
    return message.append(" is outside ")
        .append(std::to_string(from))
        .append(" to ")
        .append(std::to_string(to));
}

void checkCount(std::string_view operation, int count, int from, int to) {
    if (count > to)
        throw OverflowError(outside(operation, "count", count, from, to));
    if (count < from)
        throw GridError(outside(operation, "count", count, from, to));
}

void checkSize(std::string_view operation, Twips size) {
    if (size > GridTable::maxSize)
        throw GridError(outside(operation, "size", size, -1, GridTable::maxSize));
}

Twips between(const LineSizes &sizes, int from, int to) {
    constexpr std::int64_t most = std::numeric_limits<Twips>::max() / 2;
    return static_cast<Twips>(std::clamp(sizes.before(to) - sizes.before(from), -most, most));
}

} // namespace

template <typename Change> void GridTable::changeRows(int first, int by, Change change) {
    if (changes_ != nullptr && by > 0)
        changes_->rowsComing(first, by);
    else if (changes_ != nullptr && by < 0)
        changes_->rowsGoing(first, -by);
    change();
    if (changes_ != nullptr && by > 0)
        changes_->rowsCame(first, by);
    else if (changes_ != nullptr && by < 0)
        changes_->rowsWent(first, -by);
    if (changes_ != nullptr)
        tellNumbers(first);
}

template <typename Change> void GridTable::changeAll(Change change) {
    if (changes_ != nullptr)
        changes_->tableChanging();
    change();
    if (changes_ != nullptr)
        changes_->tableChanged();
}

void GridTable::tellNumbers(int fromRow) {
    const std::vector<bool> &cols = numberedCols();
    for (std::size_t col = 0; changes_ != nullptr && col < cols.size(); ++col) {
        const int at = static_cast<int>(col);
        if (cols[col] && fromRow < Rows())
            changes_->cellsChanged({fromRow, at, Rows() - 1, at});
    }
}

GridTable::GridTable(GridTableObserver &observer) : observer_(observer) {
    store_.setRows(2);
    store_.setCols(2);
    columns_.resize(2);
}

void GridTable::checkCells(std::string_view operation, std::int64_t rows, std::int64_t cols) const {
    if (rows * cols > maxCells)
        throw OverflowError(std::string(operation) + ": " + std::to_string(rows) + " rows of " +
                            std::to_string(cols) + " columns are more than " +
                            std::to_string(maxCells) + " cells");
}

void GridTable::checkRowCount(int count) const {
    checkCount("Rows", count, 0, maxRows);
    checkCells("Rows", count, Cols());
}

void GridTable::checkColCount(int count) const {
    checkCount("Cols", count, 0, maxCols);
    checkCells("Cols", Rows(), count);
}

void GridTable::setRows(int count) {
    checkRowCount(count);
    changeRows(std::min(count, Rows()), count - Rows(), [&] {
        store_.setRows(count);
        heights_.cut(count);
    });
    observer_.tableChanged();
}

void GridTable::setCols(int count) {
    checkColCount(count);
    changeAll([&] {
        store_.setCols(count, FixedRows() > 0 ? 1 : 0);
        columns_.resize(std::max(columns_.size(), static_cast<std::size_t>(count)));
    });
    observer_.tableChanged();
}

void GridTable::setFixedRows(int count) {
    checkCount("FixedRows", count, 0, maxRows);
    if (count > Rows())
        throw GridError(outside("FixedRows", "count", count, 0, Rows()));
    changeAll([&] { fixedRows_ = count; });
    observer_.tableChanged();
}

void GridTable::setFixedCols(int count) {
    checkCount("FixedCols", count, 0, maxCols);
    if (count > Cols())
        throw GridError(outside("FixedCols", "count", count, 0, Cols()));
    changeAll([&] { fixedCols_ = count; });
    observer_.tableChanged();
}

void GridTable::AddItem(std::string_view Item) { AddItem(Item, Rows()); }

void GridTable::AddItem(std::string_view Item, int Index) {
    if (Index < FixedRows() || Index > Rows())
        throw GridError(outside("AddItem", "row", Index, FixedRows(), Rows()));
    if (Rows() == maxRows)
        throw OverflowError("AddItem: the grid already has its " + std::to_string(maxRows) +
                            " rows");
    checkCells("AddItem", std::int64_t{Rows()} + 1, Cols());
    giveRow(Index);
    observer_.tableChanged();
    for (int col = 0; !Item.empty() && col < Cols(); ++col) {
        const std::size_t tab = std::min(Item.find('\t'), Item.size());
        setTextMatrix(Index, col, Item.substr(0, tab));
        Item.remove_prefix(std::min(tab + 1, Item.size()));
    }
}

void GridTable::appendRows(int count) {
    if (count > maxRows - Rows())
        throw OverflowError("AddRow: row " + std::to_string(std::int64_t{Rows()} + count - 1) +
                            " does not fit 16 bits");
    checkCells("AddRow", std::int64_t{Rows()} + count, Cols());
    changeRows(Rows(), count, [&] { store_.setRows(Rows() + count); });
    observer_.tableChanged();
}

void GridTable::RemoveItem(int Index) {
    takeRow(Index);
    observer_.tableChanged();
}

void GridTable::replaceRow(int Index, int to) {
    takeRow(Index);
    giveRow(to);
    observer_.tableChanged();
}

void GridTable::takeRow(int row) {
    if (row < FixedRows() || row >= Rows())
        throw GridError(outside("RemoveItem", "row", row, FixedRows(), Rows() - 1));
    changeRows(row, -1, [&] {
        store_.removeRow(row);
        heights_.removeLine(row);
        ++shiftStamp_;
    });
}

void GridTable::giveRow(int row) {
    changeRows(row, 1, [&] {
        if (row < Rows())
            ++shiftStamp_;
        store_.insertRow(row);
        heights_.insertLine(row);
    });
}

void GridTable::Clear() {
    changeAll([&] {
        store_.clear();
        styles_.clear();
        ++shiftStamp_;
    });
    observer_.tableChanged();
}

GridTable::Content GridTable::takeContent() {
    Content taken;
    changeAll([&] {
        taken = {std::exchange(store_, {}), std::exchange(styles_, {})};
        store_.setRows(taken.cells.rows());
        store_.setCols(taken.cells.cols());
        ++shiftStamp_;
    });
    observer_.tableChanged();
    return taken;
}

bool GridTable::setContent(Content content) {
    if (content.cells.rows() != Rows() || content.cells.cols() != Cols())
        return false;
    changeAll([&] {
        store_ = std::move(content.cells);
        styles_ = std::move(content.styles);
        ++shiftStamp_;
    });
    observer_.tableChanged();
    return true;
}

GridTable::Content GridTable::takeBody() {
    store_.settle();
    Content taken = takeContent();
    store_.takeFirstRowTexts(taken.cells);
    return taken;
}

void GridTable::giveBody(Content body) {
    body.cells.setRows(Rows());
    body.cells.setCols(Cols());
    body.cells.takeFirstRowTexts(store_);
    setContent(std::move(body));
}

std::string_view GridTable::TextMatrix(int row, int col) const {
    checkCell({row, col}, "TextMatrix");
    return store_.text(row, col);
}

void GridTable::setTextMatrix(int row, int col, std::string_view text) {
    checkCell({row, col}, "TextMatrix");
    if (changes_ != nullptr)
        return setCell(row, col, text, text);
    store_.setText(row, col, text);
    ++columns_[static_cast<std::size_t>(col)].writes;
    observer_.cellChanged(row, col);
}

void GridTable::setCell(int row, int col, std::string_view text, std::string_view value) {
    checkCell({row, col}, "TextMatrix");
    const bool isTold =
        changes_ != nullptr && (store_.text(row, col) != text || store_.value(row, col) != value);
    if (isTold)
        changes_->cellChanging({row, col});
    store_.setText(row, col, text);
    if (value != text)
        store_.setValue(row, col, value);
    ++columns_[static_cast<std::size_t>(col)].writes;
    if (isTold && changes_ != nullptr)
        changes_->cellChanged({row, col});
    observer_.cellChanged(row, col);
}

void GridTable::setTexts(int row, int col, std::span<const std::string_view> texts) {
    if (texts.empty())
        return;
    const int last = col + static_cast<int>(texts.size()) - 1;
    checkCell({row, col}, "TextMatrix");
    checkCol(last, "TextMatrix");
    if (changes_ != nullptr) {
        for (const std::string_view text : texts)
            setTextMatrix(row, col++, text);
        return;
    }
    store_.setTexts(row, col, texts);
    for (int written = col; written <= last; ++written)
        ++columns_[static_cast<std::size_t>(written)].writes;
}

void GridTable::numberRows(const std::vector<bool> &cols, CellStore::FormerNumbers former) {
    const int first = FixedRows();
    const int end = std::min(Rows(), first + RowNumbers::greatest);
    const bool isNumbered = std::find(cols.begin(), cols.end(), true) != cols.end();
    if (store_.numberRows(isNumbered ? cols : std::vector<bool>(), first, end, former))
        observer_.looksChanged();
    tellNumbers(first);
    if (isNumbered && end < Rows())
        throw OverflowError("row number: " + std::to_string(Rows() - first) +
                            " does not fit 16 bits");
}

void GridTable::keepNumbersOnly(const std::vector<bool> &cols) {
    const RowNumbers &now = store_.numbers();
    std::vector<bool> kept = now.cols;
    for (std::size_t col = 0; col < kept.size(); ++col)
        kept[col] = kept[col] && col < cols.size() && cols[col];
    if (kept == now.cols)
        return;
    const bool isNumbered = std::find(kept.begin(), kept.end(), true) != kept.end();
    store_.numberRows(isNumbered ? std::move(kept) : std::vector<bool>(), now.first, now.end);
}

void GridTable::wipeCol(int col) {
    checkCol(col, "TextMatrix");
    changeAll([&] { store_.wipeCol(col, FixedRows()); });
    ++columns_[static_cast<std::size_t>(col)].writes;
    observer_.looksChanged();
}

std::string_view GridTable::CellData(int row, int col) const {
    checkCell({row, col}, "TextMatrix");
    return store_.value(row, col);
}

const CellStyle &GridTable::cellStyle(int row, int col) const {
    checkCell({row, col}, "cell style");
    return styles_[store_.style(row, col)];
}

void GridTable::setCellStyle(int row, int col, const CellStyle &style) {
    checkCell({row, col}, "cell style");
    tidyStyles();
    store_.setStyle(row, col, styles_.intern(style));
    observer_.cellChanged(row, col);
}

void GridTable::tidyStyles() {
    if (!styles_.isCrowded())
        return;
    std::vector<bool> used(styles_.size());
    store_.markStyles(used);
    styles_.keep(used);
}

StyleId GridTable::withBackground(StyleId style, Colour background) {
    CellStyle look = styles_[style];
    look.backColor = background;
    return styles_.intern(look);
}

void GridTable::paintStripes(int lastRow, int firstCol, Colour oddRows, Colour evenRows) {
    const int end = std::min(lastRow + 1, Rows());
    if (end <= 1 || firstCol >= Cols())
        return;
    checkCol(firstCol, "CellBackColor");
    tidyStyles();
    const Stripes::Looks looks{firstCol, Cols(), withBackground(plainStyle, oddRows),
                               withBackground(plainStyle, evenRows)};
    store_.paintStripes(end, looks, [&](StyleId style, bool isOdd) {
        return withBackground(style, isOdd ? oddRows : evenRows);
    });
    observer_.looksChanged();
}

Twips GridTable::RowHeight(int row) const {
    checkRow(row, "RowHeight");
    return heights_.of(row);
}

Twips GridTable::heightOfRows(int from, int to) const { return between(heights_, from, to); }

Twips GridTable::widthOfCols(int from, int to) const { return between(widths_, from, to); }

void GridTable::setRowHeight(int row, Twips height) {
    checkRow(row, "RowHeight");
    checkSize("RowHeight", height);
    heights_.set(row, height);
    observer_.tableChanged();
}

void GridTable::setRowHeightMin(Twips height) {
    if (height < 0)
        throw GridError("RowHeightMin: " + std::to_string(height) + " twips is below 0");
    checkSize("RowHeightMin", height);
    heights_.setMinimum(height);
    observer_.tableChanged();
}

void GridTable::setColWidth(int col, Twips width) {
    checkCol(col, "ColWidth");
    checkSize("ColWidth", width);
    widths_.set(col, width);
    observer_.tableChanged();
}

void GridTable::forgetColWidth(int col) {
    widths_.set(col, -1);
    observer_.tableChanged();
}

int GridTable::ColAlignment(int col) const { return column(col, "ColAlignment").alignment; }

void GridTable::setColAlignment(int col, int alignment) {
    column(col, "ColAlignment").alignment = static_cast<std::int16_t>(alignment);
    observer_.tableChanged();
}

int GridTable::FixedAlignment(int col) const {
    return column(col, "FixedAlignment").fixedAlignment;
}

void GridTable::setFixedAlignment(int col, int alignment) {
    column(col, "FixedAlignment").fixedAlignment = static_cast<std::int16_t>(alignment);
    observer_.tableChanged();
}

void GridTable::setLook(const GridLook &look) {
    look_ = look;
    observer_.tableChanged();
}

void GridTable::refuse(std::string_view operation, std::string_view what, int index, int count) {
    throw GridError(outside(operation, what, index, 0, count - 1));
}

const GridTable::Column &GridTable::column(int col, std::string_view operation) const {
    checkCol(col, operation);
    return columns_[static_cast<std::size_t>(col)];
}

GridTable::Column &GridTable::column(int col, std::string_view operation) {
    checkCol(col, operation);
    return columns_[static_cast<std::size_t>(col)];
}

} // namespace tablio
