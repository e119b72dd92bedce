#pragma once

/// The property sheet of a `TablioWidget` on a form. It hands everything to Designer's own sheet,
/// but knows that single properties are parts of `settings`, which is what the form file keeps, and
/// that the control may refuse a value.

#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionFactory>

#include <tablio/qt/tablio_widget.h>

#include <QPointer>
#include <QSet>

#include <memory>

class QDesignerFormEditorInterface;

namespace tablio::qt {

class DesignPropertySheet final : public QObject, public QDesignerPropertySheetExtension {
    Q_OBJECT
    Q_INTERFACES(QDesignerPropertySheetExtension)

public:
    /// The fresh widget is one that nobody has set up; it and the other sheet must outlive this.
    DesignPropertySheet(TablioWidget &widget, TablioWidget &fresh,
                        QDesignerPropertySheetExtension &sheet,
                        QDesignerFormEditorInterface &designer, QObject *parent);

    [[nodiscard]] bool isChanged(int index) const override;
    void setProperty(int index, const QVariant &value) override;
    bool reset(int index) override;

    [[nodiscard]] int count() const override { return sheet_.count(); }
    [[nodiscard]] int indexOf(const QString &name) const override { return sheet_.indexOf(name); }
    [[nodiscard]] QString propertyName(int index) const override {
        return sheet_.propertyName(index);
    }
    [[nodiscard]] QString propertyGroup(int index) const override {
        return sheet_.propertyGroup(index);
    }
    void setPropertyGroup(int index, const QString &group) override {
        sheet_.setPropertyGroup(index, group);
    }
    [[nodiscard]] bool hasReset(int index) const override { return sheet_.hasReset(index); }
    [[nodiscard]] bool isVisible(int index) const override { return sheet_.isVisible(index); }
    void setVisible(int index, bool visible) override { sheet_.setVisible(index, visible); }
    [[nodiscard]] bool isAttribute(int index) const override { return sheet_.isAttribute(index); }
    void setAttribute(int index, bool attribute) override { sheet_.setAttribute(index, attribute); }
    [[nodiscard]] QVariant property(int index) const override { return sheet_.property(index); }
    void setChanged(int index, bool changed) override { sheet_.setChanged(index, changed); }
    /// Designer takes what its property editor does not list for what nobody can set.
    [[nodiscard]] bool isEnabled(int index) const override {
        return index == settings_ || sheet_.isEnabled(index);
    }

private:
    /// One property has changed others: the property editor shows them.
    void showAll();

    QPointer<TablioWidget> widget_;
    TablioWidget &fresh_;
    QDesignerPropertySheetExtension &sheet_;
    QDesignerFormEditorInterface &designer_;
    int settings_;
    /// The properties that `settings` is made of.
    QSet<int> parts_;
    bool showsLater_ = false;
};

class DesignPropertySheetFactory final : public QExtensionFactory {
    Q_OBJECT

public:
    DesignPropertySheetFactory(QDesignerFormEditorInterface &designer, QExtensionManager *parent);

protected:
    QObject *createExtension(QObject *object, const QString &iid, QObject *parent) const override;

private:
    QDesignerFormEditorInterface &designer_;
    std::unique_ptr<TablioWidget> fresh_;
    /// While it asks the other factories.
    mutable bool asking_ = false;
};

} // namespace tablio::qt
