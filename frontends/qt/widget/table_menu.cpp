#include "widget/table_menu.h"

#include "widget/guarded.h"
#include "widget/tablio_widget_p.h"

#include <QMenu>

namespace tablio::qt {

void showTableMenu(TablioWidgetPrivate &parts, const QPoint &corner) {
    struct Line {
        MenuEntry entry;
        QString caption;
        TableMenu::Entry state;
    };
    const TableMenu &states = parts.state().menu;
    const Line lines[] = {
        {MenuEntry::mnuMarkRow, TablioWidget::tr("&Mark Row"), states.mnuMarkRow},
        {MenuEntry::mnuLine1, {}, {}},
        {MenuEntry::mnuAddRow, TablioWidget::tr("&Add Row"), states.mnuAddRow},
        {MenuEntry::mnuInsertRow, TablioWidget::tr("&Insert Row"), states.mnuInsertRow},
        {MenuEntry::mnuRemoveRow, TablioWidget::tr("&Remove Row"), states.mnuRemoveRow},
        {MenuEntry::mnuLine2, {}, {}},
        {MenuEntry::mnuTableClear, TablioWidget::tr("Table &Clear"), states.mnuTableClear},
    };
    auto *menu = new QMenu(&parts.widget);
    menu->setObjectName(QStringLiteral("qt_mnuTableMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Line &line : lines) {
        if (line.caption.isEmpty()) {
            menu->addSeparator();
            continue;
        }
        QAction *action = menu->addAction(line.caption);
        action->setEnabled(line.state.enabled);
        action->setCheckable(line.state.checked);
        action->setChecked(line.state.checked);
        QObject::connect(action, &QAction::triggered, &parts.widget, [&parts, entry = line.entry] {
            guarded([&] { parts.input().menuChosen(entry); });
        });
    }
    menu->popup(corner);
}

} // namespace tablio::qt
