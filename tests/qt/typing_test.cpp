/// The keyboard: cells typed as a user and a scanner type them, keys of the native box, keys that
/// belong to the host, and slots that have a say.

#include "grid_window.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QShortcut>

#include <algorithm>

using tablio::qt::TablioWidget;

namespace {

QAction *menuAction(const QString &caption) {
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    const QList<QAction *> actions = menu != nullptr ? menu->actions() : QList<QAction *>();
    const auto found = std::find_if(actions.begin(), actions.end(), [&](const QAction *action) {
        return action->text().startsWith(caption);
    });
    return found != actions.end() ? *found : nullptr;
}

} // namespace

// A scanner sends its keys faster than any event loop turns: nothing here lets events run.
TEST(Typing, AScannerLosesNoKey) {
    GridWindow w;
    QString script;
    for (int row = 1; row <= 20; ++row)
        script += QStringLiteral("item%1\n%1\n%1.5\nc%1\n").arg(row);
    w.type(script);
    for (int row = 1; row <= 20; ++row)
        EXPECT_EQ(w.cell(row, 0) + ' ' + w.cell(row, 1) + ' ' + w.cell(row, 2) + ' ' +
                      w.cell(row, 3),
                  QStringLiteral("item%1 %1 %1.50 C%1").arg(row));
    EXPECT_EQ(w.cursor(), "21,0");
}

TEST(Typing, TheNativeBoxShowsWhatTheEditorHolds) {
    GridWindow w;
    w.type("word");
    const QRect place = w.place(1, 0);
    const QRect frame(w.box()->parentWidget()->mapTo(&w.window, QPoint(0, 0)),
                      w.box()->parentWidget()->size());
    EXPECT_EQ(frame, place.adjusted(0, 0, -1, -1)) << "inside the lines of its cell";
    EXPECT_EQ(w.box()->cursorPosition(), 4);
    w.key(Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(w.box()->selectedText(), "word");
    w.key(Qt::Key_Escape);
    EXPECT_EQ(w.cell(1, 0), "");
    EXPECT_TRUE(w.box()->text().isEmpty());
    EXPECT_TRUE(w.box()->parentWidget()->size().isEmpty());
    EXPECT_TRUE(w.box()->hasFocus());
}

TEST(Typing, WhatTheBoxDoesByItselfReachesTheEditor) {
    GridWindow w;
    w.type("one two");
    w.key(Qt::Key_Left, Qt::ControlModifier);
    w.type("x");
    EXPECT_EQ(w.box()->text(), "one xtwo");
    // A double click selects a word; typing replaces it.
    const QPoint start = w.box()->mapTo(&w.window, QPoint(6, w.box()->height() / 2));
    QTest::mouseDClick(w.window.windowHandle(), Qt::LeftButton, {}, start);
    EXPECT_EQ(w.state().widgets.txtEdit.SelText(), "one");
    w.type("A\n");
    EXPECT_EQ(w.cell(1, 0), "A xtwo");
}

TEST(Typing, PastedFromTheMenuObeysTheColumn) {
    GridWindow w;
    w.key(Qt::Key_Right);
    w.type("7");
    for (const auto &[clipboard, shown] : {std::pair("abc", "7"), std::pair("1250", "1,250")}) {
        QGuiApplication::clipboard()->setText(clipboard);
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                                w.box()->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(w.box(), &event);
        QAction *paste = menuAction("&Paste");
        ASSERT_NE(paste, nullptr);
        EXPECT_EQ(w.cursor(), "1,1!") << "a pop-up does not end the edit";
        paste->trigger();
        QApplication::activePopupWidget()->close();
        EXPECT_EQ(w.box()->text(), shown);
    }
}

TEST(Typing, ClipboardKeysReachTheDesktopsClipboard) {
    GridWindow w;
    w.grid->setTextMatrix(1, 0, "Bolt");
    w.key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Bolt");
    QGuiApplication::clipboard()->setText("Nut");
    w.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.box()->text(), "Nut");
}

