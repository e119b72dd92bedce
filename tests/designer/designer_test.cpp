/// What a developer does with the widget in Qt Designer, and what the form file keeps of it.

#include "designer_session.h"

#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtUiTools/QUiLoader>

#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QColor>
#include <QProcess>
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

TEST_F(Designer, EachAppliedPageIsOneStepThatIsUndoneAndRedone) {
    auto *form = session.newForm();
    QWidget *grid = on(form);
    const QByteArray fresh = settingsOf(grid);
    QByteArray general;
    QByteArray columns;
    {
        Pages pages(session, grid);
        pages.type("txtRows", "x31");
        EXPECT_EQ(pages.text("txtRows"), "31") << "letters are no digits";
        pages.type("txtCols", "0");
        EXPECT_EQ(pages.text("txtCols"), "1") << "the box is checked when it is left";
        pages.type("txtCols", "4");
        pages.tick("chkHeaderFontBold");
        EXPECT_TRUE(has(pages.preview(), {"Cols Long 4", "HeaderFontBold Boolean True"}));
        EXPECT_EQ(settingsOf(grid), fresh) << "nothing is applied yet";
        pages.apply();
        general = settingsOf(grid);
        EXPECT_TRUE(has(general, {"Cols Long 4", "Rows Long 31", "HeaderFontBold Boolean True"}));

        pages.showPage(1);
        pages.type("txtColTextHeader", "Article");
        pages.choose("cboColEditType", "ColumnDecimal");
        pages.type("txtColFormat", "#,##0.00");
        pages.type("txtColWidth", "1500");
        EXPECT_TRUE(has(pages.preview(), {"ColTextHeader0 String \"Article\""}));
        pages.ok();
        columns = settingsOf(grid);
    }
    EXPECT_TRUE(
        has(columns, {"Rows Long 31", "ColTextHeader0 String \"Article\"", "ColEditType0 Double 1",
                      "ColFormat0 String \"#,##0.00\"", "ColWidth0 Long 1500"}));

    QUndoStack *history = form->commandHistory();
    EXPECT_EQ(history->count(), 2);
    EXPECT_TRUE(form->isDirty());
    history->undo();
    EXPECT_EQ(settingsOf(grid), general);
    history->undo();
    EXPECT_EQ(settingsOf(grid), fresh);
    EXPECT_FALSE(form->contents().contains("settings")) << "a fresh widget needs no settings";
    history->redo();
    history->redo();
    EXPECT_EQ(settingsOf(grid), columns);
}

TEST_F(Designer, ButtonsThatActAtOnceAreStepsAndCancelTakesNothingBack) {
    auto *form = session.newForm();
    QWidget *grid = on(form);
    const QByteArray fresh = settingsOf(grid);
    {
        Pages pages(session, grid);
        pages.showPage(1);
        pages.press("cmdCommand(0)");
        EXPECT_EQ(grid->property("cols"), 3);
        pages.type("txtColTextHeader", "never applied");
    }
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
        Pages pages(session, grid);
        EXPECT_EQ(pages.text("txtRows"), "12");
        pages.showPage(1);
        pages.type("txtColTextHeader", QStringLiteral("Größe \"α\" <&>"));
        pages.ok();
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
    {
        Pages pages(session, grid);
        pages.type("txtRows", "40");
        pages.ok();
    }
    EXPECT_EQ(shown("rows"), "40");
    EXPECT_EQ(wrongly.count(), 0) << "showing a value is no edit";
    DesignerSession::edit(grid, "rows", 50);
    form->commandHistory()->undo();
    EXPECT_EQ(shown("rows"), "40");
    form->commandHistory()->undo();
    EXPECT_EQ(shown("rows"), fresh.toString());
    DesignerSession::edit(grid, "rows", -1);
    EXPECT_EQ(shown("rows"), fresh.toString()) << "the table refuses it";
}

TEST_F(Designer, AValueThatTheTableRefusesLeavesDesignerRunning) {
    auto *form = session.newForm();
    QWidget *grid = on(form);
    const QByteArray fresh = settingsOf(grid);
    DesignerSession::edit(grid, "rows", -1);
    DesignerSession::edit(grid, "fixedCols", 99);
    DesignerSession::edit(grid, "checkBoxes", 70000);
    DesignerSession::edit(grid, "settings", QByteArray("<<<<<<< ours\nRows Long 3\n"));
    EXPECT_EQ(settingsOf(grid), fresh);
}

