/// What is typed into a form on an SQLite table gets into the table, whatever happens to it.

#include "bound_form.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRelationalTableModel>

#include <functional>

using tablio::qt::TablioModelBinding;
using tablio::qt::TablioSqlBinding;
using tablio::qt::TablioWidget;
using tablio::qt::TablioWriteTrouble;

namespace {

const QString allRows =
    QStringLiteral("SELECT id, name, count, price, code, note FROM item ORDER BY id");

class SqlBinding : public testing::Test {
protected:
    LiteFile file;
    BoundForm form{file.own};

    [[nodiscard]] QStringList stored() const { return sql(file.other, allRows); }
    [[nodiscard]] QString stored(int id) const {
        return sql(file.other, QStringLiteral("SELECT name, count, price, code, note FROM item"
                                              " WHERE id = %1")
                                   .arg(id))
            .value(0);
    }
    [[nodiscard]] TablioWriteTrouble::Kind trouble(int row) const {
        return form.binding->trouble(row).kind;
    }
};

TEST_F(SqlBinding, WritesARowWhenItIsLeftAndKeepsItsKey) {
    EXPECT_EQ(form.shown(2), QStringList({"nut", "20", "1.50", "B"}));
    form.enter("screw\n11\n");
    EXPECT_EQ(stored(1), "bolt|10|0.75|A|first") << "the row has not been left";
    EXPECT_FALSE(form.binding->isSaved());
    form.enter("0.25\n\n");
    EXPECT_EQ(form.cursor(), "2,0");
    EXPECT_EQ(stored(1), "screw|11|0.25|A|first");

    form.grid->focusCell(4, 0);
    form.enter("pin\n\t7\n");
    form.grid->focusCell(5, 0);
    form.settle();
    EXPECT_EQ(stored(4), "pin||7||new") << "what the form does not have is the table's own";
    form.enter("clip");
    form.after->setFocus();
    form.settle();
    EXPECT_EQ(stored(5), "clip||||new") << "the keyboard has left the grid";
    EXPECT_EQ(stored().size(), 5);
    EXPECT_TRUE(form.binding->isSaved());
}

TEST_F(SqlBinding, WritesAfterEachCellWhereTheHostWantsThat) {
    form.binding->setWriting(TablioModelBinding::AtOnce);
    form.enter("screw\n11\n");
    EXPECT_EQ(stored(1), "screw|11|0.75|A|first");
    form.key(Qt::Key_Home);
    form.key(Qt::Key_Delete);
    form.settle();
    EXPECT_EQ(stored(1), "screw|11|0.75|A|first") << "a row without its name waits for it";
    EXPECT_EQ(form.binding->problem(), "Not saved: row 1 (Name is missing).");
    form.enter("rod\n");
    EXPECT_EQ(stored(1), "rod|11|0.75|A|first");
    EXPECT_EQ(form.binding->problem(), "");
}

TEST_F(SqlBinding, LeavesOutWhatIsRefusedAndSaysWhy) {
    QApplication::clipboard()->setText("aa\t1\t5\nbb\t2\t5000\ncc\t3\t7");
    form.key(Qt::Key_V, Qt::ControlModifier);
    form.grid->focusCell(5, 0);
    form.settle();
    EXPECT_EQ(stored(),
              QStringList({"1|aa|1|5|A|first", "2|nut|20|1.5|B|second", "3|cc|3|7|C|third"}));
    EXPECT_EQ(form.binding->unsavedRows(), QList<int>{2});
    EXPECT_EQ(trouble(2), TablioWriteTrouble::Refused);
    EXPECT_TRUE(form.binding->problem().contains("price < 1000"));
    EXPECT_EQ(form.cell(2, 2), "5,000.00") << "what was entered stays";
    form.grid->focusCell(2, 2);
    form.enter("500\n");
    form.grid->focusCell(5, 0);
    form.settle();
    EXPECT_EQ(stored(2), "bb|2|500|B|second");

    form.grid->setValue(1, 2, 2000);
    form.settle();
    form.binding->revertRow(1);
    EXPECT_EQ(form.shown(1), QStringList({"aa", "1", "5.00", "A"}));
    EXPECT_EQ(form.binding->problem(), "");
}

struct Outage {
    const char *name;
    const char *reason;
    std::function<void(LiteFile &)> begin;
    std::function<void(LiteFile &)> end;
};
void PrintTo(const Outage &outage, std::ostream *stream) { *stream << outage.name; }

class SqlOutage : public testing::TestWithParam<Outage> {};

TEST_P(SqlOutage, IsToldAtTheRowAndTriedAgainByItself) {
    LiteFile file;
    BoundForm form(file.own);
    GetParam().begin(file);
    form.enter("screw\n11\n1\nX\n");
    form.enter("ring\n");
    EXPECT_EQ(form.binding->trouble(1).kind, TablioWriteTrouble::Unavailable);
    EXPECT_TRUE(form.binding->problem().contains(GetParam().reason))
        << qPrintable(form.binding->problem());
    EXPECT_EQ(form.grid->cellForeColor(1, 0), QColor(0xD0, 0x20, 0x20));
    form.grid->focusCell(5, 0);
    form.enter("new one\n5\n5\nN\n");
    EXPECT_FALSE(form.binding->save());
    EXPECT_EQ(form.binding->unsavedRows(), (QList<int>{1, 2, 5}));
    EXPECT_EQ(form.shown(1), QStringList({"screw", "11", "1.00", "X"}));

    GetParam().end(file);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.binding->isSaved(); }));
    EXPECT_EQ(form.binding->problem(), "");
    EXPECT_NE(form.grid->cellForeColor(1, 0), QColor(0xD0, 0x20, 0x20));
    EXPECT_EQ(sql(file.other, "SELECT name, count, price, code FROM item ORDER BY id"),
              QStringList({"screw|11|1|X", "ring|20|1.5|B", "washer|30|2.25|C", "new one|5|5|N"}));
}

