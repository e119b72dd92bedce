#pragma once

/// Qt Designer's own form editor in this process, with the plug-in loaded as Designer loads it. The
/// tests reach the widget as any Qt program would, by property names: its class is in the plug-in.
/// A plug-in is set up for one editor in a process, so there is one session.

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

#include <QDialog>
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

/// The property pages, opened by the entry in the widget's context menu.
class Pages {
public:
    Pages(DesignerSession &session, QWidget *widget);
    ~Pages();

    void showPage(int tab);
    /// Types over what the box holds and leaves it.
    void type(const char *box, const QString &text);
    void choose(const char *list, const QString &item);
    void press(const char *button);
    void tick(const char *box);
    [[nodiscard]] QString text(const char *box) const;
    /// What the preview shows of the table that is being edited.
    [[nodiscard]] QByteArray preview() const;

    void apply();
    void ok();

private:
    template <typename Widget> Widget *find(const char *name) const;

    QPointer<QDialog> dialog_;
};

[[nodiscard]] QByteArray settingsOf(const QObject *widget);
/// The widget that stands on the form, under its name.
[[nodiscard]] QWidget *on(QDesignerFormWindowInterface *form, const char *name = "tablio");
