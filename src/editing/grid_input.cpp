#include "editing/grid_input.h"

#include "editing/box_editor.h"
#include "state/column_fit.h"

#include <tablio/members.h>

#include <algorithm>
#include <utility>

namespace tablio {

namespace {

constexpr Twips edgeTolerance = 60;
constexpr Twips narrowestColumn = 60;

} // namespace

Dealt GridInput::keyDown(KeyCode key, ShiftState shift) {
    dropsNextKeyPress_ = false;
    const KeyCode answered = state_.link.TableKeyDown(key, shift, state_.grid.current());
    if (state_.link.isClosed())
        return Dealt::Yes;
    dropsNextKeyPress_ = answered == 0 || actOn(state_.inOrder(answered), shift);
    return dropsNextKeyPress_ ? Dealt::Yes : Dealt::No;
}

bool GridInput::actOn(KeyCode key, ShiftState shift) {
    const bool plain = shift == Shift::None;
    const bool ctrl = shift == Shift::Ctrl;
    if (plain && (key == Key::F2 || key == Key::F10))
        return startEdit(false, static_cast<char32_t>(key));
    if (plain && key == Key::Enter) {
        if (!startEdit(false, static_cast<char32_t>(key)))
            navigator_.advanceUnedited();
        return true;
    }
    if (plain && key == Key::Space && checks_.toggleCurrent())
        return true;
    if ((plain && key == Key::Menu) || (shift == Shift::Shift && key == Key::F10)) {
        popUpMenuAtCell();
        return true;
    }
    if (key == Key::Tab && state_.walksByTab(shift)) {
        const bool back = shift == Shift::Shift;
        const bool walks = navigator_.canWalk(back);
        navigator_.walk(back);
        return walks;
    }
    if (ctrl && key == Key::Z && replacement_.undoClear())
        return true;
    if (plain && key == Key::Delete) {
        clearCell();
        return true;
    }
    if (ctrl && (key == Key::C || key == Key::Insert)) {
        copy();
        return true;
    }
    if ((ctrl && key == Key::V) || (shift == Shift::Shift && key == Key::Insert)) {
        paste();
        return true;
    }
    return navigator_.keyDown(key, shift);
}

Dealt GridInput::keyPress(char32_t character) {
    if (dropsNextKeyPress_) {
        dropsNextKeyPress_ = false;
        return Dealt::Yes;
    }
    if (character < U' ' || character == 0x7F)
        return Dealt::No;
    return startEdit(true, character) ? Dealt::Yes : Dealt::No;
}

Dealt GridInput::beginComposition() {
    startEdit(true, 0);
    return session_.isOpen() ? Dealt::Yes : Dealt::No;
}

/// Answers whether the cell can be edited at all; the host may still have said no.
bool GridInput::startEdit(bool typed, char32_t key) {
    const CellAddress cell = state_.grid.current();
    if (!isEditable(cell))
        return false;
    state_.cursor.enter(cell);
    const bool withLookup =
        state_.columns.ColStyle(cell.col) == TColumnStyle::ColumnInputWithLookup;
    // A date box is given the character as a key; other editors are loaded with it.
    const bool replaces =
        typed && (withLookup || state_.columns.ColEditType(cell.col) != TColumnType::ColumnDate);
    session_.BeginCellEdit({replaces, key, withLookup, typed && withLookup});
    return true;
}

void GridInput::clearCell() {
    const CellAddress cell = state_.grid.current();
    if (!isEditable(cell))
        return;
    // A picture may show nothing of a number that is there, or digits where none is.
    const GridTable &table = state_.grid.table;
    if (!table.TextMatrix(cell.row, cell.col).empty() ||
        !table.CellData(cell.row, cell.col).empty())
        replacement_.clear(cell);
}

void GridInput::copy() {
    const CellAddress cell = state_.grid.current();
    if (isDataCell(cell))
        state_.link.setClipboardText(state_.grid.Text());
}

void GridInput::paste() {
    const CellAddress cell = state_.grid.current();
    if (!isEditable(cell))
        return;
    const std::string text = state_.link.clipboardText();
    if (CellReplacement::isBlock(text)) {
        replacement_.pasteBlock(text);
        return;
    }
    startEdit(false, static_cast<char32_t>(Key::F2));
    if (session_.isOpen())
        session_.editor()->paste(text);
}

bool GridInput::offers(CellAddress cell, CellAction action) const {
    if (action == CellAction::Reach || action == CellAction::Tick)
        return isDataCell(cell) && (action == CellAction::Reach || state_.isCheckCell(cell));
    if (!isEditable(cell))
        return false;
    const TColumnType type = state_.columns.ColEditType(cell.col);
    switch (action) {
    case CellAction::OpenList:
        return type == TColumnType::ColumnCombo;
    case CellAction::OpenCalendar:
        return type == TColumnType::ColumnDate;
    case CellAction::LookUp:
        return type != TColumnType::ColumnDate &&
               state_.columns.ColStyle(cell.col) == TColumnStyle::ColumnInputWithLookup;
    default:
        return true;
    }
}

Dealt GridInput::act(CellAddress cell, CellAction action) {
    if (!offers(cell, action))
        return Dealt::No;
    const auto isEdited = [&] { return session_.isOpen() && session_.cell() == cell; };
    if (!isEdited()) {
        // As with a click: who hears of the end may have begun another edit, or gone elsewhere.
        if (session_.isOpen() && !session_.EndCellEdit())
            return Dealt::Yes;
        session_.giveFocusToGrid();
        if (state_.link.isClosed())
            return Dealt::Yes;
        navigator_.jumpTo(cell);
        if (state_.link.isClosed() || cell != state_.grid.current() || !offers(cell, action))
            return Dealt::Yes;
        if (action == CellAction::Tick)
            checks_.toggleCurrent();
        else if (action != CellAction::Reach)
            startEdit(false, static_cast<char32_t>(Key::F2));
    }
    if (!isEdited())
        return Dealt::Yes;
    if (action == CellAction::OpenList)
        state_.widgets.cboEdit.setDroppedDown(true);
    else if (action == CellAction::OpenCalendar || action == CellAction::LookUp)
        session_.editor()->pressButton();
    return Dealt::Yes;
}

void GridInput::mouseDown(MouseButton button, Twips x, Twips y) {
    dropsNextClick_ = false;
    // Who hears the end of the edit may have begun another, or taken the cursor elsewhere.
    if (session_.isOpen() && !session_.EndCellEdit())
        return;
    session_.giveFocusToGrid();
    if (state_.link.isClosed() || button == MouseButton::Middle)
        return;
    const GridView &view = state_.grid.view;
    if (const std::optional<int> edge = view.columnEdgeAt(x, y, edgeTolerance);
        edge && button == MouseButton::Left) {
        const Rect column = view.cellRect(0, *edge);
        drag_ = ColumnDrag{*edge, view.isRightToLeft() ? column.right() : column.left};
        return;
    }
    const std::optional<CellAddress> cell = view.hitTest(x, y);
    if (cell && isDataCell(*cell))
        navigator_.jumpTo(*cell);
}

void GridInput::mouseMove(Twips x) {
    GridTable &table = state_.grid.table;
    if (!drag_ || drag_->col >= table.Cols())
        return;
    const Twips width = state_.grid.view.isRightToLeft() ? drag_->start - x : x - drag_->start;
    table.setColWidth(drag_->col, std::max(width, narrowestColumn));
}

void GridInput::mouseUp(MouseButton button, Twips x, Twips y) {
    if (drag_) {
        drag_.reset();
        stretchColumn(state_);
        state_.link.propertyChanged(Number::ColWidth);
        return;
    }
    if (button == MouseButton::Right && state_.settings.GridPopUpMenu)
        state_.link.face().popUpMenu(x, y);
    if (button == MouseButton::Left && !std::exchange(dropsNextClick_, false))
        checks_.toggleCurrent();
}

void GridInput::popUpMenuAtCell() {
    const CellAddress cell = state_.grid.current();
    if (!state_.settings.GridPopUpMenu || !state_.grid.table.hasCell(cell.row, cell.col))
        return;
    state_.grid.view.ensureVisible(cell.row, cell.col);
    const Rect place = state_.grid.view.cellRect(cell.row, cell.col);
    state_.link.face().popUpMenu(state_.grid.view.isRightToLeft() ? place.right() : place.left,
                                 place.bottom());
}

void GridInput::doubleClick(Twips x, Twips y) {
    if (const auto edge = state_.grid.view.columnEdgeAt(x, y, edgeTolerance)) {
        drag_.reset();
        state_.grid.table.setColWidth(*edge, widthForContents(state_, *edge));
        stretchColumn(state_);
        state_.link.propertyChanged(Number::ColWidth);
        return;
    }
    const std::optional<CellAddress> hit = state_.grid.view.hitTest(x, y);
    if (!hit)
        return;
    dropsNextClick_ = true;
    const Standing clicked(state_, session_, *hit);
    state_.link.DoubleClick(state_.grid.current());
    if (clicked.isSameCursor() && *hit == state_.grid.current())
        startEdit(false, static_cast<char32_t>(Key::F2));
}

bool GridInput::isColumnEdge(Twips x, Twips y) const {
    return state_.grid.view.columnEdgeAt(x, y, edgeTolerance).has_value();
}

bool GridInput::isEditable(CellAddress cell) const {
    return isDataCell(cell) && !state_.isCheckCell(cell) && state_.columns.isInput(cell.col);
}

bool GridInput::isDataCell(CellAddress cell) const {
    return state_.grid.table.hasCell(cell.row, cell.col) &&
           !state_.grid.isFixed(cell.row, cell.col);
}

} // namespace tablio
