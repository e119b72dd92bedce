#pragma once

/// The grid surface: the table, the view of it, and the current cell with what acts on it. It
/// raises cell entry and row change like any flex grid; the control decides what
/// follows from them.

#include "model/grid/grid_view.h"

#include <functional>

namespace tablio {

/// What the grid raises into the control.
class FlexGridEvents {
public:
    virtual ~FlexGridEvents() = default;
    virtual void gridEnterCell() = 0;
    virtual void gridRowChange(int oldRow, int newRow) = 0;
    /// The view has scrolled, or the scroll range is another.
    virtual void gridScroll() = 0;
    virtual void gridAreaChanged(const Rect &area) = 0;
};

class FlexGrid : private GridTableObserver, private GridViewObserver {
public:
    explicit FlexGrid(FlexGridEvents &events);

    GridTable table;
    GridView view;

    [[nodiscard]] int Row() const noexcept { return current_.row; }
    [[nodiscard]] int Col() const noexcept { return current_.col; }
    [[nodiscard]] CellAddress current() const noexcept { return current_; }
    /// Make another row or column current: cell entry and row change are raised when it is another
    /// one. The view does not scroll. Throw GridError outside the grid.
    void setRow(int row);
    void setCol(int col);
    /// Both at once, as a click does it: one cell is left and one entered.
    void setCell(CellAddress cell);
    /// Makes a cell current without raising anything: for looking at or styling a cell.
    void setCurrentQuietly(CellAddress cell);
    /// Counts every time that the current cell was set, also to where it was already, or claimed.
    [[nodiscard]] std::uint64_t cursorStamp() const noexcept { return cursorStamp_; }
    /// An editor opens over the current cell: who is on the way to another one stops there.
    void claimCursor() noexcept {
        ++cursorStamp_;
        ++claims_;
    }
    [[nodiscard]] std::uint64_t claims() const noexcept { return claims_; }
    /// Makes a cell current in two steps, row first, each of which is heard. Where the cursor was
    /// claimed meanwhile, the second one is left out.
    void stepTo(CellAddress cell);

    /// Focus frame of the current cell: 0 none, 2 heavy.
    [[nodiscard]] int FocusRect() const noexcept { return focusRect_; }
    void setFocusRect(int focusRect);

    /// The text of the current cell.
    [[nodiscard]] std::string_view Text() const;
    void setText(std::string_view text);

    /// Changes the current cell's own look.
    void changeCellStyle(const std::function<void(CellStyle &)> &change);

    /// The look of a cell as it is seen: its own, or where it has none the grid's.
    [[nodiscard]] Colour backColorOf(int row, int col) const;
    [[nodiscard]] Colour foreColorOf(int row, int col) const;
    [[nodiscard]] Font fontOf(int row, int col) const;
    [[nodiscard]] int alignmentOf(int row, int col) const;
    [[nodiscard]] bool isFixed(int row, int col) const noexcept;

private:
    void cellChanged(int row, int col) override;
    void tableChanged() override;
    void looksChanged() override;
    void areaChanged(const Rect &area) override;
    void scrolled() override;
    void moveTo(CellAddress cell);

    FlexGridEvents &events_;
    CellAddress current_{1, 0};
    /// The table had no cell for the cursor when it last changed; it enters the next one it gets.
    bool isNowhere_ = false;
    int focusRect_ = 0;
    std::uint64_t cursorStamp_ = 0;
    std::uint64_t claims_ = 0;
};

} // namespace tablio
