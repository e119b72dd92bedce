#pragma once

/// The cells of the table, row by row: the text that is shown, the unformatted value where it
/// differs from that text, and the look. Rows cost next to nothing until something is written into
/// them; row numbers and stripes follow from a row's place. Indexes are trusted here; the grid
/// table checks them.

#include "model/grid/cell_style.h"
#include "model/grid/compact_text.h"
#include "model/grid/row_list.h"
#include "model/grid/row_numbers.h"
#include "model/grid/row_range.h"
#include "model/grid/stripes.h"

#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace tablio {

class CellStore {
public:
    [[nodiscard]] int rows() const noexcept { return rows_.size(); }
    [[nodiscard]] int cols() const noexcept { return cols_; }
    void setRows(int count);
    /// The first rows, as many as `keeping`, hold on to the texts of columns that go.
    void setCols(int count, int keeping = 0);

    /// Inserts a blank row that will have this index, or takes the row with this index away.
    void insertRow(int row);
    void removeRow(int row);
    /// What the cells of one column hold, as far as they hold anything.
    struct ColumnCell {
        int row = 0;
        CompactText text;
        CompactText value;
        StyleId style = plainStyle;
    };
    using ColumnCells = std::vector<ColumnCell>;
    /// Inserts a column that will have this index. Rows that there are no more are left out. Only
    /// of a settled store.
    void insertCol(int col, ColumnCells cells = {});
    /// Takes the column with this index away. Only of a settled store.
    ColumnCells takeCol(int col);
    /// Writes into the cells what follows from their places: numbers and stripes.
    void settle();
    /// The texts of row 0, with those of columns that went, become this store's.
    void takeFirstRowTexts(CellStore &from);
    /// Wipes all texts, values and looks; rows and columns stay.
    void clear();

    [[nodiscard]] std::string_view text(int row, int col) const noexcept {
        const CompactText *const own = rows_[row].texts.find(col);
        if (own != nullptr && !own->empty())
            return own->view();
        return numbers_.has(row, col) ? numbers_.textOf(row) : std::string_view();
    }
    /// Writes the shown text and forgets the unformatted value that belonged to the old one.
    void setText(int row, int col, std::string_view text) { setText(rows_[row], row, col, text); }
    /// The same for neighbours, from this column on.
    void setTexts(int row, int col, std::span<const std::string_view> texts);
    /// Wipes texts and values of a column in the rows from `first` on.
    void wipeCol(int col, int first);

    /// The unformatted value, which may be empty; a cell without one of its own answers its text.
    [[nodiscard]] std::string_view value(int row, int col) const noexcept;
    void setValue(int row, int col, std::string_view value);

    /// The last row up to this one, and from row 1 on, whose text in the column is not blank; 0
    /// for none. Asked for the same column again it does not look at all rows.
    [[nodiscard]] int lastFilled(int col, int last) const;

    /// What becomes of numbers where there are to be none any more.
    enum class FormerNumbers { BecomeTexts, Vanish };
    /// Numbers the rows of these columns from `first` up to `end`, over whatever they held. Answers
    /// whether any text may be another one now.
    bool numberRows(std::vector<bool> cols, int first, int end,
                    FormerNumbers former = FormerNumbers::BecomeTexts);
    [[nodiscard]] const RowNumbers &numbers() const noexcept { return numbers_; }

    [[nodiscard]] StyleId style(int row, int col) const noexcept;
    void setStyle(int row, int col, StyleId style);
    /// Gives the rows from 1 up to `end` these looks. `painted` says what a look of a cell's own
    /// becomes in an odd row, or an even one.
    void paintStripes(int end, const Stripes::Looks &looks,
                      const std::function<StyleId(StyleId, bool isOdd)> &painted);
    /// Tells which looks are in use: one mark a look.
    void markStyles(std::vector<bool> &used) const;

private:
    void setText(GridRow &held, int row, int col, std::string_view text) {
        if (!text.empty())
            held.texts.made(col, cols_).assign(text);
        else if (CompactText *const own = held.texts.find(col))
            own->assign(text);
        if (numbers_.has(row, col))
            overwriteNumber(held, row, col);
        if (held.values)
            forgetValue(held, col);
        if (col == filledCol_ && row >= filledEnd_)
            filledEnd_ = row + 1;
    }
    void overwriteNumber(GridRow &held, int row, int col);
    static void forgetValue(GridRow &held, int col);
    static void wipe(GridRow &held, int col);
    /// Makes a row's texts what they should be after its numbers were `before`.
    void renumber(int row, const RowNumbers &before);
    void settleStripes();
    /// The looks of a row that has none of its own, as a list.
    [[nodiscard]] RowStyles stripesOf(int row) const;
    /// Lets a column come, or go where `by` is −1, in each list of looks, which rows may share.
    void shiftStyles(int col, int by);

    RowList rows_;
    int cols_ = 0;
    RowNumbers numbers_;
    /// Rows whose numbers may have been written over.
    RowRange overwritten_;
    Stripes stripes_;
    /// Rows, from 1 on, with looks of their own.
    RowRange styled_;
    /// Rows with values have room for those of so many columns.
    int valuesEnd_ = 0;
    /// Behind this row all cells of the column are blank.
    mutable int filledCol_ = 0;
    mutable int filledEnd_ = 0;
};

} // namespace tablio