TEST(Typing, KeysOfTheHostStayTheHosts) {
    GridWindow w;
    int saved = 0;
    int help = 0;
    QObject::connect(new QShortcut(QKeySequence::Save, &w.window), &QShortcut::activated,
                     [&] { ++saved; });
    QObject::connect(new QShortcut(Qt::Key_F1, &w.window), &QShortcut::activated, [&] { ++help; });
    // A letter is typed even where the window has a shortcut on it.
    int letter = 0;
    QObject::connect(new QShortcut(Qt::Key_X, &w.window), &QShortcut::activated, [&] { ++letter; });
    w.key(Qt::Key_S, Qt::ControlModifier);
    w.type("x");
    w.key(Qt::Key_S, Qt::ControlModifier);
    w.key(Qt::Key_F1);
    EXPECT_EQ(saved, 2);
    EXPECT_EQ(help, 1);
    EXPECT_EQ(letter, 0);
    EXPECT_EQ(w.box()->text(), "x");
    // The first Escape belongs to the edit, the second to the dialog.
    w.key(Qt::Key_Escape);
    EXPECT_TRUE(w.window.isVisible());
    w.key(Qt::Key_Escape);
    EXPECT_FALSE(w.window.isVisible());
}

TEST(Typing, PunctuationIsNoCursorKey) {
    GridWindow w;
    QList<int> codes;
    QObject::connect(w.grid, &TablioWidget::tableKeyDown,
                     [&](int &keyCode, int &, int &, int &) { codes << keyCode; });
    for (const char character : {'.', '\'', '(', '&', '%', '#', '-'}) {
        w.type(QString(QLatin1Char(character)));
        EXPECT_EQ(w.box()->text(), QString(QLatin1Char(character)));
        w.key(Qt::Key_Escape);
    }
    EXPECT_EQ(w.cursor(), "1,0");
    for (const int code : codes)
        EXPECT_TRUE(code > 185 && code < 232) << code;
}

TEST(Typing, ACommaLocaleAndTheKeypad) {
    GridWindow w;
    w.grid->setLocale(QLocale(QLocale::German, QLocale::Germany));
    w.key(Qt::Key_Right);
    w.key(Qt::Key_Right);
    w.type("1234");
    QTest::keyClick(w.window.windowHandle(), Qt::Key_Period, Qt::KeypadModifier);
    w.type("5");
    EXPECT_EQ(w.box()->text(), "1.234,5");
    w.type("\n");
    EXPECT_EQ(w.cell(1, 2), "1.234,50");
}

TEST(Typing, SlotsVetoAndChange) {
    GridWindow w;
    QObject::connect(w.grid, &TablioWidget::editPreValidation,
                     [](int &, int &col, bool &cancel) { cancel = col == 1; });
    QObject::connect(w.grid, &TablioWidget::cellKeyPress, [](int &, int &, int &keyAscii) {
        keyAscii = keyAscii == '-' ? '/' : keyAscii;
    });
    QObject::connect(w.grid, &TablioWidget::editPostValidation,
                     [](int &, int &, bool &valid, QString &, QString &newData, int &) {
                         valid = newData != "no";
                     });
    QObject::connect(w.grid, &TablioWidget::tableKeyDown, [](int &keyCode, int &, int &, int &) {
        if (keyCode == Qt::Key_Q)
            keyCode = 0;
    });
    w.type("a-b\n");
    EXPECT_EQ(w.cell(1, 0), "a/b");
    w.type("5");
    EXPECT_EQ(w.cursor(), "1,1") << "vetoed";
    w.key(Qt::Key_Left);
    w.type("no\n");
    EXPECT_EQ(w.cell(1, 0), "a/b") << "refused afterwards";
    w.key(Qt::Key_Left);
    w.type("q");
    EXPECT_EQ(w.cursor(), "1,0") << "swallowed with its character";
}
