/// The keyboard, beside what the scenarios type: what the native box does by itself,
/// keys that belong to the host.

#include "grid_window.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMessageBox>
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
        QApplication::activePopupWidget()->close();
        paste->trigger();
        auto *warning = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        EXPECT_EQ(warning != nullptr, clipboard == std::string("abc"));
        if (warning != nullptr)
            warning->close();
        EXPECT_EQ(w.box()->text(), shown);
    }
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
