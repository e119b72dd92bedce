#include <tablio/input.h>

#include "control/control.h"

#include "model/number_text.h"
#include "widgets/utf16.h"

#include <algorithm>

namespace tablio {

// Each function holds the control while it runs: a handler may destroy its owner.

Dealt Input::keyDown(KeyCode key, ShiftState shift) {
    const std::shared_ptr<Control> control = control_;
    ControlState &state = control->state;
    state.keyIsDecimal = key == Key::Decimal;
    const bool editorWasVisible = state.widgets.txtEdit.Visible();
    Dealt dealt = Dealt::No;
    if (state.focus.owner() == WidgetId::Grid)
        dealt = control->gridInput.keyDown(key, shift);
    else if (state.focus.owner() == WidgetId::txtEdit)
        dealt = control->textEditor.keyDown(key, shift) ? Dealt::Yes : Dealt::No;
    // F10 would open the menu bar of the host's window under the operator's hands.
    return key == Key::F10 && editorWasVisible ? Dealt::Yes : dealt;
}

Dealt Input::keyPress(char32_t character) {
    const std::shared_ptr<Control> control = control_;
    ControlState &state = control->state;
    if (state.keyIsDecimal)
        character = static_cast<std::uint16_t>(decimalKey(state.link.face().numberFormat()));
    state.keyIsDecimal = false;
    if (state.focus.owner() == WidgetId::Grid)
        return control->gridInput.keyPress(character);
    if (state.focus.owner() != WidgetId::txtEdit)
        return Dealt::No;
    control->textEditor.keyPress(character);
    return Dealt::Yes;
}

void Input::typeText(std::string_view text) {
    const std::shared_ptr<Control> control = control_;
    for (const char32_t character : utf16::characters(text)) {
        if (control->state.link.isClosed())
            return;
        control->gridInput.expectNewKey();
        keyPress(character);
    }
}

Dealt Input::beginComposition() {
    const std::shared_ptr<Control> control = control_;
    if (control->state.focus.owner() == WidgetId::txtEdit)
        return Dealt::Yes;
    return control->state.focus.owner() == WidgetId::Grid ? control->gridInput.beginComposition()
                                                          : Dealt::No;
}

void Input::mouseDown(MouseButton button, Twips x, Twips y) {
    const std::shared_ptr<Control> control = control_;
    control->gridInput.mouseDown(button, x, y);
}

void Input::mouseMove(Twips x, Twips /*y*/) {
    const std::shared_ptr<Control> control = control_;
    control->gridInput.mouseMove(x);
}

void Input::mouseUp(MouseButton button, Twips x, Twips y) {
    const std::shared_ptr<Control> control = control_;
    control->gridInput.mouseUp(button, x, y);
}

void Input::doubleClick(Twips x, Twips y) {
    const std::shared_ptr<Control> control = control_;
    control->gridInput.doubleClick(x, y);
}

bool Input::isColumnEdge(Twips x, Twips y) const { return control_->gridInput.isColumnEdge(x, y); }

void Input::scrollBy(int rows, int cols) {
    const GridView &view = control_->state.grid.view;
    scrollTo(view.TopRow() + rows, view.LeftCol() + cols);
}

void Input::scrollTo(int topRow, int leftCol) {
    const std::shared_ptr<Control> control = control_;
    FlexGrid &grid = control->state.grid;
    if (grid.table.Rows() > 0)
        grid.view.setTopRow(std::clamp(topRow, 0, grid.table.Rows() - 1));
    if (grid.table.Cols() > 0)
        grid.view.setLeftCol(std::clamp(leftCol, 0, grid.table.Cols() - 1));
}

void Input::focusEntered() {
    const std::shared_ptr<Control> control = control_;
    control->state.link.face().setHostKeyPreview(false);
    if (!control->state.focus.owner())
        control->state.focus.set(WidgetId::Grid);
}

void Input::focusLeft() {
    const std::shared_ptr<Control> control = control_;
    control->state.link.face().setHostKeyPreview(true);
    control->state.focus.leave();
}

void Input::buttonPressed(WidgetId button) {
    const std::shared_ptr<Control> control = control_;
    if (button == WidgetId::cmdLookup && control->session.isOpen())
        control->session.pressLookup();
}

void Input::textSettled(WidgetId editor, std::string_view text, int selStart, int selLength) {
    const std::shared_ptr<Control> control = control_;
    if (editor == WidgetId::txtEdit && control->session.isOpen())
        control->state.widgets.txtEdit.settle(std::string(text), selStart, selLength);
}

void Input::resized(Twips width, Twips height) {
    const std::shared_ptr<Control> control = control_;
    control->state.grid.view.setSize(width, height);
}

} // namespace tablio
