#pragma once

/// Qt Designer's own form editor in this process, with the plug-in loaded as Designer loads it. The
/// tests reach the widget as any Qt program would, by property names: its class is in the plug-in.
/// A plug-in is set up for one editor in a process, so there is one session.

#include "pages_dialog.h"

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

class DesignerSession {
public:
    DesignerSession();

    void closeForms();
    /// A form with the widget `tablio`, as a drop from the widget box makes it.
    QDesignerFormWindowInterface *newForm();
    /// A form with such a widget.
    QDesignerFormWindowInterface *openForm(const QString &contents, const char *name = "tablio");
    /// The text of the form that the demo is made from; its widget is `grid`.
    [[nodiscard]] static QString demoForm();

    [[nodiscard]] QDesignerFormEditorInterface &designer() const { return *designer_; }
    /// What a copy, paste or preview command of the menu does.
    void trigger(int action);
    /// What a user does in the property editor.
    static void edit(QWidget *widget, const char *property, const QVariant &value);

private:
    QObject owner_;
    QDesignerFormEditorInterface *designer_;
    /// Holds the parts that use the editor, and so goes before it.
    QWidget frame_;
    QList<QPointer<QWidget>> forms_;
};

/// The property pages of a widget on a form.
class OpenPages : public PagesDialog {
public:
    OpenPages(DesignerSession &session, QWidget *widget);
    ~OpenPages();

private:
    static QDialog *open(DesignerSession &session, QWidget *widget);
};

[[nodiscard]] QByteArray settingsOf(const QObject *widget);
/// The widget that stands on the form, under its name.
[[nodiscard]] QWidget *on(QDesignerFormWindowInterface *form, const char *name = "tablio");
