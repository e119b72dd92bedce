#pragma once

/// Hears of every single change of a grid table, before and after it. The hub of changes in state/
/// is the one that listens; the table knows nobody else who may want to know.

#include <tablio/table_watcher.h>
#include <tablio/types.h>

namespace tablio {

class GridTableChanges : public TableWatcher {
public:
    /// The text of a cell, or the value behind it, becomes another one.
    virtual void cellChanging(CellAddress cell) = 0;
    virtual void cellChanged(CellAddress cell) = 0;
    /// The look of a cell, or the height of a row of its own, becomes another one.
    virtual void lookChanging(CellAddress cell) = 0;
    virtual void heightChanging(int row) = 0;
    /// All looks may become others.
    virtual void looksChanging() = 0;
};

} // namespace tablio
