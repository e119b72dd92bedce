#include "editing/edit_session.h"

#include "editing/box_editor.h"
#include "model/text/date_text.h"
#include "model/text/number_text.h"
#include "model/text/trim.h"

#include <utility>

namespace tablio {

void EditSession::BeginCellEdit(const EditStart &start) {
    EndCellEdit();
    // A handler that opened another edit has answered by that.
    if (isOpen())
        return;
    const CellAddress cell = state_.cursor.cell();
    if (!state_.grid.table.hasCell(cell.row, cell.col) || state_.grid.isFixed(cell.row, cell.col))
        return;
    cell_ = cell;
    const Standing asked(state_, *this, cell);
    // A handler that took the rows, the cursor or the session elsewhere has answered by that.
    const auto isStillAsked = [&] {
        return asked.isSameCell() && asked.isSameEdit() && state_.cursor.cell() == cell;
    };

    const bool isEnter = !start.Typed && start.Key == static_cast<char32_t>(Key::Enter);
    const bool cancelled = state_.link.EditPreValidation(cell);
    if (!isStillAsked())
        return;
    if (cancelled || (isEnter && isFilled(cell))) {
        if (isEnter) {
            giveFocusToGrid();
            navigator_.advanceUnedited();
        }
        return;
    }
    marker_.unmark();
    if (!isStillAsked())
        return;

    // A handler may have asked for another cell's edit and been refused.
    cell_ = cell;
    state_.grid.setCurrentQuietly(cell);
    state_.grid.claimCursor();
    state_.grid.view.ensureVisible(cell.row, cell.col);
    BoxEditor &editor = editorFor_(state_.columns.ColEditType(cell.col));
    const EditNumber number = ++count_;
    open_ = OpenEdit{number, &editor, Standing(state_, *this, cell), cells_.content(cell), true,
                     false,  {}};
    LastKey_ = static_cast<std::int16_t>(start.Key);
    editor.open(start, state_.grid.view.cellRect(cell.row, cell.col),
                cells_.read(cell.row, cell.col));
    state_.grid.view.invalidateFramed(cell.row, cell.col);
    const bool autoButton =
        !start.Typed && start.Key == static_cast<char32_t>(Key::F10) && !start.NoAutoButton;
    if (autoButton && openEdit() == number)
        editor.pressButton();
}

bool EditSession::isFilled(CellAddress cell) const {
    const std::string text = cells_.read(cell.row, cell.col);
    if (state_.columns.isNumeric(cell.col))
        return !textToDecimal(text, state_.link.face().numberFormat()).isZero();
    if (state_.columns.ColEditType(cell.col) == TColumnType::ColumnDate)
        return !IsBlankDate(text);
    return !trimmed(text).empty();
}

bool EditSession::EndCellEdit(bool Accept, std::optional<WidgetId> keyboardTo) {
    if (!open_)
        return false;
    // From here on the edit is over, whatever handlers do.
    const OpenEdit edit = *std::exchange(open_, std::nullopt);
    const CellAddress cell = edit.begun.cell();
    const std::string oldText = edit.editor->oldText();
    const bool isUntouched = !edit.isTouched && state_.rules().keepsUntouched;
    const EditResult result = edit.answer   ? *edit.answer
                              : isUntouched ? EditResult{std::nullopt, oldText, false}
                                            : edit.editor->result(Accept && edit.accepts);
    edit.editor->hide();
    if (edit.begun.isSameCell())
        state_.grid.view.invalidateFramed(cell.row, cell.col);
    state_.focus.pass(keyboardTo);
    const Standing ended(state_, *this, cell);
    if (result.written && edit.begun.isSameCell())
        cells_.write(cell.row, cell.col, *result.written);
    const bool accepted =
        state_.link.EditPostValidation(cell, result.valid, oldText, result.newText, LastKey_);
    const bool isRefused = result.valid && !accepted && edit.begun.isSameCell();
    wasTaken_ = !result.dropsText && !isRefused;
    if (isRefused)
        cells_.putBack(cell, edit.before);
    if (isRefused)
        refused_ = ended;
    else if (refused_ && refused_->cell() == cell)
        refused_.reset();
    if (isRefused)
        state_.grid.view.invalidateCell(cell.row, cell.col);
    if (keyboardTo)
        state_.focus.arrive(*keyboardTo);
    return ended.isSameCell() && ended.isSameEdit() && ended.isSameCursor();
}

void EditSession::settle() {
    EndCellEdit();
    EndCellEdit();
    const auto quiet = state_.link.quiet();
    EndCellEdit(false);
}

bool EditSession::commit() {
    const Standing before(state_, *this, cell_);
    wasTaken_ = true;
    EndCellEdit();
    // A handler that opens an edit again has not taken the text.
    return !before.isClosed() && wasTaken_ && !isOpen();
}

void EditSession::RepositionEditor() {
    if (!open_)
        return;
    if (!open_->begun.isSameCell()) {
        open_->answer = EditResult{std::nullopt, open_->editor->oldText(), false};
        EndCellEdit();
        return;
    }
    const Rect cell = state_.grid.view.cellRect(EditRow(), EditCol());
    if (cell.width > 0 && cell.height > 0)
        open_->editor->follow(cell);
    else
        EndCellEdit();
}

void EditSession::giveFocusToGrid() {
    if (open_)
        EndCellEdit();
    else
        state_.focus.set(WidgetId::Grid);
}

void EditSession::leave(const std::function<void()> &move) {
    if (open_ && open_->begun.isSameCell())
        state_.grid.setCurrentQuietly(cell_);
    if (EndCellEdit())
        move();
}

bool EditSession::cancel() {
    if (!open_)
        return true;
    const RedrawOff redrawOff(state_.grid);
    const Standing cancelled(state_, *this, cell_);
    giveUp();
    open_->editor->restore();
    return cancelled.isSameEdit() && EndCellEdit(false);
}

void EditSession::giveUp() noexcept {
    if (open_)
        open_->accepts = false;
}

void EditSession::answer(EditResult result, const std::function<void()> &move) {
    if (!open_)
        return;
    open_->answer = std::move(result);
    LastKey_ = Key::Enter;
    leave(move);
}

bool EditSession::reportChange(std::string_view text) {
    if (!open_)
        return false;
    open_->isTouched = true;
    const Standing changed(state_, *this, cell_);
    state_.link.EditOnChange(cell_, text);
    if (changed.isSameEdit())
        state_.link.TableChange();
    return changed.isSameEdit() && open_->accepts;
}

void EditSession::askLookup() {
    const Standing asked(state_, *this, cell_);
    state_.link.EditLookup(cell_);
    if (asked.isSameEdit())
        giveFocusToGrid();
}

void EditSession::pressLookup() {
    EndCellEdit(true, WidgetId::cmdLookup);
    if (state_.focus.owner() == WidgetId::cmdLookup)
        askLookup();
}

} // namespace tablio
