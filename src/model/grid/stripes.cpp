#include "model/grid/stripes.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tablio {

void Stripes::paint(int end, const Looks &looks) {
    looks_ = looks;
    runs_.clear();
    if (end > 1)
        runs_ = {{1, Kind::ByNumber}, {end, Kind::Plain}};
}

Stripes::Kind Stripes::kindOf(int row) const noexcept {
    const auto behind =
        std::upper_bound(runs_.begin(), runs_.end(), row,
                         [](int wanted, const Run &run) { return wanted < run.first; });
    return behind == runs_.begin() ? Kind::Plain : std::prev(behind)->kind;
}

StyleId Stripes::of(int row) const noexcept {
    const Kind kind = kindOf(row);
    if (kind == Kind::Plain)
        return plainStyle;
    const bool isOdd = (row % 2 != 0) == (kind == Kind::ByNumber);
    return isOdd ? looks_.odd : looks_.even;
}

Stripes::Kind Stripes::moved(Kind kind) noexcept {
    if (kind == Kind::Plain)
        return kind;
    return kind == Kind::ByNumber ? Kind::ByNextNumber : Kind::ByNumber;
}

std::vector<Stripes::Run>::iterator Stripes::splitAt(int row) {
    const auto place =
        std::lower_bound(runs_.begin(), runs_.end(), row,
                         [](const Run &run, int wanted) { return run.first < wanted; });
    if (place != runs_.end() && place->first == row)
        return place;
    return runs_.insert(place, Run{row, kindOf(row)});
}

void Stripes::insertRow(int row) {
    if (row >= end())
        return;
    for (auto run = splitAt(row); run != runs_.end(); ++run) {
        ++run->first;
        run->kind = moved(run->kind);
    }
    // The new row itself is plain.
    *splitAt(row) = {row, Kind::Plain};
    tidy();
}

void Stripes::removeRow(int row) {
    if (row >= end())
        return;
    splitAt(row);
    for (auto run = splitAt(row + 1); run != runs_.end(); ++run) {
        --run->first;
        run->kind = moved(run->kind);
    }
    tidy();
}

void Stripes::cutRows(int count) {
    if (count >= end())
        return;
    const auto first = splitAt(count);
    first->kind = Kind::Plain;
    runs_.erase(std::next(first), runs_.end());
    tidy();
}

void Stripes::cutCols(int count) { looks_.endCol = std::min(looks_.endCol, count); }

void Stripes::tidy() {
    std::vector<Run> kept;
    for (const Run &run : runs_) {
        // A run of no rows.
        if (!kept.empty() && kept.back().first == run.first)
            kept.pop_back();
        if (run.kind != (kept.empty() ? Kind::Plain : kept.back().kind))
            kept.push_back(run);
    }
    runs_ = std::move(kept);
}

} // namespace tablio
