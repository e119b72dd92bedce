#include "accessible/accessible_cells.h"

#include "editors/native_text_box.h"
#include "grid/grid_canvas.h"
#include "widget/guarded.h"
#include "widget/qt_text.h"
#include "widget/tablio_widget_p.h"

#include <QKeySequence>

#include <array>

namespace tablio::qt {

namespace {

struct ActionName {
    CellAction action;
    QString name;
    const char *caption;
    const char *keys;
};

/// The first that a cell offers is what a screen reader does when it is just told to act.
const std::array<ActionName, 6> &actions() {
    static const std::array<ActionName, 6> all{{
        {CellAction::Tick, QAccessibleActionInterface::toggleAction(),
         QT_TRANSLATE_NOOP("tablio::qt::TablioWidget", "Tick"), "Space"},
        {CellAction::Edit, QStringLiteral("Edit"),
         QT_TRANSLATE_NOOP("tablio::qt::TablioWidget", "Edit"), "F2"},
        {CellAction::OpenList, QStringLiteral("OpenList"),
         QT_TRANSLATE_NOOP("tablio::qt::TablioWidget", "Open the list"), "F4"},
        {CellAction::OpenCalendar, QStringLiteral("OpenCalendar"),
         QT_TRANSLATE_NOOP("tablio::qt::TablioWidget", "Open the calendar"), "F10"},
        {CellAction::LookUp, QStringLiteral("LookUp"),
         QT_TRANSLATE_NOOP("tablio::qt::TablioWidget", "Look up"), "F10"},
        {CellAction::Reach, QAccessibleActionInterface::setFocusAction(),
         QT_TRANSLATE_NOOP("tablio::qt::TablioWidget", "Go here"), ""},
    }};
    return all;
}

const ActionName *actionCalled(const QString &name) {
    for (const ActionName &each : actions()) {
        if (each.name == name)
            return &each;
    }
    return nullptr;
}

} // namespace

bool AccessibleCell::isValid() const {
    return address_.row < parts_.core.Rows() && address_.col < parts_.core.Cols();
}

QWindow *AccessibleCell::window() const { return parts_.widget.window()->windowHandle(); }

QAccessibleInterface *AccessibleCell::parent() const {
    return QAccessible::queryAccessibleInterface(&parts_.widget);
}

int AccessibleCell::childCount() const {
    const auto editor = parts_.screen().editor();
    return editor && editor->cell == address_ ? 1 : 0;
}

QAccessibleInterface *AccessibleCell::child(int index) const {
    return index == 0 && childCount() > 0 ? QAccessible::queryAccessibleInterface(parts_.textBox)
                                          : nullptr;
}

QAccessibleInterface *AccessibleCell::childAt(int x, int y) const {
    return rect().contains(x, y) ? child(0) : nullptr;
}

int AccessibleCell::indexOfChild(const QAccessibleInterface *child) const {
    return child != nullptr && child->object() == parts_.textBox && childCount() > 0 ? 0 : -1;
}

QString AccessibleCell::text(QAccessible::Text kind) const {
    if (!isValid())
        return {};
    const CellFacts facts = parts_.screen().facts(address_);
    switch (kind) {
    case QAccessible::Name:
        // A box is called what it ticks.
        return toQString(facts.isCheckBox ? facts.header : facts.text);
    case QAccessible::Description:
        return facts.isRefused ? TablioWidget::tr("The entry was refused.") : QString();
    default:
        return {};
    }
}

QRect AccessibleCell::rect() const {
    if (!isValid())
        return {};
    const DevicePixels pixels = parts_.pixels();
    const QRect place = toQRect(pixels.inside(pixels.rect(parts_.screen().cellRect(address_))));
    return {parts_.canvas->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::Role AccessibleCell::role() const {
    if (address_.row < parts_.core.FixedRows())
        return QAccessible::ColumnHeader;
    if (!isValid())
        return QAccessible::Cell;
    const CellFacts facts = parts_.screen().facts(address_);
    return facts.isFixed      ? QAccessible::RowHeader
           : facts.isCheckBox ? QAccessible::CheckBox
                              : QAccessible::Cell;
}

QAccessible::State AccessibleCell::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = 1;
        return state;
    }
    const CellFacts facts = parts_.screen().facts(address_);
    const bool isCurrent = parts_.screen().currentCell() == address_;
    const Rect place = parts_.screen().cellRect(address_);
    state.invisible = place.isEmpty() || !parts_.canvas->isVisible() ? 1 : 0;
    state.offscreen = toQRect(parts_.pixels().around(parts_.pixels().rect(place)))
                              .intersects(parts_.canvas->rect())
                          ? 0
                          : 1;
    state.disabled = parts_.widget.isEnabled() ? 0 : 1;
    if (facts.isFixed)
        return state;
    state.focusable = 1;
    state.focused = isCurrent && !facts.isEdited && parts_.hasKeyboard() ? 1 : 0;
    state.active = isCurrent ? 1 : 0;
    state.readOnly = facts.isReadOnly ? 1 : 0;
    state.editable = !facts.isReadOnly && !facts.isCheckBox ? 1 : 0;
    state.checkable = facts.isCheckBox ? 1 : 0;
    state.checked = facts.isTicked ? 1 : 0;
    // A cell that nobody can select would be called "not selected", each one.
    state.selectable = facts.isMarked ? 1 : 0;
    state.selected = facts.isMarked ? 1 : 0;
    return state;
}

void *AccessibleCell::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface *>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface *>(this);
    return nullptr;
}

