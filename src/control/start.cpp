#include "control/start.h"

#include <algorithm>
#include <limits>

namespace tablio {

namespace {

/// What a row keeps free above and below its text.
constexpr Twips rowPadding = 90;

} // namespace

void Start::appear() {
    const bool isUntouched = isCursorUntouched();
    stamp_.reset();
    FlexGrid &grid = state_.grid;
    const CellAddress first{grid.table.FixedRows(), state_.settings.PrimaryColumn};
    if (!isUntouched || !grid.table.hasCell(first.row, first.col))
        return;
    // The host hears of the cell when the keyboard comes to it.
    grid.setCurrentQuietly(first);
    state_.cursor.enter(first);
}

void Start::setTextHeight(Twips height) {
    textHeight_ = std::clamp(height, 0, std::numeric_limits<std::int16_t>::max() - rowPadding);
    if (state_.grid.table.RowHeightMin() == fittedHeight_)
        fitRows();
}

void Start::letRowsFollowText() {
    if (textHeight_ > 0)
        fitRows();
}

void Start::fitRows() {
    fittedHeight_ = std::max(textHeight_ + rowPadding, GridTable::defaultRowHeight);
    state_.grid.table.setRowHeightMin(fittedHeight_);
}

} // namespace tablio
