#include "model/grid/grid_view.h"

#include <algorithm>
#include <cstdlib>

namespace tablio {

namespace {

/// What rows and columns have in common: one direction of the table.
struct Axis {
    const GridTable &table;
    bool isRows;

    [[nodiscard]] int count() const { return isRows ? table.Rows() : table.Cols(); }
    [[nodiscard]] int fixed() const { return isRows ? table.FixedRows() : table.FixedCols(); }
    [[nodiscard]] Twips size(int index) const {
        return isRows ? table.RowHeight(index) : table.ColWidth(index);
    }
    [[nodiscard]] Twips length(int from, int to) const {
        return isRows ? table.heightOfRows(from, to) : table.widthOfCols(from, to);
    }

    [[nodiscard]] std::vector<GridView::Span> visible(int first, Twips extent) const {
        std::vector<GridView::Span> spans;
        Twips position = 0;
        const auto add = [&](int from, int to) {
            for (int index = from; index < to && position < extent; ++index) {
                const Twips length = size(index);
                if (length > 0)
                    spans.push_back({index, position, length});
                position += length;
            }
        };
        add(0, fixed());
        add(first, count());
        return spans;
    }

    /// The last scroll position that still leaves no gap behind the last row or column.
    [[nodiscard]] int maxFirst(Twips extent) const {
        const Twips room = extent - length(0, fixed());
        Twips used = 0;
        int first = count();
        while (first > fixed() && used + size(first - 1) <= room)
            used += size(--first);
        return std::max(fixed(), std::min(first, count() - 1));
    }

    [[nodiscard]] int clamped(int first, Twips extent) const {
        if (first <= fixed()) // Nothing is scrolled away, and hidden columns need not be walked.
            return fixed();
        return std::clamp(first, fixed(), std::max(fixed(), maxFirst(extent)));
    }

    /// A scrolled-away index lies before the view's start, by itself and what is between.
    [[nodiscard]] Twips position(int index, int first) const {
        if (index < fixed())
            return length(0, index);
        if (index < first)
            return -length(index, first);
        return length(0, fixed()) + length(first, index);
    }

