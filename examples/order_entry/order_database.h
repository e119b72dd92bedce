#pragma once

/// The SQLite file underneath an order: statements that fail loudly, writing all or nothing, and
/// the tables. Only `OrderBook` uses it.

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <stdexcept>

/// What the database said, ready to be shown to the operator.
class OrderBookError : public std::runtime_error {
public:
    explicit OrderBookError(const QString &message) : std::runtime_error(message.toStdString()) {}
    [[nodiscard]] QString message() const { return QString::fromUtf8(what()); }
};

/// Throws OrderBookError when the statement fails.
QSqlQuery run(const QSqlDatabase &database, const QString &statement,
              const QVariantList &values = {});

/// Everything that is written while it lives is taken back unless it is committed.
class Transaction {
public:
    explicit Transaction(const QSqlDatabase &database);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    void commit();

private:
    const QSqlDatabase &database_;
    bool committed_ = false;
};

/// Makes an empty file an order with the shop's articles, and brings an order of an earlier form
/// up to date. Throws OrderBookError, with the file as it was, for a file that is no order.
void prepareOrderFile(const QSqlDatabase &database);
