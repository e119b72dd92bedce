#include "rows/row_stock.h"

#include "model/text/ascii.h"
#include "model/text/trim.h"
#include "model/text/utf16.h"

#include <tablio/errors.h>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace tablio {

namespace {

bool isAscii(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

/// The text in lower case, in a buffer that is used again for each row.
void lowerInto(std::string &result, std::string_view text, const Face &face) {
    result.clear();
    if (isAscii(text)) {
        for (const char character : text)
            result += ascii::lower(character);
        return;
    }
    for (const char32_t character : utf16::characters(text))
        utf16::append(result, face.toLower(character));
}

} // namespace

void RowStock::append(int count) {
    GridTable &table = state_.grid.table;
    const RepaintOnce repaintOnce(state_.grid);
    const int first = table.Rows();
    table.appendRows(count);
    for (int row = first; row < table.Rows() && !CellTag_->isEmpty(); ++row)
        forgetTags(row);
    number();
}

void RowStock::setRows(int count) {
    state_.grid.table.setRows(count);
    CellTag_->removeRowsFrom(count);
}

void RowStock::forgetTags(int row) {
    for (int col = 0; col < state_.grid.table.Cols() && !CellTag_->isEmpty(); ++col)
        CellTag_->remove(row, col);
}

void RowStock::add() {
    GridTable &table = state_.grid.table;
    table.checkCol(state_.settings.PrimaryColumn, "AddRow");
    const int last = state_.lastDataRow() + 1;
    if (last < 0 || last > table.Rows())
        table.checkRow(last, "AddRow");
    append();
    bringCursorTo({state_.lastDataRow(), state_.settings.PrimaryColumn});
    followByStripes();
    state_.link.TableChange();
}

void RowStock::followByStripes() {
    if (state_.rules().repaintsStripes)
        appearance_.repaintStripes();
}

std::optional<int> RowStock::takeMark() {
    const int row = marker_.isMarked() ? marker_.MarkRow() : -1;
    const std::uint64_t before = state_.grid.table.shiftStamp();
    const std::uint64_t claims = state_.grid.claims();
    marker_.toggle();
    if (claims != state_.grid.claims())
        return std::nullopt;
    // A handler that moved rows meanwhile: the row that was meant is not to be found any more.
    return before == state_.grid.table.shiftStamp() ? row : -1;
}

void RowStock::insertAtMark() {
    GridTable &table = state_.grid.table;
    const bool isFull = table.Rows() == GridTable::maxRows;
    if (isFull && marker_.isMarked()) {
        const int count = filledRows();
        if (marker_.MarkRow() <= count && count >= state_.lastDataRow())
            throw OverflowError("InsertRow: the grid already has its " +
                                std::to_string(GridTable::maxRows) + " rows");
    }
    int row = -1;
    {
        const StatusOff statusOff(state_);
        const std::optional<int> marked = takeMark();
        if (!marked)
            return;
        row = *marked;
        state_.setStatusCell(false);
        const int count = filledRows();
        if (row <= count) {
            table.keepNumbersOnly(numberedCols());
            const int spare = state_.lastDataRow();
            // A full table gives its spare row before it takes the new one.
            const bool spareFirst = isFull && row >= table.FixedRows() && count < spare;
            if (spareFirst)
                table.replaceRow(spare, row);
            else
                table.AddItem("", row);
            CellTag_->shiftRows(row, 1, firstTaggedCol());
            const int spareNow = spareFirst ? spare + 1 : state_.lastDataRow();
            if (spareFirst || table.Rows() > filledRows() + 1) {
                CellTag_->shiftRows(spareNow, -1, firstTaggedCol());
                if (!spareFirst)
                    table.RemoveItem(spareNow);
            }
        }
    }
    finishMove(row);
}

void RowStock::removeMarked() {
    GridTable &table = state_.grid.table;
    int row = -1;
    {
        const StatusOff statusOff(state_);
        const std::optional<int> marked = takeMark();
        if (!marked)
            return;
        row = *marked;
        state_.setStatusCell(false);
        if (row < table.FixedRows() || row >= table.Rows())
            table.RemoveItem(row); // Says what is wrong with it.
        // The row's own values go, the rows below move up.
        CellTag_->shiftRows(row, -1, firstTaggedCol());
        table.keepNumbersOnly(numberedCols());
        table.replaceRow(row, table.Rows() - 1);
        const int last = filledRows();
        if (row > last)
            row = last + 1;
    }
    finishMove(row);
}

void RowStock::finishMove(int row) {
    RenumberFixedColumns();
    bringCursorTo({row, state_.settings.PrimaryColumn});
    state_.grid.setFocusRect(2);
    followByStripes();
    state_.link.TableChange();
}

void RowStock::reset(int row) {
    FlexGrid &grid = state_.grid;
    {
        const RedrawOff redrawOff(grid);
        for (int col = 0; col < grid.table.Cols(); ++col) {
            if (isNumbered(col))
                continue;
            grid.table.setTextMatrix(row, col, "");
            CellTag_->remove(row, col);
        }
        const std::uint64_t claims = grid.claims();
        grid.setCol(state_.settings.PrimaryColumn);
        if (claims == grid.claims())
            grid.setRow(row);
    }
    grid.view.ensureVisible(grid.Row(), grid.Col());
}

void RowStock::clear() {
    FlexGrid &grid = state_.grid;
    cleared_.reset();
    const bool isCareful = state_.rules().clearsWithCare;
    if (isCareful)
        marker_.forget();
    {
        const RedrawOff redrawOff(grid);
        {
            const Temporarily clearing(IsClearing_, true);
            const auto told = state_.changes.clearing();
            struct Header {
                std::string text;
                std::optional<Colour> foreColor;
                std::optional<Colour> backColor;
            };
            std::vector<Header> headers;
            const int cols = grid.table.Rows() > 0 ? grid.table.Cols() : 0;
            for (int col = 0; col < cols; ++col) {
                const CellStyle &style = grid.table.cellStyle(0, col);
                headers.push_back({std::string(trimmed(grid.table.TextMatrix(0, col))),
                                   style.foreColor, style.backColor});
            }
            if (isCareful)
                cleared_ = Cleared{grid.table.takeContent(), CellTag_};
            else
                grid.table.Clear();
            for (int col = 0; col < cols; ++col) {
                const Header &header = headers[static_cast<std::size_t>(col)];
                grid.table.setTextMatrix(0, col, header.text);
                CellStyle style;
                style.foreColor = header.foreColor;
                style.backColor = header.backColor;
                if (state_.settings.HeaderFontBold && !grid.table.look().Font.bold)
                    style.fontBold = true;
                grid.table.setCellStyle(0, col, style);
            }
        }
        RenumberFixedColumns();
    }
    CellTag_ = std::make_shared<TMatrix>();
    if (cleared_) {
        cleared_->writes = writes();
        cleared_->shiftStamp = grid.table.shiftStamp();
    }
    // The column first, as the host hears it.
    const std::uint64_t claims = grid.claims();
    grid.setCol(state_.firstColumn());
    if (claims == grid.claims())
        bringCursorTo({grid.table.FixedRows(), grid.Col()});
    if (grid.table.FixedRows() < grid.table.Rows())
        grid.view.setTopRow(grid.table.FixedRows());
    state_.link.TableChange();
    appearance_.repaintStripes();
}

bool RowStock::undoClear() {
    FlexGrid &grid = state_.grid;
    std::optional<Cleared> cleared = std::exchange(cleared_, std::nullopt);
    if (!cleared || cleared->writes != writes() || cleared->shiftStamp != grid.table.shiftStamp() ||
        !grid.table.setContent(std::move(cleared->content)))
        return false;
    CellTag_ = std::move(cleared->tags);
    RenumberFixedColumns();
    state_.link.TableChange();
    return true;
}

std::uint64_t RowStock::writes() const {
    std::uint64_t sum = 0;
    for (int col = 0; col < state_.grid.table.Cols(); ++col)
        sum += state_.grid.table.columnWrites(col);
    return sum;
}

void RowStock::setCellTag(std::shared_ptr<TMatrix> tags) {
    CellTag_ = tags ? std::move(tags) : std::make_shared<TMatrix>();
}

int RowStock::firstTaggedCol() const noexcept { return state_.settings.WithFixedColumn ? 1 : 0; }

int RowStock::dataCount() const {
    state_.link.letPendingEventsRun();
    return state_.link.isClosed() ? 0 : filledRows();
}

int RowStock::filledRows() const {
    return state_.grid.table.lastFilledRow(state_.settings.PrimaryColumn, state_.lastDataRow());
}

int RowStock::findDuplicate(int row) const {
    const GridTable &table = state_.grid.table;
    const Face &face = state_.link.face();
    const int col = state_.settings.PrimaryColumn;
    std::string key;
    lowerInto(key, trimmed(table.TextMatrix(row, col)), face);
    const RedrawOff redrawOff(state_.grid);
    const int last = dataCount();
    std::string other;
    for (int candidate = 1; candidate <= last && table.hasCell(candidate, col); ++candidate) {
        if (candidate == row)
            continue;
        lowerInto(other, trimmed(table.TextMatrix(candidate, col)), face);
        if (other == key)
            return candidate;
    }
    return -1;
}

bool RowStock::isNumbered(int col) const {
    return state_.columns.ColStyle(col) == TColumnStyle::ColumnFixedWithAutoNumber;
}

std::vector<bool> RowStock::numberedCols() const {
    std::vector<bool> cols(static_cast<std::size_t>(state_.grid.table.Cols()));
    for (std::size_t col = 0; col < cols.size(); ++col)
        cols[col] = isNumbered(static_cast<int>(col));
    return cols;
}

void RowStock::RenumberFixedColumns() {
    const std::vector<bool> cols = numberedCols();
    std::vector<int> blanked;
    for (int col = 0; PageEditing_ && col < state_.grid.table.Cols(); ++col) {
        if (state_.columns.ColStyle(col) == TColumnStyle::ColumnFixed)
            blanked.push_back(col);
    }
    const bool isNumbering = std::find(cols.begin(), cols.end(), true) != cols.end();
    if (!isNumbering && blanked.empty())
        return number();
    const RedrawOff redrawOff(state_.grid);
    number();
    for (const int col : blanked)
        state_.grid.table.wipeCol(col);
}

void RowStock::number() {
    const std::vector<bool> cols = numberedCols();
    for (std::size_t col = 0; isWatching_ && col < cols.size(); ++col) {
        if (cols[col])
            numbered_.insert(static_cast<int>(col));
    }
    using Former = CellStore::FormerNumbers;
    state_.grid.table.numberRows(cols, isWatching_ ? Former::Vanish : Former::BecomeTexts);
}

void RowStock::watchNumbers() {
    isWatching_ = true;
    state_.grid.table.keepNumbersOnly(numberedCols());
    numbered_.clear();
    for (int col = 0; col < state_.grid.table.Cols(); ++col) {
        if (isNumbered(col))
            numbered_.insert(col);
    }
}

void RowStock::rewatchNumbers() {
    if (isWatching_)
        watchNumbers();
}

void RowStock::blankFormerNumbers() {
    isWatching_ = false;
    const RepaintOnce repaintOnce(state_.grid);
    for (const int col : numbered_) {
        if (col < state_.grid.table.Cols() && !isNumbered(col))
            state_.grid.table.wipeCol(col);
    }
}

void RowStock::bringCursorTo(CellAddress cell) {
    FlexGrid &grid = state_.grid;
    grid.stepTo(cell);
    grid.view.ensureVisible(grid.Row(), grid.Col());
}

} // namespace tablio
