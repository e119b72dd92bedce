#pragma once

/// The fonts of cells in device pixels, with what is asked of them for every cell, and the texts
/// that were lately laid out in them. A table has few fonts, however many cells it has, and one
/// frame shows mostly the same texts as the frame before.

#include <tablio/types.h>

#include <QFont>
#include <QFontMetrics>
#include <QGlyphRun>
#include <QRawFont>
#include <QString>
#include <QWidget>

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tablio::qt {

/// A text in one line, as glyphs with their places from its upper left corner.
struct LaidOutText {
    struct Part {
        QGlyphRun run;
        /// The run's own, which it answers as copies.
        QRawFont font;
        QList<quint32> glyphs;
        QList<QPointF> places;
        /// It is underlined or struck through, which belongs to the run as a whole.
        bool isDecorated = false;
    };
    /// One, or some where no font has all of its characters.
    std::vector<Part> parts;
    int width = 0;
};

struct TextHash : std::hash<std::string_view> {
    using is_transparent = void;
};

struct CellFont {
    tablio::Font asked;
    QFont font;
    QFontMetrics metrics;
    std::unordered_map<std::string, LaidOutText, TextHash, std::equal_to<>> texts;
};

/// What is empty in the font follows the widget's own, in logical size.
[[nodiscard]] QFont completedFont(const tablio::Font &font, const QWidget &widget);

class CellFonts {
public:
    /// The fonts are of this scale from now on.
    void setRatio(qreal ratio);
    void clear();
    /// What is empty in the font follows the widget's own.
    [[nodiscard]] CellFont &of(const tablio::Font &font, const QWidget &widget);
    /// The text in one line of such a font, which stays valid until the next one is asked for.
    [[nodiscard]] static const LaidOutText &laidOut(std::string_view text, CellFont &font,
                                                    const QWidget &widget);

private:
    /// More than the cells of any screen.
    static constexpr std::size_t mostTexts = 5000;

    /// References stay valid while fonts are added.
    std::deque<CellFont> fonts_;
    qreal ratio_ = 1;
};

} // namespace tablio::qt
