#include "order_database.h"

#include "order_samples.h"

#include <QSqlError>

namespace {

/// Marks a file as an order ("Ordr"), so that no other program's database is ever written to.
constexpr int orderFile = 0x4F726472;
/// Kept in the file: 1 has units and deliveries, 0 had not.
constexpr int currentForm = 1;

int number(const QSqlDatabase &database, const QString &statement) {
    QSqlQuery query = run(database, statement);
    return query.next() ? query.value(0).toInt() : 0;
}

bool isEmpty(const QSqlDatabase &database) {
    return number(database, QStringLiteral("SELECT count(*) FROM sqlite_master")) == 0;
}

int formOf(const QSqlDatabase &database) {
    return number(database, QStringLiteral("PRAGMA user_version"));
}

void create(const QSqlDatabase &database) {
    run(database, QStringLiteral("PRAGMA application_id = %1").arg(orderFile));
    run(database, QStringLiteral("CREATE TABLE articles (code TEXT PRIMARY KEY,"
                                 " description TEXT NOT NULL,"
                                 " price_hundredths INTEGER NOT NULL)"));
    run(database, QStringLiteral("CREATE TABLE order_lines (row INTEGER PRIMARY KEY"
                                 " CHECK (row BETWEEN 1 AND 32767),"
                                 " article TEXT NOT NULL, description TEXT NOT NULL,"
                                 " quantity INTEGER NOT NULL CHECK (quantity >= 0),"
                                 " price_hundredths INTEGER NOT NULL"
                                 " CHECK (price_hundredths >= 0))"));
    for (const Article &article : shopArticles())
        run(database,
            QStringLiteral("INSERT INTO articles (code, description, price_hundredths)"
                           " VALUES (?, ?, ?)"),
            {article.code, article.description, article.price});
}

/// Lines that are there already get the unit of their article.
void addUnitsAndDeliveries(const QSqlDatabase &database) {
    for (const char *column : {"articles ADD COLUMN unit TEXT NOT NULL DEFAULT ''",
                               "order_lines ADD COLUMN unit TEXT NOT NULL DEFAULT ''",
                               "order_lines ADD COLUMN delivery TEXT CHECK (delivery GLOB"
                               " '[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]')",
                               "order_lines ADD COLUMN delivered INTEGER NOT NULL DEFAULT 0"
                               " CHECK (delivered IN (0, 1))"})
        run(database, QStringLiteral("ALTER TABLE ") + QLatin1String(column));
    for (const Article &article : shopArticles())
        run(database, QStringLiteral("UPDATE articles SET unit = ? WHERE code = ?"),
            {article.unit, article.code});
    run(database, QStringLiteral("UPDATE order_lines SET unit = coalesce("
                                 "(SELECT unit FROM articles WHERE code = article), '')"));
    run(database, QStringLiteral("PRAGMA user_version = %1").arg(currentForm));
}

} // namespace

QSqlQuery run(const QSqlDatabase &database, const QString &statement, const QVariantList &values) {
    QSqlQuery query(database);
    bool done = query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    done = done && query.exec();
    if (!done)
        throw OrderBookError(query.lastError().databaseText());
    return query;
}

// IMMEDIATE: whether the file can be written shows here, not halfway through.
Transaction::Transaction(const QSqlDatabase &database) : database_(database) {
    run(database_, QStringLiteral("BEGIN IMMEDIATE"));
}

Transaction::~Transaction() {
    if (!committed_)
        QSqlQuery(database_).exec(QStringLiteral("ROLLBACK"));
}

void Transaction::commit() {
    run(database_, QStringLiteral("COMMIT"));
    committed_ = true;
}

void prepareOrderFile(const QSqlDatabase &database) {
    if (!isEmpty(database)) {
        if (number(database, QStringLiteral("PRAGMA application_id")) != orderFile)
            throw OrderBookError(QStringLiteral("the file is another program's database"));
        if (formOf(database) > currentForm)
            throw OrderBookError(QStringLiteral("the file is of a later form of this program"));
    }
    // Who reads the file meanwhile does not hinder the operator.
    run(database, QStringLiteral("PRAGMA journal_mode = WAL"));

    // Asked again inside: another program may have prepared the file meanwhile.
    Transaction transaction(database);
    if (isEmpty(database))
        create(database);
    if (formOf(database) < 1)
        addUnitsAndDeliveries(database);
    transaction.commit();
}
