#pragma once

/// The order as a grid: what the host does when the control reports an event. This is the part of a
/// program that a developer who hosts the control writes. The binding keeps grid and table in step:
/// it saves what is committed, shows what cannot be saved at its row and tries it again.

#include "order_book.h"

#include <QObject>
#include <QStringList>

namespace tablio::qt {
class TablioSqlBinding;
class TablioWidget;
} // namespace tablio::qt

class OrderSheet : public QObject {
    Q_OBJECT

public:
    /// The grid's columns are set up already. The grid and the book must outlive the sheet.
    OrderSheet(tablio::qt::TablioWidget &grid, OrderBook &book, QObject *parent = nullptr);

    /// Saves what is not saved yet; whether nothing is left.
    bool save();

    [[nodiscard]] int lineCount() const;
    /// Nothing when it is too large to be counted.
    [[nodiscard]] std::optional<Hundredths> sumOfLines() const;
    /// What is not saved and why, for the operator; empty when all is well.
    [[nodiscard]] QString problem() const;

    /// The answer to articleWanted(), at once or after the operator has gone on.
    void articleFound(const QString &code);

signals:
    /// Lines have changed, or the problem is another.
    void changed();
    /// What was entered cannot be taken, and why.
    void refused(const QString &reason);
    /// The operator asks which articles there are, with what the cell or its editor shows.
    void articleWanted(int row, const QString &text);

private:
    // What the host does on events.
    void editBegins(int row, int col);
    void cellEdited(int row, int col, bool &valid, const QString &oldText, const QString &newText,
                    int lastKey);
    void lookUp(int row);
    void keyDown(int &key, int shift, int row, int col);

    /// Why a new text cannot be taken; empty if it can.
    [[nodiscard]] QString objection(int row, int col, const QString &newText) const;
    /// Why a row must not be saved.
    [[nodiscard]] QString objection(int row) const;
    void goDown(int row, int col);
    void fillFromArticle(int row, const QString &oldCode);
    [[nodiscard]] std::optional<Article> articleCalled(const QString &code) const;

    [[nodiscard]] QString text(int row, int col) const;
    [[nodiscard]] std::optional<Hundredths> total(int row) const;
    void showTotal(int row);

    tablio::qt::TablioWidget &grid_;
    OrderBook &book_;
    /// A child of the grid.
    tablio::qt::TablioSqlBinding &binding_;
    /// What the editor shows.
    QString typed_;
};
