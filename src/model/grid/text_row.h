#pragma once

/// The texts of one row, by column. A row of few columns is one array; of a wide table only those
/// blocks of columns take memory in which something was written. The cell store uses it and knows
/// how many columns there are.

#include "model/grid/compact_text.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace tablio {

class TextRow {
public:
    TextRow() = default;
    TextRow(TextRow &&other) noexcept
        : first_(std::move(other.first_)), more_(std::move(other.more_)),
          firstSize_(std::exchange(other.firstSize_, 0)) {}
    TextRow &operator=(TextRow &&other) noexcept {
        first_ = std::move(other.first_);
        more_ = std::move(other.more_);
        firstSize_ = std::exchange(other.firstSize_, 0);
        return *this;
    }
    ~TextRow() = default;
    TextRow(const TextRow &) = delete;
    TextRow &operator=(const TextRow &) = delete;

    /// Null where there is no room for a text yet, because nothing was written there.
    [[nodiscard]] const CompactText *find(int col) const noexcept {
        if (col < firstSize_)
            return &first_[static_cast<std::size_t>(col)];
        return more_ ? findMore(col) : nullptr;
    }
    [[nodiscard]] CompactText *find(int col) noexcept {
        return const_cast<CompactText *>(std::as_const(*this).find(col));
    }
    /// The text, with room made for it and its neighbours; the table has so many columns.
    [[nodiscard]] CompactText &made(int col, int cols) {
        CompactText *const found = find(col);
        return found != nullptr ? *found : make(col, cols);
    }
    /// The same for this text and the neighbours behind it that stand in one piece with it.
    [[nodiscard]] std::span<CompactText> madeFrom(int col, int cols) {
        CompactText &first = made(col, cols);
        const int end = col < firstSize_ ? firstSize_ : (col / blockSize + 1) * blockSize;
        return {&first, static_cast<std::size_t>(end - col)};
    }
    [[nodiscard]] bool hasAny() const noexcept { return first_ || more_; }

    /// Empties all texts; room for those of the first columns stays.
    void wipe() noexcept;
    /// Empties all texts from this column on.
    void cut(int count);
    /// Makes room for a column, or closes the gap that one leaves.
    void insert(int col);
    void erase(int col);

private:
    static constexpr int blockSize = 32;
    using Block = std::unique_ptr<CompactText[]>;

    [[nodiscard]] const CompactText *findMore(int col) const noexcept;
    CompactText &make(int col, int cols);
    /// One past the last column that there is room for.
    [[nodiscard]] int end() const noexcept;
    /// Gives one column's text to another, or its being empty.
    void move(int from, int to);

    /// Of the first columns, as many as `firstSize_`.
    Block first_;
    std::unique_ptr<std::vector<Block>> more_;
    std::int32_t firstSize_ = 0;
};

} // namespace tablio