    [[nodiscard]] int firstToShow(int index, int first, Twips extent) const {
        if (index < fixed())
            return first;
        if (index < first)
            return index;
        const Twips room = extent - length(0, fixed());
        Twips used = size(index);
        int start = index;
        while (start > first && used + size(start - 1) <= room)
            used += size(--start);
        return std::max(first, start);
    }
};

std::optional<int> spanAt(const std::vector<GridView::Span> &spans, Twips position) {
    for (const GridView::Span &span : spans) {
        if (position >= span.start && position < span.start + span.size)
            return span.index;
    }
    return std::nullopt;
}

} // namespace

void GridView::setSize(Twips width, Twips height) {
    if (width == width_ && height == height_)
        return;
    width_ = width;
    height_ = height;
    tableChanged();
}

void GridView::setRightToLeft(bool rightToLeft) {
    if (rightToLeft == rightToLeft_)
        return;
    rightToLeft_ = rightToLeft;
    tableChanged();
}

void GridView::setTopRow(int row) {
    table_.checkRow(row, "TopRow");
    scrollTo(Axis{table_, true}.clamped(row, height_), leftCol_);
}

void GridView::setLeftCol(int col) {
    table_.checkCol(col, "LeftCol");
    scrollTo(topRow_, Axis{table_, false}.clamped(col, width_));
}

int GridView::maxTopRow() const { return Axis{table_, true}.maxFirst(height_); }

int GridView::maxLeftCol() const { return Axis{table_, false}.maxFirst(width_); }

void GridView::ensureVisible(int row, int col) {
    if (table_.hasCell(row, col))
        scrollTo(Axis{table_, true}.firstToShow(row, topRow_, height_),
                 Axis{table_, false}.firstToShow(col, leftCol_, width_));
}

void GridView::scrollTo(int top, int left) {
    if (top == topRow_ && left == leftCol_)
        return;
    topRow_ = top;
    leftCol_ = left;
    endRow_.reset();
    if (redraw_)
        observer_.scrolled();
    else
        scrolled_ = dirty_ = true;
}

int GridView::pageRows() const {
    int rows = 0;
    for (const Span &span : visibleRows())
        rows += span.index >= table_.FixedRows() && span.start + span.size <= height_ ? 1 : 0;
    return std::max(rows, 1);
}

void GridView::setRedraw(bool redraw) {
    redraw_ = redraw;
    if (redraw_ && dirty_)
        invalidateAll();
}

Rect GridView::cellRect(int row, int col) const {
    table_.checkCell({row, col}, "cell rectangle");
    const Twips width = table_.ColWidth(col);
    return {leftOf(Axis{table_, false}.position(col, leftCol_), width),
            Axis{table_, true}.position(row, topRow_), width, table_.RowHeight(row)};
}

std::vector<GridView::Span> GridView::visibleRows() const {
    return Axis{table_, true}.visible(topRow_, height_);
}

std::vector<GridView::Span> GridView::visibleCols() const {
    std::vector<Span> cols = Axis{table_, false}.visible(leftCol_, width_);
    for (Span &col : cols)
        col.start = leftOf(col.start, col.size);
    return cols;
}

std::optional<CellAddress> GridView::hitTest(Twips x, Twips y) const {
    const std::optional<int> row = spanAt(visibleRows(), y);
    const std::optional<int> col = spanAt(visibleCols(), x);
    if (!row || !col)
        return std::nullopt;
    return CellAddress{*row, *col};
}

std::optional<int> GridView::columnEdgeAt(Twips x, Twips y, Twips tolerance) const {
    if (y < 0 || y >= fixedHeight())
        return std::nullopt;
    for (const Span &span : visibleCols()) {
        if (std::abs(span.start + (rightToLeft_ ? 0 : span.size) - x) <= tolerance)
            return span.index;
    }
    return std::nullopt;
}

void GridView::invalidateCell(int row, int col) {
    if (!redraw_) {
        dirty_ = true;
        return;
    }
    if (!rowMayBeVisible(row) || (col >= table_.FixedCols() && col < leftCol_))
        return;
    const Rect cell = cellRect(row, col);
    if (cell.left < width_ && cell.right() > 0)
        report(cell);
}

void GridView::invalidateFramed(int row, int col) {
    // At no scale is a line thicker than two pixels of 1/96 inch.
    constexpr Twips line = 30;
    if (!table_.hasCell(row, col))
        return;
    const Rect cell = cellRect(row, col);
    report({cell.left - line, cell.top - line, cell.width + line, cell.height + line});
}

void GridView::invalidateAll() { report({0, 0, width_, height_}); }

void GridView::tableChanged() {
    const int top = Axis{table_, true}.clamped(topRow_, height_);
    const int left = Axis{table_, false}.clamped(leftCol_, width_);
    topRow_ = top;
    leftCol_ = left;
    endRow_.reset();
    // The scroll range follows counts and sizes, so a face looks at its scroll bars in any case.
    scrolled_ = true;
    invalidateAll();
}

Twips GridView::fixedHeight() const { return Axis{table_, true}.length(0, table_.FixedRows()); }

bool GridView::rowMayBeVisible(int row) const {
    if (row < table_.FixedRows())
        return true;
    if (!endRow_) {
        const std::vector<Span> rows = visibleRows();
        endRow_ = rows.empty() ? 0 : rows.back().index + 1;
    }
    return row >= topRow_ && row < *endRow_;
}

void GridView::report(const Rect &area) {
    if (!redraw_) {
        dirty_ = true;
        return;
    }
    dirty_ = false;
    if (scrolled_) {
        scrolled_ = false;
        observer_.scrolled();
    }
    observer_.areaChanged(area);
}

} // namespace tablio
