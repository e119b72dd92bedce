#include <tablio/table_watcher.h>

#include "control/inside.h"

namespace tablio {

TableWatch::TableWatch(Tablio &control, TableWatcher &watcher)
    : control_(Inside::shared(control)), watcher_(watcher) {
    Inside::of(control).state.changes.add(watcher);
}

TableWatch::~TableWatch() {
    if (const std::shared_ptr<Control> control = control_.lock())
        control->state.changes.remove(watcher_);
}

} // namespace tablio
