#pragma once

/// What the grid's columns mean, and a row of cells as an order line. It reads and writes cells and
/// decides nothing; what happens on events is `OrderSheet`'s.

#include "order_book.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

namespace tablio::qt {
class TablioWidget;
}

/// The columns as order_window.ui sets them up. An operator goes from the article to the price and
/// on to the next line. What stands behind the total has a default or becomes known later. A tick
/// column is always the last one.
enum Column { Number, Code, Description, Quantity, Price, Total, Unit, Delivery, Delivered };

class OrderCells {
public:
    /// The grid must outlive the cells.
    explicit OrderCells(tablio::qt::TablioWidget &grid) : grid_(grid) {}

    /// The form has set up all columns but this one, which the grid adds for the ticks.
    void setUpTickColumn();
    /// What can be chosen in the unit column.
    [[nodiscard]] static QStringList unitChoices();

    /// Nothing for a row without an article.
    [[nodiscard]] std::optional<OrderLine> line(int row) const;
    /// Writes into a blank row. A tick moves the cursor there, and the host hears of it.
    void show(int row, const OrderLine &line);

    [[nodiscard]] QString text(int row, int col) const;
    [[nodiscard]] qint64 quantity(int row) const;
    [[nodiscard]] Money price(int row) const;
    /// Null for a blank cell.
    [[nodiscard]] QDate delivery(int row) const;
    /// Whether a text of the delivery column names a day that the calendar does not have.
    [[nodiscard]] static bool isNoDate(const QString &text);
    void setMoney(int row, int col, Money amount);

private:
    [[nodiscard]] QString decimalSign() const;

    tablio::qt::TablioWidget &grid_;
};
