#pragma once

/// The order as a grid: its columns, and what the host does when the control reports an event. This
/// is the part of a program that a developer who hosts the control writes. What the operator
/// commits is saved at once; what cannot be saved is kept, reported and tried again.

#include "order_book.h"

#include <QObject>
#include <QString>

#include <map>
#include <optional>
#include <set>

namespace tablio::qt {
class TablioWidget;
}

class OrderSheet : public QObject {
    Q_OBJECT

public:
    /// Sets up the grid's columns. The grid and the book must outlive the sheet.
    OrderSheet(tablio::qt::TablioWidget &grid, OrderBook &book, QObject *parent = nullptr);

    /// Fills the grid with what the book holds. Throws OrderBookError.
    void load();

    /// Saves what is not saved yet; whether nothing is left.
    bool save();

    /// The lines as the grid shows them, saved or not.
    [[nodiscard]] const OrderLines &lines() const { return lines_; }
    /// What is not saved and why, for the operator; empty when all is well.
    [[nodiscard]] QString problem() const;

signals:
    /// Lines have changed, or the problem is another.
    void changed();
    /// What was entered cannot be taken, and why.
    void refused(const QString &reason);
    /// The operator has cleared the table. A slot that sets `keep` gets all lines back.
    void cleared(bool &keep);

private:
    void setUpColumns();

    // What the host does on events.
    void cellEdited(int row, int col, bool &valid, int lastKey);
    void tableChanged();

    // Rows.
    void setRowCount(int rows);
    void showLines();
    void showLine(int row, const OrderLine &line);
    void fillFromArticle(int row);
    void noteRow(int row);
    [[nodiscard]] std::optional<OrderLine> lineAt(int row) const;

    void showUnsaved();

    // Cells.
    [[nodiscard]] QString textAt(int row, int col) const;
    [[nodiscard]] qint64 quantityAt(int row) const;
    [[nodiscard]] Money priceAt(int row) const;
    void setMoney(int row, int col, Money amount);
    [[nodiscard]] QString decimalSign() const;

    tablio::qt::TablioWidget &grid_;
    OrderBook &book_;
    OrderLines lines_;
    /// By row: the line that has to be written, nothing where one has to go.
    std::map<int, std::optional<OrderLine>> unsaved_;
    QString failure_;
    std::set<int> redRows_;
    bool typing_ = false;
};
