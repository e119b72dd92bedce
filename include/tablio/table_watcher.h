#pragma once

/// What becomes of the table, told while it happens: for item models, bindings and whoever else
/// keeps a picture of the rows in step. A host that wants to act on a change takes the notices of
/// `tablio/table_notices.h`, which come when everything is in order.

#include <memory>

namespace tablio {

class Control;
class Tablio;

/// Cells from one corner to the other, both of them included.
struct CellBlock {
    int firstRow = 0;
    int firstCol = 0;
    int lastRow = 0;
    int lastCol = 0;

    friend bool operator==(const CellBlock &, const CellBlock &) = default;
};

/// A watcher reads and remembers; it changes nothing in the control, shows nothing that waits for
/// the user, and does not throw. Before each "Coming" or "Going" the table is as it was, and after
/// each "Came" or "Went" as it is then. Rows and columns are the grid's own, header included.
class TableWatcher {
public:
    virtual ~TableWatcher() = default;

    /// Blank rows come, the first of which will have this number.
    virtual void rowsComing(int /*first*/, int /*count*/) {}
    virtual void rowsCame(int /*first*/, int /*count*/) {}
    virtual void rowsGoing(int /*first*/, int /*count*/) {}
    virtual void rowsWent(int /*first*/, int /*count*/) {}
    /// Cells hold something else: a text, the value behind it, a tick, a row number.
    virtual void cellsChanged(const CellBlock & /*cells*/) {}
    /// Anything may be another: the columns, the fixed rows, what all cells hold.
    virtual void tableChanging() {}
    virtual void tableChanged() {}
};

/// A watcher is told for the life of this object, or as long as the control lives. Any number of
/// them may watch one control.
class TableWatch {
public:
    /// The watcher must outlive this object.
    TableWatch(Tablio &control, TableWatcher &watcher);
    ~TableWatch();
    TableWatch(const TableWatch &) = delete;
    TableWatch &operator=(const TableWatch &) = delete;

private:
    std::weak_ptr<Control> control_;
    TableWatcher &watcher_;
};

} // namespace tablio
