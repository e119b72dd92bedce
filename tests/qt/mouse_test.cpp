/// The mouse: the wheel, dragged column borders, the pop-up menu.

#include "grid_window.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QScrollBar>

using tablio::qt::TablioWidget;

TEST(Mouse, TheWheelScrollsAndTheEditorStaysOverItsCell) {
    GridWindow w;
    auto *bar = w.grid->findChild<QScrollBar *>();
    w.grid->focusCell(6, 0);
    w.type("ab");
    const int height = w.place(6, 0).height();
    const QWidget *frame = w.box()->parentWidget();
    const int top = frame->y();
    w.wheel(-1);
    EXPECT_EQ(w.state().grid.view.TopRow(), 1 + QApplication::wheelScrollLines());
    EXPECT_EQ(bar->value(), w.state().grid.view.TopRow());
    EXPECT_EQ(frame->y(), top - QApplication::wheelScrollLines() * height);
    w.wheel(-2);
    EXPECT_LE(frame->geometry().bottom(), 0) << "scrolled away, not over the header";
    w.type("c");
    w.wheel(10);
    EXPECT_EQ(frame->y(), top);
    w.type("\n");
    EXPECT_EQ(w.cell(6, 0), "abc");
}

TEST(Mouse, ShiftAndWheelScrollColumns) {
    GridWindow w;
    w.grid->setColWidth(0, 9000);
    w.wheel(-1, Qt::ShiftModifier);
    EXPECT_EQ(w.state().grid.view.LeftCol(), 1);
    EXPECT_EQ(w.state().grid.view.TopRow(), 1);
}

TEST(Mouse, AColumnBorderIsDragged) {
    GridWindow w;
    QStringList changed;
    QObject::connect(w.grid, &TablioWidget::propertyChanged,
                     [&](const QString &name) { changed << name; });
    const QRect header = w.place(0, 1);
    const QPoint edge(header.right(), header.center().y());
    QWindow *handle = w.window.windowHandle();
    QTest::mouseMove(handle, header.center());
    QTest::mouseMove(handle, edge);
    EXPECT_EQ(w.canvas()->cursor().shape(), Qt::SplitHCursor);
    QTest::mousePress(handle, Qt::LeftButton, {}, edge);
    QTest::mouseMove(handle, edge + QPoint(40, 90));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, edge + QPoint(40, 90));
    EXPECT_NEAR(w.grid->colWidth(1), 1200 + 40 * 15, 30);
    EXPECT_EQ(changed, QStringList{"ColWidth"});
    EXPECT_EQ(w.cursor(), "1,0");
}

TEST(Mouse, TheMenuIsShownWithoutWaiting) {
    GridWindow w;
    w.grid->setTextMatrix(2, 0, "x");
    w.click(2, 0, Qt::RightButton);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QStringList captions;
    for (const QAction *action : menu->actions())
        captions << (action->isSeparator() ? "-" : action->isEnabled() ? action->text() : "");
    EXPECT_EQ(captions, (QStringList{"&Mark Row", "-", "&Add Row", "", "", "-", "Table &Clear"}));
    menu->close();
    w.grid->setGridPopUpMenu(false);
    w.click(2, 0, Qt::RightButton);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}
