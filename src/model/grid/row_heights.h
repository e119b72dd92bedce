#pragma once

/// The heights of a table's rows, in twips. Rows without a height of their own are the rule and
/// cost nothing, so that the place of any row is found by a search among the others. The grid table
/// checks the indexes.

#include <tablio/types.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tablio {

class RowHeights {
public:
    static constexpr Twips defaultHeight = 300;

    /// No row is lower.
    [[nodiscard]] Twips minimum() const noexcept { return minimum_; }
    void setMinimum(Twips height);

    [[nodiscard]] Twips of(int row) const noexcept;
    /// A negative height is none of its own.
    void set(int row, Twips height);
    /// Of all rows before this one together.
    [[nodiscard]] std::int64_t before(int row) const;

    void insertRow(int row) { shift(row, 1); }
    void removeRow(int row);
    /// Rows from this one on are gone.
    void cut(int row);

private:
    struct Own {
        int row;
        Twips height;
    };

    [[nodiscard]] Twips ordinary() const noexcept { return std::max(defaultHeight, minimum_); }
    /// Where the first row that is not before this one stands in the list.
    [[nodiscard]] std::size_t find(int row) const noexcept;
    [[nodiscard]] bool has(std::size_t at, int row) const noexcept {
        return at < own_.size() && own_[at].row == row;
    }
    void shift(int row, int by);
    void forgetSums(std::size_t from) const;

    Twips minimum_ = 0;
    /// In the order of the rows.
    std::vector<Own> own_;
    /// By how much the first 0, 1, 2 … of them exceed ordinary rows, as far as that was asked.
    mutable std::vector<std::int64_t> excess_{0};
};

} // namespace tablio
