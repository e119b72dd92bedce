#include "editing/date_editor.h"

#include "editing/column_rules.h"
#include "model/text/date_reader.h"
#include "model/text/date_text.h"
#include "model/text/digits.h"
#include "model/text/trim.h"

#include <algorithm>

namespace tablio {

DateEditor::DateEditor(ControlState &state, EditSession &session, Navigator &navigator)
    : BoxEditor(state, session, navigator, state.widgets.txtDateEdit, nullptr),
      box_(state.widgets.txtDateEdit) {
    state.widgets.picDate.setPlace({0, 0, 4000, 3000});
}

PlainWidget *DateEditor::buttonFor(const EditStart & /*start*/) const {
    return &state_.widgets.cmdCalender;
}

void DateEditor::load(const EditStart &start, const std::string &text) {
    // A column that shows its dates in another form remembers them as day, month, year.
    const std::string given(state_.grid.table.CellData(session_.EditRow(), col()));
    const std::string &date = IsDateInvalid(given) ? text : given;
    box_.setTag(text);
    box_.load(IsDateInvalid(date) ? std::string() : date);
    loaded_ = box_.Text();
    if (start.Typed || start.Key == U' ')
        box_.load({});
}

void DateEditor::typeFirst(const EditStart &start) {
    const bool isCharacter = start.Key > U' ' && start.Key != static_cast<char32_t>(Key::F2) &&
                             start.Key != static_cast<char32_t>(Key::F10);
    if (isCharacter || start.Typed)
        keyPress(start.Key);
}

void DateEditor::follow(const Rect &cell) {
    BoxEditor::follow(cell);
    if (!isCalendarOpen())
        return;
    const GridView &view = state_.grid.view;
    const bool isVisible = cell.bottom() > 0 && cell.right() > 0 && cell.top < view.Height() &&
                           cell.left < view.Width();
    if (isVisible)
        placeCalendar();
    else
        dismissCalendar();
}

bool DateEditor::keyDown(KeyCode key, ShiftState shift) {
    if ((key == Key::F4 && shift == Shift::None) || (key == Key::Down && shift == Shift::Alt)) {
        pressButton();
        return true;
    }
    // A date is copied and cut as a whole unless a part of it is selected.
    const bool isWhole = shift == Shift::Ctrl && box_.SelLength() == 0;
    if (isWhole && (key == Key::C || key == Key::Insert)) {
        state_.link.setClipboardText(box_.Text());
        return true;
    }
    if (isWhole && key == Key::X)
        box_.selectAll();
    return BoxEditor::keyDown(key, shift);
}

void DateEditor::paste(std::string_view text) {
    const std::string_view digits = trimmed(text);
    if (digits.empty())
        return;
    if (const std::optional<std::string> date = acceptableText(state_, col(), text, 0))
        box_.setText(*date);
    else if (digits.size() < 8 && digits.find_first_not_of("0123456789") == std::string_view::npos)
        box_.insert(digits);
    else
        warn(digits);
}

bool DateEditor::mayLeave() {
    if (IsBlankDate(box_.Text()) || !IsDateInvalid(entered()))
        return true;
    warn(entered());
    return false;
}

void DateEditor::warn(std::string_view text) {
    state_.link.face().showWarning("Warning", state_.rules().explainsDates
                                                  ? whatIsWrongWith(text)
                                                  : std::string("Date Input Error ..."));
}

/// What the box holds, a year of two digits completed where the rules say so.
std::string DateEditor::entered() const {
    const std::string &text = box_.Text();
    constexpr std::size_t shortLength = 8;
    const bool isShort = text.find('_') == shortLength && state_.rules().takesShortYears;
    const auto date =
        isShort ? readDate(text.substr(0, shortLength), DateOrder::DayMonthYear) : std::nullopt;
    return date.value_or(text);
}

char32_t DateEditor::admitted(char32_t character) {
    return askHost(state_.rules().takesAllDigits ? plainDigit(character) : character);
}

EditResult DateEditor::result(bool accepted) const {
    // A calendar that is closed without a pick leaves the cell as Esc does.
    accepted = accepted && !isCalendarOpen();
    std::string text = accepted ? entered() : loaded_;
    // Only a date, or no date at all, gets into the cell.
    const bool drops = IsDateInvalid(text) && !IsBlankDate(text);
    if (drops && state_.rules().keepsOldDate)
        return {std::nullopt, text, false, true};
    if (IsDateInvalid(text))
        text = MaskedBox::blankText;
    const bool isBlank = IsBlankDate(text);
    EditResult result{std::nullopt, text, !isBlank, drops};
    // An operator who only looked leaves the cell to the letter as it was.
    if (accepted && text != loaded_)
        result.written = isBlank ? DateToText(noDate) : text;
    return result;
}

void DateEditor::hide() {
    hideCalendar();
    BoxEditor::hide();
}

void DateEditor::pressButton() {
    if (isCalendarOpen())
        return;
    Calendar &calendar = state_.widgets.mvCalender;
    calendar.setValue(IsDateInvalid(loaded_) ? state_.link.face().today() : TextToDate(loaded_));
    placeCalendar();
    calendar.setVisible(true);
    state_.widgets.picDate.setVisible(true);
    state_.focus.set(calendar.id());
}

/// Below the cell, above it where there is no room, and never outside the control.
void DateEditor::placeCalendar() {
    PlainWidget &frame = state_.widgets.picDate;
    const GridView &view = state_.grid.view;
    const Rect cell = view.cellRect(session_.EditRow(), col());
    const Twips below = cell.bottom();
    const Twips above = cell.top - frame.Height();
    const bool fitsBelow = below + frame.Height() <= view.Height();
    const Twips lowest = std::max(0, view.Height() - frame.Height());
    const Twips top = fitsBelow || above < 0 ? below : above;
    const Twips rightmost = std::max(0, view.Width() - frame.Width());
    const Twips left = view.isRightToLeft() ? cell.right() - frame.Width() : cell.left;
    frame.moveTo(std::clamp(left, 0, rightmost), std::clamp(top, 0, lowest));
}

void DateEditor::setCalendarSize(Twips width, Twips height) {
    PlainWidget &frame = state_.widgets.picDate;
    state_.widgets.mvCalender.setPlace({0, 0, width, height});
    frame.setPlace({frame.Left(), frame.Top(), width, height});
    if (isCalendarOpen())
        placeCalendar();
}

bool DateEditor::calendarKeyDown(KeyCode key, ShiftState shift) {
    if (key == Key::Enter)
        pick(state_.widgets.mvCalender.Value());
    else if (key == Key::Escape || key == Key::F10 || key == Key::F4)
        dismissCalendar();
    else
        return state_.widgets.mvCalender.keyDown(key, shift);
    return true;
}

void DateEditor::pick(const Date &date) {
    if (!isCalendarOpen())
        return;
    session_.setLastKey(Key::Enter);
    state_.widgets.mvCalender.setValue(date);
    hideCalendar();
    const Standing picked(state_, session_, session_.cell());
    box_.setText(DateToText(state_.widgets.mvCalender.Value()));
    if (picked.isSameEdit())
        session_.leave([this] { navigator_.advance(); });
}

bool DateEditor::dismissCalendar() {
    if (!isCalendarOpen())
        return true;
    hideCalendar();
    return session_.cancel();
}

/// The keyboard is the box's again.
void DateEditor::hideCalendar() {
    state_.widgets.picDate.setVisible(false);
    state_.widgets.mvCalender.setVisible(false);
    if (state_.focus.owner() == WidgetId::mvCalender)
        state_.focus.pass(box_.id());
}

} // namespace tablio
