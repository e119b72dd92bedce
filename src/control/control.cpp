#include "control/control.h"

#include <tablio/members.h>

namespace tablio {

Control::Control()
    : state(*this, *this), cells(state), navigator(state), session(state, cells, navigator),
      textEditor(state, session, navigator), comboEditor(state, session, navigator, cells),
      dateEditor(state, session, navigator), lookup(state, session, navigator, cells),
      replacement(state, session, cells), appearance(state), marker(state), checks(state),
      rows(state, session, marker, appearance), duplicates(state, rows),
      gridInput(state, session, navigator, replacement, gridServices()) {
    session.setEditors([this](TColumnType type) -> CellEditor & {
        if (type == TColumnType::ColumnCombo)
            return comboEditor;
        if (type == TColumnType::ColumnDate)
            return dateEditor;
        return textEditor;
    });
    session.setUnmark([this] {
        if (marker.isMarked())
            marker.toggle();
    });
    state.focus.onLost = [this](WidgetId widget) { focusLost(widget); };
    state.focus.onGot = [this](WidgetId widget) { focusGot(widget); };
    state.focus.onMoved = [this] {
        state.link.markChanged();
        state.link.takeFocus();
    };
    state.columns.start();
}

GridInput::Services Control::gridServices() {
    return {[this](std::string_view text) {
                if (const OpenEdit *edit = session.open())
                    edit->editor->paste(text);
            },
            [this] { rows.append(); }, [this] { return checks.toggleCurrent(); }};
}

void Control::gridEnterCell() {
    if (state.IsClearing)
        return;
    state.current = state.grid.current();
    if (state.current.row >= 1 && state.isCheckCell(state.current) &&
        !state.grid.table.look().Font.bold)
        state.grid.changeCellStyle([](CellStyle &style) { style.fontBold = true; });
    state.link.CellFocus(state.current);
}

void Control::gridRowChange(int oldRow, int newRow) {
    if (state.IsClearing)
        return;
    state.grid.setFocusRect(0);
    state.link.TableRowChange(oldRow, newRow);
    // The operator must go on seeing where the keyboard is.
    if (state.focus.owner() == WidgetId::Grid)
        state.grid.setFocusRect(2);
}

void Control::gridScroll() {
    session.reposition();
    state.link.face().scrolled();
}

void Control::gridAreaChanged(const Rect &area) { state.link.face().areaChanged(area); }

void Control::widgetChanged(WidgetId /*widget*/) { state.link.markChanged(); }

void Control::notify(std::string_view property) {
    if (state.link.hasFace())
        state.link.propertyChanged(findMember(property).number);
}

void Control::chooseMenu(MenuEntry entry) {
    const TableMenu &menu = state.menu;
    if (entry == MenuEntry::mnuMarkRow && menu.mnuMarkRow.enabled)
        marker.toggle();
    else if (entry == MenuEntry::mnuAddRow && menu.mnuAddRow.enabled)
        rows.add();
    else if (entry == MenuEntry::mnuInsertRow && menu.mnuInsertRow.enabled)
        rows.insertAtMark();
    else if (entry == MenuEntry::mnuRemoveRow && menu.mnuRemoveRow.enabled)
        rows.removeMarked();
    else if (entry == MenuEntry::mnuTableClear && menu.mnuTableClear.enabled)
        rows.clear();
}

CellEditor *Control::editorOf(WidgetId widget) noexcept {
    switch (widget) {
    case WidgetId::txtEdit:
        return &textEditor;
    case WidgetId::cboEdit:
        return &comboEditor;
    case WidgetId::txtDateEdit:
        return &dateEditor;
    default:
        return nullptr;
    }
}

void Control::focusLost(WidgetId widget) {
    state.link.markChanged();
    if (widget == WidgetId::Grid)
        state.grid.setFocusRect(0);
    else if (widget == WidgetId::mvCalender)
        dateEditor.calendarLostFocus();
    else if (CellEditor *editor = editorOf(widget))
        editor->lostFocus();
}

void Control::focusGot(WidgetId widget) {
    // The lookup button presses itself when it gets the focus.
    if (widget == WidgetId::cmdLookup)
        session.pressLookup();
    if (widget != WidgetId::Grid)
        return;
    state.grid.setFocusRect(2);
    const CellAddress cell = state.grid.current();
    if (state.grid.table.hasCell(cell.row, cell.col))
        state.link.CellFocus(cell);
}

} // namespace tablio
