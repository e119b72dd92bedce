#include "state/column_fit.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace tablio {

namespace {

/// Of a cell beside its text: margins at both sides and the line.
constexpr Twips padding = 7 * 15;
constexpr Twips narrowest = 300;
/// More than fit on a screen: among texts of many letters some of fewer may be the widest.
constexpr std::size_t mostMeasured = 200;

} // namespace

Twips widthForContents(const ControlState &state, int col) {
    const GridTable &table = state.grid.table;
    table.checkCol(col, "column to fit");
    Twips width = narrowest;
    const auto measure = [&](int row) {
        const Twips text =
            state.link.face().textWidth(table.TextMatrix(row, col), state.grid.fontOf(row, col));
        width = std::max(width, text + padding);
    };
    for (int row = 0; row < table.FixedRows(); ++row)
        measure(row);
    std::vector<std::pair<std::size_t, int>> longest;
    for (int row = table.FixedRows(); row < table.Rows(); ++row) {
        if (const std::size_t length = table.TextMatrix(row, col).size(); length > 0)
            longest.emplace_back(length, row);
    }
    if (longest.size() > mostMeasured) {
        const auto end = longest.begin() + static_cast<std::ptrdiff_t>(mostMeasured);
        std::nth_element(longest.begin(), end, longest.end(), std::greater<>());
        longest.erase(end, longest.end());
    }
    for (const auto &[length, row] : longest)
        measure(row);
    return std::min(width, GridTable::maxSize);
}

void stretchColumn(ControlState &state) {
    GridTable &table = state.grid.table;
    const int col = state.settings.StretchColumn;
    if (col < 0 || col >= table.Cols() || state.grid.view.Width() == 0)
        return;
    const Twips others = table.widthOfCols(0, table.Cols()) - table.ColWidth(col);
    const Twips width = std::max(narrowestStretched, state.grid.view.Width() - others);
    if (width != table.ColWidth(col))
        table.setColWidth(col, width);
}

} // namespace tablio
