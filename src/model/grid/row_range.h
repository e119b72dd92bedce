#pragma once

/// The rows among which all those stand that have something in common, such as looks of their own:
/// who looks for them need not visit the others. It may have more rows than needed, never fewer.

#include <algorithm>

namespace tablio {

struct RowRange {
    int first = 0;
    /// One past the last.
    int end = 0;

    [[nodiscard]] bool isEmpty() const noexcept { return first >= end; }
    void add(int row) noexcept {
        *this = isEmpty() ? RowRange{row, row + 1}
                          : RowRange{std::min(first, row), std::max(end, row + 1)};
    }
    /// A row comes, or goes.
    void insertRow(int row) noexcept {
        first += row <= first ? 1 : 0;
        end += row < end ? 1 : 0;
    }
    void removeRow(int row) noexcept {
        first -= row < first ? 1 : 0;
        end -= row < end ? 1 : 0;
    }
    void cut(int count) noexcept { end = std::min(end, count); }
};

} // namespace tablio
