/// Slots that do the worst: delete the widget in the middle of an event, or throw.

#include "grid_window.h"

#include <gtest/gtest.h>

#include <QInputMethodEvent>

#include <functional>
#include <stdexcept>

using tablio::qt::TablioWidget;

namespace {

struct Death {
    const char *name;
    /// Connects the slot that deletes, then does what makes the signal go out.
    std::function<void(GridWindow &)> happen;
};

void compose(const QString &preedit, const QString &commit) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QCoreApplication::sendEvent(QGuiApplication::focusObject(), &event);
}

template <typename Signal> void deleteOn(GridWindow &w, Signal signal) {
    QObject::connect(w.grid.data(), signal, [&w] { delete w.grid.data(); });
}

const Death deaths[] = {
    {"editPreValidation by a letter",
     [](GridWindow &w) {
         deleteOn(w, &TablioWidget::editPreValidation);
         w.type("a");
     }},
    {"editOnChange",
     [](GridWindow &w) {
         deleteOn(w, &TablioWidget::editOnChange);
         w.type("a");
     }},
    {"editPostValidation by Enter",
     [](GridWindow &w) {
         deleteOn(w, &TablioWidget::editPostValidation);
         w.type("abc\n");
     }},
    {"editPostValidation by the focus leaving",
     [](GridWindow &w) {
         deleteOn(w, &TablioWidget::editPostValidation);
         w.type("abc");
         w.key(Qt::Key_Tab);
     }},
    {"cellKeyPress",
     [](GridWindow &w) {
         w.type("a");
         deleteOn(w, &TablioWidget::cellKeyPress);
         w.type("b");
     }},
    {"tableKeyDown",
     [](GridWindow &w) {
         deleteOn(w, &TablioWidget::tableKeyDown);
         w.key(Qt::Key_Down);
     }},
    {"tableKeyDown by a letter",
     [](GridWindow &w) {
         deleteOn(w, &TablioWidget::tableKeyDown);
         w.type("a");
     }},
    {"cellFocus by a mouse press",
     [](GridWindow &w) {
         deleteOn(w, &TablioWidget::cellFocus);
         w.click(3, 1);
     }},
    {"cellFocus by the focus coming",
     [](GridWindow &w) {
         w.after->setFocus();
         deleteOn(w, &TablioWidget::cellFocus);
         w.click(1, 0);
     }},
    {"doubleClick",
     [](GridWindow &w) {
         deleteOn(w, &TablioWidget::doubleClick);
         w.doubleClick(1, 0);
     }},
    {"propertyChanged by a drag",
     [](GridWindow &w) {
         const QRect header = w.place(0, 1);
         const QPoint edge(header.right(), header.center().y());
         deleteOn(w, &TablioWidget::propertyChanged);
         QTest::mousePress(w.window.windowHandle(), Qt::LeftButton, {}, edge);
         QTest::mouseRelease(w.window.windowHandle(), Qt::LeftButton, {}, edge);
     }},
    {"cellKeyPress by an input method",
     [](GridWindow &w) {
         deleteOn(w, &TablioWidget::cellKeyPress);
         compose("x", {});
         compose({}, "xyz");
     }},
    {"editPostValidation by a method",
     [](GridWindow &w) {
         w.type("a");
         deleteOn(w, &TablioWidget::editPostValidation);
         w.grid->tableClear();
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
        death.happen(w);
        EXPECT_TRUE(w.grid.isNull());
        QCoreApplication::processEvents();
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

TEST(Lifetime, MethodsThrowAtTheirCaller) {
    GridWindow w;
    EXPECT_THROW(w.grid->setTextMatrix(999, 0, "x"), tablio::GridError);
    EXPECT_THROW(w.grid->focusCell(70000, 0), tablio::OverflowError);
    EXPECT_EQ(w.cursor(), "1,0");
}

TEST(Lifetime, WhatIsFilledInBeforeShowIsThereAfterIt) {
    TablioWidget grid;
    grid.setCols(3);
    grid.setRows(5);
    grid.setPrimaryColumn(1);
    grid.setTextMatrix(2, 1, "early");
    grid.show();
    EXPECT_EQ(grid.textMatrix(2, 1), "early");
    const tablio::CellAddress start{1, 1};
    EXPECT_EQ(grid.core().control().state.grid.current(), start);
    grid.hide();
    grid.focusCell(3, 0);
    grid.show();
    const tablio::CellAddress moved{3, 0};
    EXPECT_EQ(grid.core().control().state.grid.current(), moved);
    EXPECT_EQ(grid.textMatrix(2, 1), "early");
}
