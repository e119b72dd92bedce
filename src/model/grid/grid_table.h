#pragma once

/// The table of the grid surface: counts of rows and columns, texts, looks, sizes and alignments,
/// under the grid's own names. It checks every index, tells one observer what changed, and knows
/// neither the cursor nor what is on the screen.

#include "model/grid/cell_store.h"
#include "model/grid/grid_look.h"
#include "model/grid/line_sizes.h"
#include "model/grid/table_changes.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tablio {

/// Hears what changed, after the change.
class GridTableObserver {
public:
    virtual ~GridTableObserver() = default;
    virtual void cellChanged(int row, int col) = 0;
    /// Counts, sizes or the look changed: whatever was derived from them is stale.
    virtual void tableChanged() = 0;
    /// Any number of cells look different; nothing else changed.
    virtual void looksChanged() { tableChanged(); }
};

/// All rows and columns are counted from 0 with the fixed ones first; sizes are twips. A function
/// that is given a row, column or count which the table cannot have throws GridError, or
/// OverflowError beyond 16 bits, and changes nothing.
class GridTable {
public:
    static constexpr int maxRows = 32768;
    static constexpr int maxCols = 32767;
    /// Of rows times columns: a table that is full takes memory for each.
    static constexpr std::int64_t maxCells = 33'554'432;
    static constexpr Twips defaultRowHeight = 300;
    static constexpr Twips defaultColWidth = 960;
    /// About 66,000 pixels: every sum of places on a screen fits the numbers of a face.
    static constexpr Twips maxSize = 1'000'000;

    explicit GridTable(GridTableObserver &observer);
    /// Who hears of each change; null, as at first, for nobody.
    void setChanges(GridTableChanges *changes) noexcept { changes_ = changes; }

    [[nodiscard]] int Rows() const noexcept { return store_.rows(); }
    [[nodiscard]] int Cols() const noexcept { return store_.cols(); }
    /// Never more than there are; those that go with the count come back with it.
    [[nodiscard]] int FixedRows() const noexcept { return std::min(fixedRows_, Rows()); }
    [[nodiscard]] int FixedCols() const noexcept { return std::min(fixedCols_, Cols()); }
    /// A column that goes and comes back has its caption, width and alignments again, and no data.
    void setRows(int count);
    void setCols(int count);
    /// Throw what setRows and setCols throw.
    void checkRowCount(int count) const;
    void checkColCount(int count) const;
    void setFixedRows(int count);
    void setFixedCols(int count);

    /// Adds a row at the end, its texts being the parts of Item between tabs.
    void AddItem(std::string_view Item);
    /// Inserts such a row before the row that has this index.
    void AddItem(std::string_view Item, int Index);
    /// Adds blank rows at the end.
    void appendRows(int count);
    /// Takes a data row away; fixed rows cannot go.
    void RemoveItem(int Index);
    /// Takes a data row away and inserts a blank one that then has the index `to`: one change, in
    /// which the table never has a row less.
    void replaceRow(int Index, int to);
    /// Wipes the texts and looks of all cells, fixed ones included.
    void Clear();
    /// What the cells hold and how they look, all together.
    struct Content {
        CellStore cells;
        StyleTable styles;
    };
    /// Like Clear, for who may want it back.
    [[nodiscard]] Content takeContent();
    /// Answers False, with nothing changed, where the table has other counts now.
    bool setContent(Content content);

    /// Takes out all but the captions, for who rearranges columns and gives it back at once. The
    /// captions stay with the other settings of the columns, whatever comes back.
    [[nodiscard]] Content takeBody();
    /// Fits it to the counts that the table has now.
    void giveBody(Content body);

