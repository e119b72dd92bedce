#include "accessible/accessible_news.h"

#include "accessible/accessible_calendar.h"
#include "accessible/accessible_cells.h"
#include "editors/native_calendar.h"
#include "editors/native_text_box.h"
#include "widget/tablio_widget_p.h"

#include <QApplication>

#include <utility>

namespace tablio::qt {

namespace {

/// A notice that nobody can reach, only hear.
class Notice final : public QAccessibleInterface {
public:
    Notice(TablioWidget &grid, QString text) : grid_(grid), text_(std::move(text)) {}
    [[nodiscard]] bool isValid() const override { return true; }
    [[nodiscard]] QObject *object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override {
        return nullptr;
    }
    [[nodiscard]] QAccessibleInterface *parent() const override {
        return QAccessible::queryAccessibleInterface(&grid_);
    }
    [[nodiscard]] QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface * /*child*/) const override {
        return -1;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? text_ : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}
    [[nodiscard]] QRect rect() const override { return {}; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Notification; }
    [[nodiscard]] QAccessible::State state() const override { return {}; }

private:
    TablioWidget &grid_;
    QString text_;
};

} // namespace

AccessibleNews::~AccessibleNews() {
    if (notice_)
        QAccessible::deleteAccessibleInterface(*notice_);
}

void AccessibleNews::notify(const QString &text) {
    if (notice_)
        QAccessible::deleteAccessibleInterface(*notice_);
    auto *notice = new Notice(parts_.widget, text);
    notice_ = QAccessible::registerAccessibleInterface(notice);
    QAccessibleEvent event(notice, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}

void AccessibleNews::look() {
    if (isLooking_ || !QAccessible::isActive())
        return;
    isLooking_ = true;
    QMetaObject::invokeMethod(
        &parts_.widget, [this] { tell(); }, Qt::QueuedConnection);
}

void AccessibleNews::keyboardMoved() {
    told_ = {};
    look();
    isArriving_ = isLooking_ && parts_.hasKeyboard();
}

AccessibleNews::Focused AccessibleNews::now() const {
    const Screen &screen = parts_.screen();
    // A menu and a list that has popped up have the keyboard, and Qt tells of them.
    if (!parts_.hasKeyboard() || QApplication::activePopupWidget() != nullptr)
        return {};
    const auto editor = screen.editor();
    if (editor && screen.focusOwner() == WidgetId::mvCalender)
        return {Focused::Kind::Day, editor->cell, editor->edit, screen.calendarDay()};
    if (editor)
        return {Focused::Kind::Editor, editor->cell, editor->edit, {}};
    if (const auto cell = screen.currentCell())
        return {Focused::Kind::Cell, *cell, 0, {}};
    return {Focused::Kind::Grid, {}, 0, {}};
}

QAccessibleInterface *AccessibleNews::interfaceOf(const Focused &focused) const {
    switch (focused.kind) {
    case Focused::Kind::Grid:
        return QAccessible::queryAccessibleInterface(&parts_.widget);
    case Focused::Kind::Cell:
        return parts_.accessibleCells.at(focused.cell);
    case Focused::Kind::Editor:
        return QAccessible::queryAccessibleInterface(parts_.textBox);
    case Focused::Kind::Day: {
        const auto *calendar = dynamic_cast<const AccessibleCalendar *>(
            QAccessible::queryAccessibleInterface(parts_.calendar));
        return calendar != nullptr ? calendar->chosen() : nullptr;
    }
    default:
        return nullptr;
    }
}

QAccessibleInterface *AccessibleNews::focused() const { return interfaceOf(now()); }

void AccessibleNews::tell() {
    isLooking_ = false;
    // What was chosen in a list, which has just closed, is only now on its way.
    if (std::exchange(isArriving_, false))
        return look();
    if (!QAccessible::isActive())
        return;
    tellCounts();
    parts_.accessibleCells.tellChanges();
    const Focused focused = now();
    if (focused == told_)
        return;
    told_ = focused;
    QAccessibleInterface *reached = interfaceOf(focused);
    if (reached == nullptr || !reached->isValid())
        return;
    if (QObject *object = reached->object()) {
        QAccessibleEvent event(object, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    } else {
        QAccessibleEvent event(reached, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

void AccessibleNews::tellCounts() {
    using Change = QAccessibleTableModelChangeEvent;
    const Counts counts{parts_.core.Rows(), parts_.core.Cols()};
    const Counts before = counts_.value_or(counts);
    counts_ = counts;
    if (before == counts)
        return;
    const auto tell = [&](Change::ModelChangeType type, int first, int last, bool areRows) {
        Change event(&parts_.widget, type);
        if (areRows) {
            event.setFirstRow(first);
            event.setLastRow(last);
        } else {
            event.setFirstColumn(first);
            event.setLastColumn(last);
        }
        QAccessible::updateAccessibility(&event);
    };
    const int fixedRows = parts_.core.FixedRows();
    const int fixedCols = parts_.core.FixedCols();
    if (counts.rows > before.rows)
        tell(Change::RowsInserted, before.rows - fixedRows, counts.rows - 1 - fixedRows, true);
    else if (counts.rows < before.rows)
        tell(Change::RowsRemoved, counts.rows - fixedRows, before.rows - 1 - fixedRows, true);
    if (counts.cols > before.cols)
        tell(Change::ColumnsInserted, before.cols - fixedCols, counts.cols - 1 - fixedCols, false);
    else if (counts.cols < before.cols)
        tell(Change::ColumnsRemoved, counts.cols - fixedCols, before.cols - 1 - fixedCols, false);
}

} // namespace tablio::qt
