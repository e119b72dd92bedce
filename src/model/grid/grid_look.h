#pragma once

/// How the grid as a whole looks: its colours, font and wrapping. Cells may differ by a
/// `CellStyle`. The names are the grid surface's own.

#include <tablio/types.h>

namespace tablio {

struct GridLook {
    Colour BackColor{0x00FFFFFFU};
    Colour ForeColor = SystemColour::ButtonText;
    Colour BackColorFixed = SystemColour::ButtonFace;
    Colour ForeColorFixed = SystemColour::ButtonText;
    /// The marked row.
    Colour BackColorSel = SystemColour::Highlight;
    Colour ForeColorSel = SystemColour::HighlightText;
    /// Where no cells are.
    Colour BackColorBkg{0x00FFFFFFU};
    Colour GridColor{0x00C0C0C0U};
    Colour GridColorFixed{0x00C0C0C0U};
    tablio::Font Font;
    bool WordWrap = true;

    friend bool operator==(const GridLook &, const GridLook &) = default;
};

} // namespace tablio
