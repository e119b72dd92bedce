#include "grid/cell_fonts.h"

#include "widget/qt_text.h"

#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <utility>

namespace tablio::qt {

QFont completedFont(const tablio::Font &font, const QWidget &widget) {
    QFont completed = widget.font();
    if (!font.name.empty())
        completed.setFamily(toQString(font.name));
    if (font.size > 0)
        completed.setPointSizeF(static_cast<qreal>(font.size));
    if (font.bold)
        completed.setBold(true);
    if (font.italic)
        completed.setItalic(true);
    if (font.underline)
        completed.setUnderline(true);
    if (font.strikethrough)
        completed.setStrikeOut(true);
    if (font.weight > 0)
        completed.setWeight(static_cast<QFont::Weight>(font.weight));
    return completed;
}

void CellFonts::setRatio(qreal ratio) {
    if (ratio == ratio_)
        return;
    ratio_ = ratio;
    clear();
}

void CellFonts::clear() { fonts_.clear(); }

CellFont &CellFonts::of(const tablio::Font &font, const QWidget &widget) {
    const auto found = std::ranges::find(fonts_, font, &CellFont::asked);
    if (found != fonts_.end())
        return *found;
    QFont scaled = completedFont(font, widget);
    // Points can be fractions where pixels cannot.
    const qreal points = scaled.pointSizeF() > 0 ? scaled.pointSizeF()
                                                 : scaled.pixelSize() * 72.0 / widget.logicalDpiY();
    scaled.setPointSizeF(points * ratio_);
    return fonts_.emplace_back(CellFont{font, scaled, QFontMetrics(scaled, &widget), {}});
}

const LaidOutText &CellFonts::laidOut(std::string_view text, CellFont &font,
                                      const QWidget &widget) {
    if (const auto known = font.texts.find(text); known != font.texts.end())
        return known->second;
    if (font.texts.size() >= mostTexts)
        font.texts.clear();
    QTextLayout layout(toQString(text), font.font, &widget);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    // The text's own direction, not the program's.
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    LaidOutText made;
    made.width = line.isValid() ? qRound(line.naturalTextWidth()) : 0;
    for (const QGlyphRun &run : layout.glyphRuns())
        made.parts.push_back({run, run.rawFont(), run.glyphIndexes(), run.positions(),
                              run.underline() || run.strikeOut() || run.overline()});
    return font.texts.emplace(text, std::move(made)).first->second;
}

} // namespace tablio::qt
