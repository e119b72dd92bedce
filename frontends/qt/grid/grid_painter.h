#pragma once

/// Draws the scene of a grid with a QPainter, which must be scaled so that one unit is one device
/// pixel. It measures texts and breaks them into lines; what is drawn where, the core has decided.

#include "grid/cell_fonts.h"

#include <tablio/scene.h>

#include <QPainter>
#include <QRawFont>

#include <vector>

namespace tablio::qt {

class GridPainter final : public ScenePainter {
public:
    /// Fonts follow the widget's own.
    GridPainter(QPainter &painter, const QWidget &widget, CellFonts &fonts)
        : painter_(painter), widget_(widget), fonts_(fonts) {}

    ~GridPainter() override { flushTexts(); }
    GridPainter(const GridPainter &) = delete;
    GridPainter &operator=(const GridPainter &) = delete;

    void fill(const PixelRect &area, Colour colour) override;
    void text(const SceneText &text) override;
    void tick(const SceneTick &tick) override;

private:
    void drawLine(const LaidOutText &line, const SceneText &text, int top);
    void drawWrapped(const QString &shown, const SceneText &text, CellFont &font);
    /// Texts side by side are drawn together, before anything else: each call of the painter costs
    /// as much as a text.
    void flushTexts();

    QPainter &painter_;
    const QWidget &widget_;
    CellFonts &fonts_;
    /// What waits to be drawn.
    QRawFont glyphFont_;
    Colour glyphColour_;
    std::vector<quint32> glyphs_;
    std::vector<QPointF> places_;
};

} // namespace tablio::qt
