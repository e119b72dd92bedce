#pragma once

/// The control behind `Tablio` and `Input`: its state and the collaborators that act on it, wired
/// together. It decides only which of them hears what; every rule stands in one of them. Both
/// outer classes share it, so that it outlives a `Tablio` that a handler destroys.

#include "control/start.h"
#include "editing/cell_replacement.h"
#include "editing/combo_editor.h"
#include "editing/date_editor.h"
#include "editing/edit_session.h"
#include "editing/grid_input.h"
#include "editing/navigator.h"
#include "editing/text_editor.h"
#include "rows/check_column.h"
#include "rows/marker.h"
#include "rows/row_stock.h"
#include "state/appearance.h"
#include "state/cell_text.h"
#include "state/control_state.h"

#include <tablio/input.h>

namespace tablio {

/// How an entry of the pop-up menu stands.
struct MenuState {
    bool enabled = false;
    bool checked = false;
};

class Control final : private FlexGridEvents, private WidgetListener {
public:
    Control();

    ControlState state;
    CellText cells;
    Navigator navigator;
    Appearance appearance;
    Marker marker;
    CheckColumn checks;
    RowStock rows;
    EditSession session;
    TextEditor textEditor;
    ComboEditor comboEditor;
    DateEditor dateEditor;
    CellReplacement replacement;
    GridInput gridInput;
    Start start;

    /// A store is being read: nobody is told of it, and cells that were painted stay so.
    bool isLoading = false;

    /// The rows, for an operation on them: an open edit ends first.
    [[nodiscard]] RowStock &settledRows();
    /// Writes values as CellText::writeBlock(), and appends the rows that are missing below the
    /// last one.
    void writeBlock(CellAddress first, int cols, std::span<const std::string_view> values);
    [[nodiscard]] MenuState menuState(MenuEntry entry) const noexcept;
    /// Does what an entry of the pop-up menu says; a disabled entry does nothing.
    void chooseMenu(MenuEntry entry);
    /// The operator has answered what the face asked last.
    void questionAnswered(bool yes);
    /// Tells the face that a property has another value.
    void notify(std::string_view property);

private:
    void gridEnterCell() override;
    void gridRowChange(int oldRow, int newRow) override;
    void gridScroll() override;
    void gridAreaChanged(const Rect &area) override;
    void widgetChanged(WidgetId widget) override;
    [[nodiscard]] bool asksToClear();
    void focusLost(WidgetId widget);
    void focusGot(WidgetId widget);

    bool isClearAsked_ = false;
};

} // namespace tablio
