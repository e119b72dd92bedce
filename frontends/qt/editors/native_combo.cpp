#include "editors/native_combo.h"

#include "grid/cell_fonts.h"
#include "widget/guarded.h"
#include "widget/key_translation.h"
#include "widget/qt_text.h"
#include "widget/surroundings.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QStyleOption>
#include <QStylePainter>

namespace tablio::qt {

NativeCombo::NativeCombo(Surroundings &around, QWidget *frame) : QComboBox(frame), around_(around) {
    setObjectName(QStringLiteral("qt_cboEdit"));
    // An editable combo looks like a cell with an arrow; its own field lies under the text box.
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setFocusPolicy(Qt::NoFocus);
    lineEdit()->setFocusPolicy(Qt::NoFocus);
    lineEdit()->setReadOnly(true);
    lineEdit()->setAttribute(Qt::WA_TransparentForMouseEvents);
    view()->installEventFilter(this);
    connect(this, &QComboBox::activated, this, [this](int index) {
        guardedLater(this,
                     [this, edit = edit_, index] { around_.input().comboItemChosen(edit, index); });
    });
}

bool NativeCombo::isDown() const { return view()->isVisible(); }

void NativeCombo::mirror() {
    if (mirroring_)
        return;
    const QScopedValueRollback<bool> quiet(mirroring_, true);
    const Screen &screen = around_.screen();
    const std::optional<ScreenEditor> editor = screen.editor();
    const ScreenWidget box = screen.widget(WidgetId::cboEdit);
    QWidget *frame = parentWidget();
    if (!editor || !box.isVisible) {
        if (isDown())
            QComboBox::hidePopup();
        frame->hide();
        return;
    }
    edit_ = editor->edit;
    const DevicePixels pixels = around_.pixels();
    frame->setGeometry(toQRect(pixels.inside(pixels.withoutLines(editor->frame))));
    setGeometry(toQRect(pixels.around(pixels.rect(box.place))));
    const int textWidth = screen.placeOf(*editor, pixels).width;
    arrow_ = (screen.isRightToLeft() ? frame->rect().adjusted(0, 0, -textWidth, 0)
                                     : frame->rect().adjusted(textWidth, 0, 0, 0))
                 .translated(-pos());
    setFont(completedFont(editor->Font, around_.owner));
    view()->setFont(font());
    const ScreenList list = screen.list();
    if (const QString name = toQString(screen.facts(editor->cell).header);
        view()->accessibleName() != name)
        view()->setAccessibleName(name);
    mirrorItems(list);
    frame->show();
    if (list.isDropped && !isDown())
        QComboBox::showPopup();
    else if (!list.isDropped && isDown())
        QComboBox::hidePopup();
    if (isDown())
        view()->setCurrentIndex(model()->index(list.chosen, 0));
}

void NativeCombo::mirrorItems(const ScreenList &list) {
    const auto wanted = static_cast<int>(list.items.size());
    bool isSame = wanted == count();
    for (int item = 0; isSame && item < wanted; ++item)
        isSame = itemText(item) == toQString(list.items[static_cast<std::size_t>(item)]);
    if (!isSame) {
        clear();
        for (const std::string &item : list.items)
            addItem(toQString(item));
    }
    setCurrentIndex(list.chosen);
}

void NativeCombo::showPopup() {
    QComboBox::showPopup();
    if (!mirroring_)
        guarded([this] { around_.input().comboDropped(edit_, isDown()); });
}

void NativeCombo::hidePopup() {
    const QPointer<NativeCombo> alive(this);
    QComboBox::hidePopup();
    if (alive && !mirroring_)
        guarded([this] { around_.input().comboDropped(edit_, false); });
}

/// Styles differ in how wide their arrow is and whether there is one in so low a box, so it is
/// drawn as the buttons of other cells are.
void NativeCombo::paintEvent(QPaintEvent * /*event*/) {
    QStyleOptionToolButton option;
    option.initFrom(this);
    option.rect = arrow_;
    option.subControls = QStyle::SC_ToolButton;
    option.features = QStyleOptionToolButton::Arrow;
    option.arrowType = Qt::DownArrow;
    option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    QStylePainter(this).drawComplexControl(QStyle::CC_ToolButton, option);
}

/// A press anywhere on what is to be seen is one on the arrow, wherever the style has its own.
void NativeCombo::mousePressEvent(QMouseEvent *event) {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect own =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
    QMouseEvent press(event->type(), own.center(), event->globalPosition(), event->button(),
                      event->buttons(), event->modifiers());
    QComboBox::mousePressEvent(&press);
}

/// The list has the native keyboard while it is down; the core goes on deciding what a key does.
bool NativeCombo::eventFilter(QObject *watched, QEvent *event) {
    if (watched != view() || event->type() != QEvent::KeyPress)
        return QComboBox::eventFilter(watched, event);
    const Keystroke stroke = keystroke(static_cast<QKeyEvent &>(*event));
    const QPointer<NativeCombo> alive(this);
    Dealt dealt = Dealt::No;
    if (stroke.code != 0)
        guarded([&] { dealt = around_.input().keyDown(stroke.code, stroke.shift); });
    for (const char32_t character : stroke.characters) {
        if (!alive || dealt == Dealt::Yes)
            break;
        guarded([&] { around_.input().keyPress(character); });
    }
    return true;
}

} // namespace tablio::qt
