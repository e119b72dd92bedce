#include "grid/grid_painter.h"

#include "widget/qt_look.h"
#include "widget/qt_text.h"

#include <QTextLayout>

#include <vector>

namespace tablio::qt {

namespace {

int widthOf(const QStaticText &line) { return qRound(line.size().width()); }

int aligned(int from, int size, int length, Third third) {
    if (third == Third::Near)
        return from;
    // Rounded as a line edit rounds, so that a text stays where it is when its editor opens.
    return third == Third::Middle ? from + (size - length + 1) / 2 : from + size - length;
}

} // namespace

void GridPainter::fill(const PixelRect &area, Colour colour) {
    painter_.fillRect(toQRect(area), toQColor(colour));
}

void GridPainter::tick(const SceneTick &tick) {
    QPolygonF line;
    for (const SceneTick::Point &point : tick.points)
        line << QPointF(point.x, point.y);
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(
        QPen(toQColor(tick.colour), tick.penWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.drawPolyline(line);
    painter_.restore();
}

void GridPainter::text(const SceneText &text) {
    QString shown = toQString(text.text);
    const CellFont &font = fonts_.of(text.font, widget_);
    const QFontMetrics &metrics = font.metrics;
    const PixelRect &inner = text.inner;
    painter_.setPen(toQColor(text.colour));

    QStaticText laidOut = text.hasLineEnds ? QStaticText() : fonts_.laidOut(shown, font);
    const bool isTooWide = text.hasLineEnds || widthOf(laidOut) > inner.width;
    if (isTooWide && text.mayWrap && inner.height >= 2 * metrics.lineSpacing()) {
        drawWrapped(shown, text, font);
        return;
    }
    if (text.hasLineEnds)
        shown = shown.simplified();
    if (isTooWide && text.tooWide == TooWide::Hashes)
        shown = QString(std::max(1, inner.width / metrics.horizontalAdvance(u'#')), u'#');
    else if (isTooWide)
        shown = metrics.elidedText(shown, Qt::ElideRight, inner.width);
    if (isTooWide)
        laidOut = fonts_.laidOut(shown, font);
    const bool isClipped = metrics.height() > text.room.height;
    if (isClipped) {
        painter_.save();
        painter_.setClipRect(toQRect(text.room), Qt::IntersectClip);
    }
    drawLine(laidOut, text, aligned(inner.top, inner.height, metrics.height(), text.down), font);
    if (isClipped)
        painter_.restore();
}

void GridPainter::drawLine(const QStaticText &line, const SceneText &text, int top,
                           const CellFont &font) {
    if (painterFont_ != &font) {
        painter_.setFont(font.font);
        painterFont_ = &font;
    }
    const int left = aligned(text.inner.left, text.inner.width, widthOf(line), text.across);
    painter_.drawStaticText(left, top, line);
}

void GridPainter::drawWrapped(const QString &shown, const SceneText &text, const CellFont &font) {
    const QFontMetrics &metrics = font.metrics;
    const PixelRect &room = text.inner;
    const int most = std::max(1, room.height / metrics.lineSpacing());
    QString source = shown;
    source.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(source, font.font, painter_.device());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    std::vector<QString> lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(room.width);
        const bool isLast = static_cast<int>(lines.size()) + 1 == most;
        const bool goesOn = line.textStart() + line.textLength() < source.size();
        if (isLast && goesOn) {
            const QString rest = source.mid(line.textStart()).simplified();
            lines.push_back(metrics.elidedText(rest, Qt::ElideRight, room.width));
            break;
        }
        lines.push_back(source.mid(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
    const int height = static_cast<int>(lines.size()) * metrics.lineSpacing();
    int top = aligned(room.top, room.height, height, text.down);
    for (const QString &line : lines) {
        drawLine(fonts_.laidOut(line, font), text, top, font);
        top += metrics.lineSpacing();
    }
}

} // namespace tablio::qt
