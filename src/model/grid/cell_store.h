#pragma once

/// The cells of the table, row by row: the text that is shown, the unformatted value where it
/// differs from that text, and the look. Rows cost nothing until something is written into them.
/// Indexes are trusted here; the grid table checks them.

#include "model/grid/cell_style.h"
#include "model/grid/compact_text.h"

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace tablio {

/// Never written to for one row alone while other rows hold it, too.
using RowStyles = std::vector<StyleId>;

class CellStore {
public:
    [[nodiscard]] int rows() const noexcept { return static_cast<int>(rows_.size()); }
    [[nodiscard]] int cols() const noexcept { return cols_; }
    void setRows(int count) { rows_.resize(static_cast<std::size_t>(count)); }
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
    /// Inserts a column that will have this index. Rows that there are no more are left out.
    void insertCol(int col, ColumnCells cells = {});
    /// Takes the column with this index away.
    ColumnCells takeCol(int col);
    /// The texts of row 0, with those of columns that went, become the other store's.
    void setFirstRowTexts(const CellStore &from);
    /// Wipes all texts, values and looks; rows and columns stay.
    void clear();

    [[nodiscard]] std::string_view text(int row, int col) const noexcept;
    /// Writes the shown text and forgets the unformatted value that belonged to the old one.
    void setText(int row, int col, std::string_view text);

    /// The unformatted value, which may be empty; a cell without one of its own answers its text.
    [[nodiscard]] std::string_view value(int row, int col) const noexcept;
    void setValue(int row, int col, std::string_view value);

    [[nodiscard]] StyleId style(int row, int col) const noexcept;
    void setStyle(int row, int col, StyleId style);

    /// The looks of a row's cells, by column, as far as any was styled; null where none was. Rows
    /// that look alike may share one list, so that stripes cost a pointer a row.
    [[nodiscard]] const std::shared_ptr<RowStyles> &rowStyles(int row) const noexcept {
        return at(row).styles;
    }
    void setRowStyles(int row, std::shared_ptr<RowStyles> styles) {
        at(row).styles = std::move(styles);
    }

private:
    using Texts = std::vector<CompactText>;
    struct Row {
        Texts texts;
        /// Only where a row has some; empty where the shown text says it all.
        std::unique_ptr<Texts> values;
        std::shared_ptr<RowStyles> styles;
    };

    /// Lets a column come, or go where `by` is −1, in each list of looks, which rows may share.
    void shiftStyles(int col, int by);
    [[nodiscard]] Row &at(int row) { return rows_[static_cast<std::size_t>(row)]; }
    [[nodiscard]] const Row &at(int row) const { return rows_[static_cast<std::size_t>(row)]; }

    std::vector<Row> rows_;
    int cols_ = 0;
};

} // namespace tablio
