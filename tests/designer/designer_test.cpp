/// What a developer does with the widget in Qt Designer, and what the form file keeps of it.

#include "designer_session.h"

#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtUiTools/QUiLoader>

#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QColor>
#include <QLabel>
#include <QSignalSpy>
#include <QTreeWidget>
#include <QUndoStack>

#include <memory>

using Manager = QDesignerFormWindowManagerInterface;

namespace {

/// Whether the settings have these lines.
testing::AssertionResult has(const QByteArray &settings,
                             std::initializer_list<const char *> lines) {
    for (const char *line : lines) {
        if (!settings.contains("\n" + QByteArray(line) + "\n"))
            return testing::AssertionFailure() << "no \"" << line << "\" in\n"
                                               << settings.constData();
    }
    return testing::AssertionSuccess();
}

class Designer : public testing::Test {
protected:
    static void SetUpTestSuite() { theSession = std::make_unique<DesignerSession>(); }
    static void TearDownTestSuite() { theSession.reset(); }
    void TearDown() override { session.closeForms(); }

    static inline std::unique_ptr<DesignerSession> theSession;
    DesignerSession &session = *theSession;

    /// The value that the property editor shows.
    [[nodiscard]] QString shown(const char *property) const {
        QCoreApplication::processEvents();
        const auto *tree = session.designer().propertyEditor()->findChild<QTreeWidget *>();
        const auto items =
            tree->findItems(QString::fromLatin1(property), Qt::MatchExactly | Qt::MatchRecursive);
        return items.isEmpty() ? QString() : items.constFirst()->text(1);
    }
};

} // namespace

TEST_F(Designer, ButtonsThatActAtOnceAreStepsAndCancelTakesNothingBack) {
    auto *form = session.newForm();
    QWidget *grid = on(form);
    const QByteArray fresh = settingsOf(grid);
    OpenPages(session, grid).play("page=1; cmdCommand(0); txtColTextHeader=never applied");
    EXPECT_EQ(grid->property("cols"), 3);
    EXPECT_FALSE(settingsOf(grid).contains("never applied"));
    form->commandHistory()->undo();
    EXPECT_EQ(settingsOf(grid), fresh);
}

TEST_F(Designer, TheFormFileKeepsOnePropertyWhateverWasSet) {
    auto *form = session.newForm();
    QWidget *grid = on(form);
    DesignerSession::edit(grid, "rows", 12);
    DesignerSession::edit(grid, "backColorData", QColor(1, 2, 3));
    DesignerSession::edit(grid, "headerFontBold", true);
    {
        const OpenPages pages(session, grid);
        EXPECT_EQ(pages.text("txtRows"), "12");
        pages.play(QStringLiteral("page=1; txtColTextHeader=Größe \"α\" <&>; ok"));
    }
    const QByteArray settings = settingsOf(grid);
    EXPECT_TRUE(has(settings, {"Rows Long 12", "BackColorData Long 197121"}));
    const QString contents = form->contents();
    EXPECT_EQ(contents.count("name=\"settings\""), 1);
    for (const char *part : {"rows", "backColorData", "headerFontBold", "cols"})
        EXPECT_FALSE(contents.contains(QStringLiteral("name=\"%1\"").arg(part))) << part;

    auto *again = session.openForm(contents);
    EXPECT_EQ(settingsOf(on(again)), settings);
    EXPECT_EQ(on(again)->property("backColorData"), QColor(1, 2, 3));
    EXPECT_EQ(again->contents(), contents);
}

TEST_F(Designer, ThePropertyEditorFollowsThePagesAndUndo) {
    auto *form = session.newForm();
    QWidget *grid = on(form);
    const QVariant fresh = grid->property("rows");
    QDesignerPropertyEditorInterface *editor = session.designer().propertyEditor();
    editor->setObject(grid);
    QSignalSpy wrongly(editor, &QDesignerPropertyEditorInterface::propertyChanged);
    EXPECT_EQ(shown("rows"), fresh.toString());
    OpenPages(session, grid).play("txtRows=40; ok");
    EXPECT_EQ(shown("rows"), "40");
    EXPECT_EQ(wrongly.count(), 0) << "showing a value is no edit";
    DesignerSession::edit(grid, "rows", 50);
    form->commandHistory()->undo();
    EXPECT_EQ(shown("rows"), "40");
    form->commandHistory()->undo();
    EXPECT_EQ(shown("rows"), fresh.toString());
    // The table refuses these, and Designer goes on.
    const QByteArray settings = settingsOf(grid);
    DesignerSession::edit(grid, "rows", -1);
    EXPECT_EQ(shown("rows"), fresh.toString());
    DesignerSession::edit(grid, "fixedCols", 99);
    DesignerSession::edit(grid, "checkBoxes", 70000);
    EXPECT_EQ(settingsOf(grid), settings);
}

TEST_F(Designer, CopiesAndPreviewsHaveAllSettings) {
    auto *form = session.openForm(DesignerSession::demoForm(), "grid");
    const QByteArray settings = settingsOf(on(form, "grid"));
    session.trigger(Manager::CopyAction);
    form = session.newForm();
    session.trigger(Manager::PasteAction);
    EXPECT_EQ(settingsOf(on(form, "grid")), settings);

    session.trigger(Manager::DefaultPreviewAction);
    int previews = 0;
    for (const QWidget *widget : QApplication::allWidgets()) {
        const bool isOnForm = form->isAncestorOf(widget);
        if (!isOnForm && widget->isVisible() && widget->inherits("tablio::qt::TablioWidget")) {
            previews += settingsOf(widget) == settings ? 1 : 0;
        }
    }
    EXPECT_EQ(previews, 1);
}

