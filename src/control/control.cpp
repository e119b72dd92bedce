#include "control/control.h"

#include <tablio/members.h>

#include <utility>

namespace tablio {

Control::Control()
    : state(*this, *this), cells(state), navigator(state), appearance(state), marker(state),
      checks(state), rows(state, marker, appearance), session(state, cells, navigator, marker),
      textEditor(state, session, navigator), comboEditor(state, session, navigator),
      dateEditor(state, session, navigator),
      replacement(state, session, navigator, cells, marker, rows),
      gridInput(state, session, navigator, replacement, checks), start(state) {
    session.setEditors([this](TColumnType type) -> BoxEditor & {
        if (type == TColumnType::ColumnCombo)
            return comboEditor;
        if (type == TColumnType::ColumnDate)
            return dateEditor;
        return textEditor;
    });
    state.focus.onLost = [this](WidgetId widget) { focusLost(widget); };
    state.focus.onGot = [this](WidgetId widget) { focusGot(widget); };
    state.focus.onMoved = [this] {
        state.link.markChanged();
        const bool canTake = state.link.face().canTakeFocus();
        if (canTake)
            state.link.takeFocus();
        return canTake;
    };
    state.columns.start();
}

RowStock &Control::settledRows() {
    session.settle();
    return rows;
}

void Control::writeBlock(CellAddress first, int cols, std::span<const std::string_view> values) {
    const GridTable &table = state.grid.table;
    const auto missing = [&] {
        return first.row + cells.rowsOfBlock(first, cols, values.size()) - table.Rows();
    };
    if (missing() > 0)
        session.EndCellEdit();
    // A handler may have changed the table meanwhile.
    const int count = missing();
    // A block may begin below the last row, not farther down.
    if (first.row != table.Rows())
        table.checkRow(first.row, "block of texts");
    const RepaintOnce repaintOnce(state.grid);
    if (count > 0)
        rows.append(count);
    cells.writeBlock(first, cols, values);
    if (count > 0)
        state.link.TableChange();
}

void Control::gridEnterCell() {
    if (rows.IsClearing())
        return;
    const CellAddress cell = state.grid.current();
    state.cursor.enter(cell);
    if (cell.row >= 1 && state.isCheckCell(cell) && !state.grid.table.look().Font.bold)
        state.grid.changeCellStyle([](CellStyle &style) { style.fontBold = true; });
    state.link.CellFocus(cell);
}

void Control::gridRowChange(int oldRow, int newRow) {
    if (rows.IsClearing())
        return;
    state.grid.setFocusRect(0);
    state.link.TableRowChange(oldRow, newRow);
    // The operator must go on seeing where the keyboard is.
    if (state.focus.owner() == WidgetId::Grid)
        state.grid.setFocusRect(2);
}

void Control::gridScroll() {
    session.RepositionEditor();
    state.link.face().scrolled();
}

void Control::gridAreaChanged(const Rect &area) { state.link.face().areaChanged(area); }

void Control::widgetChanged(WidgetId /*widget*/) { state.link.markChanged(); }

void Control::notify(std::string_view property) {
    if (state.link.hasFace() && !isLoading)
        state.link.propertyChanged(findMember(property).number);
}

MenuState Control::menuState(MenuEntry entry) const noexcept {
    const bool isMarked = marker.isMarked();
    switch (entry) {
    case MenuEntry::mnuMarkRow:
        return {!session.isOpen(), isMarked};
    case MenuEntry::mnuAddRow:
        return {!session.isOpen() && !isMarked};
    case MenuEntry::mnuInsertRow:
    case MenuEntry::mnuRemoveRow:
        return {isMarked};
    case MenuEntry::mnuTableClear:
        return {!session.isOpen()};
    default:
        return {};
    }
}

void Control::chooseMenu(MenuEntry entry) {
    if (!menuState(entry).enabled)
        return;
    if (entry == MenuEntry::mnuMarkRow)
        marker.toggle();
    else if (entry == MenuEntry::mnuAddRow)
        settledRows().add();
    else if (entry == MenuEntry::mnuInsertRow)
        settledRows().insertAtMark();
    else if (entry == MenuEntry::mnuRemoveRow)
        settledRows().removeMarked();
    else if (!asksToClear())
        settledRows().clear();
}

bool Control::asksToClear() {
    isClearAsked_ = state.rules().clearsWithCare &&
                    state.link.face().showQuestion("Table Clear", "Clear the whole table?");
    return isClearAsked_;
}

void Control::questionAnswered(bool yes) {
    if (std::exchange(isClearAsked_, false) && yes)
        settledRows().clear();
}

void Control::focusLost(WidgetId widget) {
    state.link.markChanged();
    if (widget == WidgetId::Grid)
        state.grid.setFocusRect(0);
}

void Control::focusGot(WidgetId widget) {
    if (widget != WidgetId::Grid)
        return;
    state.grid.setFocusRect(2);
    const CellAddress cell = state.grid.current();
    if (state.grid.table.hasCell(cell.row, cell.col))
        state.link.CellFocus(cell);
}

} // namespace tablio
