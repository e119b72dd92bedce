/// What the grid looks like, read from its pixels at several scales, and how little is painted when
/// little has changed.

#include "grid_window.h"
#include "widget/qt_look.h"

#include <gtest/gtest.h>

#include <QPaintEvent>
#include <QPainter>
#include <QScreen>

#include <cmath>
#include <random>

using tablio::qt::TablioWidget;

namespace {

QImage picture(QWidget &widget, qreal ratio) {
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::magenta);
    widget.render(&image);
    return image;
}

/// The device pixels of a cell in a picture of the grid.
QRect devicePlace(const GridWindow &w, int row, int col, qreal ratio) {
    const tablio::Rect rect = w.state().grid.view.cellRect(row, col);
    const QPoint origin(qRound(w.canvas()->x() * ratio), qRound(w.canvas()->y() * ratio));
    const auto edge = [ratio](int twips) { return qRound(twips * ratio / 15); };
    return {origin + QPoint(edge(rect.left), edge(rect.top)),
            origin + QPoint(edge(rect.right()) - 1, edge(rect.bottom()) - 1)};
}

QPalette darkPalette() {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(45, 45, 48));
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Text, QColor(230, 230, 230));
    palette.setColor(QPalette::WindowText, QColor(230, 230, 230));
    palette.setColor(QPalette::Button, QColor(55, 55, 58));
    palette.setColor(QPalette::ButtonText, QColor(230, 230, 230));
    return palette;
}

QColor brightest(const QImage &image, const QRect &place, bool darkest = false) {
    QColor found = image.pixelColor(place.center());
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            if ((colour.lightness() > found.lightness()) != darkest)
                found = colour;
        }
    }
    return found;
}

class PaintLog : public QObject {
public:
    explicit PaintLog(QWidget *widget) { widget->installEventFilter(this); }
    QRegion region;

protected:
    bool eventFilter(QObject *, QEvent *event) override {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent *>(event)->region();
        return false;
    }
};

} // namespace

class PaintingAtScale : public testing::TestWithParam<double> {};

INSTANTIATE_TEST_SUITE_P(Painting, PaintingAtScale, testing::Values(1.0, 1.25, 1.5, 2.0));

TEST_P(PaintingAtScale, LinesAreSharpAndEvenlyThick) {
    GridWindow w;
    const qreal ratio = GetParam();
    const QImage image = picture(*w.grid, ratio);
    const QColor base = w.grid->palette().color(QPalette::Base);
    const QColor line = w.grid->gridColorData();
    const int width = std::max(1, qRound(ratio));
    const int middle = devicePlace(w, 3, 0, ratio).center().y();
    for (int col = 0; col < 4; ++col) {
        const QRect cell = devicePlace(w, 3, col, ratio);
        for (int x = cell.left(); x <= cell.right(); ++x) {
            const bool isLine = x > cell.right() - width;
            ASSERT_EQ(image.pixelColor(x, middle), isLine ? line : base)
                << "column " << col << ", pixel " << x - cell.left() << " of " << cell.width();
        }
    }
    const QRect cell = devicePlace(w, 3, 0, ratio);
    for (int y = cell.top(); y <= cell.bottom(); ++y)
        ASSERT_EQ(image.pixelColor(cell.center().x(), y), y > cell.bottom() - width ? line : base);
}

TEST_P(PaintingAtScale, TheCurrentCellHasAFrameInsideItsLines) {
    GridWindow w;
    const qreal ratio = GetParam();
    const QImage image = picture(*w.grid, ratio);
    const QColor highlight = w.grid->palette().color(QPalette::Highlight);
    const QRect cell = devicePlace(w, 1, 0, ratio);
    const int frame = qRound(2 * ratio);
    for (int inset = 0; inset < frame; ++inset)
        EXPECT_EQ(image.pixelColor(cell.left() + inset, cell.center().y()), highlight);
    const QColor inside = image.pixelColor(cell.left() + frame, cell.center().y());
    EXPECT_NE(inside, highlight);
    EXPECT_NE(inside, w.grid->palette().color(QPalette::Base)) << "tinted";
}

TEST_P(PaintingAtScale, TheOpenEditorLeavesTheLinesOfItsCellFree) {
    GridWindow w;
    w.type("abc");
    const qreal ratio = GetParam();
    const QImage image = picture(*w.grid, ratio);
    const QColor highlight = w.grid->palette().color(QPalette::Highlight);
    const QRect cell = devicePlace(w, 1, 0, ratio);
    for (int x = cell.left(); x <= cell.right(); ++x) {
        ASSERT_EQ(image.pixelColor(x, cell.bottom()), highlight);
        ASSERT_EQ(image.pixelColor(x, cell.top() - 1), highlight);
    }
}

TEST(Painting, HeaderAndEmptyAreaHaveTheirColours) {
    GridWindow w;
    w.grid->setRows(3);
    const QImage image = picture(*w.grid, 1);
    const QPalette palette = w.grid->palette();
    EXPECT_EQ(image.pixelColor(devicePlace(w, 0, 3, 1).right() - 3, 5),
              palette.color(QPalette::Button));
    w.state().grid.table.setLook([&] {
        tablio::GridLook look = w.state().grid.table.look();
        look.BackColorBkg = tablio::Colour{0x00112233};
        return look;
    }());
    EXPECT_EQ(picture(*w.grid, 1).pixelColor(20, w.grid->height() - 5), QColor(0x33, 0x22, 0x11));
}

