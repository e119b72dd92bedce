#pragma once

/// The fonts of cells in device pixels, with what is asked of them for every cell, and the texts
/// that were lately laid out in them. A table has few fonts, however many cells it has, and one
/// frame shows mostly the same texts as the frame before.

#include <tablio/types.h>

#include <QCache>
#include <QFont>
#include <QFontMetrics>
#include <QStaticText>
#include <QString>
#include <QWidget>

#include <deque>
#include <utility>

namespace tablio::qt {

struct CellFont {
    tablio::Font asked;
    QFont font;
    QFontMetrics metrics;
};

/// What is empty in the font follows the widget's own, in logical size.
[[nodiscard]] QFont completedFont(const tablio::Font &font, const QWidget &widget);

class CellFonts {
public:
    /// The fonts are of this scale from now on.
    void setRatio(qreal ratio);
    void clear();
    /// What is empty in the font follows the widget's own.
    [[nodiscard]] const CellFont &of(const tablio::Font &font, const QWidget &widget);
    /// The text in one line of such a font. The copies share what was laid out.
    [[nodiscard]] QStaticText laidOut(const QString &text, const CellFont &font);

private:
    /// More than the cells of any screen.
    static constexpr int mostTexts = 5000;

    /// References stay valid while fonts are added.
    std::deque<CellFont> fonts_;
    QCache<std::pair<const CellFont *, QString>, QStaticText> texts_{mostTexts};
    qreal ratio_ = 1;
};

} // namespace tablio::qt
