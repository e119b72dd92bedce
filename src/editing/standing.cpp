#include "editing/standing.h"

#include "editing/edit_session.h"

namespace tablio {

Standing::Standing(const ControlState &state, const EditSession &session, CellAddress cell)
    : state_(&state), session_(&session), cell_(cell), edit_(session.openEdit()),
      shiftStamp_(state.grid.table.shiftStamp()), cursorStamp_(state.grid.cursorStamp()) {}

bool Standing::isSameCell() const noexcept {
    const GridTable &table = state_->grid.table;
    return !state_->link.isClosed() && shiftStamp_ == table.shiftStamp() &&
           table.hasCell(cell_.row, cell_.col);
}

bool Standing::isSameEdit() const noexcept {
    return !state_->link.isClosed() && edit_ == session_->openEdit();
}

bool Standing::isSameCursor() const noexcept {
    return !state_->link.isClosed() && cursorStamp_ == state_->grid.cursorStamp();
}

} // namespace tablio
