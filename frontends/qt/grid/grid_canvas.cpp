#include "grid/grid_canvas.h"

#include "grid/cell_tip.h"
#include "grid/grid_painter.h"
#include "widget/guarded.h"
#include "widget/surroundings.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace tablio::qt {

namespace {

Twips twips(qreal pixels) { return static_cast<Twips>(std::lround(pixels * twipsPerPixel)); }

std::optional<MouseButton> mouseButton(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return MouseButton::Left;
    case Qt::RightButton:
        return MouseButton::Right;
    case Qt::MiddleButton:
        return MouseButton::Middle;
    default:
        return std::nullopt;
    }
}

} // namespace

GridCanvas::GridCanvas(Surroundings &around, QWidget *parent) : QWidget(parent), around_(around) {
    setObjectName(QStringLiteral("qt_grid"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    // Positions are counted from the left in every language.
    setLayoutDirection(Qt::LeftToRight);
}

void GridCanvas::showArea(const Rect &area) {
    const DevicePixels pixels = around_.pixels();
    update(toQRect(pixels.around(pixels.rect(area))));
}

void GridCanvas::showScrolled() {
    const Screen &screen = around_.screen();
    const int topRow = std::exchange(topRow_, screen.rowRange().position);
    const int leftCol = std::exchange(leftCol_, screen.colRange().position);
    const ScrollMove move = screen.movedSince(topRow, leftCol, devicePixelRatioF());
    if (move.distance == 0)
        update();
    else
        scroll(0, move.distance, QRect(0, move.top, width(), height() - move.top));
}

bool GridCanvas::event(QEvent *event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto &help = static_cast<QHelpEvent &>(*event);
    const QString tip = tipAt(help.pos(), around_, fonts_);
    // A cell's text is no markup.
    QToolTip::showText(help.globalPos(), tip.toHtmlEscaped(), this);
    event->setAccepted(!tip.isEmpty());
    return true;
}

void GridCanvas::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    // The device may be the screen or an image of any scale. With a scale such as 1.5 the widget
    // itself may begin between two device pixels; the grid begins on the nearest one.
    const QTransform toDevice = painter.deviceTransform();
    const qreal ratio = toDevice.m11() > 0 ? toDevice.m11() : devicePixelRatioF();
    painter.scale(1 / ratio, 1 / ratio);
    painter.translate(std::round(toDevice.dx()) - toDevice.dx(),
                      std::round(toDevice.dy()) - toDevice.dy());
    std::vector<PixelRect> areas;
    for (const QRect &part : event->region()) {
        const QRectF device(part.x() * ratio, part.y() * ratio, part.width() * ratio,
                            part.height() * ratio);
        areas.push_back(fromQRect(device.toAlignedRect()));
    }
    fonts_.setRatio(ratio);
    GridPainter scene(painter, around_.owner, fonts_);
    around_.screen().paint(
        areas, {around_.palette(), ratio, around_.hasKeyboard(), around_.owner.isEnabled()}, scene);
}

void GridCanvas::mousePressEvent(QMouseEvent *event) {
    const std::optional<MouseButton> button = mouseButton(event->button());
    const QPointer<GridCanvas> alive(this);
    // What is being composed belongs to the cell that it was composed in.
    around_.commitComposition();
    if (!alive || !button)
        return;
    around_.takeKeyboard();
    if (alive)
        around_.enter();
    if (!alive)
        return;
    guarded([&] {
        around_.input().mouseDown(*button, twips(event->position().x()),
                                  twips(event->position().y()));
    });
}

void GridCanvas::mouseMoveEvent(QMouseEvent *event) {
    const Twips x = twips(event->position().x());
    const Twips y = twips(event->position().y());
    if (event->buttons() != Qt::NoButton)
        guarded([&] { around_.input().mouseMove(x, y); });
    else if (around_.input().isColumnEdge(x, y))
        setCursor(Qt::SplitHCursor);
    else
        unsetCursor();
}

void GridCanvas::mouseReleaseEvent(QMouseEvent *event) {
    if (const std::optional<MouseButton> button = mouseButton(event->button()))
        guarded([&] {
            around_.input().mouseUp(*button, twips(event->position().x()),
                                    twips(event->position().y()));
        });
}

void GridCanvas::mouseDoubleClickEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
        return;
    }
    guarded([&] {
        around_.input().doubleClick(twips(event->position().x()), twips(event->position().y()));
    });
}

void GridCanvas::wheelEvent(QWheelEvent *event) {
    // X servers report pixels that mean nothing.
    const bool isFine =
        !event->pixelDelta().isNull() && QGuiApplication::platformName() != QLatin1String("xcb");
    QPoint delta = isFine ? event->pixelDelta() : event->angleDelta();
    if (event->modifiers().testFlag(Qt::ShiftModifier) && delta.x() == 0)
        delta = {delta.y(), 0};
    // One column a notch, and as many rows as the user has asked for everywhere.
    if (!isFine)
        delta.ry() *= std::max(1, QApplication::wheelScrollLines());
    Dealt dealt = Dealt::Yes;
    guarded([&] {
        dealt = around_.input().wheelTurned(isFine ? WheelUnit::Pixel : WheelUnit::Part, delta.x(),
                                            delta.y());
    });
    // A grid that has nothing to scroll leaves the wheel to what it stands in.
    event->setAccepted(dealt == Dealt::Yes);
}

} // namespace tablio::qt
