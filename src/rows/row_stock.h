#pragma once

/// The stock of rows as a whole: adding, clearing, counting and numbering them. It keeps tags in
/// step with rows and raises one TableChange for each change; it never edits a single cell for the
/// operator.

#include "editing/edit_session.h"
#include "rows/marker.h"
#include "state/appearance.h"

#include <set>
#include <vector>

namespace tablio {

class RowStock {
public:
    RowStock(ControlState &state, EditSession &session, Marker &marker, Appearance &appearance)
        : state_(state), session_(session), marker_(marker), appearance_(appearance) {}

    /// Throws OverflowError, with nothing changed, when the last row would not fit 16 bits.
    void add();
    /// Appends a blank row, numbered like the others; no event, and the cursor stays.
    void append();
    /// Inserts a blank row at the marked row, in exchange for a spare row at the end if there is
    /// one. Throws GridError when no row is marked; the row last entered is then marked.
    void insertAtMark();
    /// Takes the marked row away and appends a blank one. Throws like insertAtMark.
    void removeMarked();
    /// Blanks a row; its automatic number stays and no event is raised.
    void reset(int row);
    void clear();
    /// The last row whose primary cell is not blank.
    [[nodiscard]] int dataCount() const;
    /// Writes 1, 2, 3 … into the auto-number columns.
    void RenumberFixedColumns();
    /// Notes, from now on, which columns hold numbers. For whoever is about to change settings.
    void watchNumbers();
    /// Blanks the data cells of columns that held numbers since watchNumbers(), if only for a
    /// moment, and are no auto-number columns now.
    void blankFormerNumbers();

private:
    /// What insert and remove end with: numbers, cursor, event.
    void finishMove(int row);
    [[nodiscard]] int firstTaggedCol() const noexcept;
    void bringCursorTo(CellAddress cell);
    [[nodiscard]] bool isNumbered(int col) const;
    void writeNumbersAndBlanks(const std::vector<int> &numbered, const std::vector<int> &blanked);

    ControlState &state_;
    EditSession &session_;
    Marker &marker_;
    Appearance &appearance_;
    /// The columns that have held numbers since watchNumbers().
    std::set<int> numbered_;
};

} // namespace tablio
