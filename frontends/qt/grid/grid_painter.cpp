#include "grid/grid_painter.h"

#include "widget/qt_text.h"

#include <QTextLayout>

#include <cstdlib>
#include <vector>

namespace tablio::qt {

namespace {

/// Alignments are 0 to 8, three columns of three rows each, and 9.
/// Greys closer than this are hard to tell apart.
constexpr int leastContrast = 40;
constexpr int generalAlignment = 9;
enum Third { Near = 0, Middle = 1, Far = 2 };

constexpr qreal sidePadding = 3;
constexpr qreal focusFrame = 2;
/// Shares of the highlight colour.
constexpr qreal currentTint = 0.16;
constexpr qreal mutedTint = 0.10;
constexpr qreal mutedFrame = 0.45;

/// Whether a text reads as a number in any usual way of writing it.
bool isNumberText(QStringView text) {
    bool hasDigit = false;
    for (const QChar character : text) {
        if (character.isDigit())
            hasDigit = true;
        else if (!character.isSpace() && !QStringView(u"+-.,'").contains(character))
            return false;
    }
    return hasDigit;
}

int widthOf(const QStaticText &line) { return qRound(line.size().width()); }

int aligned(int from, int size, int length, int third) {
    if (third == Near)
        return from;
    // Rounded as a line edit rounds, so that a text stays where it is when its editor opens.
    return third == Middle ? from + (size - length + 1) / 2 : from + size - length;
}

} // namespace

void GridPainter::paint(const QRegion &region) {
    const GridView &view = grid_.view;
    const std::vector<GridView::Span> rows = view.visibleRows();
    const std::vector<GridView::Span> cols = view.visibleCols();
    paintGround(region.boundingRect(), rows, cols);
    QRect edited;
    for (const GridView::Span &row : rows) {
        // Most of what is painted is a cell or two.
        const bool isTouched =
            region.intersects(pixels_.rect({0, row.start, view.Width(), row.size}));
        if (!isTouched && !(scene_.edited && scene_.edited->row == row.index))
            continue;
        for (const GridView::Span &col : cols) {
            const CellAddress cell{row.index, col.index};
            const QRect place = pixels_.rect({col.start, row.start, col.size, row.size});
            if (scene_.edited == cell)
                edited = place;
            if (region.intersects(place))
                paintCell(cell, place);
        }
    }
    // The open editor's frame lies on the lines around its cell.
    const int line = pixels_.lineWidth();
    if (!edited.isNull())
        frame(edited.adjusted(-line, -line, 0, 0), line, scene_.colours.highlight());
}

/// What no cell covers: the strips right of the last column and below the last row. Cells paint
/// their own ground, and a window full of pixels that is filled twice is felt.
void GridPainter::paintGround(const QRect &area, const std::vector<GridView::Span> &rows,
                              const std::vector<GridView::Span> &cols) {
    const QColor colour = scene_.colours.of(look_.BackColorBkg);
    const auto end = [this](const std::vector<GridView::Span> &spans) {
        return spans.empty() ? 0 : pixels_.edge(spans.back().start + spans.back().size);
    };
    QRect strip = area;
    strip.setLeft(std::max(area.left(), end(cols)));
    if (strip.isValid())
        painter_.fillRect(strip, colour);
    strip = area;
    strip.setTop(std::max(area.top(), end(rows)));
    if (strip.isValid())
        painter_.fillRect(strip, colour);
}

bool GridPainter::isCurrent(CellAddress cell) const {
    return cell == grid_.current() && !grid_.isFixed(cell.row, cell.col);
}

void GridPainter::paintCell(CellAddress cell, const QRect &place) {
    const int line = pixels_.lineWidth();
    const QRect room = place.adjusted(0, 0, -line, -line);
    paintLines(grid_.isFixed(cell.row, cell.col), place);
    if (scene_.edited == cell) {
        painter_.fillRect(room, scene_.colours.of(look_.BackColor));
        return;
    }
    const Colour background = grid_.backColorOf(cell.row, cell.col);
    QColor fill = scene_.colours.of(background);
    const bool current = isCurrent(cell) && !scene_.colours.isDisabled();
    if (current)
        fill =
            blended(fill, scene_.colours.highlight(), scene_.hasKeyboard ? currentTint : mutedTint);
    painter_.fillRect(room, fill);
    paintText(cell, room, background);
    if (current)
        paintFocus(room, fill,
                   scene_.colours.text(grid_.foreColorOf(cell.row, cell.col), background));
}

void GridPainter::paintLines(bool isFixed, const QRect &place) {
    const int line = pixels_.lineWidth();
    const QColor colour = scene_.colours.of(isFixed ? look_.GridColorFixed : look_.GridColor);
    painter_.fillRect(place.right() + 1 - line, place.top(), line, place.height(), colour);
    painter_.fillRect(place.left(), place.bottom() + 1 - line, place.width(), line, colour);
}

void GridPainter::paintFocus(const QRect &room, const QColor &fill, const QColor &text) {
    // In a marked row the highlight is the background.
    const int distance = std::abs(qGray(fill.rgb()) - qGray(scene_.colours.highlight().rgb()));
    const QColor highlight = distance < leastContrast ? text : scene_.colours.highlight();
    if (grid_.FocusRect() == 2 && scene_.hasKeyboard)
        frame(room, pixels_.length(focusFrame), highlight);
    else if (!scene_.edited)
        frame(room, pixels_.lineWidth(),
              blended(scene_.colours.of(look_.BackColor), highlight, mutedFrame));
}

void GridPainter::frame(const QRect &outer, int width, const QColor &colour) {
    const QRect inner = outer.adjusted(width, width, -width, -width);
    if (inner.isEmpty())
        return;
    painter_.fillRect(outer.left(), outer.top(), outer.width(), width, colour);
    painter_.fillRect(outer.left(), inner.bottom() + 1, outer.width(), width, colour);
    painter_.fillRect(outer.left(), inner.top(), width, inner.height(), colour);
    painter_.fillRect(inner.right() + 1, inner.top(), width, inner.height(), colour);
}

/// In the font that ticked cells carry, this character is a tick. Few machines have the font.
bool GridPainter::isTick(CellAddress cell) const {
    const std::optional<std::string> &name = grid_.table.cellStyle(cell.row, cell.col).fontName;
    return name == "Wingdings 2" && grid_.table.TextMatrix(cell.row, cell.col) == "P";
}

void GridPainter::paintTick(const QRect &room, const QColor &colour) {
    const qreal side =
        std::min({qreal(room.height()) * 0.62, qreal(room.width()) * 0.8, 12.0 * pixels_.ratio()});
    const QPointF corner = QRectF(room).center() - QPointF(side / 2, side / 2);
    QPen pen(colour, std::max(1.5 * pixels_.ratio(), side / 6));
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(pen);
    painter_.drawPolyline(QPolygonF{corner + QPointF(side * 0.10, side * 0.55),
                                    corner + QPointF(side * 0.38, side * 0.85),
                                    corner + QPointF(side * 0.90, side * 0.15)});
    painter_.restore();
}

void GridPainter::paintText(CellAddress cell, const QRect &room, Colour background) {
    QString text = toQString(grid_.table.TextMatrix(cell.row, cell.col));
    const int padding = pixels_.length(sidePadding);
    const QRect inner = room.adjusted(padding, 0, -padding, 0);
    if (text.isEmpty() || inner.width() <= 0)
        return;

    const bool isFixed = grid_.isFixed(cell.row, cell.col);
    const bool isNumber = !isFixed && isNumberText(text);
    int alignment = grid_.alignmentOf(cell.row, cell.col);
    if (alignment < 0 || alignment >= generalAlignment)
        alignment = isNumber ? 3 * Far + Middle : 3 * Near + Middle;
    const int column = alignment / 3;
    const int row = alignment % 3;

    if (isTick(cell)) {
        paintTick(room, scene_.colours.text(grid_.foreColorOf(cell.row, cell.col), background));
        return;
    }
    const CellFont &font = fonts_.of(grid_.fontOf(cell.row, cell.col), scene_.widget);
    painter_.setPen(scene_.colours.text(grid_.foreColorOf(cell.row, cell.col), background));

    const QFontMetrics &metrics = font.metrics;
    const bool hasLineEnds = text.contains(u'\n');
    const bool isTooWide = hasLineEnds || widthOf(fonts_.laidOut(text, font)) > inner.width();
    if (isTooWide && look_.WordWrap && !isNumber && inner.height() >= 2 * metrics.lineSpacing()) {
        drawWrapped(text, inner, column, row, font);
        return;
    }
    if (hasLineEnds)
        text = text.simplified();
    // A number that is cut would read as another number.
    if (isTooWide && isNumber && scene_.state.columns.isNumeric(cell.col))
        text = QString(std::max(1, inner.width() / metrics.horizontalAdvance(u'#')), u'#');
    else if (isTooWide)
        text = metrics.elidedText(text, Qt::ElideRight, inner.width());
    const bool isClipped = metrics.height() > room.height();
    if (isClipped) {
        painter_.save();
        painter_.setClipRect(room, Qt::IntersectClip);
    }
    const int top = aligned(room.top(), room.height(), metrics.height(), row);
    drawLine(text, inner, top, column, font);
    if (isClipped)
        painter_.restore();
}

void GridPainter::drawLine(const QString &text, const QRect &room, int top, int column,
                           const CellFont &font) {
    if (painterFont_ != &font) {
        painter_.setFont(font.font);
        painterFont_ = &font;
    }
    const QStaticText line = fonts_.laidOut(text, font);
    painter_.drawStaticText(aligned(room.left(), room.width(), widthOf(line), column), top, line);
}

void GridPainter::drawWrapped(const QString &text, const QRect &room, int column, int row,
                              const CellFont &font) {
    const QFontMetrics &metrics = font.metrics;
    const int most = std::max(1, room.height() / metrics.lineSpacing());
    QString source = text;
    source.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(source, font.font, painter_.device());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    std::vector<QString> lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(room.width());
        const bool isLast = static_cast<int>(lines.size()) + 1 == most;
        const bool goesOn = line.textStart() + line.textLength() < source.size();
        if (isLast && goesOn) {
            const QString rest = source.mid(line.textStart()).simplified();
            lines.push_back(metrics.elidedText(rest, Qt::ElideRight, room.width()));
            break;
        }
        lines.push_back(source.mid(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
    const int height = static_cast<int>(lines.size()) * metrics.lineSpacing();
    int top = aligned(room.top(), room.height(), height, row);
    for (const QString &line : lines) {
        drawLine(line, room, top, column, font);
        top += metrics.lineSpacing();
    }
}

} // namespace tablio::qt
