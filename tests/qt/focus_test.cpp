/// The keyboard focus: how the grid gets and gives it, and what ends an open edit.

#include "grid_window.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QTimer>

using tablio::qt::TablioWidget;

TEST(Focus, TabLeavesTheGridAndEndsTheEdit) {
    GridWindow w;
    w.type("abc");
    w.key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), w.after);
    EXPECT_EQ(w.cell(1, 0), "abc");
    EXPECT_EQ(w.cursor(), "1,0");
    w.key(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(w.box()->hasFocus()) << "and comes back";
    w.key(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), w.before);
}

TEST(Focus, ComingInIsNews) {
    GridWindow w;
    int entered = 0;
    QObject::connect(w.grid, &TablioWidget::cellFocus, [&] { ++entered; });
    w.after->setFocus();
    EXPECT_TRUE(w.grid->hostKeyPreview());
    QTest::mouseClick(w.window.windowHandle(), Qt::LeftButton, {}, w.place(1, 0).center());
    EXPECT_TRUE(w.box()->hasFocus());
    EXPECT_FALSE(w.grid->hostKeyPreview());
    EXPECT_EQ(entered, 1);
}

TEST(Focus, APopUpAndAnotherWindowLeaveTheEditOpen) {
    GridWindow w;
    w.type("ab");
    QMenu menu;
    menu.addAction("entry");
    menu.popup(w.window.mapToGlobal(QPoint(0, 0)));
    QCoreApplication::processEvents();
    EXPECT_EQ(w.cursor(), "1,0!");
    menu.close();
    {
        QLineEdit other;
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        EXPECT_FALSE(w.box()->hasFocus());
        EXPECT_EQ(w.cursor(), "1,0!");
    }
    w.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&w.window));
    w.type("c\n");
    EXPECT_EQ(w.cell(1, 0), "abc");
}

TEST(Focus, AnotherFieldEndsTheEditWhileTheWindowSleeps) {
    GridWindow w;
    w.type("ab");
    QLineEdit other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    w.after->setFocus();
    w.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&w.window));
    EXPECT_EQ(w.cell(1, 0), "ab");
    EXPECT_EQ(w.cursor(), "1,0");
}

TEST(Focus, DisablingAndHidingEndTheEdit) {
    GridWindow w;
    w.type("ab");
    w.grid->setEnabled(false);
    EXPECT_EQ(w.cell(1, 0), "ab");
    w.grid->setEnabled(true);
    w.grid->setFocus();
    w.grid->focusCell(2, 0);
    w.type("cd");
    w.grid->hide();
    EXPECT_EQ(w.cell(2, 0), "cd");
    EXPECT_EQ(w.cursor(), "2,0");
}

// A question in the middle of an event is how many hosts validate.
TEST(Focus, AHostMayAskTheUserFromASlot) {
    GridWindow w;
    QString seen;
    QObject::connect(w.grid, &TablioWidget::editPostValidation,
                     [&](int &, int &, bool &valid, QString &, QString &newData, int &) {
                         QDialog question(&w.window);
                         QTimer::singleShot(0, &question, &QDialog::accept);
                         question.exec();
                         seen = newData;
                         valid = false;
                     });
    w.type("abc\n");
    EXPECT_EQ(seen, "abc");
    EXPECT_EQ(w.cell(1, 0), "");
    w.window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&w.window));
    EXPECT_TRUE(w.box()->hasFocus());
    w.key(Qt::Key_Down);
    EXPECT_EQ(w.cursor(), "2,1");
}

TEST(Focus, AHiddenGridHasNoKeyboardAndSaysSoWhenItComes) {
    GridWindow w;
    w.after->setFocus();
    w.grid->hide();
    int entered = 0;
    w.grid->focusCell(3, 1);
    QObject::connect(w.grid, &TablioWidget::cellFocus, [&] { ++entered; });
    w.grid->show();
    w.grid->setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(entered, 1);
    EXPECT_EQ(w.cursor(), "3,1");
}

TEST(Focus, WhoSavesOrHidesFindsWhatIsBeingTyped) {
    GridWindow w;
    w.type("ab");
    EXPECT_TRUE(w.grid->isEditing());
    EXPECT_TRUE(w.grid->commit());
    EXPECT_FALSE(w.grid->isEditing());
    EXPECT_EQ(w.cell(1, 0), "ab");
    EXPECT_EQ(w.grid->currentRow(), 1);
    EXPECT_EQ(w.grid->currentColumn(), 0);
    w.type("c");
    w.grid->cancelEdit();
    EXPECT_EQ(w.cell(1, 0), "ab");
    {
        const auto refuses = QObject::connect(w.grid, &TablioWidget::editPostValidation,
                                              [](int &, int &, bool &valid) { valid = false; });
        w.type("no");
        EXPECT_FALSE(w.grid->commit());
        QObject::disconnect(refuses);
    }
    w.grid->focusCell(2, 0);
    w.type("cd");
    w.window.hide();
    EXPECT_EQ(w.cell(2, 0), "cd");
}