INSTANTIATE_TEST_SUITE_P(
    Of, SqlOutage,
    testing::Values(
        Outage{"Locked", "another program holds the database",
               [](LiteFile &file) { sql(file.other, "BEGIN EXCLUSIVE"); },
               [](LiteFile &file) { sql(file.other, "ROLLBACK"); }},
        Outage{"ReadOnly", "can only be read",
               [](LiteFile &file) { sql(file.own, "PRAGMA query_only = 1"); },
               [](LiteFile &file) { sql(file.own, "PRAGMA query_only = 0"); }},
        Outage{"Full", "is full",
               [](LiteFile &file) {
                   // What is written takes more pages than there are.
                   sql(file.own, {"CREATE TABLE filler (a)",
                                  "CREATE TRIGGER changed AFTER UPDATE ON item BEGIN"
                                  " INSERT INTO filler VALUES (zeroblob(100000)); END",
                                  "CREATE TRIGGER added AFTER INSERT ON item BEGIN"
                                  " INSERT INTO filler VALUES (zeroblob(100000)); END",
                                  "PRAGMA max_page_count = 1"});
               },
               [](LiteFile &file) { sql(file.own, "PRAGMA max_page_count = 1000000"); }},
        Outage{"Gone", "was renamed, removed or replaced",
               [](LiteFile &file) { EXPECT_TRUE(QFile::rename(file.path(), file.path() + "x")); },
               [](LiteFile &file) { EXPECT_TRUE(QFile::rename(file.path() + "x", file.path())); }}),
    [](const auto &param) { return param.param.name; });

TEST_F(SqlBinding, NoticesAFileThatGoesThoughNothingIsTyped) {
    ASSERT_TRUE(QFile::rename(file.path(), file.path() + "x"));
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return form.binding->problem().startsWith("Nothing can be saved:"); }));
    ASSERT_TRUE(QFile::rename(file.path() + "x", file.path()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.binding->problem().isEmpty(); }));
}

