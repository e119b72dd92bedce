#pragma once

/// The entry "Property Pages…" in the context menu of a `TablioWidget` on a form. The pages edit a
/// widget of their own; what they apply goes to the form as one step that can be undone.

#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionFactory>

#include <tablio/qt/tablio_widget.h>

#include <QPointer>

namespace tablio::qt {

class PagesTaskMenu final : public QObject, public QDesignerTaskMenuExtension {
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    PagesTaskMenu(TablioWidget &widget, QObject *parent);

    /// What a double click on the widget does, too.
    [[nodiscard]] QAction *preferredEditAction() const override { return pages_; }
    [[nodiscard]] QList<QAction *> taskActions() const override { return {pages_}; }

private:
    void openPages();

    QPointer<TablioWidget> widget_;
    QAction *pages_;
};

class PagesTaskMenuFactory final : public QExtensionFactory {
    Q_OBJECT

public:
    using QExtensionFactory::QExtensionFactory;

protected:
    QObject *createExtension(QObject *object, const QString &iid, QObject *parent) const override;
};

} // namespace tablio::qt
