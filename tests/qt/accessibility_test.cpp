/// What a screen reader is told of the grid, and that what it was given goes with the cells. How it
/// sounds over a real bus is played by the window tests.

#include "grid_window.h"

#include <gtest/gtest.h>

#include <QAccessible>

#include <string>
#include <vector>

namespace {

std::vector<std::string> told;

void hear(QAccessibleEvent *event) {
    QAccessibleInterface *source = event->accessibleInterface();
    if (source == nullptr || !source->isValid())
        return;
    const std::string name = source->text(QAccessible::Name).toStdString();
    if (event->type() == QAccessible::Focus)
        told.push_back("at " + name);
    else if (event->type() == QAccessible::NameChanged && source->role() == QAccessible::Cell)
        told.push_back("now " + name);
    else if (event->type() == QAccessible::StateChanged && source->state().checkable != 0)
        told.push_back(source->state().checked != 0 ? "ticked" : "not ticked");
    else if (event->type() == QAccessible::TextInserted)
        told.push_back(
            "+" + static_cast<QAccessibleTextInsertEvent *>(event)->textInserted().toStdString());
}

class Accessibility : public testing::Test {
protected:
    Accessibility() : before_(QAccessible::installUpdateHandler(hear)) {}
    ~Accessibility() override { QAccessible::installUpdateHandler(before_); }
    Accessibility(const Accessibility &) = delete;
    Accessibility &operator=(const Accessibility &) = delete;

    void SetUp() override {
        const bool isWanted = qEnvironmentVariableIsSet("QT_LINUX_ACCESSIBILITY_ALWAYS_ON");
        if (!isWanted || !QTest::qWaitFor(&QAccessible::isActive))
            GTEST_SKIP() << "Qt tells nobody here";
        heard();
    }

    using Told = std::vector<std::string>;
    static Told heard() {
        // The answer to an action is an event, what follows from it another, and its news the next.
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
        return std::exchange(told, {});
    }
    [[nodiscard]] QAccessibleInterface *grid() const {
        return QAccessible::queryAccessibleInterface(w.grid);
    }
    /// By the numbers of the data cells, from 0.
    [[nodiscard]] QAccessibleInterface *cell(int row, int col) const {
        return grid()->tableInterface()->cellAt(row, col);
    }

    GridWindow w;

private:
    QAccessible::UpdateHandler before_;
};

TEST_F(Accessibility, WhatIsReachedIsToldOnce) {
    w.grid->setTextMatrix(1, 0, "bolt");
    w.grid->setTextMatrix(2, 0, "nut");
    heard();
    w.key(Qt::Key_Down);
    EXPECT_EQ(heard(), Told{"at nut"});
    w.key(Qt::Key_End);
    heard();
    w.grid->focusCell(1, 0);
    EXPECT_EQ(heard(), Told{"at bolt"}) << "and not another cell of the row, on the way";
    const QString header = w.grid->colTextHeader(0);
    w.key(Qt::Key_F2);
    EXPECT_EQ(heard().back(), "at " + header.toStdString() + ", row 1");
    w.key(Qt::Key_End);
    w.type("s");
    EXPECT_EQ(heard(), Told{"+s"}) << "and not the whole text";
    w.key(Qt::Key_Down);
    EXPECT_EQ(heard(), (Told{"now bolts", "at nut"}));
    w.after->setFocus();
    heard();
    w.before->setFocus();
    w.grid->setFocus();
    EXPECT_EQ(heard().back(), "at nut");
}

TEST_F(Accessibility, ACellDoesWhatItOffers) {
    w.grid->setCheckBoxes(1);
    const int last = w.grid->cols() - 1;
    QAccessibleInterface *box = cell(1, last);
    EXPECT_EQ(box->role(), QAccessible::CheckBox);
    box->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(heard(), (Told{"ticked", "at " + w.grid->colTextHeader(last).toStdString()}));
    EXPECT_EQ(box->tableCellInterface()->columnIndex(), last);
    EXPECT_EQ(grid()->child(grid()->indexOfChild(box)), box);
    QAccessibleInterface *text = cell(0, 0);
    EXPECT_EQ(text->actionInterface()->actionNames().front(), "Edit");
    text->actionInterface()->doAction(QStringLiteral("Edit"));
    heard();
    EXPECT_EQ(w.cursor(), "1,0!");
    QAccessibleInterface *editor = text->child(0);
    editor->editableTextInterface()->insertText(0, QStringLiteral("ab"));
    heard();
    EXPECT_EQ(editor->textInterface()->text(0, 2), "ab");
    EXPECT_EQ(editor->parent(), text);
    w.grid->setEnabled(false);
    EXPECT_EQ(text->actionInterface()->actionNames(), QStringList());
}

TEST_F(Accessibility, WhatWasGivenGoesWithItsCell) {
    const QAccessible::Id gone = QAccessible::uniqueId(cell(2, 0));
    const QAccessible::Id stays = QAccessible::uniqueId(cell(0, 0));
    w.grid->setRows(3);
    heard();
    EXPECT_EQ(QAccessible::accessibleInterface(gone), nullptr);
    EXPECT_EQ(cell(2, 0), nullptr);
    EXPECT_EQ(QAccessible::uniqueId(cell(0, 0)), stays);
    // A reader that walks all cells is given each, and does not keep them all.
    w.grid->setRows(2000);
    for (int row = 0; row < 1999; ++row)
        ASSERT_EQ(cell(row, 1)->tableCellInterface()->rowIndex(), row);
    EXPECT_EQ(QAccessible::accessibleInterface(stays), nullptr);
    EXPECT_NE(cell(0, 0), nullptr);
    const QAccessible::Id last = QAccessible::uniqueId(cell(0, 0));
    w.key(Qt::Key_F2);
    delete w.grid.data();
    EXPECT_EQ(QAccessible::accessibleInterface(last), nullptr);
}

} // namespace
