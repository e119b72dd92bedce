#pragma once

/// What one control holds, put together from models and widgets: the grid, the column settings, the
/// editors, the focus and the members that several collaborators share. It is data with the few
/// rules that keep it consistent; what the control does with it stands in editing/ and rows/.

#include "model/grid/flex_grid.h"
#include "model/text/direction.h"
#include "state/change_hub.h"
#include "state/column_settings.h"
#include "state/entry_rules.h"
#include "state/host_link.h"
#include "widgets/calendar.h"
#include "widgets/combo_box.h"
#include "widgets/focus.h"
#include "widgets/masked_box.h"
#include "widgets/text_field.h"
#include "widgets/widget.h"

#include <optional>
#include <utility>

namespace tablio {

/// Stored members behind the properties of the same names.
struct Settings {
    int PrimaryColumn = 0;
    bool WithFixedColumn = false;
    Colour StripeColor{0x00FFFFFFU};
    Colour CheckBoxColor{0x000000FFU};
    bool HeaderFontBold = false;
    std::int16_t CheckBoxes = 0;
    bool GridPopUpMenu = true;
    bool Enabled = true;
    TEntryRules EntryRules = TEntryRules::Classic;
    /// Whether Tab walks the cells where the rules let it.
    bool TabWalks = true;
    /// The column that takes what the others leave; -1 for none.
    int StretchColumn = -1;
    /// Whether a tick cell shows a box, ticked or not.
    bool CheckBoxFrame = false;
    /// The control's redraw switch and loaded flag.
    bool SetStatusCell = false;
};

/// The stock widgets, hidden while no edit is open.
struct Widgets {
    explicit Widgets(WidgetListener &listener)
        : picText(WidgetId::picText, listener), txtEdit(WidgetId::txtEdit, listener),
          picEdit(WidgetId::picEdit, listener), cboEdit(WidgetId::cboEdit, listener),
          txtDateEdit(WidgetId::txtDateEdit, listener), cmdLookup(WidgetId::cmdLookup, listener),
          cmdCalender(WidgetId::cmdCalender, listener), picDate(WidgetId::picDate, listener),
          mvCalender(WidgetId::mvCalender, listener) {
        cmdLookup.setPlace({0, 0, buttonWidth, 0});
        cmdCalender.setPlace({0, 0, buttonWidth, 0});
    }

    static constexpr Twips buttonWidth = 330;

    PlainWidget picText;
    TextBox txtEdit;
    PlainWidget picEdit;
    ComboBox cboEdit;
    MaskedBox txtDateEdit;
    PlainWidget cmdLookup;
    PlainWidget cmdCalender;
    PlainWidget picDate;
    Calendar mvCalender;
};

/// The cell last entered, which the grid's current one may have left.
class Cursor {
public:
    [[nodiscard]] CellAddress cell() const noexcept { return {CurrentRow_, CurrentCol_}; }
    [[nodiscard]] int CurrentRow() const noexcept { return CurrentRow_; }
    [[nodiscard]] int CurrentCol() const noexcept { return CurrentCol_; }
    void enter(CellAddress cell) noexcept {
        CurrentRow_ = cell.row;
        CurrentCol_ = cell.col;
    }

private:
    int CurrentRow_ = 1;
    int CurrentCol_ = 0;
};

/// Left for Right and Right for Left.
[[nodiscard]] constexpr KeyCode turned(KeyCode key) noexcept {
    return key == Key::Left ? Key::Right : key == Key::Right ? Key::Left : key;
}

struct ControlState {
    ControlState(FlexGridEvents &gridEvents, WidgetListener &widgetListener)
        : grid(gridEvents), columns(grid.table), widgets(widgetListener) {}

    /// First, because widgets and grid report through it from their construction on.
    HostLink link;
    FlexGrid grid;
    ChangeHub changes{grid.table, link};
    ColumnSettings columns;
    Settings settings;
    Widgets widgets;
    Focus focus;
    Cursor cursor;

    /// Switches painting and the status flag together.
    void setStatusCell(bool status) {
        settings.SetStatusCell = status;
        grid.view.setRedraw(status);
    }
    /// What an arrow key means to the order of columns and days, which may go to the left.
    [[nodiscard]] KeyCode inOrder(KeyCode key) const noexcept {
        return grid.view.isRightToLeft() ? turned(key) : key;
    }
    /// The same in the editor's text, which has a direction of its own.
    [[nodiscard]] KeyCode inText(KeyCode key, std::string_view text) const noexcept {
        return grid.view.isRightToLeft() && runsRightToLeft(text) ? turned(key) : key;
    }
    [[nodiscard]] bool isCursorOnCell() const noexcept {
        return grid.table.hasCell(cursor.CurrentRow(), cursor.CurrentCol());
    }
    [[nodiscard]] bool walksByTab(ShiftState shift) const noexcept {
        return settings.TabWalks && rules().mayWalkByTab &&
               (shift == Shift::None || shift == Shift::Shift);
    }
    [[nodiscard]] EntryRuleSet rules() const noexcept {
        return EntryRuleSet::of(settings.EntryRules);
    }
    [[nodiscard]] bool isCalendarOpen() const noexcept { return widgets.picDate.Visible(); }
    /// The grid takes no input while the calendar lies over it.
    [[nodiscard]] bool gridEnabled() const noexcept {
        return settings.Enabled && !isCalendarOpen();
    }
    /// The last row that the control's moves and counts reach.
    [[nodiscard]] int lastDataRow() const noexcept {
        return grid.table.Rows() - grid.table.FixedRows();
    }
    /// Where the cursor goes when it leaves the last column.
    [[nodiscard]] int firstColumn() const noexcept {
        return settings.WithFixedColumn ? settings.PrimaryColumn : 0;
    }
    [[nodiscard]] bool isCheckCell(CellAddress cell) const noexcept {
        return (settings.CheckBoxes == 1 || settings.CheckBoxes == -1) &&
               cell.col == grid.table.Cols() - 1;
    }
};

/// Painting is off for the life of this object and on afterwards, also when a handler throws.
class RedrawOff {
public:
    explicit RedrawOff(FlexGrid &grid) : grid_(grid) { grid_.view.setRedraw(false); }
    ~RedrawOff() { grid_.view.setRedraw(true); }
    RedrawOff(const RedrawOff &) = delete;
    RedrawOff &operator=(const RedrawOff &) = delete;

private:
    FlexGrid &grid_;
};

/// Painting is put off for the life of this object, and not switched on: what changed meanwhile is
/// painted together, unless the host has switched painting off.
class RepaintOnce {
public:
    explicit RepaintOnce(FlexGrid &grid) : grid_(grid), before_(grid.view.Redraw()) {
        grid_.view.setRedraw(false);
    }
    ~RepaintOnce() { grid_.view.setRedraw(before_); }
    RepaintOnce(const RepaintOnce &) = delete;
    RepaintOnce &operator=(const RepaintOnce &) = delete;

private:
    FlexGrid &grid_;
    bool before_;
};

/// Like RedrawOff with the control's own status flag, for the bulk operations that switch both.
class StatusOff {
public:
    explicit StatusOff(ControlState &state) : state_(state) { state_.setStatusCell(false); }
    ~StatusOff() { state_.setStatusCell(true); }
    StatusOff(const StatusOff &) = delete;
    StatusOff &operator=(const StatusOff &) = delete;

private:
    ControlState &state_;
};

} // namespace tablio