TEST(Painting, ANumberThatDoesNotFitIsNoOtherNumber) {
    GridWindow w;
    w.grid->setTextMatrix(2, 2, "1234567890123");
    w.grid->setTextMatrix(3, 2, "9876543210987");
    w.grid->setColWidth(2, 900);
    const QImage image = picture(*w.grid, 1);
    EXPECT_EQ(image.copy(devicePlace(w, 2, 2, 1)), image.copy(devicePlace(w, 3, 2, 1)));
}

TEST(Painting, APaletteChangeIsFollowedAndTextStaysReadable) {
    GridWindow w;
    w.grid->setTextMatrix(2, 0, "WWWW");
    w.grid->setTextMatrix(3, 0, "WWWW");
    w.grid->setFocus();
    tablio::CellStyle white;
    white.backColor = tablio::Colour{0x00FFFFFF};
    w.state().grid.table.setCellStyle(3, 0, white);
    w.grid->setPalette(darkPalette());
    const QImage image = picture(*w.grid, 1);
    const QRect dark = devicePlace(w, 2, 0, 1);
    EXPECT_EQ(image.pixelColor(dark.topRight() - QPoint(5, -3)), QColor(30, 30, 30));
    EXPECT_GT(brightest(image, dark).lightness(), 180);
    EXPECT_LT(brightest(image, devicePlace(w, 3, 0, 1).adjusted(2, 2, -2, -2), true).lightness(),
              80);
    // The header's line is told from the header in the dark, too.
    const QColor line = image.pixelColor(devicePlace(w, 0, 0, 1).topRight());
    EXPECT_GT(tablio::contrast(tablio::qt::fromQColor(line), tablio::Colour{0x003A3737}), 1.2);
}

TEST(Painting, AStyleSheetColoursTheCells) {
    GridWindow w;
    w.grid->setStyleSheet("background-color: #ffeedd; color: #102030");
    const QImage image = picture(*w.grid, 1);
    EXPECT_EQ(image.pixelColor(devicePlace(w, 3, 1, 1).center()), QColor("#ffeedd"));
}

TEST(Painting, OneChangedCellIsPaintedAlone) {
    GridWindow w;
    QTest::qWait(20);
    PaintLog log(w.canvas());
    w.grid->setTextMatrix(3, 2, "5");
    QCoreApplication::processEvents();
    const QRect cell = devicePlace(w, 3, 2, 1).translated(-w.canvas()->pos());
    EXPECT_EQ(log.region.boundingRect(), cell);
    log.region = {};
    w.grid->setTextMatrix(25, 2, "5");
    QCoreApplication::processEvents();
    EXPECT_TRUE(log.region.isEmpty()) << "not on the screen";
    w.key(Qt::Key_Down);
    QCoreApplication::processEvents();
    EXPECT_TRUE(QRegion(w.canvas()->rect()).subtracted(log.region).intersects(cell))
        << "a move of the cursor paints two cells";
}

/// Rows that are still in sight after a scroll are moved and not painted again.
TEST(Painting, TheScreenShowsWhatAFreshPictureWould) {
    GridWindow w;
    w.grid->setRows(200);
    for (int row = 1; row < 200; ++row)
        w.grid->setTextMatrix(row, row % 4, QStringLiteral("row %1 µ€").arg(row));
    std::mt19937 random(7);
    const auto below = [&random](unsigned end) { return static_cast<int>(random() % end); };
    PaintLog log(w.canvas());
    int moved = 0;
    for (int step = 0; step < 300; ++step) {
        log.region = {};
        const int what = below(9);
        const int top = w.state().grid.view.TopRow();
        if (what < 3)
            w.wheel(below(2) == 0 ? 1 : -1);
        else if (what == 3)
            w.state().grid.view.setTopRow(1 + below(190));
        else if (what == 4)
            w.key(below(2) == 0 ? Qt::Key_Up : Qt::Key_Down);
        else if (what == 5)
            w.grid->setTextMatrix(top + below(10), below(4), QString::number(step));
        else if (what == 6)
            w.state().grid.table.setRowHeight(top + below(5), 15 * (15 + below(20)));
        else if (what == 7)
            w.type(below(9) == 0 ? QStringLiteral("7") : QStringLiteral("7\n"));
        else
            w.key(below(2) == 0 ? Qt::Key_PageDown : Qt::Key_PageUp);
        QCoreApplication::processEvents();
        if (w.box()->isVisible() && w.state().focus.owner() == tablio::WidgetId::txtEdit)
            continue; // Its caret blinks.
        const bool isWhole = log.region.boundingRect() == w.canvas()->rect();
        moved += w.state().grid.view.TopRow() != top && !isWhole ? 1 : 0;
        const qreal ratio = w.window.devicePixelRatioF();
        const QImage shown = w.window.screen()->grabWindow(w.window.winId()).toImage();
        const QImage fresh = picture(w.window, ratio);
        const QRect canvas(w.canvas()->mapTo(&w.window, QPoint()), w.canvas()->size());
        const QRect part(canvas.topLeft() * ratio, canvas.size() * ratio);
        ASSERT_EQ(shown.convertToFormat(fresh.format()).copy(part), fresh.copy(part))
            << "step " << step << ", " << what << ", row " << top << " on top before";
    }
    const qreal ratio = w.window.devicePixelRatioF();
    EXPECT_TRUE(moved > 30 || ratio != std::floor(ratio)) << "hardly a scroll moved anything";
}