TEST_F(SqlBinding, MeetsOtherProgramsChanges) {
    // Another cell of the row: both stand afterwards.
    sql(file.other, "UPDATE item SET price = 9 WHERE id = 1");
    form.enter("screw\n");
    form.grid->focusCell(2, 0);
    form.settle();
    EXPECT_EQ(stored(1), "screw|10|9|A|first");
    EXPECT_EQ(form.cell(1, 2), "9.00");

    // The same cell: it is said, and what is entered then counts.
    sql(file.other, "UPDATE item SET name = 'theirs' WHERE id = 2");
    form.enter("ours\n");
    form.grid->focusCell(3, 0);
    form.settle();
    EXPECT_EQ(trouble(2), TablioWriteTrouble::Conflict);
    EXPECT_TRUE(form.binding->problem().contains("Name “theirs”"));
    EXPECT_EQ(stored(2), "theirs|20|1.5|B|second");
    EXPECT_EQ(form.cell(2, 0), "ours");
    form.grid->focusCell(2, 1);
    form.enter("21\n");
    form.grid->focusCell(3, 0);
    form.settle();
    EXPECT_EQ(stored(2), "ours|21|1.5|B|second");

    // A row that has gone is said, too, and is a new one then.
    sql(file.other, "DELETE FROM item WHERE id = 3");
    form.enter("disc\n");
    form.grid->focusCell(4, 0);
    form.settle();
    EXPECT_EQ(trouble(3), TablioWriteTrouble::Conflict);
    EXPECT_TRUE(form.binding->save());
    EXPECT_EQ(sql(file.other, "SELECT name, count FROM item WHERE id >= 3"),
              QStringList("disc|30"));
}

TEST_F(SqlBinding, FollowsRowsThatAreRemovedInsertedAndBroughtBack) {
    form.grid->setEntryRules(TablioWidget::Careful);
    form.grid->focusCell(2, 0);
    form.grid->markActiveRow();
    form.grid->removeRow(2);
    form.settle();
    EXPECT_EQ(stored(), QStringList({"1|bolt|10|0.75|A|first", "3|washer|30|2.25|C|third"}));
    form.grid->focusCell(2, 0);
    form.grid->markActiveRow();
    form.grid->insertRow(2);
    form.enter("nut\n20\n1.5\nB\n");
    EXPECT_EQ(form.shown(3).first(), "washer");
    EXPECT_EQ(stored(2), "nut|20|1.5|B|second") << "the row that came back has its key and note";

    form.grid->tableClear();
    form.after->setFocus();
    form.settle();
    EXPECT_EQ(stored(), QStringList());
    EXPECT_TRUE(form.grid->undoTableClear());
    form.settle();
    EXPECT_EQ(stored(), QStringList({"1|bolt|10|0.75|A|first", "2|nut|20|1.5|B|second",
                                     "3|washer|30|2.25|C|third"}));
}

TEST_F(SqlBinding, KeepsWhatIsNotSavedWhenTheModelIsReadAnew) {
    sql(file.other, "BEGIN EXCLUSIVE");
    form.enter("screw\n");
    form.grid->focusCell(4, 0);
    form.enter("pin\n4\n");
    sql(file.other, {"ROLLBACK", "INSERT INTO item (id, name) VALUES (0, 'zero')"});
    EXPECT_TRUE(form.model->select());
    EXPECT_EQ(form.cell(1, 0), "zero");
    EXPECT_EQ(form.cell(2, 0), "screw");
    EXPECT_EQ(form.cell(5, 0), "pin");
    EXPECT_TRUE(form.binding->save());
    EXPECT_EQ(sql(file.other, "SELECT id, name FROM item ORDER BY id"),
              QStringList({"0|zero", "1|screw", "2|nut", "3|washer", "4|pin"}));
}

