#pragma once

/// What the operator does to the grid itself while the keyboard is on it: which keys and clicks
/// start an edit, clear a cell, copy and paste, and how the mouse moves the cursor and the column
/// borders.

#include "editing/cell_replacement.h"
#include "editing/edit_session.h"
#include "rows/check_column.h"

#include <tablio/input.h>

namespace tablio {

class GridInput {
public:
    GridInput(ControlState &state, EditSession &session, Navigator &navigator,
              CellReplacement &replacement, CheckColumn &checks)
        : state_(state), session_(session), navigator_(navigator), replacement_(replacement),
          checks_(checks) {}

    Dealt keyDown(KeyCode key, ShiftState shift);
    Dealt keyPress(char32_t character);
    Dealt beginComposition();
    /// A character comes that no key went down for.
    void expectNewKey() noexcept { dropsNextKeyPress_ = false; }

    [[nodiscard]] bool offers(CellAddress cell, CellAction action) const;
    Dealt act(CellAddress cell, CellAction action);

    void mouseDown(MouseButton button, Twips x, Twips y);
    void mouseMove(Twips x);
    void mouseUp(MouseButton button, Twips x, Twips y);
    void doubleClick(Twips x, Twips y);
    [[nodiscard]] bool isColumnEdge(Twips x, Twips y) const;

private:
    struct ColumnDrag {
        int col = 0;
        /// Where the column begins, which stays where it is.
        Twips start = 0;
    };

    [[nodiscard]] bool actOn(KeyCode key, ShiftState shift);
    bool startEdit(bool typed, char32_t key);
    void clearCell();
    void paste();
    void copy();
    void popUpMenuAtCell();
    [[nodiscard]] bool isDataCell(CellAddress cell) const;
    [[nodiscard]] bool isEditable(CellAddress cell) const;

    ControlState &state_;
    EditSession &session_;
    Navigator &navigator_;
    CellReplacement &replacement_;
    CheckColumn &checks_;
    std::optional<ColumnDrag> drag_;
    /// A key that went down has been dealt with: the character that it types is dropped.
    bool dropsNextKeyPress_ = false;
    /// The second click of a double click is none of its own.
    bool dropsNextClick_ = false;
};

} // namespace tablio