    [[nodiscard]] std::string_view TextMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, std::string_view text);
    /// Both the text that is shown and the value behind it.
    void setCell(int row, int col, std::string_view text, std::string_view value);
    /// The same for neighbours in a row, from this cell on. The observer hears nothing.
    void setTexts(int row, int col, std::span<const std::string_view> texts);
    /// Any number of cells hold other texts.
    void cellsChanged() { observer_.looksChanged(); }
    /// The last row from 1 up to this one whose text in the column is not blank; 0 for none.
    [[nodiscard]] int lastFilledRow(int col, int last) const {
        return hasCell(0, col) ? store_.lastFilled(col, std::min(last, Rows() - 1)) : 0;
    }
    /// Numbers all data rows in the columns that are marked, over whatever stood there. Throws
    /// OverflowError when the last number does not fit 16 bits; the rows before it are numbered
    /// then.
    void numberRows(const std::vector<bool> &cols,
                    CellStore::FormerNumbers former = CellStore::FormerNumbers::BecomeTexts);
    /// The columns that are numbered since.
    [[nodiscard]] const std::vector<bool> &numberedCols() const noexcept {
        return store_.numbers().cols;
    }
    /// Where other columns are numbered than those that are marked, their numbers become texts.
    void keepNumbersOnly(const std::vector<bool> &cols);
    /// Wipes the data cells of a column.
    void wipeCol(int col);
    /// The value behind a formatted text; the text itself where none was given.
    [[nodiscard]] std::string_view CellData(int row, int col) const;

    [[nodiscard]] const CellStyle &cellStyle(int row, int col) const;
    void setCellStyle(int row, int col, const CellStyle &style);

    /// How many different ones are kept.
    [[nodiscard]] std::size_t looks() const noexcept { return styles_.size(); }
    /// Gives all cells from a column on the background of their row, in rows 1 to lastRow as far as
    /// there are any; the rest of each look stays.
    void paintStripes(int lastRow, int firstCol, Colour oddRows, Colour evenRows);

    [[nodiscard]] Twips RowHeight(int row) const;
    void setRowHeight(int row, Twips height);
    /// Of the rows from one up to another together; negative where the second comes first.
    [[nodiscard]] Twips heightOfRows(int from, int to) const;
    [[nodiscard]] Twips RowHeightMin() const noexcept { return heights_.minimum(); }
    void setRowHeightMin(Twips height);
    [[nodiscard]] Twips ColWidth(int col) const {
        checkCol(col, "ColWidth");
        return widths_.of(col);
    }
    /// Of the columns from one up to another together, like heightOfRows.
    [[nodiscard]] Twips widthOfCols(int from, int to) const;
    /// A negative width is the default one, 0 hides the column. Like a row's height it is at most
    /// maxSize.
    void setColWidth(int col, Twips width);
    /// The default one again, also for a column that went.
    void forgetColWidth(int col);
    [[nodiscard]] int ColAlignment(int col) const;
    void setColAlignment(int col, int alignment);
    [[nodiscard]] int FixedAlignment(int col) const;
    void setFixedAlignment(int col, int alignment);

    [[nodiscard]] const GridLook &look() const noexcept { return look_; }
    void setLook(const GridLook &look);

    /// Whether such a cell exists, and the error that the operation throws when it does not.
    [[nodiscard]] bool hasCell(int row, int col) const noexcept {
        return row >= 0 && row < Rows() && col >= 0 && col < Cols();
    }
    void checkRow(int row, std::string_view operation) const {
        if (row < 0 || row >= Rows())
            refuse(operation, "row", row, Rows());
    }
    void checkCol(int col, std::string_view operation) const {
        if (col < 0 || col >= Cols())
            refuse(operation, "column", col, Cols());
    }
    void checkCell(CellAddress cell, std::string_view operation) const {
        checkRow(cell.row, operation);
        checkCol(cell.col, operation);
    }
    /// Counts every change after which a row number may mean another row: rows inserted or removed
    /// and the table wiped, but not rows added at the end.
    [[nodiscard]] std::uint64_t shiftStamp() const noexcept { return shiftStamp_; }

    /// Counts the texts that were written into a column, cell by cell.
    [[nodiscard]] std::uint64_t columnWrites(int col) const {
        return column(col, "TextMatrix").writes;
    }

private:
    struct Column {
        std::int16_t alignment = 1;
        std::int16_t fixedAlignment = 1;
        std::uint64_t writes = 0;
    };

    void takeRow(int row);
    void giveRow(int row);
    /// Does it, with those who hear of changes told before and after.
    template <typename Change> void changeRows(int first, int by, Change change);
    template <typename Change> void changeAll(Change change);
    void tellNumbers(int fromRow);
    [[noreturn]] static void refuse(std::string_view operation, std::string_view what, int index,
                                    int count);
    void checkCells(std::string_view operation, std::int64_t rows, std::int64_t cols) const;
    [[nodiscard]] StyleId withBackground(StyleId style, Colour background);
    /// Gives back looks that no cell has any more, from time to time.
    void tidyStyles();
    [[nodiscard]] const Column &column(int col, std::string_view operation) const;
    [[nodiscard]] Column &column(int col, std::string_view operation);

    GridTableObserver &observer_;
    GridTableChanges *changes_ = nullptr;
    CellStore store_;
    StyleTable styles_;
    LineSizes heights_{defaultRowHeight};
    /// Columns that went have theirs still.
    LineSizes widths_{defaultColWidth};
    /// Columns that went have theirs still.
    std::vector<Column> columns_;
    GridLook look_;
    /// As they were last set, which may be more than there are.
    int fixedRows_ = 1;
    int fixedCols_ = 0;
    std::uint64_t shiftStamp_ = 0;
};

} // namespace tablio
