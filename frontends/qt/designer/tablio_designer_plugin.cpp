#include "tablio_designer_plugin.h"

#include "design_property_sheet.h"
#include "pages_task_menu.h"
#include "tablio_icon.h"

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QExtensionManager>

namespace tablio::qt {

QString TablioDesignerPlugin::name() const {
    return QString::fromLatin1(TablioWidget::staticMetaObject.className());
}

QString TablioDesignerPlugin::group() const { return QStringLiteral("Tablio"); }

QString TablioDesignerPlugin::toolTip() const { return tr("Data entry grid"); }

QString TablioDesignerPlugin::whatsThis() const {
    return tr("A table into which an operator types rows of text, numbers, dates and choices.");
}

QString TablioDesignerPlugin::includeFile() const {
    return QStringLiteral("<tablio/qt/tablio_widget.h>");
}

QIcon TablioDesignerPlugin::icon() const { return tablioIcon(); }

QString TablioDesignerPlugin::domXml() const {
    return QStringLiteral(R"(<ui language="c++" displayname="Tablio">
 <widget class="%1" name="tablio">
  <property name="geometry"><rect><x>0</x><y>0</y><width>360</width><height>200</height></rect></property>
 </widget>
</ui>)")
        .arg(name());
}

QWidget *TablioDesignerPlugin::createWidget(QWidget *parent) { return new TablioWidget(parent); }

void TablioDesignerPlugin::initialize(QDesignerFormEditorInterface *designer) {
    if (initialized_)
        return;
    initialized_ = true;
    QExtensionManager *manager = designer->extensionManager();
    manager->registerExtensions(new DesignPropertySheetFactory(*designer, manager),
                                Q_TYPEID(QDesignerPropertySheetExtension));
    manager->registerExtensions(new PagesTaskMenuFactory(manager),
                                Q_TYPEID(QDesignerTaskMenuExtension));
}

} // namespace tablio::qt
