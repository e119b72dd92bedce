#pragma once

/// Paints the visible cells of a grid, in whole device pixels. The painter it is given must be
/// scaled so that one unit is one device pixel. It changes nothing.

#include "grid/cell_fonts.h"
#include "grid/device_pixels.h"
#include "grid/palette_colours.h"

#include "state/control_state.h"

#include <QPainter>
#include <QRegion>

#include <optional>
#include <vector>

namespace tablio::qt {

/// What the paint depends on besides the grid.
struct GridScene {
    const ControlState &state;
    PaletteColours colours;
    DevicePixels pixels;
    /// Where fonts come from.
    const QWidget &widget;
    bool hasKeyboard = false;
    /// The cell under the open editor: it is painted without its text.
    std::optional<CellAddress> edited;
};

class GridPainter {
public:
    GridPainter(QPainter &painter, const GridScene &scene, CellFonts &fonts)
        : painter_(painter), scene_(scene), grid_(scene.state.grid), look_(grid_.table.look()),
          pixels_(scene.pixels), fonts_(fonts) {}

    /// Paints what lies in the region, which is in device pixels.
    void paint(const QRegion &region);

private:
    void paintGround(const QRect &area, const std::vector<GridView::Span> &rows,
                     const std::vector<GridView::Span> &cols);
    void paintCell(CellAddress cell, const QRect &place);
    void paintLines(bool isFixed, const QRect &place);
    void paintText(CellAddress cell, const QRect &room, Colour background);
    void paintFocus(const QRect &room, const QColor &fill, const QColor &text);
    void paintTick(const QRect &room, const QColor &colour);
    [[nodiscard]] bool isTick(CellAddress cell) const;
    void frame(const QRect &outer, int width, const QColor &colour);
    void drawLine(const QString &text, const QRect &room, int top, int column,
                  const CellFont &font);
    void drawWrapped(const QString &text, const QRect &room, int column, int row,
                     const CellFont &font);
    [[nodiscard]] bool isCurrent(CellAddress cell) const;

    QPainter &painter_;
    const GridScene &scene_;
    const FlexGrid &grid_;
    const GridLook &look_;
    DevicePixels pixels_;
    CellFonts &fonts_;
    const CellFont *painterFont_ = nullptr;
};

} // namespace tablio::qt
