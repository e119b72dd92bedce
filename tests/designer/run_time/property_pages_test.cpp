/// The property pages and the settings of a widget that runs: a table with data in it.

#include "control/inside.h"
#include "pages_dialog.h"

#include <tablio/qt/tablio_widget.h>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
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

    PagesDialog open(int page = 0) {
        grid->showPropertyPages();
        const PagesDialog pages(grid->findChild<QDialog *>());
        pages.play(QStringLiteral("page=%1").arg(page));
        return pages;
    }
};

} // namespace

TEST_F(RunningTable, KeepsItsDataWhatThePagesDo) {
    const PagesDialog pages = open();
    grid->setRows(40);
    QCoreApplication::processEvents();
    EXPECT_EQ(pages.text("txtRows"), "40") << "rows came meanwhile";
    EXPECT_EQ(open(1).get(), pages.get()) << "there is one dialog";
    pages.play("txtColTextHeader=Total; cmdIndex(1)");
    EXPECT_EQ(pages.text("txtColTextHeader"), "Name");
    pages.play("ok");
    EXPECT_TRUE(pages.get() == nullptr || !pages.get()->isVisible());

    EXPECT_EQ(grid->colTextHeader(0), "Total");
    EXPECT_EQ(grid->textMatrix(1, 0), "12") << "a fixed column is no design any more";
    EXPECT_EQ(grid->textMatrix(1, 1), "Ann");
}

TEST_F(RunningTable, AltAndALetterIsThePages) {
    NamesWithAccessKeys desktop;
    QCoreApplication::installTranslator(&desktop);
    QCoreApplication::processEvents();
    for (const QAbstractButton *button : open().get()->findChild<QDialogButtonBox *>()->buttons())
        EXPECT_FALSE(button->text().contains('&')) << "Alt+C is for Checkboxes";
}

TEST_F(RunningTable, ThePagesAreLaidOutInLines) {
    grid->setHeaderRowHeight(900);
    const QDialog *dialog = open().get();
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
    const PagesDialog pages = open();
    for (const auto &c : cases) {
        pages.play(QStringLiteral("txtRows=%1; txtRows=%2").arg(c.before, c.typed));
        QTest::keyClick(pages.get()->findChild<QWidget *>("RowUpDown"), c.key);
        EXPECT_EQ(pages.text("txtRows"), c.shown) << c.typed;
    }
}

TEST_F(RunningTable, EnterInTheIndexBoxGoesToTheColumn) {
    const PagesDialog pages = open(1);
    pages.play("txtIndex=1");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(pages.get()->isVisible());
    EXPECT_EQ(pages.text("txtColTextHeader"), "Name");
    EXPECT_EQ(grid->colTextHeader(1), "Name");
    pages.play("cboColEditType=ColumnCombo");
    const auto *format = pages.get()->findChild<QLineEdit *>("txtColFormat");
    EXPECT_FALSE(format->isEnabled());
    pages.play("cboColEditType=ColumnString");
    EXPECT_TRUE(format->isEnabled());
    EXPECT_EQ(pages.text("cboDataType"), "AllCase");
}

TEST_F(RunningTable, LeavingTheIndexBoxGoesToTheColumnAndCancelGivesBackWhatWas) {
    const PagesDialog pages = open(1);
    pages.play("txtColTextHeader=Total; txtIndex=1; Tab");
    EXPECT_EQ(pages.text("txtColTextHeader"), "Name");
    EXPECT_EQ(grid->colTextHeader(0), "Total");
    pages.play("txtIndex=0; cmdCommand(1); page=2; cboEntryRules=1 - Careful");
    EXPECT_EQ(grid->colTextHeader(0), "Name");
    EXPECT_EQ(grid->textMatrix(1, 0), "Ann");
    QTest::keyClick(pages.get()->windowHandle(), Qt::Key_Escape);
    EXPECT_EQ(grid->colTextHeader(0), "Sum");
    EXPECT_EQ(grid->textMatrix(1, 0), "12");
    EXPECT_EQ(grid->textMatrix(9, 1), "Zoe");
    EXPECT_EQ(grid->entryRules(), TablioWidget::Classic);
}

TEST_F(RunningTable, MayBeDeletedWhileItsPagesAreOpenAndByWhatTheyChange) {
    const PagesDialog pages = open(1);
    QObject::connect(grid.get(), &TablioWidget::propertyChanged, [&] { grid.reset(); });
    pages.play("cmdCommand(0)");
    EXPECT_EQ(grid, nullptr);
    EXPECT_EQ(pages.get(), nullptr);
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
