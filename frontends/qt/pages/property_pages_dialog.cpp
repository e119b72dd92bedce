#include "pages/property_pages_dialog.h"

#include "pages/property_pages_preview.h"
#include "pages/property_pages_view.h"
#include "widget/guarded.h"
#include "widget/qt_text.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tablio::qt {

PropertyPagesDialog::PropertyPagesDialog(TablioWidget &edited, QWidget *parent)
    : QDialog(parent), pages_(edited.core(), *this),
      generalView_(new PropertyPageView(pages_.general)),
      columnsView_(new PropertyPageView(pages_.columns)),
      entryView_(new PropertyPageView(pages_.entry)), tabs_(new QTabWidget),
      preview_(new PropertyPagesPreview(edited, pages_)) {
    setWindowTitle(tr("Property Pages"));
    tabs_->addTab(generalView_, toQString(pages_.general.name()));
    tabs_->addTab(columnsView_, toQString(pages_.columns.name()));
    tabs_->addTab(entryView_, toQString(pages_.entry.name()));

    using Buttons = QDialogButtonBox;
    auto *buttons = new Buttons(Buttons::Ok | Buttons::Apply | Buttons::Cancel);
    // Some desktops give them access keys, which those of the pages would meet.
    for (QAbstractButton *button : buttons->buttons())
        button->setText(button->text().remove(u'&'));
    applyButton_ = buttons->button(Buttons::Apply);
    applyButton_->setAutoDefault(false);
    applyButton_->setEnabled(false);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(new QLabel(tr("Preview")));
    layout->addWidget(preview_);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetMinimumSize);
    // Now that it is a button of this dialog: it stays the default when the focus comes and goes.
    buttons->button(Buttons::Ok)->setDefault(true);

    connect(buttons, &Buttons::accepted, this, &PropertyPagesDialog::accept);
    connect(buttons, &Buttons::rejected, this, &PropertyPagesDialog::reject);
    connect(applyButton_, &QPushButton::clicked, this, &PropertyPagesDialog::apply);
    connect(tabs_, &QTabWidget::currentChanged, this, &PropertyPagesDialog::showPage);
    connect(columnsView_, &PropertyPageView::pressed, this,
            [this](PageButton &button) { guarded([&] { pages_.pressed(button); }); });
    connect(columnsView_, &PropertyPageView::columnNamed, this, [this] {
        guarded([this] { pages_.goToIndex(); });
        tellTimer_.start();
    });

    for (QTimer *timer : {&previewTimer_, &followTimer_, &tellTimer_}) {
        timer->setSingleShot(true);
        timer->setInterval(0);
    }
    connect(&previewTimer_, &QTimer::timeout, this, &PropertyPagesDialog::refreshPreview);
    connect(&followTimer_, &QTimer::timeout, this,
            [this] { guarded([this] { pages_.follow(); }); });
    connect(&tellTimer_, &QTimer::timeout, this, [this] { guarded([this] { pages_.tell(); }); });
    connect(&edited, &TablioWidget::propertyChanged, this, [this] { followTimer_.start(); });
    connect(&edited, &TablioWidget::tableChange, this, [this] { followTimer_.start(); });
    showPage(tabs_->currentIndex());
    refreshPreview(); // The dialog opens with the height that it needs.
}

void PropertyPagesDialog::controlChanged(const PageControl &control) {
    for (PropertyPageView *view : {generalView_, columnsView_, entryView_})
        view->mirror(control);
    previewTimer_.start();
}

void PropertyPagesDialog::focusMoved(const PageControl &control) {
    generalView_->giveFocus(control);
    columnsView_->giveFocus(control);
}

void PropertyPagesDialog::changedFlagSet(const PropertyPage & /*page*/) {
    applyButton_->setEnabled(pages_.canApply());
}

void PropertyPagesDialog::settingsChanged() { Q_EMIT applied(); }

void PropertyPagesDialog::showPage(int tab) {
    const QWidget *shown = tabs_->widget(tab);
    if (shown == generalView_)
        pages_.show(pages_.general);
    else if (shown == columnsView_)
        pages_.show(pages_.columns);
    else
        pages_.show(pages_.entry);
    // Where the buttons that go from column to column put it, too.
    if (shown == columnsView_ && !tabs_->tabBar()->hasFocus())
        columnsView_->giveFocus(pages_.columns.txtColTextHeader);
    previewTimer_.start();
}

void PropertyPagesDialog::refreshPreview() {
    guarded([this] { preview_->refresh(tabs_->currentWidget() == columnsView_); });
}

void PropertyPagesDialog::apply() {
    // The keyboard may still be in a box that checks its number when it is left.
    generalView_->settle();
    columnsView_->settle();
    guarded([this] { pages_.apply(); });
}

void PropertyPagesDialog::takeBack() {
    guarded([this] { pages_.takeBack(); });
}

void PropertyPagesDialog::accept() {
    const QPointer<PropertyPagesDialog> alive(this);
    apply();
    if (alive != nullptr)
        QDialog::accept();
}

} // namespace tablio::qt
