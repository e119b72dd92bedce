#include "editors/native_combo.h"

#include "widget/guarded.h"
#include "widget/key_translation.h"
#include "widget/qt_look.h"
#include "widget/qt_text.h"
#include "widget/tablio_widget_p.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>

namespace tablio::qt {

NativeCombo::NativeCombo(TablioWidgetPrivate &parts, QWidget *frame)
    : QComboBox(frame), parts_(parts) {
    setObjectName(QStringLiteral("qt_cboEdit"));
    // An editable combo looks like a cell with an arrow; its own field lies under the text box.
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setFocusPolicy(Qt::NoFocus);
    lineEdit()->setFocusPolicy(Qt::NoFocus);
    lineEdit()->setReadOnly(true);
    view()->installEventFilter(this);
    // Qt goes on with the combo after this signal, and a host's handler may delete it.
    connect(this, &QComboBox::activated, this, [this](int index) {
        QMetaObject::invokeMethod(
            this,
            [this, edit = edit_, index] {
                guarded([&] { parts_.input().comboItemChosen(edit, index); });
            },
            Qt::QueuedConnection);
    });
}

bool NativeCombo::isDown() const { return view()->isVisible(); }

void NativeCombo::mirror() {
    if (mirroring_)
        return;
    const QScopedValueRollback<bool> quiet(mirroring_, true);
    const Widgets &widgets = parts_.state().widgets;
    const ComboBox &combo = widgets.cboEdit;
    QWidget *frame = parentWidget();
    if (!combo.Visible() || !widgets.picEdit.Visible()) {
        if (isDown())
            QComboBox::hidePopup();
        frame->hide();
        return;
    }
    edit_ = parts_.openEdit();
    const DevicePixels pixels = parts_.pixels();
    frame->setGeometry(toQRect(pixels.inside(pixels.withoutLines(widgets.picEdit.place()))));
    setGeometry(toQRect(pixels.around(pixels.rect(combo.place()))));
    setFont(completedFont(combo.look().Font, parts_.widget));
    view()->setFont(font());
    mirrorItems();
    frame->show();
    if (combo.DroppedDown() && !isDown()) {
        QComboBox::showPopup();
        // Qt shows no list without items.
        if (!isDown())
            guarded([this] { parts_.input().comboDropped(edit_, false); });
    } else if (!combo.DroppedDown() && isDown()) {
        QComboBox::hidePopup();
    }
    if (isDown())
        view()->setCurrentIndex(model()->index(combo.ListIndex(), 0));
}

void NativeCombo::mirrorItems() {
    const ComboBox &combo = parts_.state().widgets.cboEdit;
    const auto wanted = static_cast<int>(combo.items().size());
    bool isSame = wanted == count();
    for (int item = 0; isSame && item < wanted; ++item)
        isSame = itemText(item) == toQString(combo.items()[static_cast<std::size_t>(item)]);
    if (!isSame) {
        clear();
        for (const std::string &item : combo.items())
            addItem(toQString(item));
    }
    setCurrentIndex(combo.ListIndex());
}

void NativeCombo::showPopup() {
    QComboBox::showPopup();
    if (!mirroring_)
        guarded([this] { parts_.input().comboDropped(edit_, isDown()); });
}

void NativeCombo::hidePopup() {
    const QPointer<NativeCombo> alive(this);
    QComboBox::hidePopup();
    if (alive && !mirroring_)
        guarded([this] { parts_.input().comboDropped(edit_, false); });
}

/// The list has the native keyboard while it is down; the core goes on deciding what a key does.
bool NativeCombo::eventFilter(QObject *watched, QEvent *event) {
    if (watched != view() || event->type() != QEvent::KeyPress)
        return QComboBox::eventFilter(watched, event);
    const Keystroke stroke = keystroke(static_cast<QKeyEvent &>(*event));
    const QPointer<NativeCombo> alive(this);
    Dealt dealt = Dealt::No;
    if (stroke.code != 0)
        guarded([&] { dealt = parts_.input().keyDown(stroke.code, stroke.shift); });
    for (const char32_t character : stroke.characters) {
        if (!alive || dealt == Dealt::Yes)
            break;
        guarded([&] { parts_.input().keyPress(character); });
    }
    return true;
}

} // namespace tablio::qt
