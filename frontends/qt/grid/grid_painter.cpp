#include "grid/grid_painter.h"

#include "widget/qt_look.h"
#include "widget/qt_text.h"

#include <QTextLayout>

#include <vector>

namespace tablio::qt {

namespace {

int aligned(int from, int size, int length, Third third) {
    if (third == Third::Near)
        return from;
    // Rounded as a line edit rounds, so that a text stays where it is when its editor opens.
    return third == Third::Middle ? from + (size - length + 1) / 2 : from + size - length;
}

} // namespace

void GridPainter::fill(const PixelRect &area, Colour colour) {
    flushTexts();
    painter_.fillRect(toQRect(area), toQColor(colour));
}

void GridPainter::tick(const SceneTick &tick) {
    flushTexts();
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
    CellFont &font = fonts_.of(text.font, widget_);
    const QFontMetrics &metrics = font.metrics;
    const PixelRect &inner = text.inner;

    const LaidOutText *laidOut =
        text.hasLineEnds ? nullptr : &CellFonts::laidOut(text.text, font, widget_);
    if (laidOut == nullptr || laidOut->width > inner.width) {
        QString shown = toQString(text.text);
        if (text.mayWrap && inner.height >= 2 * metrics.lineSpacing()) {
            drawWrapped(shown, text, font);
            return;
        }
        if (text.hasLineEnds)
            shown = shown.simplified();
        if (text.tooWide == TooWide::Hashes)
            shown = QString(std::max(1, inner.width / metrics.horizontalAdvance(u'#')), u'#');
        else
            shown = metrics.elidedText(shown, Qt::ElideRight, inner.width);
        laidOut = &CellFonts::laidOut(fromQString(shown), font, widget_);
    }
    const bool isClipped = metrics.height() > text.room.height;
    if (isClipped) {
        flushTexts();
        painter_.save();
        painter_.setClipRect(toQRect(text.room), Qt::IntersectClip);
    }
    drawLine(*laidOut, text, aligned(inner.top, inner.height, metrics.height(), text.down));
    if (isClipped) {
        flushTexts();
        painter_.restore();
    }
}

void GridPainter::drawLine(const LaidOutText &line, const SceneText &text, int top) {
    const QPointF corner(aligned(text.inner.left, text.inner.width, line.width, text.across), top);
    for (const LaidOutText::Part &part : line.parts) {
        if (part.isDecorated) {
            flushTexts();
            painter_.setPen(toQColor(text.colour));
            painter_.drawGlyphRun(corner, part.run);
            continue;
        }
        if (text.colour != glyphColour_ || part.font != glyphFont_) {
            flushTexts();
            glyphColour_ = text.colour;
            glyphFont_ = part.font;
        }
        glyphs_.insert(glyphs_.end(), part.glyphs.begin(), part.glyphs.end());
        for (const QPointF &place : part.places)
            places_.push_back(corner + place);
    }
}

void GridPainter::flushTexts() {
    if (glyphs_.empty())
        return;
    QGlyphRun run;
    run.setRawFont(glyphFont_);
    run.setRawData(glyphs_.data(), places_.data(), static_cast<int>(glyphs_.size()));
    painter_.setPen(toQColor(glyphColour_));
    painter_.drawGlyphRun({}, run);
    glyphs_.clear();
    places_.clear();
}

void GridPainter::drawWrapped(const QString &shown, const SceneText &text, CellFont &font) {
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
        drawLine(CellFonts::laidOut(fromQString(line), font, widget_), text, top);
        top += metrics.lineSpacing();
    }
}

} // namespace tablio::qt
