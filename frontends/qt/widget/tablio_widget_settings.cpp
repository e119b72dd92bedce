/// The settings of `TablioWidget` as one text, and the pages that edit them.

#include "pages/property_pages_dialog.h"
#include "widget/guarded.h"
#include "widget/tablio_widget_p.h"

#include <tablio/text_bag.h>

namespace tablio::qt {

QByteArray TablioWidget::settings() const {
    TextBag bag;
    d_->core.saveSettings(bag);
    return QByteArray::fromStdString(bag.text());
}

void TablioWidget::setSettings(const QByteArray &settings) {
    const QPointer<TablioWidget> alive(this);
    // Form loaders and design tools write properties through Qt, which no exception may cross.
    try {
        d_->core.loadSettings(TextBag::parse({settings.constData(), std::size_t(settings.size())}));
    } catch (const Error &error) {
        qWarning("Tablio: the settings of \"%s\" cannot be read: %s", qPrintable(objectName()),
                 error.what());
    }
    if (alive == nullptr)
        return;
    d_->showAnew();
    updateGeometry();
}

void TablioWidget::showPropertyPages() {
    const QPointer<TablioWidget> alive(this);
    guarded([this] { d_->input().endEdit(); });
    if (alive == nullptr)
        return;
    auto *dialog = findChild<PropertyPagesDialog *>(QString(), Qt::FindDirectChildrenOnly);
    if (dialog == nullptr || dialog->isHidden()) { // One that is closed is about to go.
        dialog = new PropertyPagesDialog(*this, this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setWindowModality(Qt::WindowModal);
        connect(dialog, &QDialog::rejected, dialog, &PropertyPagesDialog::takeBack);
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

} // namespace tablio::qt
