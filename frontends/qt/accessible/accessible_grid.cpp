#include "accessible/accessible_grid.h"

#include "accessible/accessible_calendar.h"
#include "accessible/accessible_cells.h"
#include "accessible/accessible_editor.h"
#include "accessible/accessible_news.h"
#include "editors/native_calendar.h"
#include "editors/native_combo.h"
#include "editors/native_text_box.h"
#include "grid/grid_canvas.h"
#include "widget/qt_text.h"
#include "widget/tablio_widget_p.h"

#include <QScrollBar>
#include <QToolButton>

#include <algorithm>
#include <limits>

namespace tablio::qt {

namespace {

TablioWidget *gridAround(const QObject *part) {
    for (QObject *each = part->parent(); each != nullptr; each = each->parent()) {
        if (auto *grid = qobject_cast<TablioWidget *>(each))
            return grid;
    }
    return nullptr;
}

/// A button or the combo with its list: they stand in the grid, not on the canvas.
class AccessiblePart final : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;
    [[nodiscard]] QAccessibleInterface *parent() const override {
        return QAccessible::queryAccessibleInterface(gridAround(widget()));
    }
    [[nodiscard]] QStringList actionNames() const override {
        return role() == QAccessible::Button ? QStringList{pressAction()} : QStringList();
    }
    void doAction(const QString &name) override {
        if (name == pressAction())
            QMetaObject::invokeMethod(widget(), "click", Qt::QueuedConnection);
    }
};

/// What the native calendar and the combo are made of, of which Qt would tell besides.
class Unsaid final : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;
    [[nodiscard]] bool isValid() const override { return false; }
};

bool isUnsaid(const QWidget &widget) {
    for (const QWidget *each = widget.parentWidget(); each != nullptr;
         each = each->parentWidget()) {
        if (qobject_cast<const NativeCalendar *>(each) != nullptr)
            return true;
    }
    return qobject_cast<const QLineEdit *>(&widget) != nullptr &&
           qobject_cast<const NativeCombo *>(widget.parentWidget()) != nullptr;
}

QAccessibleInterface *makeInterface(const QString & /*className*/, QObject *object) {
    auto *widget = qobject_cast<QWidget *>(object);
    if (widget == nullptr)
        return nullptr;
    if (auto *grid = qobject_cast<TablioWidget *>(widget))
        return new AccessibleGrid(*grid);
    // The pages show parts of a grid without a TablioWidget around them.
    if (gridAround(widget) == nullptr)
        return nullptr;
    if (auto *box = qobject_cast<NativeTextBox *>(widget))
        return new AccessibleEditor(*box);
    if (auto *calendar = qobject_cast<NativeCalendar *>(widget))
        return new AccessibleCalendar(*calendar);
    if (isUnsaid(*widget))
        return new Unsaid(widget);
    if (qobject_cast<NativeCombo *>(widget) != nullptr)
        return new AccessiblePart(widget, QAccessible::ComboBox);
    if (qobject_cast<QToolButton *>(widget) != nullptr &&
        qobject_cast<GridCanvas *>(widget->parentWidget()) != nullptr)
        return new AccessiblePart(widget, QAccessible::Button);
    return nullptr;
}

} // namespace

void installAccessibleGrids() {
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    static_cast<void>(isInstalled);
}

AccessibleGrid::AccessibleGrid(TablioWidget &grid) : QAccessibleWidget(&grid, QAccessible::Table) {}

TablioWidgetPrivate *AccessibleGrid::parts() const noexcept {
    return TablioWidgetPrivate::around(object());
}

bool AccessibleGrid::isValid() const { return QAccessibleWidget::isValid() && parts() != nullptr; }

void *AccessibleGrid::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

int AccessibleGrid::cellCount() const {
    const TablioWidgetPrivate *around = parts();
    if (around == nullptr)
        return 0;
    const qint64 count = qint64{around->core.Rows()} * around->core.Cols();
    return static_cast<int>(std::min<qint64>(count, std::numeric_limits<int>::max() / 2));
}

