#pragma once

/// What has changed in the table, whoever changed it: the operator by any way in, the host, a
/// command. It stands beside `HostEvents`, whose events and their order it leaves as they are, and
/// comes at the same safe points: before the host hears the next event, or when the call is over.

namespace tablio {

/// A handler may do anything but throw. Rows and columns are the grid's own, from 0; a notice tells
/// what was so when it happened, and several may have happened since.
class TableNotices {
public:
    virtual ~TableNotices() = default;

    /// A data cell holds another text or value, or its tick has been set or taken away. Row numbers
    /// that follow from a row's place are not told.
    virtual void CellChanged(int /*Row*/, int /*Col*/) {}
    /// Blank rows have come, the first of which has this number.
    virtual void RowsInserted(int /*First*/, int /*Count*/) {}
    virtual void RowsRemoved(int /*First*/, int /*Count*/) {}
    /// All data is wiped.
    virtual void TableCleared() {}
    /// Any cell may hold something else, and the columns may be others: read all anew.
    virtual void TableReset() {}
};

} // namespace tablio