bool AccessibleCell::isSelected() const {
    return isValid() && parts_.screen().facts(address_).isMarked;
}

QList<QAccessibleInterface *> AccessibleCell::columnHeaderCells() const {
    if (parts_.core.FixedRows() == 0 || address_.row < parts_.core.FixedRows())
        return {};
    return {parts_.accessibleCells.at({0, address_.col})};
}

QList<QAccessibleInterface *> AccessibleCell::rowHeaderCells() const {
    if (parts_.core.FixedCols() == 0 || address_.col < parts_.core.FixedCols())
        return {};
    return {parts_.accessibleCells.at({address_.row, 0})};
}

int AccessibleCell::columnIndex() const { return address_.col - parts_.core.FixedCols(); }

int AccessibleCell::rowIndex() const { return address_.row - parts_.core.FixedRows(); }

QStringList AccessibleCell::actionNames() const {
    QStringList names;
    for (const ActionName &each : actions()) {
        if (parts_.screen().offers(address_, each.action))
            names.append(each.name);
    }
    return names;
}

QString AccessibleCell::localizedActionName(const QString &name) const {
    const ActionName *action = actionCalled(name);
    return action != nullptr ? TablioWidget::tr(action->caption) : name;
}

/// Later, when whoever asks is done with this object, which a host's slot may delete.
void AccessibleCell::doAction(const QString &name) {
    if (const ActionName *action = actionCalled(name))
        guardedLater(&parts_.widget, [&parts = parts_, cell = address_, what = action->action] {
            parts.input().act(cell, what);
        });
}

QStringList AccessibleCell::keyBindingsForAction(const QString &name) const {
    const ActionName *action = actionCalled(name);
    const bool hasKeys = action != nullptr && *action->keys != '\0';
    return hasKeys ? QStringList{QKeySequence(QLatin1String(action->keys))
                                     .toString(QKeySequence::NativeText)}
                   : QStringList();
}

AccessibleCells::~AccessibleCells() {
    for (const Kept &kept : kept_)
        QAccessible::deleteAccessibleInterface(kept.id);
}

QAccessibleInterface *AccessibleCells::at(CellAddress address) {
    if (address.row < 0 || address.col < 0 || address.row >= parts_.core.Rows() ||
        address.col >= parts_.core.Cols())
        return nullptr;
    const std::pair place(address.row, address.col);
    if (const auto found = places_.find(place); found != places_.end()) {
        kept_.splice(kept_.begin(), kept_, found->second);
        return kept_.front().cell;
    }
    auto *cell = new AccessibleCell(parts_, address);
    kept_.push_front({address, QAccessible::registerAccessibleInterface(cell), cell, {}});
    kept_.front().told = now(kept_.front());
    places_[place] = kept_.begin();
    if (kept_.size() > mostKept) {
        const Kept oldest = kept_.back();
        places_.erase({oldest.address.row, oldest.address.col});
        kept_.pop_back();
        QAccessible::deleteAccessibleInterface(oldest.id);
    }
    return cell;
}

AccessibleCells::Told AccessibleCells::now(const Kept &kept) const {
    const CellFacts facts = parts_.screen().facts(kept.address);
    Told told{std::string(facts.text), kept.cell->state(), facts.isRefused};
    // What the events about focus and scrolling tell.
    told.state.focused = 0;
    told.state.active = 0;
    told.state.offscreen = 0;
    return told;
}

void AccessibleCells::tellChanges() {
    for (auto each = kept_.begin(); each != kept_.end();) {
        const auto kept = each++;
        if (!kept->cell->isValid()) {
            const QAccessible::Id id = kept->id;
            places_.erase({kept->address.row, kept->address.col});
            kept_.erase(kept);
            QAccessible::deleteAccessibleInterface(id);
            continue;
        }
        Told told = now(*kept);
        if (told == kept->told)
            continue;
        std::swap(kept->told, told);
        if (kept->told.text != told.text && told.state.checkable == 0) {
            QAccessibleEvent event(kept->cell, QAccessible::NameChanged);
            QAccessible::updateAccessibility(&event);
        }
        if (kept->told.isRefused && !told.isRefused)
            parts_.news.notify(TablioWidget::tr("%1, row %2: the entry was refused.")
                                   .arg(toQString(parts_.screen().facts(kept->address).header))
                                   .arg(kept->cell->rowIndex() + 1));
        QAccessible::State changed;
        changed.checked = kept->told.state.checked != told.state.checked ? 1 : 0;
        changed.selected = kept->told.state.selected != told.state.selected ? 1 : 0;
        changed.readOnly = kept->told.state.readOnly != told.state.readOnly ? 1 : 0;
        changed.disabled = kept->told.state.disabled != told.state.disabled ? 1 : 0;
        if (!(changed == QAccessible::State())) {
            QAccessibleStateChangeEvent event(kept->cell, changed);
            QAccessible::updateAccessibility(&event);
        }
    }
}

} // namespace tablio::qt
