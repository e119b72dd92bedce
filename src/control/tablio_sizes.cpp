/// How wide columns are by what is in them, by what the others leave, and by what was kept.

#include <tablio/tablio.h>

#include "control/call.h"
#include "state/column_fit.h"

#include <charconv>
#include <vector>

namespace tablio {

namespace {

constexpr std::string_view layoutHead = "columns";

/// The widths of a layout; nothing where it is none.
std::vector<Twips> widthsOf(std::string_view layout) {
    std::vector<Twips> widths;
    if (layout.substr(0, layoutHead.size()) != layoutHead)
        return {};
    for (layout.remove_prefix(layoutHead.size()); !layout.empty();) {
        Twips width = -1;
        if (layout.front() != ' ')
            return {};
        layout.remove_prefix(1);
        const auto [end, error] =
            std::from_chars(layout.data(), layout.data() + layout.size(), width);
        if (error != std::errc() || width < 0 || width > GridTable::maxSize)
            return {};
        layout.remove_prefix(static_cast<std::size_t>(end - layout.data()));
        widths.push_back(width);
    }
    return widths;
}

} // namespace

void Tablio::ResizeColumn(int Index) {
    const Call control(control_);
    const ControlState &state = control->state;
    setColWidth(Index, widthForContents(state, Index));
}

void Tablio::ResizeColumns() {
    const Call control(control_);
    const RepaintOnce repaintOnce(control->state.grid);
    for (int col = 0; col < Cols(); ++col) {
        // One that was hidden stays so.
        if (ColWidth(col) > 0)
            ResizeColumn(col);
    }
    stretchColumn(control->state);
}

int Tablio::StretchColumn() const { return control_->state.settings.StretchColumn; }

void Tablio::setStretchColumn(int col) {
    setProperty(control_, "StretchColumn", [&](Control &control) {
        control.state.settings.StretchColumn = std::max(col, -1);
        stretchColumn(control.state);
    });
}

std::string Tablio::Layout() const {
    std::string layout(layoutHead);
    for (int col = 0; col < Cols(); ++col)
        layout += " " + std::to_string(ColWidth(col));
    return layout;
}

void Tablio::setLayout(std::string_view layout) {
    const std::vector<Twips> widths = widthsOf(layout);
    if (widths.size() != static_cast<std::size_t>(Cols()))
        return;
    setProperty(control_, "Layout", [&](Control &control) {
        const RepaintOnce repaintOnce(control.state.grid);
        for (int col = 0; const Twips width : widths)
            control.state.grid.table.setColWidth(col++, width);
        stretchColumn(control.state);
    });
}

} // namespace tablio