TEST_F(Designer, EveryControlOfThePagesReachesTheFormAndBothStepsAreUndone) {
    auto *form = session.newForm();
    QWidget *made = on(form);
    const QByteArray fresh = settingsOf(made);
    {
        const OpenPages pages(session, made);
        pages.play("txtRows=x25; txtCols=0; Tab");
        EXPECT_EQ(pages.text("txtRows"), "25") << "letters are no digits";
        EXPECT_EQ(pages.text("txtCols"), "1") << "the box is checked when it is left";
        pages.play("txtCols=4; txtHeaderRowHeight=450; txtRowMinHeight=360; chkWithFixedColumn; "
                   "txtPrimaryColumn=1; chkCheckboxes; chkHeaderFontBold; chkWordWrap; "
                   "chkGridPopUpMenu");
        EXPECT_TRUE(has(pages.preview(), {"Cols Long 6", "HeaderFontBold Boolean True"}));
        EXPECT_EQ(settingsOf(made), fresh) << "nothing is applied yet";
        pages.play("apply");
        EXPECT_EQ(form->commandHistory()->count(), 1);
        EXPECT_TRUE(form->isDirty());
        pages.play(
            "page=1; cboColumnStyle=ColumnFixedWithAutoNumber; txtColWidth=600; cmdIndex(1); "
            "txtColTextHeader=Article; cboColumnStyle=ColumnInputWithLookup; "
            "cboDataType=UpperCase; txtColMaxLength=12; cmdIndex(1); "
            "txtColTextHeader=Preis; cboColumnStyle=ColumnInput; "
            "cboColEditType=ColumnDecimal; cboCalcStyle=Calc.Style; txtColFormat=###,##0.00; "
            "cboColDataAlignment=7 - Right Justify; cboColHeaderAlignment=4 - Centre Justify; "
            "cmdIndex(1); cboColumnStyle=ColumnInput; cboColEditType=ColumnDate; ok");
    }
    const QByteArray applied = settingsOf(made);
    while (form->commandHistory()->canUndo())
        form->commandHistory()->undo();
    EXPECT_EQ(settingsOf(made), fresh);
    EXPECT_FALSE(form->contents().contains("settings")) << "a fresh widget needs no settings";
    while (form->commandHistory()->canRedo())
        form->commandHistory()->redo();
    EXPECT_EQ(settingsOf(made), applied);
    EXPECT_EQ(settingsOf(on(session.openForm(form->contents()))), applied);
    EXPECT_TRUE(
        has(applied, {"GridPopUpMenu Boolean False", "Cols Long 6\nRows Long 25\nFixedCols Long 1",
                      "WithFixedColumn Boolean True\nHeaderRowHeight Long 450",
                      "PrimaryColumn Long 1\nHeaderFontBold Boolean True\nCheckBoxes Integer -1\n"
                      "RowMinHeight Long 360",
                      "ColStyle0 Double 3", "ColWidth0 Long 600",
                      "ColStyle1 Double 1\nColDataType1 Double 1\nColMaxLength1 String \"12\"\n"
                      "ColTextHeader1 String \"Article\"",
                      "ColStyle2 Double 0\nColEditType2 Double 1\nColCalcStyle2 Double 1\n"
                      "ColFormat2 String \"###,##0.00\"\nColTextHeader2 String \"Preis\"\n"
                      "ColDataAlignment2 Integer 7\nColHeaderAlignment2 Integer 4",
                      "ColEditType3 Double 3\nColFormat3 String \"##/##/####\"\n"
                      "ColMaxLength3 String \"10\""}));
}

/// Programs that uic makes of a form, the demo is one; its window tests type into what this form
/// says.
TEST_F(Designer, TheDemosFormIsSavedAsItWasOpenedAndLoadedAsItIsShown) {
    const QString file = DesignerSession::demoForm();
    auto *form = session.openForm(file, "grid");
    EXPECT_EQ(on(form, "grid")->property("cols").toInt(), 9) << "with the column of the ticks";
    EXPECT_EQ(form->contents(), file) << form->contents().toStdString();

    QByteArray bytes = file.toUtf8();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QUiLoader loader;
    const std::unique_ptr<QWidget> loaded(loader.load(&buffer));
    ASSERT_NE(loaded, nullptr) << loader.errorString().toStdString();
    EXPECT_EQ(settingsOf(loaded->findChild<QWidget *>("grid")), settingsOf(on(form, "grid")));
}

TEST_F(Designer, SettingsThatCannotBeReadStayInTheFormUntilOneIsChanged) {
    QString file = DesignerSession::demoForm();
    file.replace(QStringLiteral("Tablio properties 1"), QStringLiteral("Tablio properties 2"));
    auto *form = session.openForm(file, "grid");
    QWidget *grid = on(form, "grid");
    const auto *notice = grid->findChild<QLabel *>();
    ASSERT_NE(notice, nullptr);
    EXPECT_TRUE(notice->text().contains(QStringLiteral("version 2")))
        << notice->text().toStdString();
    EXPECT_EQ(form->contents(), file) << form->contents().toStdString();

    DesignerSession::edit(grid, "rows", 12);
    EXPECT_TRUE(has(settingsOf(grid), {"Rows Long 12"}));
    EXPECT_EQ(notice->isVisibleTo(grid), false);
    form->commandHistory()->undo();
    EXPECT_EQ(form->contents(), file);
}
