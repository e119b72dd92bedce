#pragma once

/// The order as it is kept: articles and order lines in an SQLite file. It knows nothing of the
/// grid; the form asks it for everything at the start and hands it the rows that changed.

#include "money.h"
#include "order_database.h"

#include <QDate>
#include <QSqlDatabase>
#include <QString>

#include <map>
#include <optional>
#include <vector>

struct Article {
    QString code;
    QString description;
    QString unit;
    Money price;
};

struct OrderLine {
    QString article;
    QString description;
    qint64 quantity = 0;
    Money price;
    QString unit;
    /// Null while nobody knows when the goods come.
    QDate delivery;
    bool delivered = false;

    /// Nothing when the amount is too large to be counted.
    [[nodiscard]] std::optional<Money> total() const { return price.times(quantity); }

    friend bool operator==(const OrderLine &, const OrderLine &) = default;
};

/// The lines of an order by their row in the form, from 1. A row without an article has no line.
using OrderLines = std::map<int, OrderLine>;

/// Every function throws OrderBookError when the database refuses; nothing has changed then.
class OrderBook {
public:
    /// Opens the file, or creates it with the articles that the shop sells. A file that an earlier
    /// form of this program made is brought up to date.
    explicit OrderBook(const QString &file);
    ~OrderBook();
    OrderBook(const OrderBook &) = delete;
    OrderBook &operator=(const OrderBook &) = delete;

    [[nodiscard]] QString file() const;
    [[nodiscard]] OrderLines lines() const;
    [[nodiscard]] std::optional<Article> article(const QString &code) const;
    /// All of them, by their codes.
    [[nodiscard]] std::vector<Article> articles() const;

    /// Writes all of them or, on a failure, none. A row without a value loses its line.
    void save(const std::map<int, std::optional<OrderLine>> &rows);

    /// A few lines to look at; an order that has lines already is left alone.
    void addSample();

private:
    QSqlDatabase database_;
};
