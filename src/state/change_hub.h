#pragma once

/// Where every change of the table comes together, whoever makes it: the one source of what
/// watchers and the host's notices are told. The table reports to it only while somebody listens.

#include "model/grid/grid_table.h"
#include "state/host_link.h"

#include <vector>

namespace tablio {

class ChangeHub final : private GridTableChanges {
public:
    ChangeHub(GridTable &table, HostLink &link) : table_(table), link_(link) {}

    void add(TableWatcher &watcher);
    void remove(TableWatcher &watcher) noexcept;
    /// Null for none.
    void setNotices(TableNotices *notices);
    /// Whether anybody is told of cells that are written.
    [[nodiscard]] bool isHeard() const noexcept { return isHeard_; }
    /// While it lives a table that changes as a whole is one that is being wiped.
    [[nodiscard]] Temporarily<bool> clearing() { return {isClearing_, true}; }

private:
    void cellChanging(CellAddress cell) override;
    void cellChanged(CellAddress cell) override;
    void lookChanging(CellAddress cell) override;
    void heightChanging(int row) override;
    void looksChanging() override;
    void rowsComing(int first, int count) override;
    void rowsCame(int first, int count) override;
    void rowsGoing(int first, int count) override;
    void rowsWent(int first, int count) override;
    void cellsChanged(const CellBlock &cells) override;
    void tableChanging() override;
    void tableChanged() override;

    void listen();
    template <typename... Arguments>
    void tell(void (TableWatcher::*what)(Arguments...), const Arguments &...arguments);

    GridTable &table_;
    HostLink &link_;
    /// Null where one has gone while they are being told.
    std::vector<TableWatcher *> watchers_;
    int telling_ = 0;
    bool isHeard_ = false;
    bool isClearing_ = false;
};

} // namespace tablio
