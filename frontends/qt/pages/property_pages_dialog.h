#pragma once

/// The dialog with the property pages of one widget, a preview, and OK,
/// Apply and Cancel. Whoever opens it decides how modal it is. It shows and reports; the pages
/// decide.

#include <tablio/pages/property_pages.h>
#include <tablio/qt/tablio_widget.h>

#include <QDialog>
#include <QTimer>

class QPushButton;
class QTabWidget;

namespace tablio::qt {

class PropertyPagesPreview;
class PropertyPageView;

class PropertyPagesDialog final : public QDialog, private PageListener {
    Q_OBJECT

public:
    /// The edited widget must outlive the dialog's last event.
    explicit PropertyPagesDialog(TablioWidget &edited, QWidget *parent = nullptr);

    void accept() override;
    /// Gives the widget back what the buttons that act at once have changed since OK or Apply.
    void takeBack();

Q_SIGNALS:
    /// The edited widget has other settings: after OK, Apply, and the buttons that act at once.
    void applied();

private:
    void controlChanged(const PageControl &control) override;
    void focusMoved(const PageControl &control) override;
    void changedFlagSet(const PropertyPage &page) override;
    void settingsChanged() override;

    void apply();
    void showPage(int tab);
    void refreshPreview();

    PropertyPages pages_;
    PropertyPageView *generalView_;
    PropertyPageView *columnsView_;
    PropertyPageView *entryView_;
    QTabWidget *tabs_;
    PropertyPagesPreview *preview_;
    QPushButton *applyButton_;
    QTimer previewTimer_;
    /// Somebody else may have changed the widget.
    QTimer followTimer_;
    QTimer tellTimer_;
};

} // namespace tablio::qt
