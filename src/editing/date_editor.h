#pragma once

/// The editor of date cells: the masked box, the test of what was typed before a key leaves it, and
/// the calendar that opens from its button. An operator is never trapped: Esc always leaves.

#include "editing/box_editor.h"

namespace tablio {

class DateEditor final : public BoxEditor {
public:
    DateEditor(ControlState &state, EditSession &session, Navigator &navigator);

    void follow(const Rect &cell) override;
    [[nodiscard]] EditResult result(bool accepted) const override;
    void hide() override;
    void restore() override { box_.setText(loaded_); }
    bool keyDown(KeyCode key, ShiftState shift) override;
    /// Takes a date, or digits as if they were typed; warns of anything else.
    void paste(std::string_view text) override;
    /// Opens the calendar on the cell's date or today.
    void pressButton() override;

    // The calendar, while it is open.
    bool calendarKeyDown(KeyCode key, ShiftState shift);
    void pick(const Date &date);
    /// Closes the calendar and leaves the cell as it was. Answers whether the cursor may go on.
    bool dismissCalendar();
    /// The face's calendar has this size: the container takes it and stays inside the control.
    void setCalendarSize(Twips width, Twips height);

private:
    [[nodiscard]] Rect placeOver(const Rect &cell) const override { return cell; }
    [[nodiscard]] PlainWidget *buttonFor(const EditStart &start) const override;
    void load(const EditStart &start, const std::string &text) override;
    void typeFirst(const EditStart &start) override;
    char32_t admitted(char32_t character) override;
    [[nodiscard]] bool mayLeave() override;
    [[nodiscard]] bool isCalendarOpen() const noexcept { return state_.isCalendarOpen(); }
    void placeCalendar();
    void hideCalendar();
    void warn(std::string_view text);
    [[nodiscard]] std::string entered() const;

    MaskedBox &box_;
    /// What the box was opened with, in its mask.
    std::string loaded_;
};

} // namespace tablio
