#pragma once

/// The calls that a face makes into the control when the user does something. The core decides
/// what follows; a face never does. Positions are twips from the control's top left corner; what is
/// beyond any screen counts as its edge, so that no number which a platform reports does harm.

#include <tablio/face.h>
#include <tablio/types.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tablio {

class Control;

/// Whether the core has dealt with an action, so that the native widget must not.
enum class Dealt { No, Yes };

/// The entries of the pop-up menu `mnuTableMenu`, in their order; the separators are its lines.
enum class MenuEntry {
    mnuMarkRow,
    mnuLine1,
    mnuAddRow,
    mnuInsertRow,
    mnuRemoveRow,
    mnuLine2,
    mnuTableClear,
};

/// What somebody who reaches cells by neither key nor mouse asks of one, such as a screen reader;
/// `Screen::offers` says what a cell has. All put the cursor there first.
enum class CellAction { Reach, Edit, Tick, OpenList, OpenCalendar, LookUp };

/// How far a wheel was turned: in logical pixels, or in parts of a row or column, 120 to each.
enum class WheelUnit { Pixel, Part };

/// Exceptions that host handlers throw pass through every function here, with the control in order.
class Input {
public:
    explicit Input(std::shared_ptr<Control> control) : control_(std::move(control)) {}

    /// A key went down. When the core has dealt with it, no character follows; else the face sends
    /// the characters the key types, if it types any.
    Dealt keyDown(KeyCode key, ShiftState shift);
    /// A character was typed (Backspace is character 8). Dealt::No leaves it to the host's form.
    Dealt keyPress(char32_t character);
    /// Text that arrives whole: an input method's result or an on-screen keyboard's.
    void typeText(std::string_view text);
    /// An input method begins to compose. Starts an edit where a typed character would; No means
    /// that nothing may be composed here and the composition has to be dropped.
    Dealt beginComposition();

    void mouseDown(MouseButton button, Twips x, Twips y);
    void mouseMove(Twips x, Twips y);
    void mouseUp(MouseButton button, Twips x, Twips y);
    void doubleClick(Twips x, Twips y);
    /// Does to a cell what it offers, as the keys for it would; No where it does not offer that. An
    /// edit that is open elsewhere ends first.
    Dealt act(CellAddress cell, CellAction action);
    /// Whether a press here would drag a column's border.
    [[nodiscard]] bool isColumnEdge(Twips x, Twips y) const;
    /// Scrolls to a row and a column, as far as there are any.
    void scrollTo(int topRow, int leftCol);
    /// The wheel was turned this far to the left and up. What is less than a column or a row is
    /// kept for the next turn. Dealt::No where the table has nothing to scroll.
    Dealt wheelTurned(WheelUnit unit, int left, int up);

    /// The keyboard has come into the control, or left it for another widget (not for a pop-up or
    /// another program's window).
    void focusEntered();
    void focusLeft();
    /// Something outside is about to look at the table: an open edit ends as by a click elsewhere.
    void endEdit();
    [[nodiscard]] bool hasKeyboard() const noexcept;
    /// Whether the control takes this key before any shortcut of its host's window may; a key that
    /// types a text is not a command of somebody else's.
    [[nodiscard]] bool wantsKey(KeyCode key, ShiftState shift, bool typesText) const noexcept;
    /// For a face whose clipboard comes with an event: what Ctrl+V, Ctrl+C and Ctrl+X do, in place
    /// of the key. Copying and cutting answer the text for the clipboard, nothing where there is
    /// none.
    Dealt paste(std::string_view text);
    std::optional<std::string> copy();
    std::optional<std::string> cut();
    /// The user pressed this button of the control: `cmdLookup` or `cmdCalender`.
    void buttonPressed(WidgetId button);

    // What native editors report carries the edit that they showed; a report for any other than the
    // open edit is dropped, and one that says nothing new changes nothing.
    /// The native box has edited by itself: its text, where its selection began and its caret, in
    /// UTF-16 units. Without a selection both are the same.
    void textSettled(EditNumber edit, std::string_view text, int anchor, int caret);
    /// The user opened or closed the combo's list, or chose an item of it with the mouse.
    void comboDropped(EditNumber edit, bool dropped);
    void comboItemChosen(EditNumber edit, int index);
    /// The user went to another day of the calendar, or picked one.
    void calendarMoved(EditNumber edit, const Date &day);
    void calendarPicked(EditNumber edit, const Date &day);
    /// The user turned the calendar so many months on, or back; the day goes along.
    void calendarTurned(EditNumber edit, int months);
    /// The native calendar has this size.
    void calendarSized(Twips width, Twips height);
    /// The user chose an entry of the pop-up menu.
    void menuChosen(MenuEntry entry);
    /// The user answered what Face::showQuestion() asked last.
    void questionAnswered(bool yes);
    void resized(Twips width, Twips height);
    /// The control comes into sight. The first time, a cursor that nobody has moved goes to the
    /// first data row in PrimaryColumn.
    void appeared();
    /// Whether the face's user reads from the right to the left: columns, arrow keys, editors and
    /// buttons follow.
    void setRightToLeft(bool rightToLeft);
    /// How high a line of the face's own text is. While nobody sets RowMinHeight, rows follow it.
    void textHeight(Twips height);

private:
    Dealt clipboardKey(KeyCode key, std::optional<std::string> &clipboard);

    std::shared_ptr<Control> control_;
    /// The key that is down is the keypad's decimal one, whose character the locale decides.
    bool decimalKeyIsDown_ = false;
    /// What is left of the wheel's turns, by their unit.
    std::array<std::array<int, 2>, 2> wheelRests_{};
};

} // namespace tablio
