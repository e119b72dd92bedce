#pragma once

/// The first moments of a control on a face: where the cursor stands before anybody has moved it,
/// and rows that are as high as the face's text needs while nobody has set another height.

#include "state/control_state.h"

#include <cstdint>
#include <optional>

namespace tablio {

class Start {
public:
    explicit Start(ControlState &state) : state_(state) {}

    /// The cursor stands where the control itself has put it.
    void leaveCursor() { stamp_ = state_.grid.cursorStamp(); }
    [[nodiscard]] bool isCursorUntouched() const { return stamp_ == state_.grid.cursorStamp(); }
    /// The control comes into sight: an untouched cursor goes where entry starts, once.
    void appear();

    /// A line of the face's own text is that high.
    void setTextHeight(Twips height);
    [[nodiscard]] bool rowsFollowText() const {
        return textHeight_ > 0 && state_.grid.table.RowHeightMin() == fittedHeight_;
    }
    [[nodiscard]] Twips textHeight() const noexcept { return textHeight_; }
    /// From now on, until somebody sets another height.
    void letRowsFollowText();

private:
    void fitRows();

    ControlState &state_;
    /// Of the cursor, until the control first appears.
    std::optional<std::uint64_t> stamp_;
    Twips textHeight_ = 0;
    Twips fittedHeight_ = 0;
};

} // namespace tablio
