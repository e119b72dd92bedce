#pragma once

/// The heights of a table's rows, or the widths of its columns, in twips. Lines without a size of
/// their own cost nothing, and the place of any line is found without a walk to it. The grid table
/// checks the indexes.

#include "model/grid/sparse_lines.h"

#include <tablio/types.h>

#include <algorithm>
#include <cstdint>

namespace tablio {

class LineSizes {
public:
    explicit LineSizes(Twips usual) : usual_(usual) {}

    /// No line is smaller.
    [[nodiscard]] Twips minimum() const noexcept { return minimum_; }
    void setMinimum(Twips size) {
        minimum_ = size;
        own_.forgetSums();
    }
    [[nodiscard]] Twips of(int line) const noexcept {
        const Twips *const own = own_.find(line);
        return own != nullptr ? std::max(*own, minimum_) : ordinary();
    }
    /// A negative size is none of its own.
    void set(int line, Twips size) {
        if (size < 0)
            own_.take(line);
        else
            own_.set(line, size);
    }
    /// Of all lines before this one together.
    [[nodiscard]] std::int64_t before(int line) const {
        const auto excess = [this](Twips own) {
            return std::int64_t{std::max(own, minimum_)} - ordinary();
        };
        return std::int64_t{line} * ordinary() + own_.sumBefore(line, excess);
    }

    void insertLine(int line) { own_.shift(line, 1); }
    void removeLine(int line) {
        own_.take(line);
        own_.shift(line, -1);
    }
    /// Lines from this one on are gone.
    void cut(int line) { own_.cut(line); }

private:
    [[nodiscard]] Twips ordinary() const noexcept { return std::max(usual_, minimum_); }

    Twips usual_;
    Twips minimum_ = 0;
    SparseLines<Twips> own_;
};

} // namespace tablio
