#include "bound_form.h"

#include <gtest/gtest.h>

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUuid>

using tablio::qt::TablioSqlBinding;

LiteFile::LiteFile()
    : own(QSqlDatabase::addDatabase("QSQLITE", QUuid::createUuid().toString())),
      other(QSqlDatabase::addDatabase("QSQLITE", QUuid::createUuid().toString())) {
    for (QSqlDatabase *database : {&own, &other}) {
        database->setDatabaseName(path());
        EXPECT_TRUE(database->open());
    }
    sql(own, {"PRAGMA journal_mode = WAL",
              "CREATE TABLE item (id INTEGER PRIMARY KEY, name TEXT NOT NULL, count INTEGER,"
              " price NUMERIC CHECK (price < 1000), code TEXT, note TEXT DEFAULT 'new')",
              "INSERT INTO item VALUES (1, 'bolt', 10, 0.75, 'A', 'first'),"
              " (2, 'nut', 20, 1.5, 'B', 'second'), (3, 'washer', 30, 2.25, 'C', 'third')"});
}

LiteFile::~LiteFile() {
    for (QSqlDatabase *database : {&own, &other}) {
        const QString name = database->connectionName();
        *database = QSqlDatabase();
        QSqlDatabase::removeDatabase(name);
    }
}

QStringList sql(const QSqlDatabase &database, const QStringList &statements) {
    QStringList rows;
    for (const QString &statement : statements) {
        QSqlQuery query(database);
        EXPECT_TRUE(query.exec(statement))
            << qPrintable(statement) << ": " << qPrintable(query.lastError().text());
        rows.clear();
        while (query.next()) {
            QStringList fields;
            for (int field = 0; field < query.record().count(); ++field)
                fields += query.isNull(field) ? QString() : query.value(field).toString();
            rows += fields.join(u'|');
        }
    }
    return rows;
}

BoundForm::BoundForm(const QSqlDatabase &database)
    : model(std::make_unique<QSqlTableModel>(nullptr, database)) {
    model->setTable("item");
    model->setSort(0, Qt::AscendingOrder);
    EXPECT_TRUE(model->select());
    binding = new TablioSqlBinding(grid, model.get());
    int col = 0;
    for (const char *field : {"name", "count", "price", "code"})
        binding->bindField(col++, field);
    binding->setRetryInterval(100);
    binding->load();
    settle();
}

QStringList BoundForm::shown(int row) const {
    QStringList texts;
    for (int col = 0; col < grid->cols(); ++col)
        texts += cell(row, col);
    return texts;
}
