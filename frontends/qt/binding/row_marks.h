#pragma once

/// Shows at their rows what is not saved and why: in colours at the row's beginning, and as a tip
/// under the mouse. It is told what to show and decides nothing.

#include <QHash>
#include <QString>

class QEvent;

namespace tablio::qt {

class TablioWidget;

class RowMarks {
public:
    explicit RowMarks(TablioWidget &grid) : grid_(grid) {}

    /// The reasons by their rows; all other marks go.
    void show(const QHash<int, QString> &reasons);
    /// Rows have come before this one, or gone from it on where the count is negative; those below
    /// keep their looks.
    void rowsMoved(int first, int count);
    /// The table is another, and nothing is marked there.
    void forget() { reasons_.clear(); }
    /// Answers whether a tip was shown for the event.
    [[nodiscard]] bool showTip(QEvent *event) const;

private:
    void paint(int row, bool isMarked);
    [[nodiscard]] int column() const;

    TablioWidget &grid_;
    QHash<int, QString> reasons_;
};

} // namespace tablio::qt
