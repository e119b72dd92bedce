#include "editors/native_text_box.h"

#include "widget/guarded.h"
#include "widget/key_translation.h"
#include "widget/qt_text.h"
#include "widget/surroundings.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QScopedValueRollback>

#include <limits>

namespace tablio::qt {

NativeTextBox::NativeTextBox(Surroundings &around, QWidget *frame)
    : QLineEdit(frame), around_(around) {
    setObjectName(QStringLiteral("qt_txtEdit"));
    setFrame(false);
    setFocusPolicy(Qt::StrongFocus);
    // The core knows the column's length; a box of its own opinion would cut a cell's old text.
    setMaxLength(std::numeric_limits<int>::max());
    setAttribute(Qt::WA_InputMethodEnabled);
    const auto report = [this] {
        if (nativeDepth_ == 0)
            settle();
    };
    connect(this, &QLineEdit::textChanged, this, report);
    connect(this, &QLineEdit::selectionChanged, this, report);
    connect(this, &QLineEdit::cursorPositionChanged, this, report);
}

bool NativeTextBox::isEditing() const { return around_.screen().editor().has_value(); }

void NativeTextBox::takeFocus() {
    if (!hasFocus() && around_.owner.isVisible())
        setFocus(Qt::OtherFocusReason);
}

void NativeTextBox::natively(const std::function<void()> &action) {
    const QPointer<NativeTextBox> alive(this);
    ++nativeDepth_;
    action();
    if (!alive)
        return;
    if (--nativeDepth_ == 0)
        settle();
}

/// Whatever a handler does, an event is over when it has run: nothing here touches the box after
/// a call into the core without knowing that it still exists.
bool NativeTextBox::event(QEvent *event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        event->setAccepted(isComposing() || wantsKey(static_cast<QKeyEvent &>(*event)));
        return true;
    case QEvent::KeyPress:
        return keyPressed(static_cast<QKeyEvent &>(*event));
    case QEvent::KeyRelease:
        event->ignore();
        return true;
    case QEvent::InputMethod:
        event->accept();
        compose(static_cast<QInputMethodEvent &>(*event));
        return true;
    case QEvent::FocusIn:
        around_.showCurrentCell();
        around_.enterLater();
        return QLineEdit::event(event);
    case QEvent::FocusOut:
        focusLeft(static_cast<QFocusEvent &>(*event));
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease: {
        bool result = true;
        natively([&] { result = QLineEdit::event(event); });
        return result;
    }
    default:
        return QLineEdit::event(event);
    }
}

bool NativeTextBox::wantsKey(const QKeyEvent &event) const {
    const Keystroke stroke = keystroke(event);
    return around_.input().wantsKey(stroke.code, stroke.shift, !stroke.characters.empty());
}

bool NativeTextBox::keyPressed(QKeyEvent &event) {
    event.accept();
    // Keys that come while text is being composed belong to the input method.
    if (isComposing())
        return true;
    const Keystroke stroke = keystroke(event);
    const QPointer<NativeTextBox> alive(this);
    around_.enter();
    if (!alive)
        return true;
    // A key whose handler fails has been dealt with.
    Dealt dealt = stroke.code == 0 ? Dealt::No : Dealt::Yes;
    if (stroke.code != 0)
        guarded([&] { dealt = around_.input().keyDown(stroke.code, stroke.shift); });
    if (dealt == Dealt::Yes)
        return true;
    for (const char32_t character : stroke.characters) {
        dealt = Dealt::Yes;
        guarded([&] { dealt = around_.input().keyPress(character); });
        if (!alive)
            return true;
    }
    if (dealt == Dealt::Yes)
        return true;
    if (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab) {
        const bool isPlain = (stroke.shift & (Shift::Ctrl | Shift::Alt)) == 0;
        event.setAccepted(isPlain && focusNextPrevChild(event.key() == Qt::Key_Tab &&
                                                        stroke.shift == Shift::None));
        return true;
    }
    // Ctrl+arrow, Ctrl+Backspace and the like: every platform has its own.
    const bool isBoxCommand = (stroke.shift & Shift::Ctrl) != 0 && (stroke.shift & Shift::Alt) == 0;
    if (isBoxCommand && isEditing())
        natively([&] { QLineEdit::keyPressEvent(&event); });
    else
        event.ignore();
    return true;
}

