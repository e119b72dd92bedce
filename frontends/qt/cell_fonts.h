#pragma once

/// The fonts of cells in device pixels, with what is asked of them for every cell. A table has few
/// fonts, however many cells it has.

#include <tablio/types.h>

#include <QFont>
#include <QFontMetrics>
#include <QWidget>

#include <deque>

namespace tablio::qt {

struct CellFont {
    tablio::Font asked;
    QFont font;
    QFontMetrics metrics;
};

class CellFonts {
public:
    /// The fonts are of this scale from now on.
    void setRatio(qreal ratio);
    void clear() { fonts_.clear(); }
    /// What is empty in the font follows the widget's own.
    [[nodiscard]] const CellFont &of(const tablio::Font &font, const QWidget &widget);

private:
    /// References stay valid while fonts are added.
    std::deque<CellFont> fonts_;
    qreal ratio_ = 1;
};

} // namespace tablio::qt
