#include "pages/property_pages_view.h"

#include "pages/property_pages_controls.h"
#include "widget/qt_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tablio::qt {

namespace {

/// In characters.
constexpr int numberWidth = 9;
constexpr int indexWidth = 5;
/// Between the two columns of a page, in pixels.
constexpr int columnGap = 24;

void setWidth(QWidget *widget, int characters) {
    const int width = widget->fontMetrics().horizontalAdvance(QLatin1Char('0')) * characters;
    widget->setFixedWidth(width + widget->fontMetrics().height());
}

QString captionOf(const PageControl &control) { return toQString(control.caption()); }

QFormLayout *newForm() {
    auto *form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return form;
}

void showList(QComboBox &native, const PageList &list) {
    const QSignalBlocker quiet(native);
    QStringList items;
    for (const std::string &item : list.items())
        items << toQString(item);
    native.clear();
    native.addItems(items);
    native.setCurrentIndex(list.ListIndex());
}

} // namespace

PropertyPageView::PropertyPageView(General &page, QWidget *parent) : QWidget(parent), page_(page) {
    auto *rows = new QGridLayout;
    const auto addNumber = [rows](int row, const PageTextBox &box, QWidget *native) {
        auto *label = new QLabel(captionOf(box));
        label->setBuddy(native);
        setWidth(native, numberWidth);
        rows->addWidget(label, row, 0);
        rows->addWidget(native, row, 1);
    };
    addNumber(0, page.txtRows, add(page.txtRows, page.RowUpDown));
    addNumber(1, page.txtCols, add(page.txtCols, page.ColUpDown));
    addNumber(2, page.txtHeaderRowHeight, add(page.txtHeaderRowHeight));
    addNumber(3, page.txtRowMinHeight, add(page.txtRowMinHeight));
    addNumber(4, page.txtPrimaryColumn, add(page.txtPrimaryColumn));
    int row = 0;
    for (PageCheckBox *box : {&page.chkCheckboxes, &page.chkHeaderFontBold, &page.chkWordWrap,
                              &page.chkGridPopUpMenu, &page.chkWithFixedColumn})
        rows->addWidget(add(*box), row++, 3);
    rows->setColumnMinimumWidth(2, columnGap);
    rows->setColumnStretch(3, 1);

    auto *whole = new QVBoxLayout(this);
    whole->addLayout(rows);
    whole->addStretch();
}

PropertyPageView::PropertyPageView(Columns &page, QWidget *parent) : QWidget(parent), page_(page) {
    auto *top = new QHBoxLayout;
    auto *index = new QLabel(captionOf(page.txtIndex));
    auto *indexBox = static_cast<PageLineEdit *>(add(page.txtIndex));
    index->setBuddy(indexBox);
    setWidth(indexBox, indexWidth);
    top->addWidget(index);
    top->addWidget(indexBox);
    for (PageButton &button : page.cmdIndex)
        top->addWidget(add(button));
    top->addStretch();
    for (PageButton &button : page.cmdCommand)
        top->addWidget(add(button));
    indexBox->installEventFilter(this);

    auto *left = newForm();
    left->addRow(captionOf(page.txtColTextHeader), add(page.txtColTextHeader));
    for (PageList *list :
         {&page.cboColumnStyle, &page.cboColEditType, &page.cboDataType, &page.cboCalcStyle})
        left->addRow(captionOf(*list), add(*list));
    auto *right = newForm();
    for (PageTextBox *box : {&page.txtColFormat, &page.txtColMaxLength, &page.txtColWidth})
        right->addRow(captionOf(*box), add(*box));
    for (PageList *list : {&page.cboColDataAlignment, &page.cboColHeaderAlignment})
        right->addRow(captionOf(*list), add(*list));

    auto *settings = new QHBoxLayout;
    settings->addLayout(left, 1);
    settings->addSpacing(columnGap);
    settings->addLayout(right, 1);
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(top);
    whole->addSpacing(columnGap / 3);
    whole->addLayout(settings);
    whole->addStretch();
}

