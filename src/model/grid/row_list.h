#pragma once

/// The rows of a table in their order. They stand in pieces of some hundred, so that a row comes or
/// goes anywhere without the others being moved: whatever hangs on a row stays with it. The cell
/// store uses it; indexes are trusted.

#include "model/grid/cell_style.h"
#include "model/grid/text_row.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace tablio {

/// The looks of a row's cells, by column. Never written to for one row alone while other rows hold
/// it, too.
using RowStyles = std::vector<StyleId>;

struct GridRow {
    TextRow texts;
    /// Unformatted values; only where a row has some.
    std::unique_ptr<TextRow> values;
    /// Null where all cells look as their place says. Rows that look alike may share one list.
    std::shared_ptr<RowStyles> styles;
    /// When it was last made blank, if it was written to; the row list compares it.
    std::uint32_t era = 0;

    /// Keeps room for texts.
    void wipe() noexcept {
        texts.wipe();
        values.reset();
        styles.reset();
    }
};

class RowList {
public:
    [[nodiscard]] int size() const noexcept { return starts_.back(); }
    void resize(int count);
    /// Makes all rows blank, at once: each keeps its memory until it is written to again, which
    /// then finds it ready, or goes.
    void wipe() noexcept { ++era_; }
    /// Inserts a blank row that will have this index, or takes the row with this index away.
    void insert(int row);
    void erase(int row);

    [[nodiscard]] const GridRow &operator[](int row) const noexcept {
        static const GridRow blank;
        const GridRow &held = at(row);
        return held.era == era_ ? held : blank;
    }
    [[nodiscard]] GridRow &operator[](int row) noexcept {
        GridRow &held = const_cast<GridRow &>(at(row));
        if (held.era != era_) {
            held.wipe();
            held.era = era_;
        }
        return held;
    }

private:
    static constexpr std::size_t pieceSize = 128;
    using Piece = std::vector<GridRow>;

    [[nodiscard]] const GridRow &at(int row) const noexcept {
        const std::size_t piece = pieceOf(row);
        return pieces_[piece][static_cast<std::size_t>(row - starts_[piece])];
    }
    [[nodiscard]] std::size_t pieceOf(int row) const noexcept {
        // Rows are mostly asked one after the other.
        if (row < starts_[last_] || row >= starts_[last_ + 1])
            last_ = findPiece(row);
        return last_;
    }
    [[nodiscard]] std::size_t findPiece(int row) const noexcept;
    /// The pieces from this one on have other sizes.
    void count(std::size_t from);

    std::vector<Piece> pieces_{1};
    /// The index of each piece's first row, and the count of all rows.
    std::vector<int> starts_{0, 0};
    /// The piece that was asked last.
    mutable std::size_t last_ = 0;
    /// Rows of another one are blank, whatever they still hold.
    std::uint32_t era_ = 1;
};

} // namespace tablio
