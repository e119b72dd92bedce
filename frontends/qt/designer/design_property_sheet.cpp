#include "design_property_sheet.h"

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QExtensionManager>

#include <QMetaProperty>
#include <QScopedValueRollback>

namespace tablio::qt {

DesignPropertySheet::DesignPropertySheet(TablioWidget &widget, TablioWidget &fresh,
                                         QDesignerPropertySheetExtension &sheet,
                                         QDesignerFormEditorInterface &designer, QObject *parent)
    : QObject(parent), widget_(&widget), fresh_(fresh), sheet_(sheet), designer_(designer),
      settings_(sheet.indexOf(QStringLiteral("settings"))) {
    const QMetaObject &meta = TablioWidget::staticMetaObject;
    for (int place = meta.propertyOffset(); place < meta.propertyCount(); ++place) {
        const QMetaProperty property = meta.property(place);
        if (property.isDesignable() && !property.isStored())
            parts_.insert(sheet.indexOf(QString::fromLatin1(property.name())));
    }
}

bool DesignPropertySheet::isChanged(int index) const {
    if (widget_ == nullptr || (index != settings_ && !parts_.contains(index)))
        return sheet_.isChanged(index);
    // Row heights follow the font.
    fresh_.setFont(widget_->font());
    if (index == settings_)
        return widget_->settings() != fresh_.settings();
    const QVariant value = sheet_.property(index);
    // The palette's colour and the same colour set by hand cannot be told apart.
    if (value.typeId() == QMetaType::QColor)
        return sheet_.isChanged(index);
    return value != fresh_.property(sheet_.propertyName(index).toLatin1().constData());
}

void DesignPropertySheet::setProperty(int index, const QVariant &value) {
    try {
        sheet_.setProperty(index, value);
    } catch (const Error &error) {
        qWarning("Tablio: %s", error.what());
    }
    if (index != settings_ && !parts_.contains(index))
        return;
    // After whoever has set it, who goes on to show the value that was asked for.
    if (!showsLater_)
        QMetaObject::invokeMethod(this, &DesignPropertySheet::showAll, Qt::QueuedConnection);
    showsLater_ = true;
}

bool DesignPropertySheet::reset(int index) {
    if (!parts_.contains(index))
        return sheet_.reset(index);
    const QByteArray name = sheet_.propertyName(index).toLatin1();
    const int place = TablioWidget::staticMetaObject.indexOfProperty(name.constData());
    if (TablioWidget::staticMetaObject.property(place).isResettable())
        return sheet_.reset(index);
    fresh_.setFont(widget_->font());
    setProperty(index, fresh_.property(name.constData()));
    setChanged(index, false);
    return true;
}

void DesignPropertySheet::showAll() {
    showsLater_ = false;
    QDesignerPropertyEditorInterface *editor = designer_.propertyEditor();
    if (widget_ == nullptr || editor == nullptr || editor->object() != widget_)
        return;
    for (const int index : std::as_const(parts_))
        editor->setPropertyValue(propertyName(index), property(index), isChanged(index));
}

DesignPropertySheetFactory::DesignPropertySheetFactory(QDesignerFormEditorInterface &designer,
                                                       QExtensionManager *parent)
    : QExtensionFactory(parent), designer_(designer), fresh_(std::make_unique<TablioWidget>()) {}

QObject *DesignPropertySheetFactory::createExtension(QObject *object, const QString &iid,
                                                     QObject *parent) const {
    auto *widget = qobject_cast<TablioWidget *>(object);
    if (widget == nullptr || asking_ || iid != Q_TYPEID(QDesignerPropertySheetExtension))
        return nullptr;
    const QScopedValueRollback asking(asking_, true);
    auto *sheet = qt_extension<QDesignerPropertySheetExtension *>(extensionManager(), object);
    return sheet == nullptr ? nullptr
                            : new DesignPropertySheet(*widget, *fresh_, *sheet, designer_, parent);
}

} // namespace tablio::qt
