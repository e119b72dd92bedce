#include "editing/edit_session.h"

#include "model/text/date_text.h"
#include "model/text/number_text.h"
#include "model/text/trim.h"

#include <utility>

namespace tablio {

void EditSession::begin(const EditStart &start) {
    end();
    ControlState &state = state_;
    const CellAddress cell = state.cursor.cell();
    if (!state.grid.table.hasCell(cell.row, cell.col) || state.grid.isFixed(cell.row, cell.col))
        return;
    cell_ = cell;
    const std::uint64_t shiftStamp = state.grid.table.shiftStamp();
    const std::uint64_t count = count_;
    // A handler that took the rows, the cursor or the session elsewhere has answered by that.
    const auto isStillAsked = [&] {
        return !state.link.isClosed() && count == count_ && state.cursor.cell() == cell &&
               shiftStamp == state.grid.table.shiftStamp() &&
               state.grid.table.hasCell(cell.row, cell.col);
    };

    const bool isEnter = !start.typed && start.key == static_cast<char32_t>(Key::Enter);
    const bool cancelled = state.link.EditPreValidation(cell);
    if (!isStillAsked())
        return;
    if (cancelled || (isEnter && isFilled(cell))) {
        if (isEnter) {
            navigator_.giveFocusToGrid();
            navigator_.advanceUnedited();
        }
        return;
    }
    marker_.unmark();
    if (!isStillAsked())
        return;

    state.grid.setCurrentQuietly(cell);
    state.grid.view.ensureVisible(cell.row, cell.col);
    CellEditor &editor = editorFor_(state.columns.ColEditType(cell.col));
    const std::uint64_t number = ++count_;
    open_ = OpenEdit{number, &editor, cell, cells_.content(cell), shiftStamp, false};
    LastKey_ = static_cast<std::int16_t>(start.key);
    const Rect place = state.grid.view.cellRect(cell.row, cell.col);
    const bool withLookup =
        start.withLookup && state.columns.ColEditType(cell.col) != TColumnType::ColumnDate;
    editor.place(place, cell.col, withLookup);
    if (withLookup)
        showLookupButton(place);
    editor.load(start, cell.col, cells_.read(cell.row, cell.col));

    const bool autoButton =
        !start.typed && start.key == static_cast<char32_t>(Key::F10) && !start.noAutoButton;
    if (autoButton && isOpen(number)) {
        if (withLookup)
            pressLookup();
        else
            editor.pressButton();
    }
}

bool EditSession::isFilled(CellAddress cell) const {
    const std::string text = cells_.read(cell.row, cell.col);
    if (state_.columns.isNumeric(cell.col))
        return !textToDecimal(text, state_.link.face().numberFormat()).isZero();
    if (state_.columns.ColEditType(cell.col) == TColumnType::ColumnDate)
        return !IsBlankDate(text);
    return !trimmed(text).empty();
}

void EditSession::end() {
    if (open_)
        navigator_.giveFocusToGrid();
}

void EditSession::leave(const std::function<void()> &move) {
    if (!open_)
        return;
    const CellAddress cell = open_->cell;
    if (state_.grid.table.hasCell(cell.row, cell.col))
        state_.grid.setCurrentQuietly(cell);
    const std::uint64_t cursorStamp = state_.grid.cursorStamp();
    const std::uint64_t shiftStamp = state_.grid.table.shiftStamp();
    navigator_.giveFocusToGrid();
    if (!state_.link.isClosed() && !open_ && cursorStamp == state_.grid.cursorStamp() &&
        shiftStamp == state_.grid.table.shiftStamp() &&
        state_.grid.table.hasCell(cell.row, cell.col))
        move();
}

bool EditSession::reportChange(const CellEditor &editor, std::string_view text) {
    if (!open_ || open_->editor != &editor)
        return false;
    const std::uint64_t number = open_->number;
    state_.link.EditOnChange(open_->cell, text);
    if (isOpen(number))
        state_.link.TableChange();
    return isOpen(number);
}

std::optional<OpenEdit> EditSession::detach(const CellEditor &editor) {
    if (!open_ || open_->editor != &editor)
        return std::nullopt;
    std::optional<OpenEdit> edit = std::move(open_);
    open_.reset();
    return edit;
}

void EditSession::finish(const OpenEdit &edit, const EditResult &result) {
    GridTable &table = state_.grid.table;
    const auto isSameCell = [&] {
        return table.hasCell(edit.cell.row, edit.cell.col) && edit.shiftStamp == table.shiftStamp();
    };
    state_.widgets.cmdLookup.setVisible(false);
    if (!edit.restored && isSameCell())
        cells_.write(edit.cell.row, edit.cell.col, result.written);
    const bool accepted = state_.link.EditPostValidation(edit.cell, result.valid, result.oldText,
                                                         result.newText, LastKey_);
    if (result.valid && !accepted && isSameCell()) {
        cells_.putBack(edit.cell, edit.before);
    }
}

void EditSession::pressLookup() {
    state_.link.EditLookup(cell_);
    if (!state_.link.isClosed())
        navigator_.giveFocusToGrid();
}

void EditSession::cancel(const std::function<void()> &showOldText) {
    const RedrawOff redrawOff(state_.grid);
    giveUp();
    showOldText();
    navigator_.giveFocusToGrid();
}

void EditSession::reposition() {
    if (!open_ || !state_.grid.table.hasCell(open_->cell.row, open_->cell.col))
        return;
    const Rect place = state_.grid.view.cellRect(open_->cell.row, open_->cell.col);
    open_->editor->follow(place);
    PlainWidget &button = state_.widgets.cmdLookup;
    button.moveTo(place.right() - button.Width(), place.top);
}

void EditSession::showLookupButton(const Rect &cell) {
    PlainWidget &button = state_.widgets.cmdLookup;
    button.setPlace({cell.right() - button.Width(), cell.top, button.Width(), cell.height});
    button.setVisible(true);
}

} // namespace tablio
