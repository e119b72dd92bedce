#pragma once

/// Where things stood before a call into the host, who may do anything meanwhile: clear the table,
/// open another edit, move the cursor, destroy the control. Whoever raises an event asks afterwards
/// what is still so; nobody compares stamps of his own.

#include "state/control_state.h"

namespace tablio {

class EditSession;

class Standing {
public:
    Standing(const ControlState &state, const EditSession &session, CellAddress cell);

    /// The control lives, and the cell's address means the cell that it meant.
    [[nodiscard]] bool isSameCell() const noexcept;
    /// The control lives, and the edit that was open still is; where none was, none is.
    [[nodiscard]] bool isSameEdit() const noexcept;
    /// The control lives, and nobody has set the cursor, not even to where it stood.
    [[nodiscard]] bool isSameCursor() const noexcept;
    [[nodiscard]] bool isClosed() const noexcept { return state_->link.isClosed(); }
    [[nodiscard]] CellAddress cell() const noexcept { return cell_; }

private:
    const ControlState *state_;
    const EditSession *session_;
    CellAddress cell_;
    EditNumber edit_;
    std::uint64_t shiftStamp_;
    std::uint64_t cursorStamp_;
};

} // namespace tablio
