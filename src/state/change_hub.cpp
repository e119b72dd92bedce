#include "state/change_hub.h"

#include <algorithm>

namespace tablio {

void ChangeHub::add(TableWatcher &watcher) {
    watchers_.push_back(&watcher);
    listen();
}

void ChangeHub::remove(TableWatcher &watcher) noexcept {
    const auto found = std::find(watchers_.begin(), watchers_.end(), &watcher);
    if (found == watchers_.end())
        return;
    if (telling_ > 0)
        *found = nullptr;
    else
        watchers_.erase(found);
    listen();
}

void ChangeHub::setNotices(TableNotices *notices) {
    link_.setNotices(notices);
    listen();
}

void ChangeHub::listen() {
    isHeard_ = !watchers_.empty() || link_.hasNotices();
    table_.setChanges(isHeard_ ? this : nullptr);
}

template <typename... Arguments>
void ChangeHub::tell(void (TableWatcher::*what)(Arguments...), const Arguments &...arguments) {
    ++telling_;
    // One that comes meanwhile is not told of what it has not seen begin.
    const std::size_t count = watchers_.size();
    for (std::size_t at = 0; at < count; ++at) {
        if (watchers_[at] != nullptr)
            (watchers_[at]->*what)(arguments...);
    }
    if (--telling_ == 0)
        watchers_.erase(std::remove(watchers_.begin(), watchers_.end(), nullptr), watchers_.end());
}

void ChangeHub::cellChanging(CellAddress /*cell*/) {}

void ChangeHub::cellChanged(CellAddress cell) {
    const CellBlock block{cell.row, cell.col, cell.row, cell.col};
    tell<const CellBlock &>(&TableWatcher::cellsChanged, block);
    if (cell.row >= table_.FixedRows())
        link_.note({Note::Kind::CellChanged, cell.row, cell.col});
}

void ChangeHub::lookChanging(CellAddress /*cell*/) {}

void ChangeHub::heightChanging(int /*row*/) {}

void ChangeHub::looksChanging() {}

void ChangeHub::rowsComing(int first, int count) { tell(&TableWatcher::rowsComing, first, count); }

void ChangeHub::rowsCame(int first, int count) {
    tell(&TableWatcher::rowsCame, first, count);
    link_.note({Note::Kind::RowsInserted, first, count});
}

void ChangeHub::rowsGoing(int first, int count) { tell(&TableWatcher::rowsGoing, first, count); }

void ChangeHub::rowsWent(int first, int count) {
    tell(&TableWatcher::rowsWent, first, count);
    link_.note({Note::Kind::RowsRemoved, first, count});
}

void ChangeHub::cellsChanged(const CellBlock &cells) {
    tell<const CellBlock &>(&TableWatcher::cellsChanged, cells);
}

void ChangeHub::tableChanging() { tell(&TableWatcher::tableChanging); }

void ChangeHub::tableChanged() {
    tell(&TableWatcher::tableChanged);
    link_.note({isClearing_ ? Note::Kind::TableCleared : Note::Kind::TableReset, 0, 0});
}

} // namespace tablio
