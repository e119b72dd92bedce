/// The property pages and the settings of a widget that runs: a table with data in it.

#include "control/inside.h"

#include <tablio/qt/tablio_widget.h>

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTranslator>

#include <memory>

using tablio::qt::TablioWidget;

namespace {

/// Names dialog buttons as some desktops do.
class NamesWithAccessKeys final : public QTranslator {
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override {
        return qstrcmp(context, "QPlatformTheme") == 0 ? '&' + QString::fromLatin1(source)
                                                       : QString();
    }
};

class RunningTable : public testing::Test {
protected:
    RunningTable() {
        grid->setRows(10);
        grid->setCols(3);
        grid->setColProperty(0, "Sum", 1200, TablioWidget::ColumnFixed);
        grid->setColProperty(1, "Name", 2000, TablioWidget::ColumnInput);
        grid->setTextMatrix(1, 0, "12");
        grid->setTextMatrix(1, 1, "Ann");
        grid->setTextMatrix(9, 1, "Zoe");
        grid->show();
    }

    std::unique_ptr<TablioWidget> grid = std::make_unique<TablioWidget>();

    QDialog *open(int page = 0) {
        grid->showPropertyPages();
        auto *dialog = grid->findChild<QDialog *>();
        dialog->activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(dialog));
        dialog->findChild<QTabWidget *>()->setCurrentIndex(page);
        return dialog;
    }
    template <typename Widget = QLineEdit> Widget *find(const char *name) const {
        return grid->findChild<QDialog *>()->findChild<Widget *>(name);
    }
    void press(const char *button) const {
        QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton);
    }
    void apply() const {
        grid->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Apply)->click();
    }
    static void replace(QLineEdit *box, const QString &text) {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
    }
};

} // namespace

TEST_F(RunningTable, KeepsItsDataWhatThePagesDo) {
    QPointer<QDialog> dialog = open();
    EXPECT_EQ(open(1), dialog.data()) << "there is one dialog";
    replace(find("txtColTextHeader"), "Total");
    press("cmdIndex(1)");
    EXPECT_EQ(find("txtColTextHeader")->text(), "Name");
    QTest::keyClick(dialog->windowHandle(), Qt::Key_Return);
    EXPECT_TRUE(dialog == nullptr || !dialog->isVisible());

    EXPECT_EQ(grid->colTextHeader(0), "Total");
    EXPECT_EQ(grid->textMatrix(1, 0), "12") << "a fixed column is no design any more";
    EXPECT_EQ(grid->textMatrix(1, 1), "Ann");
}

TEST_F(RunningTable, RowNumbersStandInTheirColumnsOnly) {
    const auto column = [this](int col) {
        return grid->textMatrix(1, col) + "," + grid->textMatrix(grid->rows() - 1, col);
    };
    const QByteArray plain = grid->settings();
    grid->setColStyle(0, TablioWidget::ColumnFixedWithAutoNumber);
    grid->setSettings(plain);
    EXPECT_EQ(column(0), ",");
    EXPECT_EQ(column(1), "Ann,Zoe") << "a column that was not numbered keeps its texts";
    grid->setColStyle(0, TablioWidget::ColumnFixedWithAutoNumber);

    open();
    replace(find("txtRows"), "12");
    open(1);
    apply();
    EXPECT_EQ(column(0), "1,11") << "the new rows are numbered, too";
    press("cmdCommand(0)");
    EXPECT_EQ(column(0), "1,11");
    EXPECT_EQ(column(1), ",") << "an inserted column has no numbers";
    press("cmdIndex(0)");
    press("cmdCommand(1)");
    EXPECT_EQ(column(0), ",") << "nor has the place of a removed one";
}

