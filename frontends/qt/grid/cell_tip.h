#pragma once

/// What is told of a cell when the mouse rests on it: its text where it is cut, and that its last
/// entry was refused.

#include "grid/cell_fonts.h"

namespace tablio::qt {

class Surroundings;

/// At a place of the canvas, in logical pixels; empty for nothing to tell.
[[nodiscard]] QString tipAt(const QPoint &place, const Surroundings &around, CellFonts &fonts);

} // namespace tablio::qt
