/// The settings of `TablioWidget` as one text, and the pages that edit them.

#include "grid/grid_canvas.h"
#include "pages/property_pages_dialog.h"
#include "widget/guarded.h"
#include "widget/tablio_widget_p.h"

#include <QLabel>

namespace tablio::qt {

QByteArray TablioWidget::settings() const { return QByteArray::fromStdString(d_->settings.text()); }

void TablioWidget::setSettings(const QByteArray &settings) {
    const QPointer<TablioWidget> alive(this);
    // Form loaders and design tools write properties through Qt, which no exception may cross.
    guarded([&] { d_->settings.load({settings.constData(), std::size_t(settings.size())}); });
    if (alive == nullptr)
        return;
    const std::string problem = d_->settings.problem();
    if (!problem.empty())
        qWarning("Tablio: the settings of \"%s\" cannot be read: %s", qPrintable(objectName()),
                 problem.c_str());
    d_->showProblem();
    d_->showAnew();
    updateGeometry();
}

/// What a developer or an operator finds in the table's place while its settings cannot be read.
void TablioWidgetPrivate::showProblem() {
    const QString problem = QString::fromStdString(settings.problem());
    if (problem.isEmpty()) {
        if (notice != nullptr) {
            notice->hide();
            notice->deleteLater();
            notice = nullptr;
        }
        return;
    }
    if (notice == nullptr) {
        notice = new QLabel(canvas);
        notice->setObjectName(QStringLiteral("qt_problem"));
        notice->setTextFormat(Qt::PlainText);
        notice->setWordWrap(true);
        notice->setAutoFillBackground(true);
        notice->setAlignment(Qt::AlignCenter);
        notice->setMargin(8);
        QObject::connect(&widget, &TablioWidget::propertyChanged, notice,
                         [this](const QString &name) {
                             if (name != QLatin1String("TextMatrix"))
                                 showProblem();
                         });
    }
    notice->setText(TablioWidget::tr("The settings of this table cannot be read, and are kept as "
                                     "they are until one is changed.\n%1")
                        .arg(problem));
    notice->setGeometry(canvas->rect());
    notice->show();
    notice->raise();
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
