#pragma once

/// The order as a grid: what the host does when the control reports an event. This is the part of a
/// program that a developer who hosts the control writes. What the operator commits is saved at
/// once; what cannot be saved is kept, reported and tried again.

#include "order_cells.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <map>
#include <optional>
#include <set>

class OrderSheet : public QObject {
    Q_OBJECT

public:
    /// The grid's columns are set up already. The grid and the book must outlive the sheet.
    OrderSheet(tablio::qt::TablioWidget &grid, OrderBook &book, QObject *parent = nullptr);

    /// Fills the grid with what the book holds. Throws OrderBookError.
    void load();

    /// Saves what is not saved yet; whether nothing is left.
    bool save();

    /// The lines as the grid shows them, saved or not.
    [[nodiscard]] const OrderLines &lines() const { return lines_; }
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
    void tableChanged();

    /// Why a new text cannot be taken; empty if it can.
    [[nodiscard]] QString objection(int row, int col, const QString &newText) const;
    [[nodiscard]] int duplicateOf(int row) const;
    void goDown(int row, int col);

    // Rows.
    void setRowCount(int rows);
    void showLines();
    void fillFromArticle(int row, const QString &oldCode);
    [[nodiscard]] std::optional<Article> articleCalled(const QString &code) const;
    bool noteRow(int row);
    bool noteTick(int row);
    void takeTicks();

    bool write();
    void showUnsaved();

    tablio::qt::TablioWidget &grid_;
    OrderCells cells_;
    OrderBook &book_;
    OrderLines lines_;
    /// By row: the line that has to be written, nothing where one has to go.
    std::map<int, std::optional<OrderLine>> unsaved_;
    QString failure_;
    std::set<int> redRows_;
    /// What the editor shows.
    QString typed_;
    bool typing_ = false;
    bool showing_ = false;
    /// Runs while keys that were typed before the operator saw a refusal may still come.
    QElapsedTimer sinceRefusal_;
};
