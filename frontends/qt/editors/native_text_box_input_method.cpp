/// Input methods at the native text box. Composing is the box's own business; what is composed goes
/// to the core like any typed text, and the core says whether there may be a composition at all.

#include "editors/native_text_box.h"

#include "widget/guarded.h"
#include "widget/qt_text.h"
#include "widget/surroundings.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QScopedValueRollback>

namespace tablio::qt {

void NativeTextBox::compose(const QInputMethodEvent &event) {
    const QPointer<NativeTextBox> alive(this);
    around_.enter();
    if (!alive)
        return;
    const QString &commit = event.commitString();
    const QString &preedit = event.preeditString();
    if (!commit.isEmpty() || event.replacementLength() > 0) {
        clearPreedit();
        if (event.replacementLength() > 0) {
            setSelection(cursorPosition() + event.replacementStart(), event.replacementLength());
            if (!alive)
                return;
        }
        typeText(commit);
        if (!alive)
            return;
    }
    if (!preedit.isEmpty() && !isEditing()) {
        Dealt dealt = Dealt::No;
        guarded([&] { dealt = around_.input().beginComposition(); });
        if (!alive)
            return;
        if (dealt == Dealt::No || !isEditing()) {
            QGuiApplication::inputMethod()->reset();
            return;
        }
    }
    if (preedit.isEmpty()) {
        const bool wasComposing = isComposing();
        clearPreedit();
        if (wasComposing)
            mirror();
        return;
    }
    preedit_ = preedit;
    QInputMethodEvent shown(preedit, event.attributes());
    natively([&] { QLineEdit::inputMethodEvent(&shown); });
}

void NativeTextBox::clearPreedit() {
    if (!isComposing())
        return;
    preedit_.clear();
    const QScopedValueRollback<bool> quiet(mirroring_, true);
    QInputMethodEvent nothing;
    QLineEdit::inputMethodEvent(&nothing);
}

void NativeTextBox::commitComposition() {
    if (!isComposing())
        return;
    const QPointer<NativeTextBox> alive(this);
    QGuiApplication::inputMethod()->commit();
    if (!alive || !isComposing())
        return;
    // An input method that does not answer at once must not take the text with it.
    QInputMethodEvent event;
    event.setCommitString(preedit_);
    QGuiApplication::inputMethod()->reset();
    compose(event);
}

/// Qt tells input methods when a widget moves, but not when the frame around it does.
void NativeTextBox::tellPlace() {
    if (!hasFocus())
        return;
    const QPoint corner = mapTo(window(), QPoint(0, 0));
    QInputMethod *method = QGuiApplication::inputMethod();
    method->setInputItemTransform(QTransform::fromTranslate(corner.x(), corner.y()));
    method->setInputItemRectangle(rect());
    method->update(Qt::ImQueryAll);
}

QVariant NativeTextBox::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (query == Qt::ImHints)
        return static_cast<int>(cellHints());
    // While no edit is open, a composition would begin at the current cell.
    if (query == Qt::ImCursorRectangle && !isEditing()) {
        if (const std::optional<CellAddress> cell = around_.screen().currentCell()) {
            const DevicePixels pixels = around_.pixels();
            const QRect place =
                toQRect(pixels.around(pixels.rect(around_.screen().cellRect(*cell))));
            return QRect(mapFrom(parentWidget()->parentWidget(), place.topLeft()),
                         QSize(1, place.height()));
        }
    }
    return QLineEdit::inputMethodQuery(query);
}

Qt::InputMethodHints NativeTextBox::cellHints() const {
    const Screen &screen = around_.screen();
    const std::optional<ScreenEditor> editor = screen.editor();
    const std::optional<CellAddress> cell = editor ? editor->cell : screen.currentCell();
    if (!cell)
        return Qt::ImhNone;
    const CellFacts facts = screen.facts(*cell);
    if (facts.type == TColumnType::ColumnDecimal || facts.type == TColumnType::ColumnInteger)
        return Qt::ImhFormattedNumbersOnly | Qt::ImhNoPredictiveText;
    switch (facts.dataType) {
    case TDataType::UpperCase:
        return Qt::ImhPreferUppercase | Qt::ImhNoAutoUppercase;
    case TDataType::LowerCase:
        return Qt::ImhPreferLowercase | Qt::ImhNoAutoUppercase;
    default:
        return Qt::ImhNone;
    }
}

} // namespace tablio::qt
