#pragma once

/// The looks that every second row of a table was given at once. They follow from a row's number
/// and are written nowhere: rows that come and go later keep the look that they were painted with,
/// as if each cell had it, until the stripes are painted anew. The cell store asks it about cells
/// of rows without looks of their own.

#include "model/grid/cell_style.h"

#include <vector>

namespace tablio {

class Stripes {
public:
    struct Looks {
        int firstCol = 0;
        /// One past the last column.
        int endCol = 0;
        StyleId odd = plainStyle;
        StyleId even = plainStyle;
    };

    /// Rows 1 up to `end`, which is not among them, look as their numbers say; all others are
    /// plain.
    void paint(int end, const Looks &looks);
    void clear() { runs_.clear(); }

    [[nodiscard]] const Looks &looks() const noexcept { return looks_; }
    [[nodiscard]] bool isEmpty() const noexcept { return runs_.empty(); }
    /// One past the last row that is painted; 0 for none.
    [[nodiscard]] int end() const noexcept { return runs_.empty() ? 0 : runs_.back().first; }
    [[nodiscard]] StyleId at(int row, int col) const noexcept {
        return runs_.empty() || col < looks_.firstCol || col >= looks_.endCol ? plainStyle
                                                                              : of(row);
    }
    /// What the cells of a row that are painted look like.
    [[nodiscard]] StyleId of(int row) const noexcept;

    void insertRow(int row);
    void removeRow(int row);
    void cutRows(int count);
    void cutCols(int count);

private:
    enum class Kind { Plain, ByNumber, ByNextNumber };
    /// From this row on, as far as the next run.
    struct Run {
        int first = 0;
        Kind kind = Kind::Plain;
    };

    [[nodiscard]] Kind kindOf(int row) const noexcept;
    /// What a row's kind becomes when its number changes by one and its look does not.
    [[nodiscard]] static Kind moved(Kind kind) noexcept;
    /// Makes a run begin here, and answers where those behind the row begin.
    std::vector<Run>::iterator splitAt(int row);
    void tidy();

    Looks looks_;
    /// In order. Rows before the first run are plain; the last run is plain.
    std::vector<Run> runs_;
};

} // namespace tablio
