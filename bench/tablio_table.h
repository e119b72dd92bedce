#pragma once

/// What the core alone and the Qt widget have in common as peers: how a table of ours is set up and
/// how its rows are worked on.

#include "works.h"

#include <tablio/tablio.h>

namespace tablio::bench {

/// Data row 0 is grid row 1, below the header.
class TablioTable {
public:
    TablioTable(Tablio &grid, Size size, Kind kind) : grid_(grid) {
        grid_.setCols(size.cols);
        grid_.setRows(size.rows + 1);
        grid_.setRowMinHeight(rowPixels * twipsPerPixel);
        for (int col = 0; col < size.cols; ++col) {
            grid_.setColStyle(col, TColumnStyle::ColumnInput);
            grid_.setColWidth(col, colPixels * twipsPerPixel);
        }
        grid_.setPrimaryColumn(keyCol);
        if (kind == Kind::Full) {
            grid_.setWithFixedColumn(true);
            grid_.setFixedCols(1);
            grid_.setColStyle(0, TColumnStyle::ColumnFixedWithAutoNumber);
            formatColumn(numberCol);
            grid_.setStripeColor(stripe);
        }
        grid_.Show();
    }

    void resize(Size size) {
        grid_.setCols(size.cols);
        grid_.setRows(size.rows + 1);
    }
    void bulk(bool on) { grid_.setSetStatusCell(!on); }
    void set(int row, int col, std::string_view text) { grid_.setTextMatrix(row + 1, col, text); }
    void formatColumn(int col) {
        grid_.setColEditType(col, TColumnType::ColumnDecimal);
        grid_.setColFormat(col, "###,##0.00");
    }
    void setNumber(int row, int col, std::string_view text) { set(row, col, text); }
    void tag(int row, int col) { grid_.CellTag()->setText(row + 1, col, std::string("tag")); }
    void paintStripes() { grid_.setStripeColor(stripe); }
    void insertRow(int row) {
        mark(row);
        grid_.InsertRow(row + 1);
    }
    void removeRow(int row) {
        mark(row);
        grid_.RemoveRow(row + 1);
    }
    void clear() { grid_.TableClear(); }
    [[nodiscard]] int duplicateOf(int row) const {
        return grid_.FindDuplicatePrimaryColumn(row + 1);
    }
    [[nodiscard]] int dataCount() const { return grid_.DataCount(); }

private:
    static constexpr Twips twipsPerPixel = 15;
    static constexpr Colour stripe{0x00F5EEE6U};

    void mark(int row) {
        grid_.CellFocus(row + 1, keyCol);
        grid_.MarkActiveRow();
    }

    Tablio &grid_;
};

} // namespace tablio::bench
