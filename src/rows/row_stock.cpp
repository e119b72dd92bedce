#include "rows/row_stock.h"

#include "model/text/trim.h"

#include <tablio/errors.h>

#include <optional>
#include <utility>
#include <vector>

namespace tablio {

namespace {

/// The cell handlers of the control do nothing while this object lives.
class Clearing {
public:
    explicit Clearing(ControlState &state) : state_(state) { state_.IsClearing = true; }
    ~Clearing() { state_.IsClearing = false; }
    Clearing(const Clearing &) = delete;
    Clearing &operator=(const Clearing &) = delete;

private:
    ControlState &state_;
};

} // namespace

void RowStock::append() {
    GridTable &table = state_.grid.table;
    if (table.Rows() >= GridTable::maxRows)
        throw OverflowError("AddRow: row " + std::to_string(table.Rows()) +
                            " does not fit 16 bits");
    table.AddItem("");
    RenumberFixedColumns();
}

void RowStock::add() {
    session_.end();
    append();
    bringCursorTo({state_.lastDataRow(), state_.settings.PrimaryColumn});
    state_.link.TableChange();
}

void RowStock::insertAtMark() {
    session_.end();
    GridTable &table = state_.grid.table;
    int row = state_.MarkRow;
    {
        const StatusOff statusOff(state_);
        marker_.toggle();
        state_.setStatusCell(false);
        const int count = dataCount();
        if (row <= count) {
            const int spare = state_.lastDataRow();
            const bool isFull = table.Rows() == GridTable::maxRows;
            // A full table gives its spare row before it takes the new one.
            const bool spareFirst = isFull && row >= table.FixedRows() && count < spare;
            if (spareFirst)
                table.RemoveItem(spare);
            table.AddItem("", row);
            // A count goes through all rows, so it is not repeated where the answer is known; row 0
            // is in no count, but what it holds moves into the next one.
            const int countNow = row > 0 ? count + 1 : dataCount();
            if (!spareFirst && table.Rows() > countNow + 1)
                table.RemoveItem(state_.lastDataRow());
            state_.CellTag->shiftRows(row, state_.lastDataRow(), 1, firstTaggedCol());
        }
    }
    finishMove(row);
}

void RowStock::removeMarked() {
    session_.end();
    GridTable &table = state_.grid.table;
    int row = state_.MarkRow;
    {
        const StatusOff statusOff(state_);
        marker_.toggle();
        state_.setStatusCell(false);
        table.RemoveItem(row);
        table.AddItem("");
        // The row's own values go, the rows below move up.
        state_.CellTag->shiftRows(row, state_.lastDataRow() + 1, -1, firstTaggedCol());
        const int last = dataCount();
        if (row > last)
            row = last + 1;
    }
    finishMove(row);
}

void RowStock::finishMove(int row) {
    RenumberFixedColumns();
    state_.SetStatusCell = true;
    bringCursorTo({row, state_.settings.PrimaryColumn});
    state_.grid.setFocusRect(2);
    state_.link.TableChange();
}

void RowStock::reset(int row) {
    session_.end();
    FlexGrid &grid = state_.grid;
    {
        const RedrawOff redrawOff(grid);
        for (int col = 0; col < grid.table.Cols(); ++col) {
            if (isNumbered(col))
                continue;
            grid.table.setTextMatrix(row, col, "");
            state_.CellTag->remove(row, col);
        }
        grid.setCol(state_.settings.PrimaryColumn);
        grid.setRow(row);
    }
    grid.view.ensureVisible(grid.Row(), grid.Col());
}

void RowStock::clear() {
    session_.end();
    FlexGrid &grid = state_.grid;
    {
        const RedrawOff redrawOff(grid);
        {
            const Clearing clearing(state_);
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
    state_.CellTag = std::make_shared<TMatrix>();
    // The column first, as the host hears it.
    grid.setCol(state_.firstColumn());
    bringCursorTo({grid.table.FixedRows(), grid.Col()});
    if (grid.table.FixedRows() < grid.table.Rows())
        grid.view.setTopRow(grid.table.FixedRows());
    state_.link.TableChange();
    appearance_.repaintStripes();
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

bool RowStock::isNumbered(int col) const {
    return state_.columns.ColStyle(col) == TColumnStyle::ColumnFixedWithAutoNumber;
}

void RowStock::RenumberFixedColumns() {
    std::vector<int> numbered;
    std::vector<int> blanked;
    for (int col = 0; col < state_.grid.table.Cols(); ++col) {
        if (isNumbered(col))
            numbered.push_back(col);
        else if (ControlState::PageEditing &&
                 state_.columns.ColStyle(col) == TColumnStyle::ColumnFixed)
            blanked.push_back(col);
    }
    numbered_.insert(numbered.begin(), numbered.end());
    writeNumbersAndBlanks(numbered, blanked);
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
    grid.setRow(cell.row);
    grid.setCol(cell.col);
    grid.view.ensureVisible(grid.Row(), grid.Col());
}

} // namespace tablio
