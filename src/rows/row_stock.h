#pragma once

/// The stock of rows as a whole: adding, clearing, counting and numbering them. It keeps tags in
/// step with rows and raises one TableChange for each change. It knows nothing of editing: whoever
/// changes rows ends an open edit first.

#include "rows/marker.h"
#include "state/appearance.h"

#include <tablio/tmatrix.h>

#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace tablio {

class RowStock {
public:
    RowStock(ControlState &state, Marker &marker, Appearance &appearance)
        : state_(state), marker_(marker), appearance_(appearance) {}

    /// Throws OverflowError when the last row would not fit 16 bits, GridError where the cursor
    /// could not stand on it; nothing has changed then.
    void add();
    /// Appends blank rows, numbered like the others; no event, and the cursor stays. Throws
    /// OverflowError, with nothing changed, when the last one would not fit 16 bits.
    void append(int count = 1);
    /// Another number of rows: those that go take their tags along.
    void setRows(int count);
    /// Inserts a blank row at the marked row, in exchange for a spare row at the end if there is
    /// one. Throws GridError when no row is marked; the row last entered is then marked.
    void insertAtMark();
    /// Takes the marked row away and appends a blank one. Throws like insertAtMark.
    void removeMarked();
    /// Blanks a row; its automatic number stays and no event is raised.
    void reset(int row);
    void clear();
    /// Gives back what the last clear wiped, where that is kept and nothing was written since.
    /// Answers whether it was so.
    bool undoClear();
    [[nodiscard]] bool canUndoClear() const noexcept { return cleared_.has_value(); }
    /// While the table is being wiped, cell entry and row change mean nothing.
    [[nodiscard]] bool IsClearing() const noexcept { return IsClearing_; }
    /// The host's own values, kept in step with the rows.
    [[nodiscard]] const std::shared_ptr<TMatrix> &CellTag() const noexcept { return CellTag_; }
    void setCellTag(std::shared_ptr<TMatrix> tags);
    /// The last row whose primary cell is not blank.
    [[nodiscard]] int dataCount() const;
    /// The first other used row with the key of this row in the primary column, blind to case and
    /// to blanks around it; −1 for none. Switches painting on. Throws GridError outside the grid.
    [[nodiscard]] int findDuplicate(int row) const;
    /// While the control's design is being edited on a property page, numbering the rows blanks
    /// fixed columns.
    [[nodiscard]] bool PageEditing() const noexcept { return PageEditing_; }
    void setPageEditing(bool editing) noexcept { PageEditing_ = editing; }
    /// Shows 1, 2, 3 … in the auto-number columns.
    void RenumberFixedColumns();
    /// Notes, from now on, which columns hold numbers. For whoever is about to change settings.
    void watchNumbers();
    /// Begins anew where that is under way, since columns have changed their places.
    void rewatchNumbers();
    /// Blanks the data cells of columns that held numbers since watchNumbers(), if only for a
    /// moment, and are no auto-number columns now.
    void blankFormerNumbers();

private:
    /// What insert and remove end with: numbers, cursor, event.
    void finishMove(int row);
    [[nodiscard]] int firstTaggedCol() const noexcept;
    void bringCursorTo(CellAddress cell);
    /// Whatever was tagged where a blank row stands now.
    void forgetTags(int row);
    [[nodiscard]] std::uint64_t writes() const;
    void followByStripes();
    [[nodiscard]] bool isNumbered(int col) const;
    /// The last row with a key; asks nobody anything.
    [[nodiscard]] int filledRows() const;
    [[nodiscard]] std::vector<bool> numberedCols() const;
    /// RenumberFixedColumns without its care for painting and blank columns.
    void number();
    /// The row that insert and remove act on; −1 for none. Its mark is taken off, or set where
    /// there was none. Nothing when a handler began an edit meanwhile, which goes first.
    [[nodiscard]] std::optional<int> takeMark();

    ControlState &state_;
    Marker &marker_;
    Appearance &appearance_;
    std::shared_ptr<TMatrix> CellTag_ = std::make_shared<TMatrix>();
    bool IsClearing_ = false;
    bool PageEditing_ = false;
    /// What a clear wiped, and how much had been written when it was over.
    struct Cleared {
        GridTable::Content content;
        std::shared_ptr<TMatrix> tags;
        std::uint64_t writes = 0;
        std::uint64_t shiftStamp = 0;
    };
    std::optional<Cleared> cleared_;
    bool isWatching_ = false;
    /// The columns that have held numbers since watchNumbers().
    std::set<int> numbered_;
};

} // namespace tablio
