#include "editing/date_editor.h"

#include "model/text/date_text.h"

#include <algorithm>

namespace tablio {

DateEditor::DateEditor(ControlState &state, EditSession &session, Navigator &navigator)
    : state_(state), session_(session), navigator_(navigator), box_(state.widgets.txtDateEdit) {
    box_.onChange = [this] { changed(); };
    state.widgets.picDate.setPlace({0, 0, 4000, 3000});
}

void DateEditor::place(const Rect &cell, int /*col*/, bool /*withLookup*/) {
    const GridLook &look = state_.grid.table.look();
    box_.setLook({look.BackColor, look.ForeColor, look.Font});
    box_.setPlace(cell);
    box_.setVisible(true);
    PlainWidget &button = state_.widgets.cmdCalender;
    button.setPlace({cell.right() - button.Width(), cell.top, button.Width(), cell.height});
    button.setVisible(true);
}

void DateEditor::load(const EditStart &start, int col, const std::string &text) {
    const CellAddress cell = session_.cell();
    // A column that shows its dates in another form remembers them as day, month, year.
    const std::string given(state_.grid.table.unformatted(cell.row, col));
    const std::string &date = IsDateInvalid(given) ? text : given;
    box_.setTag(text);
    box_.load(IsDateInvalid(date) ? std::string() : date);
    loaded_ = box_.Text();
    if (start.typed || start.key == U' ')
        box_.load({});
    state_.focus.set(WidgetId::txtDateEdit);
    const bool isCharacter = start.key > U' ' && start.key != static_cast<char32_t>(Key::F2) &&
                             start.key != static_cast<char32_t>(Key::F10);
    if (isCharacter || start.typed)
        keyPress(start.key);
}

void DateEditor::follow(const Rect &cell) {
    box_.moveTo(cell.left, cell.top);
    PlainWidget &button = state_.widgets.cmdCalender;
    button.moveTo(cell.right() - button.Width(), cell.top);
    if (!state_.widgets.picDate.Visible())
        return;
    const GridView &view = state_.grid.view;
    const bool isVisible = cell.bottom() > 0 && cell.right() > 0 && cell.top < view.Height() &&
                           cell.left < view.Width();
    if (isVisible)
        placeCalendar(cell);
    else
        dismissCalendar();
}

bool DateEditor::isLeavingKey(KeyCode key, ShiftState shift) const {
    if (shift != Shift::None)
        return false;
    return (key == Key::Left && box_.SelStart() == 0) ||
           (key == Key::Right && box_.SelStart() == box_.length()) || key == Key::Down ||
           key == Key::Up || key == Key::Enter;
}

bool DateEditor::keyDown(KeyCode key, ShiftState shift) {
    session_.setLastKey(key);
    const bool ctrl = shift == Shift::Ctrl;
    if (key == Key::Escape) {
        session_.cancel([this] { box_.setText(loaded_); });
        return true;
    }
    if (key == Key::F10 || key == Key::F4 || (key == Key::Down && shift == Shift::Alt)) {
        pressButton();
        return true;
    }
    if ((ctrl && key == Key::V) || (shift == Shift::Shift && key == Key::Insert)) {
        paste(state_.link.clipboardText());
        return true;
    }
    if (ctrl && (key == Key::C || key == Key::Insert || key == Key::X)) {
        state_.link.setClipboardText(box_.Text());
        if (key == Key::X)
            box_.setText({});
        return true;
    }
    if (!isLeavingKey(key, shift))
        return box_.keyDown(key, shift);
    if (!mayLeave())
        return true;
    switch (key) {
    case Key::Left:
        session_.leave([this] { navigator_.left(); });
        break;
    case Key::Right:
        session_.leave([this] { navigator_.right(); });
        break;
    case Key::Up:
        session_.leave([this] { navigator_.up(); });
        break;
    case Key::Down:
        session_.leave([this] { navigator_.down(); });
        break;
    default:
        session_.leave([this] { navigator_.advance(); });
        break;
    }
    return true;
}

bool DateEditor::mayLeave() {
    if (IsBlankDate(box_.Text()) || !IsDateInvalid(box_.Text()))
        return true;
    state_.link.face().showWarning("Warning", "Date Input Error ...");
    return false;
}

void DateEditor::keyPress(char32_t character) {
    const OpenEdit *edit = session_.open();
    if (edit == nullptr || character > 0xFFFF)
        return;
    const std::uint64_t number = edit->number;
    const std::int16_t keyAscii = state_.link.CellKeyPress(
        state_.cursor.cell(), static_cast<std::int16_t>(static_cast<std::uint16_t>(character)));
    if (!session_.isOpen(number))
        return;
    session_.setLastKey(keyAscii);
    if (keyAscii == Key::Back)
        box_.backspace();
    else
        box_.type(static_cast<std::uint16_t>(keyAscii));
}

void DateEditor::paste(std::string_view text) {
    if (session_.isOpen())
        box_.paste(text);
}

void DateEditor::changed() { session_.reportChange(*this, box_.Text()); }

void DateEditor::lostFocus() {
    if (!movesOn_)
        return;
    const std::optional<OpenEdit> edit = session_.detach(*this);
    if (!edit)
        return;
    // Only a date, or no date at all, gets into the cell.
    std::string text = box_.Text();
    if (IsDateInvalid(text))
        text = MaskedBox::blankText;
    const std::string before = box_.Tag();
    box_.setVisible(false);
    state_.widgets.cmdCalender.setVisible(false);
    OpenEdit ended = *edit;
    // An operator who only looked leaves the cell to the letter as it was.
    ended.restored = ended.restored || text == loaded_;
    const std::string written = IsBlankDate(text) ? DateToText(noDate) : text;
    session_.finish(ended, {written, text, before, !IsBlankDate(text)});
}

void DateEditor::pressButton() {
    const OpenEdit *edit = session_.open();
    if (edit == nullptr || edit->editor != this || state_.widgets.picDate.Visible())
        return;
    const CellAddress cell = edit->cell;
    const Date today = state_.link.face().today();
    const Date date = IsDateInvalid(loaded_) ? today : TextToDate(loaded_);
    state_.widgets.mvCalender.setValue(date);
    placeCalendar(state_.grid.view.cellRect(cell.row, cell.col));
    state_.widgets.mvCalender.setVisible(true);
    state_.widgets.picDate.setVisible(true);
    movesOn_ = false;
    state_.focus.set(WidgetId::mvCalender);
    movesOn_ = true;
}

/// Below the cell, above it where there is no room, and never outside the control.
void DateEditor::placeCalendar(const Rect &cell) {
    PlainWidget &frame = state_.widgets.picDate;
    const GridView &view = state_.grid.view;
    const Twips below = cell.bottom();
    const Twips above = cell.top - frame.Height();
    const bool fitsBelow = below + frame.Height() <= view.Height();
    const Twips lowest = std::max(0, view.Height() - frame.Height());
    const Twips top = fitsBelow || above < 0 ? below : above;
    const Twips rightmost = std::max(0, view.Width() - frame.Width());
    frame.moveTo(std::clamp(cell.left, 0, rightmost), std::clamp(top, 0, lowest));
}

void DateEditor::setCalendarSize(Twips width, Twips height) {
    PlainWidget &frame = state_.widgets.picDate;
    state_.widgets.mvCalender.setPlace({0, 0, width, height});
    frame.setPlace({frame.Left(), frame.Top(), width, height});
    const OpenEdit *edit = session_.open();
    if (frame.Visible() && edit != nullptr &&
        state_.grid.table.hasCell(edit->cell.row, edit->cell.col))
        placeCalendar(state_.grid.view.cellRect(edit->cell.row, edit->cell.col));
}

bool DateEditor::calendarKeyDown(KeyCode key, ShiftState shift) {
    session_.setLastKey(key);
    if (key == Key::Enter) {
        pick(state_.widgets.mvCalender.Value());
        return true;
    }
    if (key == Key::Escape || key == Key::F10 || key == Key::F4) {
        dismissCalendar();
        return true;
    }
    return state_.widgets.mvCalender.keyDown(key, shift);
}

void DateEditor::pick(const Date &date) {
    if (!state_.isCalendarOpen())
        return;
    session_.setLastKey(Key::Enter);
    const OpenEdit *edit = session_.open();
    const std::uint64_t number = edit != nullptr ? edit->number : 0;
    state_.widgets.mvCalender.setValue(date);
    hideCalendar();
    box_.setText(DateToText(state_.widgets.mvCalender.Value()));
    if (session_.isOpen(number))
        session_.leave([this] { navigator_.advance(); });
}

void DateEditor::dismissCalendar() {
    if (!state_.isCalendarOpen())
        return;
    session_.giveUp();
    hideCalendar();
    navigator_.giveFocusToGrid();
}

void DateEditor::calendarLostFocus() {
    if (!state_.isCalendarOpen())
        // Picked or dismissed: the box ends its edit now.
        lostFocus();
    else {
        session_.giveUp();
        hideCalendar();
        lostFocus();
    }
}

void DateEditor::hideCalendar() {
    state_.widgets.picDate.setVisible(false);
    state_.widgets.mvCalender.setVisible(false);
}

} // namespace tablio
