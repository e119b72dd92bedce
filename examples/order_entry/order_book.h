#pragma once

/// The order as it is kept: articles and order lines in an SQLite file, which one window has at a
/// time. It knows nothing of the grid, which is bound to its lines.

#include "money.h"
#include "order_database.h"

#include <QLockFile>
#include <QSqlDatabase>
#include <QSqlTableModel>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

struct Article {
    QString code;
    QString description;
    QString unit;
    Hundredths price = 0;
};

/// Every function throws OrderBookError when the database refuses; nothing has changed then.
class OrderBook {
public:
    /// Opens the file, or creates it with the articles that the shop sells. A file that an earlier
    /// form of this program made is brought up to date; one that another window has is refused.
    explicit OrderBook(const QString &file);
    ~OrderBook();
    OrderBook(const OrderBook &) = delete;
    OrderBook &operator=(const OrderBook &) = delete;

    [[nodiscard]] QString file() const { return database_.databaseName(); }
    /// The table "order_lines": its rows by their numbers in the form, from 1.
    [[nodiscard]] QSqlTableModel &lines() { return *lines_; }
    [[nodiscard]] std::optional<Article> article(const QString &code) const;
    /// All of them, by their codes.
    [[nodiscard]] std::vector<Article> articles() const;

    /// A few lines to look at; an order that has lines already is left alone.
    void addSample();

private:
    QLockFile lock_;
    QSqlDatabase database_;
    std::unique_ptr<QSqlTableModel> lines_;
};
