#include "designer_session.h"

#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerObjectInspectorInterface>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QDesignerWidgetBoxInterface>
#include <QtDesigner/QExtensionManager>

#include <QAction>
#include <QApplication>
#include <QFile>

#include <stdexcept>

namespace {

constexpr char emptyForm[] = R"(<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="Form">
  <property name="geometry"><rect><x>0</x><y>0</y><width>500</width><height>300</height></rect></property>
  %1
 </widget>
</ui>)";

} // namespace

DesignerSession::DesignerSession() {
    QDesignerComponents::initializeResources();
    designer_ = QDesignerComponents::createFormEditor(&owner_);
    designer_->setTopLevel(&frame_);
    designer_->setPropertyEditor(QDesignerComponents::createPropertyEditor(designer_, &frame_));
    designer_->setObjectInspector(QDesignerComponents::createObjectInspector(designer_, &frame_));
    designer_->setWidgetBox(QDesignerComponents::createWidgetBox(designer_, &frame_));
    QDesignerComponents::createTaskMenu(designer_, &frame_);
    new QDesignerIntegration(designer_, &frame_);
    QDesignerComponents::initializePlugins(designer_);
    designer_->widgetBox()->load();
}

void DesignerSession::closeForms() {
    designer_->formWindowManager()->closeAllPreviews();
    for (const QPointer<QWidget> &form : forms_)
        delete form;
    forms_.clear();
}

QDesignerFormWindowInterface *DesignerSession::newForm() {
    QDesignerWidgetBoxInterface *box = designer_->widgetBox();
    for (int place = 0; place < box->categoryCount(); ++place) {
        const auto category = box->category(place);
        if (category.name() != "Tablio")
            continue;
        const QString dropped = category.widget(0).domXml();
        const auto start = dropped.indexOf("<widget");
        return openForm(QString::fromLatin1(emptyForm).arg(
            dropped.mid(start, dropped.indexOf("</ui>") - start)));
    }
    throw std::runtime_error("the widget is not in the widget box");
}

QDesignerFormWindowInterface *DesignerSession::openForm(const QString &contents, const char *name) {
    QDesignerFormWindowManagerInterface *manager = designer_->formWindowManager();
    QDesignerFormWindowInterface *form = manager->createFormWindow();
    forms_.push_back(form);
    if (!form->setContents(contents))
        throw std::runtime_error("Designer does not take the form");
    form->editWidgets();
    manager->setActiveFormWindow(form);
    form->clearSelection();
    form->selectWidget(on(form, name));
    return form;
}

QString DesignerSession::demoForm() {
    QFile file(QStringLiteral(TABLIO_DEMO_FORM));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("the demo's form cannot be read");
    return QString::fromUtf8(file.readAll());
}

void DesignerSession::trigger(int action) {
    using Manager = QDesignerFormWindowManagerInterface;
    QCoreApplication::processEvents(); // Designer enables its commands a little later.
    designer_->formWindowManager()->action(static_cast<Manager::Action>(action))->trigger();
}

void DesignerSession::edit(QWidget *widget, const char *property, const QVariant &value) {
    auto *form = QDesignerFormWindowInterface::findFormWindow(widget);
    form->cursor()->setWidgetProperty(widget, QString::fromLatin1(property), value);
    QCoreApplication::processEvents();
}

OpenPages::OpenPages(DesignerSession &session, QWidget *widget)
    : PagesDialog(open(session, widget)) {}

OpenPages::~OpenPages() { delete get(); }

QDialog *OpenPages::open(DesignerSession &session, QWidget *widget) {
    // What a double click does, and the entry in the context menu.
    qt_extension<QDesignerTaskMenuExtension *>(session.designer().extensionManager(), widget)
        ->preferredEditAction()
        ->trigger();
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->inherits("tablio::qt::PropertyPagesDialog") && window->isVisible())
            return qobject_cast<QDialog *>(window);
    }
    throw std::runtime_error("the property pages did not open");
}

QByteArray settingsOf(const QObject *widget) { return widget->property("settings").toByteArray(); }

QWidget *on(QDesignerFormWindowInterface *form, const char *name) {
    auto *widget = form->findChild<QWidget *>(QString::fromLatin1(name));
    if (widget == nullptr)
        throw std::runtime_error(std::string("the form has no ") + name);
    return widget;
}
