/// Input methods: a composition starts an edit like a key, its text obeys the column, and no key
/// of it does anything else.

#include "grid_window.h"

#include <gtest/gtest.h>

using tablio::qt::TablioWidget;

TEST(InputMethod, CompositionStartsAnEditAndItsResultIsTyped) {
    GridWindow w;
    int keys = 0;
    QObject::connect(w.grid, &TablioWidget::cellKeyPress, [&] { ++keys; });
    w.compose(u"に"_qs);
    EXPECT_EQ(w.cursor(), "1,0!");
    EXPECT_EQ(w.box()->text(), "") << "what is composed is not in the text yet";
    w.compose(u"にほ"_qs);
    // Enter picks a candidate; it must not end the edit.
    w.key(Qt::Key_Return);
    EXPECT_EQ(w.cursor(), "1,0!");
    w.compose({}, u"日本"_qs);
    EXPECT_EQ(w.box()->text(), u"日本"_qs);
    EXPECT_EQ(keys, 2);
    w.key(Qt::Key_Return);
    EXPECT_EQ(w.cell(1, 0), u"日本"_qs);
    EXPECT_EQ(w.cursor(), "1,1");
}

TEST(InputMethod, ACompositionReplacesTheSelection) {
    GridWindow w;
    w.type("one two");
    w.key(Qt::Key_Home, Qt::ShiftModifier);
    w.compose(u"に"_qs);
    EXPECT_EQ(w.state().widgets.txtEdit.Text(), "");
    w.compose({}, u"日"_qs);
    w.type("!\n");
    EXPECT_EQ(w.cell(1, 0), u"日!"_qs);
}

TEST(InputMethod, AVetoLeavesNothingBehind) {
    GridWindow w;
    QObject::connect(w.grid, &TablioWidget::editPreValidation,
                     [](int &, int &, bool &cancel) { cancel = true; });
    w.compose(u"に"_qs);
    EXPECT_EQ(w.cursor(), "1,0");
    w.compose({}, u"日"_qs);
    EXPECT_EQ(w.box()->text(), "");
    EXPECT_EQ(w.cell(1, 0), "");
}

TEST(InputMethod, WhatIsBeingComposedIsKept) {
    GridWindow w;
    w.compose(u"かな"_qs);
    w.click(3, 0);
    EXPECT_EQ(w.cell(1, 0), u"かな"_qs) << "by a click elsewhere";
    EXPECT_EQ(w.cursor(), "3,0");
    w.compose(u"abc"_qs);
    w.after->setFocus();
    EXPECT_EQ(w.cell(3, 0), "abc") << "by the focus going away";
}
