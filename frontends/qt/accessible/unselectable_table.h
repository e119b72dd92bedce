#pragma once

/// A table for screen readers in which nothing can be selected from outside: what Qt's table
/// interface asks about selections, answered once for the grid and its calendar.

#include <QAccessible>

namespace tablio::qt {

class UnselectableTable : public QAccessibleTableInterface {
public:
    [[nodiscard]] QAccessibleInterface *caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface *summary() const override { return nullptr; }
    [[nodiscard]] int selectedCellCount() const override { return 0; }
    [[nodiscard]] QList<QAccessibleInterface *> selectedCells() const override { return {}; }
    [[nodiscard]] QString rowDescription(int /*row*/) const override { return {}; }
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
    [[nodiscard]] QList<int> selectedRows() const override { return {}; }
    [[nodiscard]] int selectedRowCount() const override {
        return static_cast<int>(selectedRows().size());
    }
    [[nodiscard]] bool isRowSelected(int row) const override {
        return selectedRows().contains(row);
    }
    bool selectRow(int /*row*/) override { return false; }
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent * /*event*/) override {}
};

} // namespace tablio::qt
