#include "pages/property_pages_controls.h"

#include "widget/qt_text.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include <algorithm>

namespace tablio::qt {

namespace {

constexpr char32_t backspace = 8;

/// The character that a key types; 0 for a key that types nothing.
char32_t characterOf(const QKeyEvent &event) {
    if (event.key() == Qt::Key_Backspace && event.modifiers() == Qt::NoModifier)
        return backspace;
    const QList<uint> typed = event.text().toUcs4();
    return !typed.isEmpty() && QChar::isPrint(typed.front()) ? typed.front() : 0;
}

} // namespace

bool comesBack(const QFocusEvent &event) {
    return event.reason() == Qt::PopupFocusReason || event.reason() == Qt::ActiveWindowFocusReason;
}

PageLineEdit::PageLineEdit(PropertyPage &page, PageTextBox &box, QWidget *parent)
    : QLineEdit(parent), page_(page), box_(box) {
    setObjectName(toQString(box.name()));
    if (box.keys() == PageKeys::WholeNumber)
        setInputMethodHints(Qt::ImhDigitsOnly);
    connect(this, &QLineEdit::textEdited, this,
            [this](const QString &text) { page_.typed(box_, fromQString(text)); });
    mirror();
}

void PageLineEdit::mirror() {
    const QString now = toQString(box_.Text());
    if (text() != now)
        setText(now);
    setEnabled(box_.Enabled());
}

void PageLineEdit::settle() { page_.lostFocus(box_); }

bool PageLineEdit::takes(char32_t character) const {
    const int start = hasSelectedText() ? selectionStart() : cursorPosition();
    return page_.takesKey(box_, character, start, selectionLength());
}

void PageLineEdit::keyPressEvent(QKeyEvent *event) {
    const char32_t character = characterOf(*event);
    if (character != 0 && !takes(character))
        return;
    QLineEdit::keyPressEvent(event);
}

void PageLineEdit::inputMethodEvent(QInputMethodEvent *event) {
    const QList<uint> typed = event->commitString().toUcs4();
    if (std::all_of(typed.begin(), typed.end(), [this](uint one) { return takes(one); }))
        QLineEdit::inputMethodEvent(event);
}

void PageLineEdit::focusOutEvent(QFocusEvent *event) {
    QLineEdit::focusOutEvent(event);
    if (!comesBack(*event))
        settle();
}

PageSpinBox::PageSpinBox(PropertyPage &page, PageTextBox &box, PageSpinner &spinner,
                         QWidget *parent)
    : QAbstractSpinBox(parent), page_(page), spinner_(spinner),
      box_(*new PageLineEdit(page, box, this)) {
    setLineEdit(&box_);
    box_.setObjectName(toQString(box.name()));
    setObjectName(toQString(spinner.name()));
    // The arrows, which follow the box.
    connect(&box_, &QLineEdit::textChanged, this, qOverload<>(&QWidget::update));
}

double PageSpinBox::number() const {
    bool isNumber = false;
    const qlonglong number = box_.text().toLongLong(&isNumber);
    return isNumber ? static_cast<double>(number) : spinner_.Value();
}

void PageSpinBox::stepBy(int steps) {
    const double value = std::clamp<double>(number() + steps, spinner_.Min(), spinner_.Max());
    page_.spun(spinner_, static_cast<int>(value));
    box_.selectAll();
}

QAbstractSpinBox::StepEnabled PageSpinBox::stepEnabled() const {
    StepEnabled steps = StepNone;
    steps.setFlag(StepUpEnabled, number() < spinner_.Max());
    steps.setFlag(StepDownEnabled, number() > spinner_.Min());
    return steps;
}

} // namespace tablio::qt
