#include "control/control.h"

namespace tablio {

Control::Control()
    : state(*this, *this), cells(state), navigator(state), session(state, cells, navigator),
      textEditor(state, session, navigator), replacement(state, session, cells),
      rows(state, session), gridInput(state, session, navigator, replacement,
                                      {[this](std::string_view text) { textEditor.paste(text); },
                                       [this] { rows.append(); }}) {
    session.setEditors([this](TColumnType) -> CellEditor & { return textEditor; });
    state.focus.onLost = [this](WidgetId widget) { focusLost(widget); };
    state.focus.onGot = [this](WidgetId widget) { focusGot(widget); };
    state.focus.onMoved = [this](WidgetId widget) { state.link.face().focusChanged(widget); };
    state.columns.followColumnCount();
}

void Control::gridEnterCell() {
    if (state.IsClearing)
        return;
    state.current = state.grid.current();
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

void Control::widgetChanged(WidgetId widget) { state.link.face().widgetChanged(widget); }

void Control::focusLost(WidgetId widget) {
    switch (widget) {
    case WidgetId::Grid:
        state.grid.setFocusRect(0);
        break;
    case WidgetId::txtEdit:
        textEditor.lostFocus();
        break;
    default:
        break;
    }
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
