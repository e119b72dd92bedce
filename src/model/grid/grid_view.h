#pragma once

/// What of the table is on the screen: scroll position, cell rectangles, hit tests, and which area
/// needs painting. A face paints from it and its cost follows what is visible, never the number
/// of rows. It moves no cursor and changes no cell.

#include "model/grid/grid_table.h"

#include <optional>
#include <vector>

namespace tablio {

/// Hears what a face has to show; never called while Redraw is off.
class GridViewObserver {
public:
    virtual ~GridViewObserver() = default;
    virtual void areaChanged(const Rect &area) = 0;
    /// The grid shows other rows or columns, or its scroll range is another. The cells that stay on
    /// the screen stand elsewhere; no area is reported for that, so that a face may move them.
    virtual void scrolled() = 0;
};

/// Positions are twips from the grid's top left corner.
class GridView {
public:
    /// A visible row or column. A hidden one (size 0) is never listed.
    struct Span {
        int index = 0;
        Twips start = 0;
        Twips size = 0;
    };

    GridView(const GridTable &table, GridViewObserver &observer)
        : table_(table), observer_(observer) {}

    [[nodiscard]] Twips Width() const noexcept { return width_; }
    [[nodiscard]] Twips Height() const noexcept { return height_; }
    void setSize(Twips width, Twips height);
    /// Whether the columns go from the right to the left; positions are counted from the left in
    /// any case.
    [[nodiscard]] bool isRightToLeft() const noexcept { return rightToLeft_; }
    void setRightToLeft(bool rightToLeft);

    /// The first row below the fixed ones; a row too far down to fill the view is corrected.
    [[nodiscard]] int TopRow() const noexcept { return topRow_; }
    void setTopRow(int row);
    [[nodiscard]] int LeftCol() const noexcept { return leftCol_; }
    void setLeftCol(int col);
    [[nodiscard]] int maxTopRow() const;
    [[nodiscard]] int maxLeftCol() const;
    /// Scrolls as little as needed to show the whole cell, or its start if it is too large.
    void ensureVisible(int row, int col);
    /// Data rows that fit on the screen together, at least 1.
    [[nodiscard]] int pageRows() const;

    /// False suspends painting; True paints what has changed meanwhile.
    [[nodiscard]] bool Redraw() const noexcept { return redraw_; }
    void setRedraw(bool redraw);
    /// Where the cell is, also when it is scrolled away: then it lies wholly outside the view, so
    /// that an editor over it never covers a fixed cell.
    [[nodiscard]] Rect cellRect(int row, int col) const;
    /// Fixed ones first, then from the scroll position as far as the view reaches.
    [[nodiscard]] std::vector<Span> visibleRows() const;
    [[nodiscard]] std::vector<Span> visibleCols() const;
    [[nodiscard]] std::optional<CellAddress> hitTest(Twips x, Twips y) const;
    /// The column whose border in the header, at its end, is at most this far from the point.
    [[nodiscard]] std::optional<int> columnEdgeAt(Twips x, Twips y, Twips tolerance) const;

    void invalidateCell(int row, int col);
    /// The same with the lines around the cell, which belong to its neighbours.
    void invalidateFramed(int row, int col);
    void invalidateAll();
    /// The table has other sizes or counts: corrects the scroll position and paints all.
    void tableChanged();

private:
    [[nodiscard]] Twips fixedHeight() const;
    /// Where a column begins that the first one is so far before.
    [[nodiscard]] Twips leftOf(Twips position, Twips width) const noexcept {
        return rightToLeft_ ? width_ - position - width : position;
    }
    [[nodiscard]] bool rowMayBeVisible(int row) const;
    void scrollTo(int top, int left);
    void report(const Rect &area);

    const GridTable &table_;
    GridViewObserver &observer_;
    Twips width_ = 0;
    Twips height_ = 0;
    int topRow_ = 1;
    int leftCol_ = 0;
    bool rightToLeft_ = false;
    bool redraw_ = true;
    bool dirty_ = false;
    bool scrolled_ = false;
    /// One past the last visible row; asked for every cell that is written, so kept.
    mutable std::optional<int> endRow_;
};

} // namespace tablio
