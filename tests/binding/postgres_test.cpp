/// The same against a server (scripts/with-postgres starts one): rows that another session holds, a
/// connection that is lost, and what PostgreSQL refuses inside of a transaction.

#include "bound_form.h"

#include <gtest/gtest.h>

#include <QUuid>

using tablio::qt::TablioWriteTrouble;

namespace {

class Postgres : public testing::Test {
protected:
    void SetUp() override {
        if (!QSqlDatabase::isDriverAvailable("QPSQL"))
            GTEST_SKIP() << "no Qt driver for PostgreSQL here (scripts/install-deps --postgres)";
        for (QSqlDatabase *database : {&own, &other}) {
            *database = QSqlDatabase::addDatabase("QPSQL", QUuid::createUuid().toString());
            database->setHostName(qEnvironmentVariable("PGHOST"));
            database->setPort(qEnvironmentVariableIntValue("PGPORT"));
            database->setUserName(qEnvironmentVariable("PGUSER"));
            database->setDatabaseName(qEnvironmentVariable("PGDATABASE"));
            ASSERT_TRUE(database->open());
        }
        sql(other, {"DROP TABLE IF EXISTS item",
                    "CREATE TABLE item (id SERIAL PRIMARY KEY, name TEXT NOT NULL, count INTEGER,"
                    " price NUMERIC(12, 2) CHECK (price < 1000), code TEXT,"
                    " note TEXT DEFAULT 'new')",
                    "INSERT INTO item (name, count, price, code) VALUES ('bolt', 10, 0.75, 'A'),"
                    " ('nut', 20, 1.5, 'B'), ('washer', 30, 2.25, 'C')"});
        form = std::make_unique<BoundForm>(own);
    }

    QSqlDatabase own;
    QSqlDatabase other;
    std::unique_ptr<BoundForm> form;

    void leaveFor(int row) {
        form->grid->focusCell(row, 0);
        BoundForm::settle();
    }
    [[nodiscard]] QStringList stored() const {
        return sql(other, "SELECT id, name, count, price, code, note FROM item ORDER BY id");
    }
};

TEST_F(Postgres, TakesRowsAndSaysWhatItRefuses) {
    EXPECT_EQ(form->shown(2), QStringList({"nut", "20", "1.50", "B"}));
    form->enter("screw\n\t0.1\n");
    leaveFor(4);
    form->enter("pin\n\t12345678.91\n");
    leaveFor(5);
    form->enter("rod\n5\n");
    leaveFor(6);
    EXPECT_EQ(form->binding->trouble(4).kind, TablioWriteTrouble::Refused);
    EXPECT_TRUE(form->binding->problem().contains("item_price_check"))
        << qPrintable(form->binding->problem());
    form->grid->setValue(4, 2, 999.99);
    BoundForm::settle();
    EXPECT_EQ(form->binding->problem(), "");
    const QStringList rows = stored();
    EXPECT_EQ(rows.value(0), "1|screw|10|0.1|A|new");
    EXPECT_EQ(rows.size(), 5);
    EXPECT_TRUE(rows.join(u' ').contains("|pin||999.99||new"));
    EXPECT_TRUE(rows.join(u' ').contains("|rod|5|||new"));
}

TEST_F(Postgres, WaitsForARowThatAnotherSessionHolds) {
    sql(other, {"BEGIN", "UPDATE item SET code = 'Z' WHERE id = 1"});
    form->enter("screw\n");
    leaveFor(2);
    EXPECT_EQ(form->binding->trouble(1).kind, TablioWriteTrouble::Unavailable);
    EXPECT_TRUE(form->binding->problem().contains("another program holds"));
    sql(other, "COMMIT");
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->binding->isSaved(); }));
    EXPECT_EQ(stored().value(0), "1|screw|10|0.75|Z|new");
    EXPECT_EQ(form->cell(1, 3), "Z");
}

TEST_F(Postgres, GoesOnWhenTheConnectionWasLost) {
    sql(other, "SELECT pg_terminate_backend(pid) FROM pg_stat_activity"
               " WHERE pid <> pg_backend_pid() AND backend_type = 'client backend'");
    form->enter("screw\n");
    leaveFor(4);
    form->enter("pin\n");
    leaveFor(5);
    EXPECT_EQ(form->binding->trouble(1).kind, TablioWriteTrouble::Unavailable);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form->binding->isSaved(); }));
    EXPECT_EQ(stored().value(0), "1|screw|10|0.75|A|new");
    EXPECT_EQ(stored().value(3), "4|pin||||new");
}

} // namespace
