#include "model/grid/row_heights.h"

namespace tablio {

std::size_t RowHeights::find(int row) const noexcept {
    const auto found = std::lower_bound(
        own_.begin(), own_.end(), row, [](const Own &own, int wanted) { return own.row < wanted; });
    return static_cast<std::size_t>(found - own_.begin());
}

void RowHeights::forgetSums(std::size_t from) const {
    if (excess_.size() > from + 1)
        excess_.resize(from + 1);
}

void RowHeights::setMinimum(Twips height) {
    minimum_ = height;
    forgetSums(0);
}

Twips RowHeights::of(int row) const noexcept {
    const std::size_t at = find(row);
    return has(at, row) ? std::max(own_[at].height, minimum_) : ordinary();
}

void RowHeights::set(int row, Twips height) {
    const std::size_t at = find(row);
    const auto place = own_.begin() + static_cast<std::ptrdiff_t>(at);
    if (has(at, row) && height < 0)
        own_.erase(place);
    else if (has(at, row))
        place->height = height;
    else if (height >= 0)
        own_.insert(place, {row, height});
    forgetSums(at);
}

std::int64_t RowHeights::before(int row) const {
    const std::size_t count = find(row);
    while (excess_.size() <= count) {
        const Own &next = own_[excess_.size() - 1];
        excess_.push_back(excess_.back() + std::max(next.height, minimum_) - ordinary());
    }
    return std::int64_t{row} * ordinary() + excess_[count];
}

void RowHeights::removeRow(int row) {
    set(row, -1);
    shift(row, -1);
}

void RowHeights::cut(int row) {
    own_.resize(find(row), {});
    forgetSums(own_.size());
}

void RowHeights::shift(int row, int by) {
    for (std::size_t at = find(row); at < own_.size(); ++at)
        own_[at].row += by;
}

} // namespace tablio
