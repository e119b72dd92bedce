#pragma once

/// Draws the scene of a grid with GDI, one unit a device pixel. It measures texts and breaks them
/// into lines; what is drawn where, the core has decided.

#include "window/painting/cell_fonts.h"

#include <tablio/scene.h>

#include <windows.h>

#include <string>

namespace tablio::com {

[[nodiscard]] inline RECT toRect(const PixelRect &area) noexcept {
    return {area.left, area.top, area.right(), area.bottom()};
}

/// Where a line of this length begins in such a room.
[[nodiscard]] constexpr int aligned(int from, int size, int length, Third third) noexcept {
    if (third == Third::Near)
        return from;
    return third == Third::Middle ? from + (size - length + 1) / 2 : from + size - length;
}

class GdiPainter final : public ScenePainter {
public:
    GdiPainter(HDC device, CellFonts &fonts);
    ~GdiPainter() override;
    GdiPainter(const GdiPainter &) = delete;
    GdiPainter &operator=(const GdiPainter &) = delete;

    void fill(const PixelRect &area, Colour colour) override;
    void text(const SceneText &text) override;
    void tick(const SceneTick &tick) override;

private:
    void drawLine(std::wstring_view line, const SceneText &text, int top);
    void drawWrapped(const SceneText &text);
    /// As much of it as there is room for, with dots at its end.
    [[nodiscard]] std::wstring dotted(std::wstring_view line, int room) const;
    /// The number of characters that fit, at least one.
    [[nodiscard]] std::size_t fitting(std::wstring_view line, int room) const;

    HDC device_;
    CellFonts &fonts_;
    const CellFont *font_ = nullptr;
    int saved_;
    std::wstring shown_;
};

} // namespace tablio::com
