#include "pages_task_menu.h"

#include "pages/property_pages_dialog.h"

#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

#include <QAction>

namespace tablio::qt {

namespace {

void applyToForm(TablioWidget &widget, const QByteArray &settings) {
    auto *form = QDesignerFormWindowInterface::findFormWindow(&widget);
    if (form == nullptr)
        return;
    // Designer would join changes of one property that follow each other.
    form->beginCommand(PagesTaskMenu::tr("Property pages of '%1'").arg(widget.objectName()));
    form->cursor()->setWidgetProperty(&widget, QStringLiteral("settings"), settings);
    form->endCommand();
}

} // namespace

PagesTaskMenu::PagesTaskMenu(TablioWidget &widget, QObject *parent)
    : QObject(parent), widget_(&widget), pages_(new QAction(tr("Property Pages\u2026"), this)) {
    connect(pages_, &QAction::triggered, this, &PagesTaskMenu::openPages);
}

void PagesTaskMenu::openPages() {
    if (widget_ == nullptr)
        return;
    auto *edited = new TablioWidget;
    edited->setFont(widget_->font());
    edited->setSettings(widget_->settings());
    auto *dialog = new PropertyPagesDialog(*edited, widget_->window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::ApplicationModal);
    connect(dialog, &QObject::destroyed, edited, &QObject::deleteLater);
    connect(dialog, &PropertyPagesDialog::applied, this, [this, edited] {
        if (widget_ != nullptr)
            applyToForm(*widget_, edited->settings());
    });
    dialog->show();
}

QObject *PagesTaskMenuFactory::createExtension(QObject *object, const QString &iid,
                                               QObject *parent) const {
    auto *widget = qobject_cast<TablioWidget *>(object);
    if (widget == nullptr || iid != Q_TYPEID(QDesignerTaskMenuExtension))
        return nullptr;
    return new PagesTaskMenu(*widget, parent);
}

} // namespace tablio::qt
