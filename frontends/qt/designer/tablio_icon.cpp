#include "tablio_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace tablio::qt {

namespace {

// Opaque, with a mid-grey outline: it reads on light and on dark ground.
constexpr QColor paper(250, 250, 250);
constexpr QColor header(66, 133, 190);
constexpr QColor line(150, 156, 163);
constexpr QColor cell(255, 196, 77);

/// A table of three columns and four rows with a coloured header and one cell being edited, on a
/// ground of 24 units.
void draw(QPainter &painter) {
    const QRectF outside(2, 3, 20, 18);
    QPainterPath shape;
    shape.addRoundedRect(outside, 2, 2);
    painter.setClipPath(shape);
    painter.fillRect(outside, paper);
    painter.fillRect(QRectF(2, 3, 20, 5), header);
    painter.fillRect(QRectF(9, 12, 7, 4), cell);
    painter.setPen(QPen(line, 1));
    for (const int y : {8, 12, 16})
        painter.drawLine(QLineF(2, y, 22, y));
    for (const int x : {9, 16})
        painter.drawLine(QLineF(x, 8, x, 21));
    painter.setClipping(false);
    painter.drawPath(shape);
    // The caret.
    painter.setPen(QPen(QColor(60, 60, 60), 1.2));
    painter.drawLine(QLineF(11, 12.8, 11, 15.2));
}

} // namespace

QIcon tablioIcon() {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing, size != 24);
        painter.scale(size / 24.0, size / 24.0);
        draw(painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace tablio::qt
