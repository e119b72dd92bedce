/// The native combo, date box, calendar and buttons: that they show what the core's widgets hold,
/// where it says.

#include "grid_window.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QComboBox>
#include <QLineEdit>
#include <QStyleFactory>
#include <QToolButton>

namespace {

using tablio::qt::TablioWidget;

class ChoiceEditors : public testing::Test {
protected:
    ChoiceEditors() {
        TablioWidget &grid = *window.grid;
        grid.setColEditType(0, TablioWidget::ColumnCombo);
        grid.setColEditType(1, TablioWidget::ColumnDate);
        grid.setColStyle(3, TablioWidget::ColumnInputWithLookup);
        grid.setColFormat(1, {});
        for (const char *item : {"Bag", "Bottle", "Box"})
            grid.core().ComboAddItem(item);
        window.window.resize(900, 500);
        grid.setColWidth(1, 1800);
        QCoreApplication::processEvents();
    }

    template <typename Widget> Widget *child(const char *name) const {
        return window.grid->findChild<Widget *>(QLatin1String(name));
    }
    /// Where a native child is on the grid, in logical pixels.
    [[nodiscard]] QRect onGrid(const QWidget *widget) const {
        return {widget->mapTo(window.canvas(), QPoint(0, 0)), widget->size()};
    }
    [[nodiscard]] QRect cellRect(int row, int col) const {
        const tablio::Rect cell = window.state().grid.view.cellRect(row, col);
        return {cell.left / 15, cell.top / 15, cell.width / 15, cell.height / 15};
    }

    GridWindow window;
};

TEST_F(ChoiceEditors, TheComboLiesInItsCellAndItsArrowIsLeftFree) {
    window.grid->focusCell(1, 0);
    window.key(Qt::Key_F2);
    auto *combo = child<QComboBox>("qt_cboEdit");
    EXPECT_EQ(combo->count(), 3);
    EXPECT_TRUE(cellRect(1, 0).contains(onGrid(combo->parentWidget())));
    EXPECT_TRUE(combo->geometry().contains(combo->parentWidget()->rect()))
        << "the combo's border must be clipped away";
    EXPECT_LT(onGrid(window.box()).right(), cellRect(1, 0).right() - 15);
}

TEST_F(ChoiceEditors, AClickOnTheArrowOpensTheListUnderEveryStyle) {
    int row = 0;
    for (const QString &style : QStyleFactory::keys()) {
        // Either end of the arrow; nothing but the combo may lie under it.
        for (const int fromRight : {3, 19}) {
            SCOPED_TRACE(style.toStdString() + " " + std::to_string(fromRight));
            QApplication::setStyle(style);
            window.grid->focusCell(++row, 0);
            window.key(Qt::Key_F2);
            const QRect cell = window.place(row, 0);
            QTest::mouseClick(window.window.windowHandle(), Qt::LeftButton, {},
                              {cell.right() - fromRight, cell.center().y()});
            const auto *list = child<QComboBox>("qt_cboEdit")->view();
            ASSERT_TRUE(list->isVisible());
            EXPECT_EQ(window.cursor(), QString::number(row) + ",0!");
            window.key(Qt::Key_Down);
            EXPECT_EQ(window.box()->text(), "Bag") << "keys go to the list";
            const QRect bottle = list->visualRect(list->model()->index(1, 0));
            QTest::mouseMove(list->viewport(), bottle.center());
            // A list that has only just opened takes a click for the end of the one that opened it.
            QTest::qWait(QApplication::doubleClickInterval() + 50);
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, bottle.center());
            QCoreApplication::processEvents();
            EXPECT_FALSE(list->isVisible());
            EXPECT_EQ(window.box()->text(), "Bottle");
            window.key(Qt::Key_Return);
            EXPECT_EQ(window.cell(row, 0), "Bottle");
        }
    }
}

TEST_F(ChoiceEditors, TheDateBoxHasItsButtonAndTheCalendarIsTheLocales) {
    window.grid->focusCell(1, 1);
    window.key(Qt::Key_F2);
    EXPECT_EQ(onGrid(child<QToolButton>("qt_cmdCalender")).right(), onGrid(window.box()).right());
    window.key(Qt::Key_F10);
    auto *calendar = child<QCalendarWidget>("qt_mvCalender");
    EXPECT_EQ(calendar->firstDayOfWeek(), window.grid->locale().firstDayOfWeek());
    EXPECT_TRUE(window.canvas()->rect().contains(onGrid(calendar)));
    const QDate day = calendar->selectedDate();
    calendar->showNextMonth();
    EXPECT_EQ(calendar->selectedDate(), day.addMonths(1));
    window.key(Qt::Key_Return);
    EXPECT_EQ(window.cell(1, 1), day.addMonths(1).toString(QStringLiteral("dd/MM/yyyy")));
}

TEST_F(ChoiceEditors, HidingTheControlClosesTheCalendar) {
    window.grid->focusCell(1, 1);
    window.key(Qt::Key_F10);
    window.grid->hide();
    EXPECT_FALSE(window.state().isCalendarOpen());
    EXPECT_TRUE(window.grid->core().Enabled());
}

TEST_F(ChoiceEditors, TheLookupButtonStandsInTheCell) {
    window.grid->focusCell(1, 3);
    window.key(Qt::Key_F2);
    auto *button = child<QToolButton>("qt_cmdLookup");
    ASSERT_TRUE(button->isVisible());
    const QRect frame = window.box()->parentWidget()->geometry();
    EXPECT_EQ(button->geometry().right(), frame.right());
    EXPECT_EQ(button->geometry().height(), frame.height());
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(window.box()->hasFocus()) << "the keyboard stays with the grid";
}

} // namespace