PropertyPageView::PropertyPageView(Entry &page, QWidget *parent) : QWidget(parent), page_(page) {
    auto *form = newForm();
    auto *rules = new QLabel(captionOf(page.cboEntryRules));
    QWidget *list = add(page.cboEntryRules);
    rules->setBuddy(list);
    list->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    form->addRow(rules, list);
    form->addRow(QString(), add(page.chkTabWalks));
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(form);
    whole->addStretch();
}

QWidget *PropertyPageView::add(PageTextBox &box) {
    auto *native = new PageLineEdit(page_, box, this);
    widgets_.insert(&box, native);
    return native;
}

QWidget *PropertyPageView::add(PageTextBox &box, PageSpinner &spinner) {
    auto *native = new PageSpinBox(page_, box, spinner, this);
    widgets_.insert(&box, &native->box());
    widgets_.insert(&spinner, native);
    return native;
}

QWidget *PropertyPageView::add(PageCheckBox &box) {
    auto *native = new QCheckBox(captionOf(box), this);
    native->setObjectName(toQString(box.name()));
    connect(native, &QCheckBox::clicked, this, [this, &box] {
        page_.clicked(box);
        mirror(box);
    });
    widgets_.insert(&box, native);
    return native;
}

QWidget *PropertyPageView::add(PageList &list) {
    auto *native = new QComboBox(this);
    native->setObjectName(toQString(list.name()));
    connect(native, &QComboBox::activated, this,
            [this, &list](int item) { page_.chosen(list, item); });
    widgets_.insert(&list, native);
    mirror(list);
    return native;
}

QWidget *PropertyPageView::add(PageButton &button) {
    auto *native = new QPushButton(captionOf(button), this);
    native->setObjectName(toQString(button.name()));
    native->setAutoDefault(false);
    connect(native, &QPushButton::clicked, this, [this, &button] { Q_EMIT pressed(button); });
    widgets_.insert(&button, native);
    return native;
}

void PropertyPageView::mirror(const PageControl &control) {
    QWidget *native = widgets_.value(&control);
    if (native == nullptr)
        return;
    switch (control.kind()) {
    case PageControlKind::TextBox:
        static_cast<PageLineEdit *>(native)->mirror();
        return;
    case PageControlKind::CheckBox:
        static_cast<QCheckBox *>(native)->setChecked(
            static_cast<const PageCheckBox &>(control).isTicked());
        break;
    case PageControlKind::List:
        showList(*static_cast<QComboBox *>(native), static_cast<const PageList &>(control));
        break;
    case PageControlKind::Button:
        break;
    case PageControlKind::Spinner:
        native->update();
        break;
    }
    native->setEnabled(control.Enabled());
}

/// Enter in the index box goes to the column; elsewhere it is the dialog's OK.
bool PropertyPageView::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::FocusOut && !comesBack(*static_cast<QFocusEvent *>(event)))
        Q_EMIT columnNamed();
    const bool isEnter =
        event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->matches(QKeySequence::InsertParagraphSeparator);
    if (!isEnter)
        return QWidget::eventFilter(watched, event);
    Q_EMIT columnNamed();
    return true;
}

void PropertyPageView::giveFocus(const PageControl &control) {
    QWidget *native = widgets_.value(&control);
    if (native == nullptr)
        return;
    native->setFocus(Qt::OtherFocusReason);
    if (auto *box = qobject_cast<QLineEdit *>(native))
        box->selectAll();
}

void PropertyPageView::settle() {
    for (QWidget *native : std::as_const(widgets_)) {
        auto *box = qobject_cast<PageLineEdit *>(native);
        if (box != nullptr && (box->hasFocus() || box->parentWidget()->hasFocus()))
            box->settle();
    }
}

} // namespace tablio::qt
