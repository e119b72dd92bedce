#pragma once

/// What all editors do alike: lie over a cell and follow it, type what the host lets through, cut,
/// copy and paste, leave by keys, and report changes. Each kind states its differences: how it
/// loads, which characters it takes, which keys leave it, and what it makes of its text at the end.

#include "editing/edit_session.h"

#include <string>
#include <string_view>

namespace tablio {

class BoxEditor {
public:
    BoxEditor(const BoxEditor &) = delete;
    BoxEditor &operator=(const BoxEditor &) = delete;
    virtual ~BoxEditor() = default;

    // For the edit session.
    /// Shows the editor over the cell, whose rectangle is relative to the grid, loads it with the
    /// cell's text and the first key, and takes the focus.
    void open(const EditStart &start, const Rect &cell, const std::string &text);
    /// The cell stands somewhere else now, or has another size.
    virtual void follow(const Rect &cell);
    /// What the text that stands in the editor makes of the cell, if it is accepted.
    [[nodiscard]] virtual EditResult result(bool accepted) const = 0;
    virtual void hide();
    /// Shows again what the editor was opened with, as a change like any other.
    virtual void restore() { box_.setText(box_.Tag()); }
    /// The cell's text from before the edit, as the host is told it.
    [[nodiscard]] const std::string &oldText() const noexcept { return box_.Tag(); }
    /// Presses the button over the cell, if there is one.
    virtual void pressButton();

    // What the user does while the editor has the keyboard.
    /// Answers whether the key is dealt with, so that no character follows from it.
    virtual bool keyDown(KeyCode key, ShiftState shift);
    void keyPress(char32_t character);
    /// Puts a text that arrives whole into the editor, by the column's rules.
    virtual void paste(std::string_view text) = 0;
    [[nodiscard]] TextField &box() noexcept { return box_; }

protected:
    /// The box stands in a clipping frame, or alone.
    BoxEditor(ControlState &state, EditSession &session, Navigator &navigator, TextField &box,
              PlainWidget *frame);

    /// Where the box stands: in its frame, or for a box without one in the grid.
    [[nodiscard]] virtual Rect placeOver(const Rect &cell) const = 0;
    /// The button over the cell's right end; null for none.
    [[nodiscard]] virtual PlainWidget *buttonFor(const EditStart &start) const;
    virtual void load(const EditStart &start, const std::string &text) = 0;
    /// The first character, when the editor has the focus.
    virtual void typeFirst(const EditStart &start);
    /// The character as it enters the text; 0 for one that does not.
    virtual char32_t admitted(char32_t character) = 0;
    /// Puts the character in place of the selection, or takes one away.
    virtual void enter(char32_t character) { box_.type(character); }
    virtual void erase() { box_.backspace(); }
    /// The host has heard of a change, and the edit goes on.
    virtual void changed() {}
    [[nodiscard]] virtual bool leavesBy(KeyCode key, ShiftState shift) const;
    [[nodiscard]] virtual bool mayLeave() { return true; }
    /// Moves the cursor from the cell that was left by a key.
    virtual void moveOn(KeyCode key);

    /// Raises CellKeyPress; answers what the host makes of the code, 0 when the edit is over.
    char32_t askHost(char32_t code);
    [[nodiscard]] int col() const noexcept { return session_.EditCol(); }
    [[nodiscard]] PlainWidget *button() const noexcept { return button_; }

    ControlState &state_;
    EditSession &session_;
    Navigator &navigator_;

private:
    bool clipboardKey(KeyCode key, ShiftState shift);

    TextField &box_;
    PlainWidget *frame_;
    PlainWidget *button_ = nullptr;
};

} // namespace tablio
