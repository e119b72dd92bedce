#include "designer_session.h"

#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerObjectInspectorInterface>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionManager>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <stdexcept>

namespace {

constexpr char emptyForm[] = R"(<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="Form">
  <property name="geometry"><rect><x>0</x><y>0</y><width>500</width><height>300</height></rect></property>
  <widget class="tablio::qt::TablioWidget" name="tablio"/>
 </widget>
</ui>)";

} // namespace

DesignerSession::DesignerSession() {
    QDesignerComponents::initializeResources();
    designer_ = QDesignerComponents::createFormEditor(&owner_);
    designer_->setTopLevel(&frame_);
    designer_->setPropertyEditor(QDesignerComponents::createPropertyEditor(designer_, &frame_));
    designer_->setObjectInspector(QDesignerComponents::createObjectInspector(designer_, &frame_));
    QDesignerComponents::createTaskMenu(designer_, &frame_);
    new QDesignerIntegration(designer_, &frame_);
    QDesignerComponents::initializePlugins(designer_);
}

void DesignerSession::closeForms() {
    designer_->formWindowManager()->closeAllPreviews();
    for (const QPointer<QWidget> &form : forms_)
        delete form;
    forms_.clear();
}

QDesignerFormWindowInterface *DesignerSession::newForm() {
    return openForm(QString::fromLatin1(emptyForm));
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

Pages::Pages(DesignerSession &session, QWidget *widget) {
    auto *menu =
        qt_extension<QDesignerTaskMenuExtension *>(session.designer().extensionManager(), widget);
    for (QAction *action : menu->taskActions()) {
        if (action->text() == QStringLiteral("Property Pages\u2026"))
            action->trigger();
    }
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->inherits("tablio::qt::PropertyPagesDialog") && window->isVisible())
            dialog_ = qobject_cast<QDialog *>(window);
    }
    if (dialog_ == nullptr)
        throw std::runtime_error("the property pages did not open");
    dialog_->activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(dialog_));
}

Pages::~Pages() { delete dialog_; }

template <typename Widget> Widget *Pages::find(const char *name) const {
    auto *found = dialog_->findChild<Widget *>(QString::fromLatin1(name));
    if (found == nullptr)
        throw std::runtime_error(std::string("the pages have no ") + name);
    return found;
}

void Pages::showPage(int tab) { dialog_->findChild<QTabWidget *>()->setCurrentIndex(tab); }

void Pages::type(const char *box, const QString &text) {
    auto *edit = find<QLineEdit>(box);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Backspace);
    for (const QChar character : text) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(character));
        QCoreApplication::sendEvent(edit, &press);
    }
    QTest::keyClick(edit, Qt::Key_Tab);
}

void Pages::choose(const char *list, const QString &item) {
    auto *combo = find<QComboBox>(list);
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Home);
    for (int tries = combo->count(); combo->currentText() != item && tries > 0; --tries)
        QTest::keyClick(combo, Qt::Key_Down);
}

void Pages::press(const char *button) {
    QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton);
}

void Pages::tick(const char *box) {
    auto *native = find<QCheckBox>(box);
    native->setFocus();
    QTest::keyClick(native, Qt::Key_Space);
}

QString Pages::text(const char *box) const { return find<QLineEdit>(box)->text(); }

QByteArray Pages::preview() const {
    QCoreApplication::processEvents();
    for (const QWidget *widget : dialog_->findChildren<QWidget *>()) {
        if (widget->inherits("tablio::qt::TablioWidget"))
            return settingsOf(widget);
    }
    return {};
}

void Pages::apply() {
    QTest::mouseClick(dialog_->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Apply),
                      Qt::LeftButton);
}

void Pages::ok() {
    QTest::keyClick(dialog_->windowHandle(), Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QByteArray settingsOf(const QObject *widget) { return widget->property("settings").toByteArray(); }

QWidget *on(QDesignerFormWindowInterface *form, const char *name) {
    auto *widget = form->findChild<QWidget *>(QString::fromLatin1(name));
    if (widget == nullptr)
        throw std::runtime_error(std::string("the form has no ") + name);
    return widget;
}
