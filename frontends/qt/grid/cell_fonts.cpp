#include "grid/cell_fonts.h"

#include "widget/qt_text.h"

#include <QTextOption>

#include <algorithm>

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

void CellFonts::clear() {
    texts_.clear();
    fonts_.clear();
}

const CellFont &CellFonts::of(const tablio::Font &font, const QWidget &widget) {
    const auto found = std::ranges::find(fonts_, font, &CellFont::asked);
    if (found != fonts_.end())
        return *found;
    QFont scaled = completedFont(font, widget);
    // Points can be fractions where pixels cannot.
    const qreal points = scaled.pointSizeF() > 0 ? scaled.pointSizeF()
                                                 : scaled.pixelSize() * 72.0 / widget.logicalDpiY();
    scaled.setPointSizeF(points * ratio_);
    return fonts_.emplace_back(CellFont{font, scaled, QFontMetrics(scaled, &widget)});
}

QStaticText CellFonts::laidOut(const QString &text, const CellFont &font) {
    const std::pair key(&font, text);
    if (const QStaticText *known = texts_.object(key))
        return *known;
    QStaticText made(text);
    made.setTextFormat(Qt::PlainText);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    // The text's own direction, not the program's.
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    made.setTextOption(option);
    made.prepare(QTransform(), font.font);
    texts_.insert(key, new QStaticText(made));
    return made;
}

} // namespace tablio::qt
