#include "accessible/accessible_editor.h"

#include "accessible/accessible_cells.h"
#include "editors/native_text_box.h"
#include "widget/guarded.h"
#include "widget/qt_text.h"
#include "widget/tablio_widget_p.h"

#include <algorithm>

namespace tablio::qt {

AccessibleEditor::AccessibleEditor(NativeTextBox &box)
    : QAccessibleWidget(&box, QAccessible::EditableText), box_(box) {}

TablioWidgetPrivate *AccessibleEditor::parts() const noexcept {
    return TablioWidgetPrivate::around(object());
}

std::optional<ScreenEditor> AccessibleEditor::editor() const {
    const TablioWidgetPrivate *around = parts();
    return around != nullptr ? around->screen().editor() : std::nullopt;
}

bool AccessibleEditor::isValid() const {
    return QAccessibleWidget::isValid() && editor() && !parts()->news.isArriving();
}

QAccessibleInterface *AccessibleEditor::parent() const {
    TablioWidgetPrivate *around = parts();
    if (around == nullptr)
        return nullptr;
    const auto open = editor();
    return open ? around->accessibleCells.at(open->cell)
                : QAccessible::queryAccessibleInterface(&around->widget);
}

QString AccessibleEditor::text(QAccessible::Text kind) const {
    const auto open = editor();
    if (!open)
        return {};
    switch (kind) {
    case QAccessible::Name:
        return TablioWidget::tr("%1, row %2")
            .arg(toQString(parts()->screen().facts(open->cell).header))
            .arg(open->cell.row - parts()->core.FixedRows() + 1);
    case QAccessible::Value:
        return toQString(open->text);
    default:
        return {};
    }
}

QAccessible::Role AccessibleEditor::role() const {
    const TablioWidgetPrivate *around = parts();
    const bool isCombo = around != nullptr && around->screen().widget(WidgetId::cboEdit).isVisible;
    return isCombo ? QAccessible::ComboBox : QAccessible::EditableText;
}

QAccessible::State AccessibleEditor::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    const TablioWidgetPrivate *around = parts();
    if (around == nullptr)
        return state;
    state.editable = 1;
    state.selectableText = 1;
    if (around->screen().focusOwner() == WidgetId::mvCalender)
        state.focused = 0;
    if (around->screen().widget(WidgetId::cboEdit).isVisible) {
        const bool isDown = around->screen().list().isDropped;
        state.hasPopup = 1;
        state.expandable = 1;
        state.expanded = isDown ? 1 : 0;
        state.collapsed = isDown ? 0 : 1;
        state.supportsAutoCompletion = 1;
    }
    return state;
}

void *AccessibleEditor::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

void AccessibleEditor::selection(int index, int *start, int *end) const {
    const bool isThere = index == 0 && box_.hasSelectedText();
    *start = isThere ? box_.selectionStart() : 0;
    *end = isThere ? box_.selectionEnd() : 0;
}

int AccessibleEditor::selectionCount() const { return box_.hasSelectedText() ? 1 : 0; }

void AccessibleEditor::removeSelection(int index) {
    if (index == 0)
        box_.deselect();
}

void AccessibleEditor::setSelection(int index, int start, int end) {
    if (index == 0 && isValid())
        box_.setSelection(start, end - start);
}

int AccessibleEditor::cursorPosition() const { return box_.cursorPosition(); }

void AccessibleEditor::setCursorPosition(int position) {
    if (isValid())
        box_.setCursorPosition(position);
}

QString AccessibleEditor::text(int start, int end) const {
    const auto length = end < 0 ? -1 : std::max(0, end - start);
    return box_.text().mid(start, length);
}

int AccessibleEditor::characterCount() const { return static_cast<int>(box_.text().size()); }

/// From where the caret stands, as a line edit tells no more of its places.
QRect AccessibleEditor::characterRect(int offset) const {
    const QRect caret = box_.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const QFontMetrics metrics = box_.fontMetrics();
    const QString shown = box_.text();
    const int left = caret.center().x() + metrics.horizontalAdvance(shown.left(offset)) -
                     metrics.horizontalAdvance(shown.left(box_.cursorPosition()));
    const int width = metrics.horizontalAdvance(shown.mid(offset, 1));
    return {box_.mapToGlobal(QPoint(left, caret.top())), QSize(width, caret.height())};
}

int AccessibleEditor::offsetAtPoint(const QPoint &point) const {
    return box_.cursorPositionAt(box_.mapFromGlobal(point));
}

void AccessibleEditor::scrollToSubstring(int start, int end) { setSelection(0, start, end); }

QString AccessibleEditor::attributes(int offset, int *start, int *end) const {
    const bool isThere = offset >= 0 && offset <= characterCount();
    *start = isThere ? 0 : offset;
    *end = isThere ? characterCount() : offset;
    return {};
}

/// Later, when whoever asks is done with this object: see AccessibleCell::doAction().
void AccessibleEditor::replaceText(int start, int end, const QString &text) {
    guardedLater(&box_, [box = &box_, start, end, text] {
        const TablioWidgetPrivate *around = TablioWidgetPrivate::around(box);
        const auto open = around != nullptr ? around->screen().editor() : std::nullopt;
        if (!open)
            return;
        Input &input = around->input();
        // The selection first, which what is typed replaces.
        const std::string whole(open->text);
        input.textSettled(open->edit, whole, start, end);
        if (text.isEmpty() && start != end)
            input.keyDown(Key::Delete, Shift::None);
        else
            input.typeText(fromQString(text));
    });
}

} // namespace tablio::qt
