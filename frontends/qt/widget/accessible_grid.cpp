#include "widget/accessible_grid.h"

#include <tablio/qt/tablio_widget.h>

#include <QAccessibleWidget>

namespace tablio::qt {

namespace {

QAccessibleInterface *makeInterface(const QString & /*className*/, QObject *object) {
    auto *grid = qobject_cast<TablioWidget *>(object);
    return grid != nullptr ? new QAccessibleWidget(grid, QAccessible::Table) : nullptr;
}

} // namespace

void installAccessibleGrids() {
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    static_cast<void>(isInstalled);
}

} // namespace tablio::qt
