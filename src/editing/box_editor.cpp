#include "editing/box_editor.h"

#include "model/text/trim.h"
#include "model/text/utf16.h"

#include <initializer_list>

namespace tablio {

BoxEditor::BoxEditor(ControlState &state, EditSession &session, Navigator &navigator,
                     TextField &box, PlainWidget *frame)
    : state_(state), session_(session), navigator_(navigator), box_(box), frame_(frame) {
    box_.onChange = [this] {
        if (session_.reportChange(box_.Text()))
            changed();
    };
}

void BoxEditor::open(const EditStart &start, const Rect &cell, const std::string &text) {
    const GridLook &look = state_.grid.table.look();
    box_.setLook({look.BackColor, look.ForeColor, look.Font});
    button_ = buttonFor(start);
    follow(cell);
    for (Widget *part : std::initializer_list<Widget *>{&box_, frame_, button_}) {
        if (part != nullptr)
            part->setVisible(true);
    }
    load(start, text);
    state_.focus.set(box_.id());
    typeFirst(start);
}

PlainWidget *BoxEditor::buttonFor(const EditStart &start) const {
    return start.WithLookup ? &state_.widgets.cmdLookup : nullptr;
}

void BoxEditor::typeFirst(const EditStart &start) {
    if (start.Typed && start.Key != 0)
        keyPress(start.Key);
}

void BoxEditor::follow(const Rect &cell) {
    box_.setPlace(placeOver(cell));
    if (frame_ != nullptr)
        frame_->setPlace(cell);
    if (button_ != nullptr)
        button_->setPlace(
            {state_.grid.view.isRightToLeft() ? cell.left : cell.right() - button_->Width(),
             cell.top, button_->Width(), cell.height});
}

void BoxEditor::hide() {
    for (PlainWidget *part : {frame_, button_}) {
        if (part != nullptr)
            part->setVisible(false);
    }
    box_.setVisible(false);
}

void BoxEditor::pressButton() {
    if (button_ != nullptr)
        session_.askLookup();
}

bool BoxEditor::keyDown(KeyCode key, ShiftState shift) {
    if (clipboardKey(key, shift))
        return true;
    const bool isCommand = (shift & (Shift::Ctrl | Shift::Alt)) != 0;
    const bool walks = key == Key::Tab && state_.walksByTab(shift);
    const bool back = shift == Shift::Shift;
    const KeyCode inText = state_.inText(key, box_.Text());
    if (walks && !navigator_.canWalk(back))
        return false;
    if (walks && mayLeave()) {
        session_.leave([this, back] { navigator_.walk(back); });
    } else if (walks) {
        return true;
    } else if (key == Key::Escape && !isCommand) {
        session_.cancel();
    } else if (key == Key::F10 && !isCommand) {
        pressButton();
    } else if (!isCommand && leavesBy(inText, shift)) {
        if (mayLeave())
            session_.leave([this, to = state_.inOrder(key)] { moveOn(to); });
    } else {
        return box_.keyDown(inText, shift);
    }
    return true;
}

bool BoxEditor::leavesBy(KeyCode key, ShiftState shift) const {
    const bool isPlain = shift == Shift::None;
    switch (key) {
    case Key::Enter:
    case Key::Up:
    case Key::Down:
        return true;
    case Key::Left:
        return isPlain && box_.SelStart() == 0;
    case Key::Right:
        return isPlain && box_.SelStart() == utf16::length(trimmed(box_.Text()));
    default:
        return false;
    }
}

void BoxEditor::moveOn(KeyCode key) {
    if (key == Key::Left)
        navigator_.left();
    else if (key == Key::Right)
        navigator_.right();
    else if (key == Key::Up)
        navigator_.up();
    else if (key == Key::Down)
        navigator_.down();
    else
        navigator_.advance();
}

bool BoxEditor::clipboardKey(KeyCode key, ShiftState shift) {
    const bool ctrl = shift == Shift::Ctrl;
    const bool isShifted = shift == Shift::Shift;
    if ((ctrl && key == Key::V) || (isShifted && key == Key::Insert)) {
        paste(state_.link.clipboardText());
        return true;
    }
    const bool cutting = (ctrl && key == Key::X) || (isShifted && key == Key::Delete);
    if (!cutting && !(ctrl && (key == Key::C || key == Key::Insert)))
        return false;
    if (box_.SelLength() > 0) {
        state_.link.setClipboardText(box_.SelText());
        if (cutting)
            box_.insert({});
    }
    return true;
}

void BoxEditor::keyPress(char32_t character) {
    constexpr auto back = static_cast<char32_t>(Key::Back);
    if (character < U' ' && character != back)
        return;
    const Standing typed(state_, session_, session_.cell());
    const char32_t taken = admitted(character);
    if (taken == 0 || !typed.isSameEdit())
        return;
    if (taken == back)
        erase();
    else
        enter(taken);
}

char32_t BoxEditor::askHost(char32_t code) {
    const Standing asked(state_, session_, session_.cell());
    const std::int16_t answer = state_.link.CellKeyPress(
        state_.cursor.cell(), static_cast<std::int16_t>(static_cast<std::uint16_t>(code)));
    if (!asked.isSameEdit())
        return 0;
    session_.setLastKey(answer);
    return static_cast<std::uint16_t>(answer);
}

} // namespace tablio
