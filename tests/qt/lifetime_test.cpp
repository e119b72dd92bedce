/// Slots that do the worst: delete the widget in the middle of an event, or throw.

#include "grid_window.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QTableView>

#include <functional>
#include <stdexcept>

using tablio::qt::TablioWidget;

namespace {

template <auto signal> void deleteOn(GridWindow &w) {
    QObject::connect(w.grid.data(), signal, [&w] { delete w.grid.data(); });
}

struct Death {
    const char *name;
    /// Connects the slot that deletes.
    void (*connect)(GridWindow &);
    /// Makes the signal go out.
    std::function<void(GridWindow &)> happen;
    /// What is typed before.
    const char *typed = "";
};

using T = TablioWidget;

const Death deaths[] = {
    {"edit starts", deleteOn<&T::editPreValidation>, [](GridWindow &w) { w.type("a"); }},
    {"edit changes", deleteOn<&T::editOnChange>, [](GridWindow &w) { w.type("a"); }},
    {"edit ends", deleteOn<&T::editPostValidation>, [](GridWindow &w) { w.type("abc\n"); }},
    {"focus leaves an edit", deleteOn<&T::editPostValidation>,
     [](GridWindow &w) { w.key(Qt::Key_Tab); }, "abc"},
    {"character", deleteOn<&T::cellKeyPress>, [](GridWindow &w) { w.type("b"); }, "a"},
    {"key", deleteOn<&T::tableKeyDown>, [](GridWindow &w) { w.key(Qt::Key_Down); }},
    {"mouse press", deleteOn<&T::cellFocus>, [](GridWindow &w) { w.click(3, 1); }},
    {"double click", deleteOn<&T::doubleClick>, [](GridWindow &w) { w.doubleClick(1, 0); }},
    {"focus comes", deleteOn<&T::cellFocus>,
     [](GridWindow &w) {
         w.after->setFocus();
         w.click(1, 0);
     }},
    {"column is dragged", deleteOn<&T::propertyChanged>,
     [](GridWindow &w) {
         const QRect header = w.place(0, 1);
         const QPoint edge(header.right(), header.center().y());
         QTest::mousePress(w.window.windowHandle(), Qt::LeftButton, {}, edge);
         QTest::mouseRelease(w.window.windowHandle(), Qt::LeftButton, {}, edge);
     }},
    {"item is chosen", deleteOn<&T::editOnChange>,
     [](GridWindow &w) {
         w.grid->setColEditType(0, T::ColumnCombo);
         w.grid->comboAddItem("Bag");
         w.grid->comboAddItem("Box");
         w.key(Qt::Key_F2);
         auto *combo = w.grid->findChild<QComboBox *>("qt_cboEdit");
         combo->showPopup();
         const QRect item = combo->view()->visualRect(combo->model()->index(1, 0));
         // A list that has only just opened takes a click for the end of the one that opened it.
         QTest::qWait(QApplication::doubleClickInterval() + 50);
         QTest::mouseMove(combo->view()->viewport(), item.center());
         QTest::mouseClick(combo->view()->viewport(), Qt::LeftButton, {}, item.center());
     }},
    {"day is clicked", deleteOn<&T::editPostValidation>,
     [](GridWindow &w) {
         w.window.resize(900, 500);
         QCoreApplication::processEvents();
         w.grid->setColEditType(0, T::ColumnDate);
         w.key(Qt::Key_F10);
         auto *days = w.grid->findChild<QTableView *>("qt_calendar_calendarview");
         const QRect day = days->visualRect(days->model()->index(3, 3));
         QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, day.center());
     }},
    {"input method", deleteOn<&T::cellKeyPress>,
     [](GridWindow &w) {
         w.compose("x", {});
         w.compose({}, "xyz");
     }},
};

QStringList criticals;

void keepCriticals(QtMsgType type, const QMessageLogContext &, const QString &text) {
    if (type == QtCriticalMsg)
        criticals << text;
}

} // namespace

TEST(Lifetime, TheWidgetMayBeDeletedInAnySlot) {
    for (const Death &death : deaths) {
        SCOPED_TRACE(death.name);
        GridWindow w;
        w.type(QString::fromLatin1(death.typed));
        death.connect(w);
        death.happen(w);
        QCoreApplication::processEvents();
        EXPECT_TRUE(w.grid.isNull());
        EXPECT_TRUE(w.window.isVisible());
    }
}

TEST(Lifetime, AThrowingSlotIsReportedAndTheControlGoesOn) {
    GridWindow w;
    QtMessageHandler old = qInstallMessageHandler(keepCriticals);
    criticals.clear();
    bool throws = true;
    QObject::connect(w.grid, &TablioWidget::editPostValidation, [&] {
        if (throws)
            throw std::runtime_error("no such article");
    });
    w.type("abc\n");
    qInstallMessageHandler(old);
    ASSERT_EQ(criticals.size(), 1);
    EXPECT_TRUE(criticals.first().contains("no such article"));
    throws = false;
    w.grid->focusCell(2, 0);
    w.type("def\n");
    EXPECT_EQ(w.cell(2, 0), "def");
    EXPECT_EQ(w.cursor(), "2,1");
}

TEST(Lifetime, WhatIsFilledInBeforeShowIsThereAfterIt) {
    TablioWidget grid;
    grid.setCols(3);
    grid.setRows(5);
    grid.setPrimaryColumn(1);
    grid.setTextMatrix(2, 1, "early");
    grid.show();
    EXPECT_EQ(grid.textMatrix(2, 1), "early");
    grid.hide();
    grid.focusCell(3, 0);
    grid.show();
    EXPECT_EQ(grid.textMatrix(2, 1), "early");
    EXPECT_EQ(tablio::Inside::of(grid.core()).state.grid.current(), (tablio::CellAddress{3, 0}));
}
