#pragma once

/// One property page in native widgets: it lays out the page's controls, hands in what the user
/// does and shows each control as its model says. It knows none of the page's rules.

#include <tablio/pages/columns_page.h>
#include <tablio/pages/entry_page.h>
#include <tablio/pages/general_page.h>

#include <QHash>
#include <QWidget>

namespace tablio::qt {

class PropertyPageView final : public QWidget {
    Q_OBJECT

public:
    explicit PropertyPageView(General &page, QWidget *parent = nullptr);
    explicit PropertyPageView(Columns &page, QWidget *parent = nullptr);
    explicit PropertyPageView(Entry &page, QWidget *parent = nullptr);

    /// Shows what the model says now; does nothing for a control of another page.
    void mirror(const PageControl &control);
    void giveFocus(const PageControl &control);
    /// The user has done with the box that has the keyboard.
    void settle();

Q_SIGNALS:
    /// The user has pressed a button. It may change the control, so the listener tells the page.
    void pressed(PageButton &button);
    /// The user has named the column to go to and pressed Enter, or is leaving the box.
    void columnNamed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Each makes the native widget and keeps it for its model.
    QWidget *add(PageTextBox &box);
    QWidget *add(PageTextBox &box, PageSpinner &spinner);
    QWidget *add(PageCheckBox &box);
    QWidget *add(PageList &list);
    QWidget *add(PageButton &button);

    PropertyPage &page_;
    QHash<const PageControl *, QWidget *> widgets_;
};

} // namespace tablio::qt
