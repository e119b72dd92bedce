#pragma once

/// The fonts of cells in device pixels, with what is asked of them for every cell. A table has few
/// fonts, however many cells it has.

#include <tablio/types.h>

#include <windows.h>

#include <array>
#include <deque>
#include <string_view>

namespace tablio::com {

struct CellFont {
    Font asked;
    HFONT handle = nullptr;
    int height = 0;
    /// Of the characters from the blank to the tilde; without their neighbours, as GDI sets them.
    std::array<int, 95> widths{};

    /// Of one line; the font must be the one that is selected in the device.
    [[nodiscard]] int widthOf(HDC device, std::wstring_view line) const;
};

class CellFonts {
public:
    CellFonts() = default;
    ~CellFonts() { clear(); }
    CellFonts(const CellFonts &) = delete;
    CellFonts &operator=(const CellFonts &) = delete;

    /// What is empty in a font follows this one from now on, and all are of this scale.
    void setDefault(const Font &font, double scale);
    void clear();
    /// Valid until clear() or another default.
    [[nodiscard]] const CellFont &of(const Font &font);

private:
    /// References stay valid while fonts are added.
    std::deque<CellFont> fonts_;
    Font default_;
    double scale_ = 1;
};

} // namespace tablio::com
