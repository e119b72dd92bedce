#pragma once

/// The editor of date cells: the masked box, the test of what was typed before a key leaves it, and
/// the calendar that opens from its button. An operator is never trapped: Esc always leaves.

#include "editing/edit_session.h"

namespace tablio {

class DateEditor final : public CellEditor {
public:
    DateEditor(ControlState &state, EditSession &session, Navigator &navigator);

    void place(const Rect &cell, int col, bool withLookup) override;
    void load(const EditStart &start, int col, const std::string &text) override;
    void follow(const Rect &cell) override;
    bool keyDown(KeyCode key, ShiftState shift) override;
    void keyPress(char32_t character) override;
    void lostFocus() override;
    void paste(std::string_view text) override;
    void setAnswer(const std::string &value) override { box_.setText(value); }
    [[nodiscard]] const std::string &oldText() const override { return box_.Tag(); }
    /// Opens the calendar on the cell's date or today.
    void pressButton() override;

    // The calendar, while it is open.
    bool calendarKeyDown(KeyCode key, ShiftState shift);
    void pick(const Date &date);
    /// Closes the calendar and leaves the cell as it was.
    void dismissCalendar();
    void calendarLostFocus();
    /// The face's calendar has this size: the container takes it and stays inside the control.
    void setCalendarSize(Twips width, Twips height);

private:
    [[nodiscard]] bool mayLeave();
    void changed();
    void placeCalendar(const Rect &cell);
    void hideCalendar();
    [[nodiscard]] bool isLeavingKey(KeyCode key, ShiftState shift) const;

    ControlState &state_;
    EditSession &session_;
    Navigator &navigator_;
    MaskedBox &box_;
    /// Cleared while the focus goes from the date box to its calendar, which is no end of the edit.
    bool movesOn_ = true;
    std::string loaded_;
};

} // namespace tablio