TEST_F(RunningTable, ThePreviewShowsWhatApplyGives) {
    const struct {
        bool fixed;
        int primary;
        std::vector<std::pair<const char *, const char *>> typed;
    } cases[] = {
        {true, 0, {{"txtHeaderRowHeight", "500"}}},
        {false, 0, {{"txtPrimaryColumn", "2"}, {"txtCols", "2"}}},
        {true, 1, {{"txtCols", "9"}, {"txtColTextHeader", "edited"}}},
    };
    for (const auto &c : cases) {
        grid->setCols(3);
        grid->setFixedCols(0);
        grid->setWithFixedColumn(c.fixed);
        grid->setPrimaryColumn(c.primary);
        const std::unique_ptr<QDialog> dialog(open(1));
        for (const auto &[box, text] : c.typed)
            replace(find(box), text);
        QCoreApplication::processEvents();
        const auto *preview = dialog->findChild<TablioWidget *>();
        const QByteArray shown = preview->settings();
        apply();
        grid->setRows(preview->rows());
        EXPECT_EQ(shown.toStdString(), grid->settings().toStdString());
    }
}

TEST_F(RunningTable, AltAndALetterIsThePages) {
    NamesWithAccessKeys desktop;
    QCoreApplication::installTranslator(&desktop);
    QCoreApplication::processEvents();
    for (const QAbstractButton *button : open()->findChild<QDialogButtonBox *>()->buttons())
        EXPECT_FALSE(button->text().contains('&')) << "Alt+C is for Checkboxes";
}

TEST_F(RunningTable, ThePagesAreLaidOutInLines) {
    grid->setHeaderRowHeight(900);
    const QDialog *dialog = open();
    const auto middle = [dialog](const char *name) {
        const auto *widget = dialog->findChild<QWidget *>(name);
        return widget->mapTo(dialog, widget->rect().center()).y();
    };
    const char *const lines[][2] = {{"RowUpDown", "chkCheckboxes"},
                                    {"ColUpDown", "chkHeaderFontBold"},
                                    {"txtHeaderRowHeight", "chkWordWrap"},
                                    {"txtRowMinHeight", "chkGridPopUpMenu"},
                                    {"txtPrimaryColumn", "chkWithFixedColumn"}};
    for (const auto &[number, tick] : lines)
        EXPECT_NEAR(middle(number), middle(tick), 1) << tick;

    const auto *preview = dialog->findChild<TablioWidget *>();
    EXPECT_GT(preview->parentWidget()->height() * 15, 900 + 3 * grid->rowMinHeight());
}

TEST_F(RunningTable, ArrowsCountOnFromWhatTheBoxHolds) {
    const struct {
        const char *before, *typed;
        Qt::Key key;
        const char *shown;
    } cases[] = {
        {"9", "7", Qt::Key_PageUp, "17"}, {"9", "1", Qt::Key_Up, "2"},
        {"2", "1", Qt::Key_Up, "2"},      {"2", "99999", Qt::Key_Down, "32768"},
        {"9", "-", Qt::Key_Up, "10"},     {"9", "-7", Qt::Key_Up, "2"},
    };
    open();
    auto *box = find("txtRows");
    for (const auto &c : cases) {
        replace(box, c.before);
        replace(box, c.typed);
        QTest::keyClick(box->parentWidget(), c.key);
        EXPECT_EQ(box->text(), c.shown) << c.typed;
    }
}

TEST_F(RunningTable, RowsThatCameMeanwhileStay) {
    QDialog *dialog = open();
    EXPECT_EQ(find("txtRows")->text(), "10");
    grid->setRows(40);
    QCoreApplication::processEvents();
    EXPECT_EQ(find("txtRows")->text(), "40");
    replace(find("txtHeaderRowHeight"), "600");
    QTest::keyClick(dialog->windowHandle(), Qt::Key_Return);
    EXPECT_EQ(grid->rows(), 40);
    EXPECT_EQ(grid->headerRowHeight(), 600);
    EXPECT_EQ(grid->textMatrix(9, 1), "Zoe");
}