QList<QWidget *> AccessibleGrid::otherParts() const {
    QList<QWidget *> shown;
    const TablioWidgetPrivate *around = parts();
    if (around == nullptr)
        return shown;
    for (QWidget *part :
         std::initializer_list<QWidget *>{around->lookupButton, around->calendarButton,
                                          around->calendar, around->vertical, around->horizontal}) {
        if (!part->isHidden())
            shown.append(part);
    }
    return shown;
}

int AccessibleGrid::childCount() const {
    return cellCount() + static_cast<int>(otherParts().size());
}

QAccessibleInterface *AccessibleGrid::child(int index) const {
    TablioWidgetPrivate *around = parts();
    const int cells = cellCount();
    if (around == nullptr || index < 0)
        return nullptr;
    if (index < cells)
        return around->accessibleCells.at(
            {index / around->core.Cols(), index % around->core.Cols()});
    return QAccessible::queryAccessibleInterface(otherParts().value(index - cells));
}

int AccessibleGrid::indexOfChild(const QAccessibleInterface *child) const {
    const TablioWidgetPrivate *around = parts();
    if (around == nullptr || child == nullptr)
        return -1;
    if (const auto *cell = dynamic_cast<const AccessibleCell *>(child))
        return cell->address().row * around->core.Cols() + cell->address().col;
    const QList<QWidget *> others = otherParts();
    for (int at = 0; at < others.size(); ++at) {
        if (others[at] == child->object())
            return cellCount() + at;
    }
    return -1;
}

QAccessibleInterface *AccessibleGrid::childAt(int x, int y) const {
    for (QWidget *part : otherParts()) {
        if (part->rect().contains(part->mapFromGlobal(QPoint(x, y))))
            return QAccessible::queryAccessibleInterface(part);
    }
    TablioWidgetPrivate *around = parts();
    if (around == nullptr)
        return nullptr;
    const QPoint at = around->canvas->mapFromGlobal(QPoint(x, y)) * twipsPerPixel;
    const auto cell = around->screen().cellAt(at.x(), at.y());
    return cell ? around->accessibleCells.at(*cell) : nullptr;
}

QAccessibleInterface *AccessibleGrid::focusChild() const {
    const TablioWidgetPrivate *around = parts();
    return around != nullptr ? around->news.focused() : nullptr;
}

QAccessible::State AccessibleGrid::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    // The keyboard is in a cell, if there is one.
    const TablioWidgetPrivate *around = parts();
    if (around != nullptr && around->screen().currentCell())
        state.focused = 0;
    return state;
}

QAccessibleInterface *AccessibleGrid::cellAt(int row, int column) const {
    TablioWidgetPrivate *around = parts();
    if (around == nullptr || row < 0 || column < 0)
        return nullptr;
    return around->accessibleCells.at(
        {row + around->core.FixedRows(), column + around->core.FixedCols()});
}

QString AccessibleGrid::columnDescription(int column) const {
    const TablioWidgetPrivate *around = parts();
    if (around == nullptr || column < 0 || column >= columnCount() || around->core.Rows() == 0)
        return {};
    return toQString(around->screen().facts({0, column + around->core.FixedCols()}).header);
}

QString AccessibleGrid::rowDescription(int row) const { return QString::number(row + 1); }

int AccessibleGrid::columnCount() const {
    const TablioWidgetPrivate *around = parts();
    return around != nullptr ? std::max(0, around->core.Cols() - around->core.FixedCols()) : 0;
}

int AccessibleGrid::rowCount() const {
    const TablioWidgetPrivate *around = parts();
    return around != nullptr ? std::max(0, around->core.Rows() - around->core.FixedRows()) : 0;
}

QList<int> AccessibleGrid::selectedRows() const {
    const TablioWidgetPrivate *around = parts();
    if (around == nullptr || !around->core.MarkStatus())
        return {};
    return {around->core.MarkRow() - around->core.FixedRows()};
}

} // namespace tablio::qt
