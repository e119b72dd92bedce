#pragma once

/// How wide a column has to be for what is in it. Asked by hosts and by a double click on its
/// border. Only the longest texts are measured, so that it takes no longer in a long table.

#include "state/control_state.h"

namespace tablio {

/// The least that a column which stretches is left with.
inline constexpr Twips narrowestStretched = 900;

/// The width at which no text of the column is cut, its header included. Throws GridError for a
/// column that the grid does not have.
[[nodiscard]] Twips widthForContents(const ControlState &state, int col);

/// Gives the column that stretches, if there is one, the width that the others leave it.
void stretchColumn(ControlState &state);

} // namespace tablio