TEST_F(RunningTable, EnterInTheIndexBoxGoesToTheColumn) {
    const QDialog *dialog = open(1);
    replace(find("txtIndex"), "1");
    QTest::keyClick(find("txtIndex"), Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(find("txtColTextHeader")->text(), "Name");
    EXPECT_EQ(grid->colTextHeader(1), "Name");
}

TEST_F(RunningTable, LocksAndListsFollowTheEditKind) {
    open(1);
    QTest::keyClick(find<QComboBox>("cboColEditType"), Qt::Key_End);
    EXPECT_FALSE(find("txtColFormat")->isEnabled());
    QTest::keyClick(find<QComboBox>("cboColEditType"), Qt::Key_Home);
    EXPECT_TRUE(find("txtColFormat")->isEnabled());
    EXPECT_EQ(find<QComboBox>("cboDataType")->currentText(), "AllCase");
}

TEST_F(RunningTable, MayBeDeletedWhileItsPagesAreOpenAndByWhatTheyChange) {
    const QPointer<QDialog> dialog = open(1);
    QObject::connect(grid.get(), &TablioWidget::propertyChanged, [&] { grid.reset(); });
    press("cmdCommand(0)");
    EXPECT_EQ(grid, nullptr);
    EXPECT_EQ(dialog, nullptr);
}

TEST_F(RunningTable, EndsAnOpenEditBeforeThePagesOpen) {
    grid->setFocus();
    grid->focusCell(1, 1);
    QTest::keyClicks(grid->focusWidget(), "Bob");
    QString entered;
    QObject::connect(
        grid.get(), &TablioWidget::editPostValidation,
        [&](int &, int &, bool &, QString &, QString &text, int &) { entered = text; });
    open();
    EXPECT_EQ(entered, "Bob");
    EXPECT_EQ(grid->textMatrix(1, 1), "Bob");
}

TEST_F(RunningTable, SettingsMakeAnotherTableTheSameAndBack) {
    grid->setHeaderFontBold(true);
    grid->setStripeColor(Qt::yellow);
    grid->setColFormat(1, "x");
    TablioWidget other;
    const QByteArray fresh = other.settings();
    const QColor plain = other.cellBackColor(1, 0);
    QStringList changed;
    QObject::connect(&other, &TablioWidget::propertyChanged,
                     [&](const QString &name) { changed << name; });
    other.setSettings(grid->settings());
    EXPECT_EQ(other.settings(), grid->settings());
    EXPECT_TRUE(other.cellFontBold(0, 1));
    EXPECT_EQ(other.cellBackColor(2, 1), QColor(Qt::yellow));
    EXPECT_EQ(changed.last(), QString()) << "all may have changed";

    other.setSettings(fresh);
    EXPECT_EQ(other.settings(), fresh);
    other.setRows(4);
    EXPECT_EQ(other.cellBackColor(2, 0), plain);
}

TEST_F(RunningTable, SettingsLeaveToQtWhatIsQts) {
    QWidget parent;
    auto *loaded = new TablioWidget(&parent);
    grid->setPrimaryColumn(1);
    grid->setEnabled(false);
    loaded->setSettings(grid->settings());
    EXPECT_TRUE(loaded->core().Enabled());
    parent.show();
    EXPECT_EQ(tablio::Inside::of(loaded->core()).state.grid.current(), (tablio::CellAddress{1, 1}));

    const int height = loaded->rowMinHeight();
    QFont font = loaded->font();
    font.setPixelSize(40);
    loaded->setFont(font);
    EXPECT_GT(loaded->rowMinHeight(), height) << "a row height that nobody set follows the font";
    grid->setRowMinHeight(900);
    loaded->setSettings(grid->settings());
    EXPECT_EQ(loaded->rowMinHeight(), 900);
}

TEST_F(RunningTable, AResetColourFollowsThePaletteAgain) {
    grid->setBackColorData(Qt::red);
    grid->resetBackColorData();
    grid->setProperty("checkBoxColor", QColor(Qt::blue));
    grid->setProperty("checkBoxColor", QColor());
    QPalette palette = grid->palette();
    palette.setColor(QPalette::Base, QColor(1, 2, 3));
    grid->setPalette(palette);
    EXPECT_EQ(grid->backColorData(), QColor(1, 2, 3));
    EXPECT_EQ(grid->checkBoxColor(), QColor(Qt::red));
}
