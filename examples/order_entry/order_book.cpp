#include "order_book.h"

#include "order_samples.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

namespace {

/// From the columns code, description, unit and price_hundredths.
Article articleOf(const QSqlQuery &query) {
    return {query.value(0).toString(), query.value(1).toString(), query.value(2).toString(),
            Money::ofHundredths(query.value(3).toLongLong())};
}

/// NULL for a date that nobody knows.
QVariant stored(const QDate &date) {
    return date.isValid() ? QVariant(date.toString(Qt::ISODate)) : QVariant();
}

} // namespace

OrderBook::OrderBook(const QString &file)
    : database_(
          QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QUuid::createUuid().toString())) {
    database_.setDatabaseName(QFileInfo(file).absoluteFilePath());
    // A short wait for another program's lock; what is not saved then is tried again.
    database_.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=500"));
    QDir().mkpath(QFileInfo(file).absolutePath());
    if (!database_.open())
        throw OrderBookError(database_.lastError().databaseText());
    prepareOrderFile(database_);
}

OrderBook::~OrderBook() {
    const QString name = database_.connectionName();
    database_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
}

QString OrderBook::file() const { return database_.databaseName(); }

OrderLines OrderBook::lines() const {
    QSqlQuery query = run(database_, QStringLiteral("SELECT row, article, description, quantity,"
                                                    " price_hundredths, unit, delivery, delivered"
                                                    " FROM order_lines"));
    OrderLines lines;
    while (query.next())
        lines[query.value(0).toInt()] = {
            query.value(1).toString(),   query.value(2).toString(),
            query.value(3).toLongLong(), Money::ofHundredths(query.value(4).toLongLong()),
            query.value(5).toString(),   QDate::fromString(query.value(6).toString(), Qt::ISODate),
            query.value(7).toBool()};
    return lines;
}

std::optional<Article> OrderBook::article(const QString &code) const {
    QSqlQuery query = run(database_,
                          QStringLiteral("SELECT code, description, unit, price_hundredths"
                                         " FROM articles WHERE code = ?"),
                          {code});
    if (!query.next())
        return std::nullopt;
    return articleOf(query);
}

std::vector<Article> OrderBook::articles() const {
    QSqlQuery query =
        run(database_, QStringLiteral("SELECT code, description, unit, price_hundredths"
                                      " FROM articles ORDER BY code"));
    std::vector<Article> articles;
    while (query.next())
        articles.push_back(articleOf(query));
    return articles;
}

void OrderBook::save(const std::map<int, std::optional<OrderLine>> &rows) {
    Transaction transaction(database_);
    for (const auto &[row, line] : rows) {
        if (line)
            // A QString without text is bound as NULL.
            run(database_,
                QStringLiteral("REPLACE INTO order_lines (row, article, description, quantity,"
                               " price_hundredths, unit, delivery, delivered)"
                               " VALUES (?, ?, coalesce(?, ''), ?, ?, coalesce(?, ''), ?, ?)"),
                {row, line->article, line->description, line->quantity, line->price.hundredths(),
                 line->unit, stored(line->delivery), line->delivered ? 1 : 0});
        else
            run(database_, QStringLiteral("DELETE FROM order_lines WHERE row = ?"), {row});
    }
    transaction.commit();
}

void OrderBook::addSample() {
    if (!lines().empty())
        return;
    std::map<int, std::optional<OrderLine>> rows;
    for (const auto &[row, line] : sampleLines())
        rows[row] = line;
    save(rows);
}
