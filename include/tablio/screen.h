#pragma once

/// What a face reads of a control: what is to be seen now, and where. Everything is worked out from
/// the control's state when it is asked, at a cost that follows what is visible and never the
/// number of rows. It changes nothing and never reaches the host.

#include <tablio/date.h>
#include <tablio/face.h>
#include <tablio/input.h>
#include <tablio/scene.h>
#include <tablio/types.h>

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tablio {

class Control;

/// One of the stock widgets, as the control places it in its container.
struct ScreenWidget {
    Rect place;
    bool isVisible = false;
    /// A text that the control keeps with it: an editor's is the cell's old text.
    std::string_view tag;
};

/// The open editor, whatever its kind, as one native text box shows it.
struct ScreenEditor {
    EditNumber edit = 0;
    CellAddress cell;
    std::string_view text;
    /// Where the selection began and where the caret is, in UTF-16 units.
    int anchor = 0;
    int caret = 0;
    /// Most UTF-16 units that may be typed, which the control itself sees to; 0 is no limit.
    int maxLength = 0;
    bool alignsRight = false;
    Colour BackColor;
    Colour ForeColor;
    const tablio::Font &Font;
    /// What clips the box.
    Rect frame;
    /// The box has the frame's height and begins at its left; this wide.
    Twips width = 0;
};

/// The open editor in pixels: its frame inside the lines of the cell, the width of the box
/// in it, and how much of the box's end the buttons of the cell cover: its left end in a control
/// that goes from the right to the left.
struct EditorPlace {
    PixelRect frame;
    int width = 0;
    int covered = 0;
};

/// The list of the combo, which belongs to the open editor.
struct ScreenList {
    std::span<const std::string> items;
    /// −1 for none.
    int chosen = -1;
    bool isDropped = false;
};

/// Six weeks of the calendar, around the month of the chosen day.
struct CalendarMonth {
    struct Day {
        Date date;
        bool isToday = false;
        bool isChosen = false;
        /// Of the month before or after; it is picked like any other.
        bool isOtherMonth = false;
        /// No date cell can hold it, so it cannot be picked.
        bool isOutOfRange = false;
    };
    std::array<Day, 42> days;
};

/// An entry of the pop-up menu, in English, with `&` before its access key; a line has no caption.
struct ScreenMenuEntry {
    MenuEntry entry = MenuEntry::mnuLine1;
    std::string_view caption;
    bool isEnabled = false;
    bool isChecked = false;
};

/// The room that the grid has beside its scroll bars, and which of them are shown. The bar for the
/// rows is at the grid's right, or before its left.
struct Arrangement {
    Twips left = 0;
    Twips width = 0;
    Twips height = 0;
    bool hasRowBar = false;
    bool hasColBar = false;
};

/// What a scroll bar counts: rows or columns, by their numbers.
struct ScrollRange {
    int first = 0;
    int last = 0;
    int page = 1;
    int position = 0;
};

/// What a scroll leaves to be moved: all that was painted below `top`, by so many logical pixels
/// down, or up where it is negative; 0 where everything has to be painted.
struct ScrollMove {
    int top = 0;
    int distance = 0;
};

/// What screen readers and input methods ask about a cell.
struct CellFacts {
    std::string_view header;
    std::string_view text;
    /// What is typed into the cell, and its case or sign rule.
    TColumnType type = TColumnType::ColumnString;
    TDataType dataType = TDataType::AllCase;
    /// A header, or a cell of a fixed column.
    bool isFixed = false;
    bool isReadOnly = false;
    /// The cell shows a box; it is ticked or not.
    bool isCheckBox = false;
    bool isTicked = false;
    /// Its row is the marked one.
    bool isMarked = false;
    /// The open edit is here.
    bool isEdited = false;
    /// The host refused what was last entered here, and nothing anywhere since.
    bool isRefused = false;
};

/// Positions are twips from the grid's top left corner, if nothing else is said. What is answered
/// by reference or as a view is valid until the control changes.
class Screen {
public:
    explicit Screen(const Control &control) noexcept : control_(control) {}

    /// Paints what lies in these areas, which are device pixels. A painter may be told to draw a
    /// little outside of them.
    void paint(std::span<const PixelRect> areas, const SceneLook &look,
               ScenePainter &painter) const;

    /// Where the cell is, also when it is scrolled away. Throws GridError, as the next but one, for
    /// a cell that the grid does not have.
    [[nodiscard]] Rect cellRect(CellAddress cell) const;
    [[nodiscard]] std::optional<CellAddress> cellAt(Twips x, Twips y) const;
    [[nodiscard]] CellFacts facts(CellAddress cell) const;
    /// Whether the cell, if there is such a one, can be asked for this by Input::act().
    [[nodiscard]] bool offers(CellAddress cell, CellAction action) const;
    /// Where the cursor is; nothing in a grid without such a cell.
    [[nodiscard]] std::optional<CellAddress> currentCell() const;

    /// As Input::setRightToLeft() has it. A face lets its own parts follow: scroll bars, the list,
    /// the calendar and the menu, whose place is that of its right corner then.
    [[nodiscard]] bool isRightToLeft() const noexcept;
    /// Nothing while the keyboard is outside the control.
    [[nodiscard]] std::optional<WidgetId> focusOwner() const noexcept;
    [[nodiscard]] ScreenWidget widget(WidgetId widget) const;
    /// Nothing while no edit is open.
    [[nodiscard]] std::optional<ScreenEditor> editor() const;
    /// Where that goes on a screen with so many device pixels to a logical one.
    [[nodiscard]] EditorPlace placeOf(const ScreenEditor &editor, const DevicePixels &pixels) const;
    /// The same in device pixels, for a platform that places its widgets by them.
    [[nodiscard]] EditorPlace devicePlaceOf(const ScreenEditor &editor,
                                            const DevicePixels &pixels) const;
    [[nodiscard]] ScreenList list() const;
    /// The day that is chosen in the calendar.
    [[nodiscard]] Date calendarDay() const noexcept;
    /// The month around it. Weekdays count from Monday, 0.
    [[nodiscard]] CalendarMonth calendarMonth(int firstWeekday) const;
    [[nodiscard]] std::array<ScreenMenuEntry, 7> menu() const;

    /// How the control is laid out in a room of this size, with bars this thick.
    [[nodiscard]] Arrangement arranged(Twips width, Twips height, Twips barWidth,
                                       Twips barHeight) const;
    [[nodiscard]] ScrollRange rowRange() const;
    [[nodiscard]] ScrollRange colRange() const;
    /// Since the table was painted with that row and that column first behind the fixed ones.
    [[nodiscard]] ScrollMove movedSince(int topRow, int leftCol, double scale) const;
    /// All rows and columns, from the corner of the first.
    [[nodiscard]] Rect wholeTable() const;

private:
    const Control &control_;
};

} // namespace tablio
