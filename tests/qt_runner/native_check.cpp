#include "qt_runner/native_check.h"

#include "control/inside.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QVariant>

namespace tablio::scenario {

namespace {

QString pictureOf(const QString &text, int selStart, int selLength) {
    return QStringLiteral("\"%1\" %2+%3").arg(text).arg(selStart).arg(selLength);
}

/// The open editor's text and selection, of whatever kind it is.
QString pictureOf(const Widgets &widgets) {
    const auto picture = [](const auto &box) {
        return pictureOf(QString::fromStdString(box.Text()), box.SelStart(), box.SelLength());
    };
    return widgets.txtEdit.Visible()       ? picture(widgets.txtEdit)
           : widgets.cboEdit.Visible()     ? picture(widgets.cboEdit)
           : widgets.txtDateEdit.Visible() ? picture(widgets.txtDateEdit)
                                           : QString();
}

} // namespace

std::string nativeDifference(qt::TablioWidget &widget) {
    const ControlState &state = Inside::of(widget.core()).state;
    const Widgets &widgets = state.widgets;
    QString differences;
    const auto compare = [&](const char *what, const QVariant &control, const QVariant &native) {
        if (control != native)
            differences += QStringLiteral("%1: the control has %2, the native widget %3; ")
                               .arg(what, control.toString(), native.toString());
    };
    const auto *box = widget.findChild<QLineEdit *>(QStringLiteral("qt_txtEdit"));
    const bool isOpen = !box->parentWidget()->size().isEmpty();
    compare("the editor", pictureOf(widgets),
            isOpen
                ? pictureOf(box->text(),
                            box->hasSelectedText() ? box->selectionStart() : box->cursorPosition(),
                            static_cast<int>(box->selectedText().size()))
                : QString());
    const auto *combo = widget.findChild<QComboBox *>(QStringLiteral("qt_cboEdit"));
    compare("the combo", widgets.cboEdit.Visible(), combo->isVisible());
    const bool isDown = combo->isVisible() && combo->view()->isVisible();
    compare("the list", widgets.cboEdit.Visible() && widgets.cboEdit.DroppedDown(), isDown);
    if (isDown)
        compare("the item", widgets.cboEdit.ListIndex(), combo->view()->currentIndex().row());
    const auto *calendar = widget.findChild<QCalendarWidget *>(QStringLiteral("qt_mvCalender"));
    compare("the calendar", widgets.mvCalender.Visible(), calendar->isVisible());
    const Date day = widgets.mvCalender.Value();
    if (calendar->isVisible())
        compare("the day", QDate(day.year, day.month, day.day), calendar->selectedDate());
    for (const Widget *button : {&widgets.cmdLookup, &widgets.cmdCalender})
        compare("a button", button->Visible(),
                widget
                    .findChild<QWidget *>(button == &widgets.cmdLookup ? "qt_cmdLookup"
                                                                       : "qt_cmdCalender")
                    ->isVisible());
    const GridView &view = state.grid.view;
    const auto bars = widget.findChildren<QScrollBar *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QScrollBar *bar : bars)
        compare("a scroll bar", bar->orientation() == Qt::Vertical ? view.TopRow() : view.LeftCol(),
                bar->value());
    const QWidget *owner = QApplication::focusWidget();
    if (QApplication::activeWindow() == widget.window() &&
        QApplication::activePopupWidget() == nullptr)
        compare("the keyboard's place", state.focus.owner().has_value(),
                owner != nullptr && widget.isAncestorOf(owner));
    return differences.toStdString();
}

} // namespace tablio::scenario
