#pragma once

/// Draws the scene of a grid with a QPainter, which must be scaled so that one unit is one device
/// pixel. It measures texts and breaks them into lines; what is drawn where, the core has decided.

#include "grid/cell_fonts.h"

#include <tablio/scene.h>

#include <QPainter>

namespace tablio::qt {

class GridPainter final : public ScenePainter {
public:
    /// Fonts follow the widget's own.
    GridPainter(QPainter &painter, const QWidget &widget, CellFonts &fonts)
        : painter_(painter), widget_(widget), fonts_(fonts) {}

    void fill(const PixelRect &area, Colour colour) override;
    void text(const SceneText &text) override;
    void tick(const SceneTick &tick) override;

private:
    void drawLine(const QStaticText &line, const SceneText &text, int top, const CellFont &font);
    void drawWrapped(const QString &shown, const SceneText &text, const CellFont &font);

    QPainter &painter_;
    const QWidget &widget_;
    CellFonts &fonts_;
    const CellFont *painterFont_ = nullptr;
};

} // namespace tablio::qt
