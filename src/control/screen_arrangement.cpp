/// How the grid and its scroll bars share their room, and what is in sight of the table.

#include <tablio/screen.h>

#include "control/control.h"
#include "state/column_fit.h"

#include <algorithm>
#include <cmath>

namespace tablio {

namespace {

/// A single row or column is not worth a bar.
bool fits(int scrollable, Twips size, Twips room) { return size <= room || scrollable < 2; }

} // namespace

Arrangement Screen::arranged(Twips width, Twips height, Twips barWidth, Twips barHeight) const {
    const GridTable &table = control_.state.grid.table;
    const int rows = table.Rows() - table.FixedRows();
    const int cols = table.Cols() - table.FixedCols();
    Twips allCols = table.widthOfCols(0, table.Cols());
    // A column that takes what is left never is what makes the table too wide.
    const int stretched = control_.state.settings.StretchColumn;
    if (stretched >= 0 && stretched < table.Cols())
        allCols -= std::max(0, table.ColWidth(stretched) - narrowestStretched);
    Arrangement result;
    result.hasColBar = !fits(cols, allCols, width);
    const Twips rest = height - (result.hasColBar ? barHeight : 0);
    result.hasRowBar = !fits(rows, table.heightOfRows(0, table.Rows()), rest);
    if (result.hasRowBar && !result.hasColBar)
        result.hasColBar = !fits(cols, allCols, width - barWidth);
    const Twips beside = result.hasRowBar ? barWidth : 0;
    result.left = isRightToLeft() ? beside : 0;
    result.width = std::max(0, width - beside);
    result.height = std::max(0, height - (result.hasColBar ? barHeight : 0));
    return result;
}

ScrollRange Screen::rowRange() const {
    const FlexGrid &grid = control_.state.grid;
    const int first = grid.table.FixedRows();
    return {first, std::max(first, grid.view.maxTopRow()), grid.view.pageRows(),
            grid.view.TopRow()};
}

ScrollRange Screen::colRange() const {
    const FlexGrid &grid = control_.state.grid;
    const int first = grid.table.FixedCols();
    const int inSight = static_cast<int>(grid.view.visibleCols().size()) - first;
    return {first, std::max(first, grid.view.maxLeftCol()), std::max(1, inSight - 1),
            grid.view.LeftCol()};
}

ScrollMove Screen::movedSince(int topRow, int leftCol, double scale) const {
    const GridTable &table = control_.state.grid.table;
    const GridView &view = control_.state.grid.view;
    // Nothing moves by parts of a pixel, and an open editor lies over the cells.
    if (leftCol != view.LeftCol() || scale != std::floor(scale) || control_.session.isOpen() ||
        !table.hasCell(topRow, 0) || !table.hasCell(view.TopRow(), 0))
        return {};
    const Twips header = view.cellRect(view.TopRow(), 0).top;
    Twips distance = view.cellRect(topRow, 0).top;
    // A row that has gone up lies that far above the grid, any other below the header.
    if (topRow >= view.TopRow())
        distance -= header;
    if (header % twipsPerPixel != 0 || distance % twipsPerPixel != 0)
        return {};
    return {header / twipsPerPixel, distance / twipsPerPixel};
}

Rect Screen::wholeTable() const {
    const GridTable &table = control_.state.grid.table;
    return {0, 0, table.widthOfCols(0, table.Cols()), table.heightOfRows(0, table.Rows())};
}

} // namespace tablio
