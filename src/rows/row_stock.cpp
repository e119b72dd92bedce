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
    if (count > GridTable::maxRows - table.Rows())
        throw OverflowError("AddRow: row " + std::to_string(table.Rows() + count - 1) +
                            " does not fit 16 bits");
    const RepaintOnce repaintOnce(state_.grid);
    for (; count > 0; --count) {
        table.AddItem("");
        forgetTags(table.Rows() - 1);
        if (!numberLastRow())
            RenumberFixedColumns();
    }
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
        const int count = dataCount();
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
        const int count = dataCount();
        if (row <= count) {
            const int spare = state_.lastDataRow();
            // A full table gives its spare row before it takes the new one.
            const bool spareFirst = isFull && row >= table.FixedRows() && count < spare;
            if (spareFirst)
                table.replaceRow(spare, row);
            else
                table.AddItem("", row);
            CellTag_->shiftRows(row, 1, firstTaggedCol());
            // A count goes through all rows, so it is not repeated where the answer is known; row 0
            // is in no count, but what it holds moves into the next one.
            const int countNow = row > 0 ? count + 1 : dataCount();
            const int spareNow = spareFirst ? spare + 1 : state_.lastDataRow();
            if (spareFirst || table.Rows() > countNow + 1) {
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
        table.replaceRow(row, table.Rows() - 1);
        const int last = dataCount();
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
    const GridTable &table = state_.grid.table;
    int result = 0;
    for (int row = 1; row <= state_.lastDataRow() && !state_.link.isClosed(); ++row) {
        const int col = state_.settings.PrimaryColumn;
        if (table.hasCell(row, col) && !trimmed(table.TextMatrix(row, col)).empty())
            result = row;
        state_.link.letPendingEventsRun();
    }
    return result;
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

void RowStock::RenumberFixedColumns() {
    const std::vector<int> numbered = numberingNow().cols;
    std::vector<int> blanked;
    for (int col = 0; PageEditing_ && col < state_.grid.table.Cols(); ++col) {
        if (state_.columns.ColStyle(col) == TColumnStyle::ColumnFixed)
            blanked.push_back(col);
    }
    numbered_.insert(numbered.begin(), numbered.end());
    if (!numbered.empty() || !blanked.empty())
        writeNumbersAndBlanks(numbered, blanked);
    numbering_ = numberingNow();
}

RowStock::Numbering RowStock::numberingNow() const {
    const GridTable &table = state_.grid.table;
    Numbering now{{}, 0, table.shiftStamp(), table.FixedRows()};
    for (int col = 0; col < table.Cols(); ++col) {
        if (!isNumbered(col))
            continue;
        now.cols.push_back(col);
        now.writes += table.columnWrites(col);
    }
    return now;
}

bool RowStock::numberLastRow() {
    GridTable &table = state_.grid.table;
    const Numbering now = numberingNow();
    const int last = table.Rows() - 1;
    const int number = last - table.FixedRows() + 1;
    const auto isRowBeforeNumbered = [&](int col) {
        return number <= 1 || table.TextMatrix(last - 1, col) == std::to_string(number - 1);
    };
    if (PageEditing_ || now != numbering_ ||
        !std::all_of(now.cols.begin(), now.cols.end(), isRowBeforeNumbered))
        return false;
    for (const int col : now.cols)
        table.setTextMatrix(last, col, std::to_string(to16Bit(number, "row number")));
    numbering_->writes += now.cols.size();
    return true;
}

void RowStock::watchNumbers() {
    numbered_.clear();
    for (int col = 0; col < state_.grid.table.Cols(); ++col) {
        if (isNumbered(col))
            numbered_.insert(col);
    }
}

void RowStock::blankFormerNumbers() {
    std::vector<int> former;
    for (const int col : numbered_) {
        if (col < state_.grid.table.Cols() && !isNumbered(col))
            former.push_back(col);
    }
    if (!former.empty())
        writeNumbersAndBlanks({}, former);
}

void RowStock::writeNumbersAndBlanks(const std::vector<int> &numbered,
                                     const std::vector<int> &blanked) {
    const RedrawOff redrawOff(state_.grid);
    GridTable &table = state_.grid.table;
    int counter = 0;
    for (int row = table.FixedRows(); row < table.Rows(); ++row) {
        const std::string number = std::to_string(to16Bit(++counter, "row number"));
        for (const int col : numbered)
            table.setTextMatrix(row, col, number);
        for (const int col : blanked)
            table.setTextMatrix(row, col, "");
    }
}

void RowStock::bringCursorTo(CellAddress cell) {
    FlexGrid &grid = state_.grid;
    grid.stepTo(cell);
    grid.view.ensureVisible(grid.Row(), grid.Col());
}

} // namespace tablio
