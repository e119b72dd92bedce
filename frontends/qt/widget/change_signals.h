#pragma once

/// What the core tells of changes of the table as the widget's signals. A slot may delete the
/// widget and this object with it: after an emission nothing here touches a member.

#include "widget/guarded.h"

#include <tablio/qt/tablio_widget.h>

namespace tablio::qt {

class ChangeSignals final : public TableNotices {
public:
    explicit ChangeSignals(TablioWidget &widget) : widget_(widget) {}

    void CellChanged(int Row, int Col) override {
        guarded([&] { Q_EMIT widget_.cellChanged(Row, Col); });
    }
    void RowsInserted(int First, int Count) override {
        guarded([&] { Q_EMIT widget_.rowsInserted(First, Count); });
    }
    void RowsRemoved(int First, int Count) override {
        guarded([&] { Q_EMIT widget_.rowsRemoved(First, Count); });
    }
    void TableCleared() override {
        guarded([&] { Q_EMIT widget_.tableCleared(); });
    }
    void TableReset() override {
        guarded([&] { Q_EMIT widget_.tableReset(); });
    }

private:
    TablioWidget &widget_;
};

} // namespace tablio::qt
