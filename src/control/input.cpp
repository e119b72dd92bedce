#include <tablio/input.h>

#include "control/call.h"

#include "model/text/number_text.h"
#include "model/text/utf16.h"
#include "state/column_fit.h"

#include <tablio/pixels.h>

#include <algorithm>
#include <string>
#include <utility>

namespace tablio {

namespace {

/// No screen is larger (more than a million pixels), and sums of such lengths stay numbers.
constexpr Twips farthest = 1 << 25;

Twips within(Twips position) { return std::clamp(position, -farthest, farthest); }

Twips length(Twips given) { return std::clamp(given, 0, farthest); }

/// Whether there is such a day.
bool exists(const Date &day) {
    return day >= firstCellDay && day <= lastCellDay && day.month >= 1 && day.month <= 12 &&
           day.day >= 1 && day.day <= daysInMonth(day.year, day.month);
}

/// A call in which the user acts.
class UserCall : public Call {
public:
    template <typename... Arguments>
    UserCall(const std::shared_ptr<Control> &control, std::string_view name,
             const Arguments &...arguments)
        : Call(control), acting_((*this)->state.link.acting([&] {
              return UserAction{name, {Value(arguments)...}};
          })) {}

private:
    HostLink::Acting acting_;
};

} // namespace

Dealt Input::keyDown(KeyCode key, ShiftState shift) {
    const UserCall control(control_, "keyDown", key, shift);
    ControlState &state = control->state;
    decimalKeyIsDown_ = key == Key::Decimal;
    const bool editorWasVisible = state.widgets.txtEdit.Visible();
    bool dealt = false;
    if (state.focus.owner() == WidgetId::Grid) {
        dealt = state.gridEnabled() && control->gridInput.keyDown(key, shift) == Dealt::Yes;
    } else if (BoxEditor *editor = control->session.editor()) {
        control->session.setLastKey(key);
        dealt = state.isCalendarOpen()
                    ? control->dateEditor.calendarKeyDown(state.inOrder(key), shift)
                    : editor->keyDown(key, shift);
    }
    // F10 would open the menu bar of the host's window under the operator's hands.
    return dealt || (key == Key::F10 && editorWasVisible) ? Dealt::Yes : Dealt::No;
}

Dealt Input::keyPress(char32_t character) {
    const UserCall control(control_, "keyPress", static_cast<std::int32_t>(character));
    ControlState &state = control->state;
    if (std::exchange(decimalKeyIsDown_, false))
        character = static_cast<std::uint16_t>(decimalKey(state.link.face().numberFormat()));
    if (state.focus.owner() == WidgetId::Grid)
        return state.gridEnabled() ? control->gridInput.keyPress(character) : Dealt::No;
    BoxEditor *editor = control->session.editor();
    if (editor == nullptr || state.isCalendarOpen())
        return Dealt::No;
    editor->keyPress(character);
    return Dealt::Yes;
}

void Input::typeText(std::string_view text) {
    const UserCall control(control_, "typeText", text);
    for (const char32_t character : utf16::characters(text)) {
        if (control->state.link.isClosed())
            return;
        control->gridInput.expectNewKey();
        keyPress(character);
    }
}

Dealt Input::beginComposition() {
    const UserCall control(control_, "beginComposition");
    const ControlState &state = control->state;
    if (state.focus.owner() == WidgetId::Grid && state.gridEnabled())
        return control->gridInput.beginComposition();
    return control->session.isOpen() && !state.isCalendarOpen() ? Dealt::Yes : Dealt::No;
}

void Input::mouseDown(MouseButton button, Twips x, Twips y) {
    const UserCall control(control_, "mouseDown", button, x, y);
    // A click beside the calendar closes it and then counts as any click.
    if (control->dateEditor.dismissCalendar() && control->state.gridEnabled())
        control->gridInput.mouseDown(button, within(x), within(y));
}

void Input::mouseMove(Twips x, Twips /*y*/) { Call(control_)->gridInput.mouseMove(within(x)); }

void Input::mouseUp(MouseButton button, Twips x, Twips y) {
    const UserCall control(control_, "mouseUp", button, x, y);
    if (control->state.gridEnabled())
        control->gridInput.mouseUp(button, within(x), within(y));
}

void Input::doubleClick(Twips x, Twips y) {
    const UserCall control(control_, "doubleClick", x, y);
    if (control->state.gridEnabled())
        control->gridInput.doubleClick(within(x), within(y));
}

Dealt Input::act(CellAddress cell, CellAction action) {
    const Call control(control_);
    if (!control->dateEditor.dismissCalendar() || !control->state.gridEnabled())
        return Dealt::No;
    return control->gridInput.act(cell, action);
}

bool Input::isColumnEdge(Twips x, Twips y) const {
    return control_->gridInput.isColumnEdge(within(x), within(y));
}

void Input::scrollTo(int topRow, int leftCol) {
    const UserCall control(control_, "scrollTo");
    FlexGrid &grid = control->state.grid;
    if (grid.table.Rows() > 0)
        grid.view.setTopRow(std::clamp(topRow, 0, grid.table.Rows() - 1));
    if (grid.table.Cols() > 0)
        grid.view.setLeftCol(std::clamp(leftCol, 0, grid.table.Cols() - 1));
}

Dealt Input::wheelTurned(WheelUnit unit, int left, int up) {
    const UserCall control(control_, "wheelTurned");
    const FlexGrid &grid = control->state.grid;
    const int topRow = grid.view.TopRow();
    const bool isPixels = unit == WheelUnit::Pixel;
    const Twips rowHeight = grid.table.hasCell(topRow, 0) ? grid.table.RowHeight(topRow) : 0;
    auto &[restLeft, restUp] = wheelRests_[isPixels ? 0 : 1];
    const auto whole = [](int &rest, int turned, int step) {
        rest += within(turned);
        const int steps = rest / step;
        rest %= step;
        return steps;
    };
    constexpr int parts = 120;
    const int cols =
        whole(restLeft, left, isPixels ? GridTable::defaultColWidth / twipsPerPixel : parts);
    const int rows = whole(restUp, up, isPixels ? std::max(1, rowHeight / twipsPerPixel) : parts);
    const bool canScroll = grid.view.maxTopRow() > grid.table.FixedRows() ||
                           grid.view.maxLeftCol() > grid.table.FixedCols();
    scrollTo(topRow - rows, grid.view.LeftCol() - (grid.view.isRightToLeft() ? -cols : cols));
    return canScroll ? Dealt::Yes : Dealt::No;
}

void Input::focusEntered() {
    const UserCall control(control_, "focusEntered");
    control->state.link.face().setHostKeyPreview(false);
    if (BoxEditor *editor = control->session.editor())
        control->state.focus.set(editor->box().id());
    else if (!control->state.focus.owner())
        control->state.focus.set(WidgetId::Grid);
}

void Input::endEdit() { UserCall(control_, "endEdit")->session.EndCellEdit(); }

void Input::focusLeft() {
    const UserCall control(control_, "focusLeft");
    control->state.link.face().setHostKeyPreview(true);
    if (control->session.isOpen())
        control->session.EndCellEdit(true, std::nullopt);
    else
        control->state.focus.pass(std::nullopt);
}

bool Input::hasKeyboard() const noexcept { return control_->state.focus.owner().has_value(); }

bool Input::wantsKey(KeyCode key, ShiftState shift, bool typesText) const noexcept {
    const bool isEditing = control_->session.isOpen();
    switch (key) {
    case Key::Escape:
    case Key::Back:
        return isEditing;
    case Key::Tab:
        return control_->state.walksByTab(shift);
    case Key::C:
    case Key::V:
        return shift == Shift::Ctrl || typesText;
    case Key::A:
    case Key::X:
    case Key::Z:
        if (key == Key::Z && shift == Shift::Ctrl && control_->rows.canUndoClear())
            return true;
        return (shift & Shift::Ctrl) != 0 ? isEditing : typesText;
    case Key::F2:
    case Key::F10:
        return shift == Shift::None;
    case Key::Enter:
    case Key::PageUp:
    case Key::PageDown:
    case Key::End:
    case Key::Home:
    case Key::Left:
    case Key::Up:
    case Key::Right:
    case Key::Down:
    case Key::Insert:
    case Key::Delete:
        return (shift & Shift::Alt) == 0;
    default:
        return typesText;
    }
}

Dealt Input::paste(std::string_view text) {
    const UserCall control(control_, "paste", text);
    std::optional<std::string> clipboard(text);
    return clipboardKey(Key::V, clipboard);
}

std::optional<std::string> Input::copy() {
    const UserCall control(control_, "copy");
    std::optional<std::string> clipboard;
    clipboardKey(Key::C, clipboard);
    return clipboard;
}

std::optional<std::string> Input::cut() {
    const UserCall control(control_, "cut");
    std::optional<std::string> clipboard;
    clipboardKey(Key::X, clipboard);
    return clipboard;
}

Dealt Input::clipboardKey(KeyCode key, std::optional<std::string> &clipboard) {
    const Call control(control_);
    const auto other = control->state.link.otherClipboard(clipboard);
    return keyDown(key, Shift::Ctrl);
}

void Input::buttonPressed(WidgetId button) {
    const UserCall control(control_, "buttonPressed", button);
    if (button == WidgetId::cmdLookup && control->session.isOpen())
        control->session.pressLookup();
    else if (button == WidgetId::cmdCalender && control->session.editor() == &control->dateEditor)
        control->dateEditor.pressButton();
}

void Input::textSettled(EditNumber edit, std::string_view text, int anchor, int caret) {
    const UserCall control(control_, "textSettled", text, caret);
    if (control->session.isOpen(edit))
        control->session.editor()->box().settle(std::string(text), anchor, caret);
}

void Input::comboDropped(EditNumber edit, bool dropped) {
    const Call control(control_);
    if (control->session.isOpen(edit))
        control->state.widgets.cboEdit.setDroppedDown(dropped);
}

void Input::comboItemChosen(EditNumber edit, int index) {
    const UserCall control(control_, "comboItemChosen", index);
    if (!control->session.isOpen(edit))
        return;
    control->state.widgets.cboEdit.setDroppedDown(false);
    control->state.widgets.cboEdit.setListIndex(index);
}

void Input::calendarSized(Twips width, Twips height) {
    Call(control_)->dateEditor.setCalendarSize(length(width), length(height));
}

void Input::calendarMoved(EditNumber edit, const Date &day) {
    const Call control(control_);
    if (control->session.isOpen(edit) && exists(day))
        control->state.widgets.mvCalender.setValue(day);
}

void Input::calendarTurned(EditNumber edit, int months) {
    const Call control(control_);
    Calendar &calendar = control->state.widgets.mvCalender;
    if (control->session.isOpen(edit))
        calendar.setValue(calendar.Value().addMonths(months));
}

void Input::calendarPicked(EditNumber edit, const Date &day) {
    const UserCall control(control_, "calendarPicked", day.year, day.month, day.day);
    if (control->session.isOpen(edit) && exists(day))
        control->dateEditor.pick(day);
}

void Input::menuChosen(MenuEntry entry) {
    UserCall(control_, "menuChosen", entry)->chooseMenu(entry);
}

void Input::questionAnswered(bool yes) {
    UserCall(control_, "questionAnswered", yes)->questionAnswered(yes);
}

void Input::resized(Twips width, Twips height) {
    const UserCall control(control_, "resized", width, height);
    control->state.grid.view.setSize(length(width), length(height));
    stretchColumn(control->state);
}

void Input::setRightToLeft(bool rightToLeft) {
    const Call control(control_);
    control->state.grid.view.setRightToLeft(rightToLeft);
}

void Input::appeared() { Call(control_)->start.appear(); }

void Input::textHeight(Twips height) { Call(control_)->start.setTextHeight(height); }

} // namespace tablio