TEST(SqlPages, ShowMoreRowsThanTheControlHolds) {
    LiteFile file;
    sql(file.own, {"DELETE FROM item",
                   "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 70000)"
                   " INSERT INTO item (id, name, count) SELECT i, 'row ' || i, i FROM n"});
    BoundForm form(file.own);
    EXPECT_LE(form.model->rowCount(), 20400) << "no more is read than the page needs";
    form.binding->setPageSize(32000);
    ASSERT_TRUE(form.binding->showPage(2));
    EXPECT_EQ(form.cell(1, 0), "row 64001");
    EXPECT_EQ(form.cell(6000, 1), "70,000");
    EXPECT_FALSE(form.binding->hasNextPage());
    EXPECT_FALSE(form.binding->showPage(3));
    form.grid->focusCell(2, 0);
    form.enter("changed\n");
    EXPECT_TRUE(form.binding->showPage(0));
    EXPECT_TRUE(form.binding->hasNextPage());
    EXPECT_EQ(sql(file.other, "SELECT id FROM item WHERE name = 'changed'"), QStringList("64002"));
    sql(file.other, "BEGIN EXCLUSIVE");
    form.grid->focusCell(1, 0);
    form.enter("kept");
    EXPECT_FALSE(form.binding->showPage(1)) << "what is not saved is not left";
    EXPECT_EQ(form.cell(1, 0), "kept");
}

/// The grid's row numbers are the table's keys.
TEST(SqlPositions, FollowTheRows) {
    LiteFile file;
    sql(file.own, "UPDATE item SET id = 5 WHERE id = 3");
    BoundForm form(file.own);
    form.binding->setPositionField("id");
    form.binding->load();
    EXPECT_EQ(form.cell(5, 0), "washer");
    const auto move = [&](int row, void (TablioWidget::*how)(int)) {
        form.grid->focusCell(row, 0);
        form.grid->markActiveRow();
        (form.grid->*how)(row);
        form.settle();
        return sql(file.other, "SELECT id, name FROM item ORDER BY id");
    };
    EXPECT_EQ(move(1, &TablioWidget::insertRow), QStringList({"2|bolt", "3|nut", "6|washer"}));
    EXPECT_EQ(move(2, &TablioWidget::removeRow), QStringList({"2|nut", "5|washer"}));
    sql(file.other, "BEGIN EXCLUSIVE");
    move(1, &TablioWidget::removeRow);
    form.grid->focusCell(2, 0);
    form.enter("pin\n");
    form.grid->focusCell(4, 0);
    form.settle();
    EXPECT_FALSE(form.binding->isSaved());
    sql(file.other, "ROLLBACK");
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.binding->isSaved(); }));
    EXPECT_EQ(sql(file.other, "SELECT id, name FROM item ORDER BY id"),
              QStringList({"1|nut", "2|pin", "4|washer"}));
}

TEST(SqlRelations, AreChosenByTheirTextsAndStoredByTheirKeys) {
    LiteFile file;
    sql(file.own, {"CREATE TABLE unit (id INTEGER PRIMARY KEY, name TEXT)",
                   "INSERT INTO unit VALUES (7, 'box'), (8, 'piece')",
                   "CREATE TABLE part (id INTEGER PRIMARY KEY, name TEXT, unit INTEGER)",
                   "INSERT INTO part VALUES (1, 'bolt', 8)"});
    GridWindow form;
    form.grid->setColEditType(3, TablioWidget::ColumnCombo);
    form.grid->setColDataType(3, TablioWidget::AllCase);
    QSqlRelationalTableModel model(nullptr, file.own);
    model.setTable("part");
    model.setRelation(2, QSqlRelation("unit", "id", "name"));
    ASSERT_TRUE(model.select());
    TablioSqlBinding binding(form.grid, &model);
    binding.bindField(0, "name");
    binding.bindField(3, "unit");
    binding.load();
    EXPECT_EQ(form.cell(1, 3), "piece");
    form.grid->focusCell(1, 3);
    form.type("b\n");
    form.type("nut\n\t\tbo\n");
    QCoreApplication::processEvents();
    const auto parts = [&] { return sql(file.other, "SELECT * FROM part"); };
    EXPECT_EQ(parts(), QStringList({"1|bolt|7", "2|nut|7"}));
    form.grid->setValue(1, 3, "dozen");
    QCoreApplication::processEvents();
    EXPECT_EQ(binding.problem(), "Not saved: row 1 (“dozen” is not in the list of Code).");
    EXPECT_EQ(parts().first(), "1|bolt|7");
}

} // namespace