TEST_F(Designer, CopiesAndPreviewsHaveAllSettings) {
    auto *form = session.openForm(DesignerSession::checkedInForm());
    const QByteArray settings = settingsOf(on(form));
    session.trigger(Manager::CopyAction);
    form = session.newForm();
    session.trigger(Manager::PasteAction);
    EXPECT_EQ(settingsOf(on(form, "tablio_2")), settings);

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

/// The checked-in form was made by these steps, which use every control of the pages.
TEST_F(Designer, ThePagesMakeTheCheckedInForm) {
    auto *form = session.newForm();
    QWidget *made = on(form);
    const QByteArray fresh = settingsOf(made);
    {
        Pages pages(session, made);
        pages.type("txtRows", "25");
        pages.type("txtCols", "4");
        pages.type("txtHeaderRowHeight", "450");
        pages.type("txtRowMinHeight", "360");
        pages.tick("chkWithFixedColumn");
        pages.type("txtPrimaryColumn", "1");
        for (const char *box :
             {"chkCheckboxes", "chkHeaderFontBold", "chkWordWrap", "chkGridPopUpMenu"})
            pages.tick(box);
        pages.apply();
        pages.showPage(1);
        pages.choose("cboColumnStyle", "ColumnFixedWithAutoNumber");
        pages.type("txtColWidth", "600");
        pages.press("cmdIndex(1)");
        pages.type("txtColTextHeader", "Article");
        pages.choose("cboColumnStyle", "ColumnInputWithLookup");
        pages.choose("cboDataType", "UpperCase");
        pages.type("txtColMaxLength", "12");
        pages.press("cmdIndex(1)");
        pages.type("txtColTextHeader", QStringLiteral("Preis \u20ac"));
        pages.choose("cboColumnStyle", "ColumnInput");
        pages.choose("cboColEditType", "ColumnDecimal");
        pages.choose("cboCalcStyle", "Calc.Style");
        pages.type("txtColFormat", "###,##0.00");
        pages.choose("cboColDataAlignment", "7 - Right Justify");
        pages.choose("cboColHeaderAlignment", "4 - Centre Justify");
        pages.press("cmdIndex(1)");
        pages.type("txtColTextHeader", "Delivery");
        pages.choose("cboColumnStyle", "ColumnInput");
        pages.choose("cboColEditType", "ColumnDate");
        pages.ok();
    }
    const QByteArray applied = settingsOf(made);
    while (form->commandHistory()->canUndo())
        form->commandHistory()->undo();
    EXPECT_EQ(settingsOf(made), fresh);
    while (form->commandHistory()->canRedo())
        form->commandHistory()->redo();
    EXPECT_EQ(settingsOf(made), applied);
    QWidget *checkedIn = on(session.openForm(DesignerSession::checkedInForm()));
    EXPECT_EQ(settingsOf(made), settingsOf(checkedIn))
        << QDesignerFormWindowInterface::findFormWindow(made)->contents().toStdString();
}

TEST_F(Designer, TheDemosFormIsSavedAsItWasOpened) {
    const QString file = DesignerSession::textOf(QStringLiteral(TABLIO_DEMO_FORM));
    auto *form = session.openForm(file, "grid");
    EXPECT_EQ(on(form, "grid")->property("cols").toInt(), 9) << "with the column of the ticks";
    EXPECT_EQ(form->contents(), file) << form->contents().toStdString();
}

TEST_F(Designer, CompiledAndLoadedFormsHaveWhatDesignerShows) {
    const QByteArray designed = settingsOf(on(session.openForm(DesignerSession::checkedInForm())));

    QByteArray file = DesignerSession::checkedInForm().toUtf8();
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    QUiLoader loader;
    const std::unique_ptr<QWidget> loaded(loader.load(&buffer));
    ASSERT_NE(loaded, nullptr) << loader.errorString().toStdString();
    EXPECT_EQ(settingsOf(loaded->findChild<QWidget *>("tablio")), designed);

    QProcess program;
    program.start(QStringLiteral(TABLIO_UIC_FORM), QStringList());
    ASSERT_TRUE(program.waitForFinished()) << program.errorString().toStdString();
    EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().constData();
    EXPECT_EQ(program.readAllStandardOutput(), designed);
}
