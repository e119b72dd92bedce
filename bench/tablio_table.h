#pragma once

/// What the core alone and the Qt widget have in common as peers: how a table of ours is set up and
/// how its rows are worked on.

#include "works.h"

#include <tablio/tablio.h>
#include <tablio/text_bag.h>

#include <algorithm>
#include <memory>
#include <span>

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
    void setRow(int row, std::span<const std::string_view> texts) {
        grid_.setTexts(row + 1, 0, static_cast<int>(texts.size()), texts);
    }
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
    void appendRow() { grid_.AddRow(); }
    [[nodiscard]] int placeOf(int row, int col) const {
        const Rect cell = grid_.screen().cellRect({row + 1, col});
        return cell.left + cell.top;
    }
    void clear() { grid_.TableClear(); }
    [[nodiscard]] int duplicateOf(int row) const {
        return grid_.FindDuplicatePrimaryColumn(row + 1);
    }
    [[nodiscard]] int dataCount() const { return grid_.DataCount(); }

    [[nodiscard]] Tablio &control() { return grid_; }

private:
    static constexpr Twips twipsPerPixel = 15;
    static constexpr Colour stripe{0x00F5EEE6U};

    void mark(int row) {
        grid_.CellFocus(row + 1, keyCol);
        grid_.MarkActiveRow();
    }

    Tablio &grid_;
};

/// Works that no peer has: a block of text that is pasted cell by cell, by the rules of its
/// columns, and a form's settings.
template <typename Peer> void ownWorks(Size size, const Repeats &repeats) {
    const Size pasted{std::min(size.rows, 20000), 5};
    const CellTexts texts(pasted);
    std::string block;
    for (int row = 0; row < pasted.rows; ++row) {
        for (int col = 0; col < pasted.cols; ++col)
            block.append(texts.text(row, col)).append(col + 1 < pasted.cols ? "\t" : "\n");
    }
    std::unique_ptr<Peer> peer;
    repeats.measure(
        "paste 20000 x 5", size,
        [&] {
            peer.reset();
            peer = std::make_unique<Peer>(Size{1, pasted.cols}, Kind::Plain);
            peer->show();
            peer->control().CellFocus(1, 0);
        },
        [&] { keep(peer->control().input().paste(block)); });

    Peer form({10, 100}, Kind::Full);
    TextBag bag;
    repeats.measure(
        "save settings of 100 columns", size, [&] { bag = TextBag(); },
        [&] { form.control().saveSettings(bag); });
    form.control().saveSettings(bag);
    repeats.measure(
        "load settings of 100 columns", size, [] {}, [&] { form.control().loadSettings(bag); });
}

} // namespace tablio::bench
