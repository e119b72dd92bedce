#pragma once

/// `TablioWidget` for Qt Designer and for programs that load forms at run time (QUiLoader).

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace tablio::qt {

class TablioDesignerPlugin final : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    [[nodiscard]] QString name() const override;
    [[nodiscard]] QString group() const override;
    [[nodiscard]] QString toolTip() const override;
    [[nodiscard]] QString whatsThis() const override;
    [[nodiscard]] QString includeFile() const override;
    [[nodiscard]] QIcon icon() const override;
    [[nodiscard]] QString domXml() const override;
    [[nodiscard]] bool isContainer() const override { return false; }
    QWidget *createWidget(QWidget *parent) override;

    /// Only Designer calls these.
    [[nodiscard]] bool isInitialized() const override { return initialized_; }
    void initialize(QDesignerFormEditorInterface *designer) override;

private:
    bool initialized_ = false;
};

} // namespace tablio::qt