void NativeTextBox::settle() {
    if (mirroring_ || !isEditing())
        return;
    const QString now = text();
    const int caret = cursorPosition();
    const int anchor = !hasSelectedText()          ? caret
                       : selectionStart() == caret ? selectionEnd()
                                                   : selectionStart();
    guarded([&] { around_.input().textSettled(edit_, fromQString(now), anchor, caret); });
}

void NativeTextBox::focusLeft(const QFocusEvent &event) {
    const Qt::FocusReason reason = event.reason();
    const bool stays = reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason ||
                       reason == Qt::MenuBarFocusReason ||
                       QApplication::activePopupWidget() != nullptr ||
                       around_.owner.isAncestorOf(QApplication::focusWidget());
    const QPointer<NativeTextBox> alive(this);
    if (!stays) {
        commitComposition();
        if (!alive)
            return;
    }
    {
        // The box drops its selection, which nobody asked for.
        const QScopedValueRollback<bool> quiet(mirroring_, true);
        QFocusEvent copy(QEvent::FocusOut, reason);
        QLineEdit::event(&copy);
    }
    around_.showCurrentCell();
    if (!stays && around_.input().hasKeyboard())
        guarded([&] { around_.input().focusLeft(); });
}

void NativeTextBox::sendKey(KeyCode key, ShiftState shift) {
    guarded([&] { around_.input().keyDown(key, shift); });
}

void NativeTextBox::typeText(const QString &text) {
    guarded([&] { around_.input().typeText(fromQString(text)); });
}

/// The menu of every line edit in Qt's own words, but each entry goes the way of its key: what is
/// pasted obeys the column's rules.
void NativeTextBox::contextMenuEvent(QContextMenuEvent *event) {
    if (!isEditing()) {
        event->ignore();
        return;
    }
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool hasSelection = hasSelectedText();
    const auto add = [&](const char *caption, QKeySequence::StandardKey shown, bool isEnabled,
                         KeyCode key, ShiftState shift) {
        const QString text = QCoreApplication::translate("QLineEdit", caption);
        const QString keys = QKeySequence(shown).toString(QKeySequence::NativeText);
        QAction *action = menu->addAction(keys.isEmpty() ? text : text + u'\t' + keys);
        action->setEnabled(isEnabled);
        connect(action, &QAction::triggered, this, [this, key, shift] { sendKey(key, shift); });
    };
    const bool canPaste = !QGuiApplication::clipboard()->text().isEmpty();
    add("&Undo", QKeySequence::Undo, true, Key::Z, Shift::Ctrl);
    menu->addSeparator();
    add("Cu&t", QKeySequence::Cut, hasSelection, Key::X, Shift::Ctrl);
    add("&Copy", QKeySequence::Copy, hasSelection, Key::C, Shift::Ctrl);
    add("&Paste", QKeySequence::Paste, canPaste, Key::V, Shift::Ctrl);
    add("Delete", QKeySequence::UnknownKey, hasSelection, Key::Delete, Shift::None);
    menu->addSeparator();
    add("Select All", QKeySequence::SelectAll, true, Key::A, Shift::Ctrl);
    menu->popup(event->globalPos());
}

void NativeTextBox::mouseReleaseEvent(QMouseEvent *event) {
    const QClipboard *clipboard = QGuiApplication::clipboard();
    if (event->button() != Qt::MiddleButton || !clipboard->supportsSelection()) {
        QLineEdit::mouseReleaseEvent(event);
        return;
    }
    typeAt(event->position(), clipboard->text(QClipboard::Selection));
}

void NativeTextBox::dropEvent(QDropEvent *event) {
    event->acceptProposedAction();
    typeAt(event->position(), event->mimeData()->text());
}

void NativeTextBox::typeAt(const QPointF &place, const QString &text) {
    const QPointer<NativeTextBox> alive(this);
    deselect();
    setCursorPosition(cursorPositionAt(place.toPoint()));
    settle();
    if (alive)
        typeText(text);
}

} // namespace tablio::qt
