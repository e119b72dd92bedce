#include "accessible/accessible_calendar.h"

#include "editors/native_calendar.h"
#include "widget/guarded.h"
#include "widget/tablio_widget_p.h"

#include <QCalendarWidget>
#include <QDate>
#include <QLocale>
#include <QTableView>

#include <algorithm>

namespace tablio::qt {

namespace {

QDate toQDate(const Date &date) { return {date.year, date.month, date.day}; }

class AccessibleDay final : public QAccessibleInterface,
                            public QAccessibleTableCellInterface,
                            public QAccessibleActionInterface {
public:
    AccessibleDay(NativeCalendar &calendar, TablioWidgetPrivate &parts, int index, Date date)
        : calendar_(calendar), parts_(parts), index_(index), date_(date) {}

    [[nodiscard]] int index() const noexcept { return index_; }

    [[nodiscard]] bool isValid() const override { return !calendar_.isHidden(); }
    [[nodiscard]] QObject *object() const override { return nullptr; }
    [[nodiscard]] QWindow *window() const override { return calendar_.window()->windowHandle(); }
    [[nodiscard]] QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }
    [[nodiscard]] QAccessibleInterface *parent() const override {
        return QAccessible::queryAccessibleInterface(&calendar_);
    }
    [[nodiscard]] QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface * /*child*/) const override {
        return -1;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name
                   ? calendar_.locale().toString(toQDate(date_), QLocale::LongFormat)
                   : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}
    [[nodiscard]] QRect rect() const override { return calendar_.placeOfDay(index_); }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Cell; }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        const bool isChosen = isSelected();
        state.selectable = 1;
        state.selected = isChosen ? 1 : 0;
        state.focusable = 1;
        state.focused = isChosen && parts_.hasKeyboard() ? 1 : 0;
        state.disabled = date_ < firstCellDay || date_ > lastCellDay ? 1 : 0;
        return state;
    }
    void *interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableCellInterface)
            return static_cast<QAccessibleTableCellInterface *>(this);
        if (type == QAccessible::ActionInterface)
            return static_cast<QAccessibleActionInterface *>(this);
        return nullptr;
    }

    [[nodiscard]] bool isSelected() const override {
        return parts_.screen().calendarDay() == date_;
    }
    [[nodiscard]] QList<QAccessibleInterface *> columnHeaderCells() const override { return {}; }
    [[nodiscard]] QList<QAccessibleInterface *> rowHeaderCells() const override { return {}; }
    [[nodiscard]] int columnIndex() const override { return index_ % 7; }
    [[nodiscard]] int rowIndex() const override { return index_ / 7; }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface *table() const override { return parent(); }

    [[nodiscard]] QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString &name) override {
        const auto editor = parts_.screen().editor();
        if (name == pressAction() && editor)
            guardedLater(&calendar_, [&parts = parts_, edit = editor->edit, date = date_] {
                parts.input().calendarPicked(edit, date);
            });
    }
    [[nodiscard]] QStringList keyBindingsForAction(const QString & /*name*/) const override {
        return {};
    }

private:
    NativeCalendar &calendar_;
    TablioWidgetPrivate &parts_;
    int index_;
    Date date_;
};

} // namespace

AccessibleCalendar::AccessibleCalendar(NativeCalendar &calendar)
    : QAccessibleWidget(&calendar, QAccessible::Table), calendar_(calendar) {}

AccessibleCalendar::~AccessibleCalendar() { forgetDays(); }

TablioWidgetPrivate *AccessibleCalendar::parts() const noexcept {
    return TablioWidgetPrivate::around(object());
}

bool AccessibleCalendar::isValid() const {
    return QAccessibleWidget::isValid() && parts() != nullptr && !calendar_.isHidden();
}

void AccessibleCalendar::forgetDays() const {
    for (const QAccessible::Id id : std::exchange(days_, {}))
        QAccessible::deleteAccessibleInterface(id);
}

CalendarMonth AccessibleCalendar::month() const {
    return parts()->screen().calendarMonth(calendar_.locale().firstDayOfWeek() - Qt::Monday);
}

QAccessibleInterface *AccessibleCalendar::parent() const {
    const TablioWidgetPrivate *around = parts();
    return around != nullptr ? QAccessible::queryAccessibleInterface(&around->widget) : nullptr;
}

int AccessibleCalendar::childCount() const {
    return static_cast<int>(std::size(CalendarMonth().days));
}

QAccessibleInterface *AccessibleCalendar::child(int index) const {
    TablioWidgetPrivate *around = parts();
    if (around == nullptr || index < 0 || index >= childCount())
        return nullptr;
    const CalendarMonth shown = month();
    if (days_.empty() || first_ != shown.days.front().date) {
        forgetDays();
        first_ = shown.days.front().date;
        for (int at = 0; const CalendarMonth::Day &day : shown.days)
            days_.push_back(QAccessible::registerAccessibleInterface(
                new AccessibleDay(calendar_, *around, at++, day.date)));
    }
    return QAccessible::accessibleInterface(days_[static_cast<std::size_t>(index)]);
}

QAccessibleInterface *AccessibleCalendar::chosen() const {
    if (parts() == nullptr)
        return nullptr;
    const CalendarMonth shown = month();
    const auto found = std::ranges::find(shown.days, true, &CalendarMonth::Day::isChosen);
    return found == shown.days.end() ? nullptr
                                     : child(static_cast<int>(found - shown.days.begin()));
}

int AccessibleCalendar::indexOfChild(const QAccessibleInterface *child) const {
    const auto *day = dynamic_cast<const AccessibleDay *>(child);
    return day != nullptr ? day->index() : -1;
}

QAccessibleInterface *AccessibleCalendar::childAt(int x, int y) const {
    for (int at = 0; at < childCount(); ++at) {
        if (calendar_.placeOfDay(at).contains(x, y))
            return child(at);
    }
    return nullptr;
}

QString AccessibleCalendar::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name || parts() == nullptr)
        return {};
    return calendar_.locale().toString(toQDate(parts()->screen().calendarDay()),
                                       QStringLiteral("MMMM yyyy"));
}

void *AccessibleCalendar::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface *AccessibleCalendar::cellAt(int row, int column) const {
    const bool isThere = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return isThere ? child(row * columnCount() + column) : nullptr;
}

} // namespace tablio::qt
