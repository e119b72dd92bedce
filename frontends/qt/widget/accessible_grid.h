#pragma once

/// What a screen reader is told about a grid.

namespace tablio::qt {

/// Makes Qt describe each TablioWidget as a table. Further calls do nothing.
void installAccessibleGrids();

} // namespace tablio::qt
