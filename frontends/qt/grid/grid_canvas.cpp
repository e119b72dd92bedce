#include "grid/grid_canvas.h"

#include "editors/native_text_box.h"
#include "grid/grid_painter.h"
#include "widget/guarded.h"
#include "widget/qt_look.h"
#include "widget/tablio_widget_p.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace tablio::qt {

namespace {

constexpr int notch = 120;

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

GridCanvas::GridCanvas(TablioWidgetPrivate &parts, QWidget *parent)
    : QWidget(parent), parts_(parts) {
    setObjectName(QStringLiteral("qt_grid"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    // Positions are counted from the left in every language.
    setLayoutDirection(Qt::LeftToRight);
}

void GridCanvas::showArea(const Rect &area) {
    const DevicePixels pixels = parts_.pixels();
    update(toQRect(pixels.around(pixels.rect(area))));
}

void GridCanvas::showFramed(const Rect &area) {
    const DevicePixels pixels = parts_.pixels();
    const int line = pixels.lineWidth();
    const PixelRect place = pixels.rect(area);
    update(toQRect(pixels.around(
        {place.left - line, place.top - line, place.width + line, place.height + line})));
}

void GridCanvas::showScrolled() {
    const GridView &view = parts_.state().grid.view;
    const CellAddress before = std::exchange(shown_, {view.TopRow(), view.LeftCol()});
    const int distance = rowDistance(before);
    if (distance == 0) {
        update();
        return;
    }
    const int header = view.cellRect(shown_.row, 0).top / twipsPerPixel;
    scroll(0, distance, QRect(0, header, width(), height() - header));
}

int GridCanvas::rowDistance(CellAddress before) const {
    const FlexGrid &grid = parts_.state().grid;
    const qreal ratio = devicePixelRatioF();
    // Nothing moves by parts of a pixel, and an open editor lies over the cells.
    if (before.col != shown_.col || ratio != std::floor(ratio) || parts_.control.session.isOpen() ||
        !grid.table.hasCell(before.row, 0) || !grid.table.hasCell(shown_.row, 0))
        return 0;
    const Twips header = grid.view.cellRect(shown_.row, 0).top;
    Twips distance = grid.view.cellRect(before.row, 0).top;
    // A row that has gone up lies that far above the grid, any other below the header.
    if (before.row >= shown_.row)
        distance -= header;
    const bool isWhole = header % twipsPerPixel == 0 && distance % twipsPerPixel == 0;
    return isWhole ? distance / twipsPerPixel : 0;
}

void GridCanvas::showCurrentCell() {
    const FlexGrid &grid = parts_.state().grid;
    const CellAddress cell = grid.current();
    if (grid.table.hasCell(cell.row, cell.col))
        showArea(grid.view.cellRect(cell.row, cell.col));
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
        const auto device = [ratio](int pixel) { return pixel * ratio; };
        areas.push_back(fromQRect(
            QRectF(device(part.x()), device(part.y()), device(part.width()), device(part.height()))
                .toAlignedRect()));
    }
    fonts_.setRatio(ratio);
    GridPainter scene(painter, parts_.widget, fonts_);
    parts_.core.screen().paint(
        areas, {parts_.palette(), ratio, parts_.hasKeyboard(), parts_.widget.isEnabled()}, scene);
}

void GridCanvas::mousePressEvent(QMouseEvent *event) {
    const std::optional<MouseButton> button = mouseButton(event->button());
    const QPointer<GridCanvas> alive(this);
    // What is being composed belongs to the cell that it was composed in.
    parts_.textBox->commitComposition();
    if (!alive || !button)
        return;
    parts_.textBox->takeFocus();
    if (alive)
        parts_.enter();
    if (!alive)
        return;
    guarded([&] {
        parts_.input().mouseDown(*button, twips(event->position().x()),
                                 twips(event->position().y()));
    });
}

void GridCanvas::mouseMoveEvent(QMouseEvent *event) {
    const Twips x = twips(event->position().x());
    const Twips y = twips(event->position().y());
    const QPointer<GridCanvas> alive(this);
    if (event->buttons() != Qt::NoButton)
        guarded([&] { parts_.input().mouseMove(x, y); });
    if (!alive || event->buttons() != Qt::NoButton)
        return;
    if (parts_.input().isColumnEdge(x, y))
        setCursor(Qt::SplitHCursor);
    else
        unsetCursor();
}

void GridCanvas::mouseReleaseEvent(QMouseEvent *event) {
    if (const std::optional<MouseButton> button = mouseButton(event->button()))
        guarded([&] {
            parts_.input().mouseUp(*button, twips(event->position().x()),
                                   twips(event->position().y()));
        });
}

void GridCanvas::mouseDoubleClickEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
        return;
    }
    guarded([&] {
        parts_.input().doubleClick(twips(event->position().x()), twips(event->position().y()));
    });
}

void GridCanvas::contextMenuEvent(QContextMenuEvent *event) {
    // The control shows its own menu when the button is released.
    event->setAccepted(parts_.widget.gridPopUpMenu());
}

QPoint GridCanvas::wheelSteps(const QWheelEvent &event) {
    const auto whole = [](QPoint &rest, const QPoint &delta, const QPoint &step) {
        rest += delta;
        const QPoint steps(rest.x() / step.x(), rest.y() / step.y());
        rest -= QPoint(steps.x() * step.x(), steps.y() * step.y());
        return steps;
    };
    const ControlState &state = parts_.state();
    // X servers report pixels that mean nothing.
    const bool isFine =
        !event.pixelDelta().isNull() && QGuiApplication::platformName() != QLatin1String("xcb");
    QPoint delta = isFine ? event.pixelDelta() : event.angleDelta();
    if (event.modifiers().testFlag(Qt::ShiftModifier) && delta.x() == 0)
        delta = {delta.y(), 0};
    if (isFine) {
        const int row = state.grid.view.TopRow();
        const Twips height = state.grid.table.hasCell(row, 0) ? state.grid.table.RowHeight(row) : 0;
        return whole(
            pixelRest_, delta,
            {GridTable::defaultColWidth / twipsPerPixel, std::max(1, height / twipsPerPixel)});
    }
    // One column a notch, and as many rows as the user has asked for everywhere.
    const int lines = std::max(1, QApplication::wheelScrollLines());
    return whole(angleRest_, {delta.x(), delta.y() * lines}, {notch, notch});
}

void GridCanvas::wheelEvent(QWheelEvent *event) {
    const QPoint steps = wheelSteps(*event);
    const GridView &view = parts_.state().grid.view;
    const int top = view.TopRow();
    const int left = view.LeftCol();
    const bool canScroll = view.maxTopRow() > parts_.state().grid.table.FixedRows() ||
                           view.maxLeftCol() > parts_.state().grid.table.FixedCols();
    // A grid that has nothing to scroll leaves the wheel to what it stands in.
    event->setAccepted(canScroll);
    guarded([&] { parts_.input().scrollTo(top - steps.y(), left - steps.x()); });
}

} // namespace tablio::qt
