#pragma once

/// The control behind `Tablio` and `Input`: its state and the collaborators that act on it, wired
/// together. It decides only which of them hears what; every rule stands in one of them. Both
/// outer classes share it, so that it outlives a `Tablio` that a handler destroys.

#include "editing/cell_replacement.h"
#include "editing/edit_session.h"
#include "editing/grid_input.h"
#include "editing/navigator.h"
#include "editing/text_editor.h"
#include "rows/row_stock.h"
#include "state/cell_text.h"
#include "state/control_state.h"

namespace tablio {

class Control final : private FlexGridEvents, private WidgetListener {
public:
    Control();

    ControlState state;
    CellText cells;
    Navigator navigator;
    EditSession session;
    TextEditor textEditor;
    CellReplacement replacement;
    RowStock rows;
    GridInput gridInput;

    /// Tells the face that a property has another value.
    void notify(std::string_view property) { state.link.face().propertyChanged(property); }

private:
    void gridEnterCell() override;
    void gridLeaveCell() override {}
    void gridRowChange(int oldRow, int newRow) override;
    void gridScroll() override;
    void gridAreaChanged(const Rect &area) override;
    void widgetChanged(WidgetId widget) override;
    void focusLost(WidgetId widget);
    void focusGot(WidgetId widget);
};

} // namespace tablio
