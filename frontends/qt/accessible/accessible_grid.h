#pragma once

/// What a screen reader is told about a grid: a table of its data cells with headers. All is
/// answered from the core's facts when it is asked; nothing walks the cells, of which there may be
/// hundreds of thousands. What changed is told by `AccessibleNews`.

#include "accessible/unselectable_table.h"

#include <QAccessibleWidget>

namespace tablio::qt {

class TablioWidget;
class TablioWidgetPrivate;

/// Makes Qt describe each TablioWidget and its parts by the classes in this directory. Further
/// calls do nothing.
void installAccessibleGrids();

/// Its children are all cells, row by row, fixed ones included; behind them the buttons of the open
/// editor, the calendar and the scroll bars that are shown. The rows and columns of the table are
/// those that are not fixed.
class AccessibleGrid final : public QAccessibleWidget, public UnselectableTable {
public:
    explicit AccessibleGrid(TablioWidget &grid);

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface *child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override;
    [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface *focusChild() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    // Of the cells that are not fixed.
    [[nodiscard]] QAccessibleInterface *cellAt(int row, int column) const override;
    [[nodiscard]] QString columnDescription(int column) const override;
    [[nodiscard]] QString rowDescription(int row) const override;
    [[nodiscard]] int columnCount() const override;
    [[nodiscard]] int rowCount() const override;
    /// The marked row.
    [[nodiscard]] QList<int> selectedRows() const override;

private:
    /// Null while the widget is being made or taken apart, which is when Qt first asks for this.
    [[nodiscard]] TablioWidgetPrivate *parts() const noexcept;
    [[nodiscard]] int cellCount() const;
    [[nodiscard]] QList<QWidget *> otherParts() const;
};

} // namespace tablio::qt
