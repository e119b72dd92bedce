#include "native_check.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QVariant>

namespace tablio::scenario {

std::string nativeDifference(qt::TablioWidget &widget) {
    const Screen &screen = widget.core().screen();
    QString differences;
    const auto compare = [&](const char *what, const QVariant &control, const QVariant &native) {
        if (control != native)
            differences += QStringLiteral("%1: the control has %2, the native widget %3; ")
                               .arg(what, control.toString(), native.toString());
    };
    const auto isShown = [&](WidgetId id) { return screen.widget(id).isVisible; };

    const auto *box = widget.findChild<QLineEdit *>(QStringLiteral("qt_txtEdit"));
    const std::optional<ScreenEditor> editor = screen.editor();
    compare("an editor", editor.has_value(), !box->parentWidget()->size().isEmpty());
    if (editor) {
        const auto [from, to] = std::minmax(editor->anchor, editor->caret);
        const auto text = std::string(editor->text);
        compare("the text", QString::fromStdString(text), box->text());
        compare("the caret", editor->caret, box->cursorPosition());
        compare("the selection", to - from, box->selectedText().size());
    }
    const auto *combo = widget.findChild<QComboBox *>(QStringLiteral("qt_cboEdit"));
    compare("the combo", isShown(WidgetId::cboEdit), combo->isVisible());
    const ScreenList list = screen.list();
    if (combo->isVisible())
        compare("the list", list.isDropped, combo->view()->isVisible());
    if (combo->view()->isVisible())
        compare("the item", list.chosen, combo->view()->currentIndex().row());
    const auto *calendar = widget.findChild<QCalendarWidget *>(QStringLiteral("qt_mvCalender"));
    compare("the calendar", isShown(WidgetId::mvCalender), calendar->isVisible());
    const Date day = screen.calendarDay();
    if (calendar->isVisible())
        compare("the day", QDate(day.year, day.month, day.day), calendar->selectedDate());
    for (const auto &[id, name] : {std::pair(WidgetId::cmdLookup, "qt_cmdLookup"),
                                   std::pair(WidgetId::cmdCalender, "qt_cmdCalender")})
        compare(name, isShown(id), widget.findChild<QWidget *>(name)->isVisible());
    const auto bars = widget.findChildren<QScrollBar *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QScrollBar *bar : bars)
        compare(
            "a scroll bar",
            (bar->orientation() == Qt::Vertical ? screen.rowRange() : screen.colRange()).position,
            bar->value());
    const QWidget *owner = QApplication::focusWidget();
    if (QApplication::activeWindow() == widget.window() &&
        QApplication::activePopupWidget() == nullptr)
        compare("the keyboard", screen.focusOwner().has_value(),
                owner != nullptr && widget.isAncestorOf(owner));
    return differences.toStdString();
}

} // namespace tablio::scenario
