#include "order_book.h"

#include "order_samples.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

namespace {

/// From the columns code, description, unit and price_hundredths.
Article articleOf(const QSqlQuery &query) {
    return {query.value(0).toString(), query.value(1).toString(), query.value(2).toString(),
            query.value(3).toLongLong()};
}

} // namespace

OrderBook::OrderBook(const QString &file)
    : lock_(QFileInfo(file).absoluteFilePath() + QStringLiteral(".lock")),
      database_(
          QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QUuid::createUuid().toString())) {
    database_.setDatabaseName(QFileInfo(file).absoluteFilePath());
    database_.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=500"));
    QDir().mkpath(QFileInfo(file).absolutePath());
    // Held by a process that lives, however long it has been there.
    lock_.setStaleLockTime(0);
    if (!lock_.tryLock() && lock_.error() == QLockFile::LockFailedError)
        throw OrderBookError(QStringLiteral("it is open in another window"));
    if (!database_.open())
        throw OrderBookError(database_.lastError().databaseText());
    prepareOrderFile(database_);
    lines_ = std::make_unique<QSqlTableModel>(nullptr, database_);
    lines_->setTable(QStringLiteral("order_lines"));
    lines_->setSort(0, Qt::AscendingOrder);
    if (!lines_->select())
        throw OrderBookError(lines_->lastError().databaseText());
}

OrderBook::~OrderBook() {
    lines_.reset();
    const QString name = database_.connectionName();
    database_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
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

void OrderBook::addSample() {
    if (lines_->rowCount() > 0)
        return;
    Transaction transaction(database_);
    int row = 0;
    for (const SampleLine &line : sampleLines())
        run(database_,
            QStringLiteral("INSERT INTO order_lines (row, article, description, quantity,"
                           " price_hundredths, unit, delivery, delivered) SELECT ?, code,"
                           " description, ?, price_hundredths, unit, nullif(?, ''), ?"
                           " FROM articles WHERE code = ?"),
            {++row, line.quantity, QString::fromLatin1(line.delivery), line.isDelivered ? 1 : 0,
             QString::fromLatin1(line.code)});
    transaction.commit();
    lines_->select();
}
