#include "widget/table_menu.h"

#include "widget/guarded.h"
#include "widget/tablio_widget_p.h"

#include <QMenu>

namespace tablio::qt {

void showTableMenu(TablioWidgetPrivate &parts, const QPoint &corner) {
    struct Line {
        MenuEntry entry;
        QString caption;
    };
    const Line lines[] = {
        {MenuEntry::mnuMarkRow, TablioWidget::tr("&Mark Row")},
        {MenuEntry::mnuLine1, {}},
        {MenuEntry::mnuAddRow, TablioWidget::tr("&Add Row")},
        {MenuEntry::mnuInsertRow, TablioWidget::tr("&Insert Row")},
        {MenuEntry::mnuRemoveRow, TablioWidget::tr("&Remove Row")},
        {MenuEntry::mnuLine2, {}},
        {MenuEntry::mnuTableClear, TablioWidget::tr("Table &Clear")},
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
        const MenuState state = parts.control.menuState(line.entry);
        action->setEnabled(state.enabled);
        action->setCheckable(state.checked);
        action->setChecked(state.checked);
        QObject::connect(action, &QAction::triggered, &parts.widget, [&parts, entry = line.entry] {
            guarded([&] { parts.input().menuChosen(entry); });
        });
    }
    menu->popup(corner);
}

} // namespace tablio::qt
