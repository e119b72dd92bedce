#pragma once

/// The month calendar of a date cell for screen readers: a table of six weeks whose days can be
/// picked. The days are asked of the core; what Qt's own calendar widget is made of is not told.

#include "accessible/unselectable_table.h"

#include <tablio/screen.h>

#include <QAccessibleWidget>

#include <vector>

namespace tablio::qt {

class NativeCalendar;
class TablioWidgetPrivate;

class AccessibleCalendar final : public QAccessibleWidget, public UnselectableTable {
public:
    explicit AccessibleCalendar(NativeCalendar &calendar);
    ~AccessibleCalendar() override;

    [[nodiscard]] bool isValid() const override;
    /// The day that is chosen.
    [[nodiscard]] QAccessibleInterface *chosen() const;

    [[nodiscard]] QAccessibleInterface *parent() const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface *child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override;
    [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface *focusChild() const override { return chosen(); }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QAccessibleInterface *cellAt(int row, int column) const override;
    /// Each day is called by its weekday, too.
    [[nodiscard]] QString columnDescription(int /*column*/) const override { return {}; }
    [[nodiscard]] int columnCount() const override { return 7; }
    [[nodiscard]] int rowCount() const override { return 6; }

private:
    /// Null while the widget around is being made or taken apart.
    [[nodiscard]] TablioWidgetPrivate *parts() const noexcept;
    [[nodiscard]] CalendarMonth month() const;
    void forgetDays() const;

    NativeCalendar &calendar_;
    /// Of the days of the month that was asked for last, in their order.
    mutable Date first_;
    mutable std::vector<QAccessible::Id> days_;
};

} // namespace tablio::qt
