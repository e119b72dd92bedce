#pragma once

/// The text editor of text, decimal and integer cells: what each key does in `txtEdit`, how its
/// text is filtered and grouped, and what it hands over when it loses the focus.

#include "editing/edit_session.h"

namespace tablio {

class TextEditor final : public CellEditor {
public:
    TextEditor(ControlState &state, EditSession &session, Navigator &navigator);

    void place(const Rect &cell, int col, bool withLookup) override;
    void load(const EditStart &start, int col, const std::string &text) override;
    void follow(const Rect &cell) override;

    bool keyDown(KeyCode key, ShiftState shift) override;
    void keyPress(char32_t character) override;
    void lostFocus() override;
    void paste(std::string_view text) override;
    void setAnswer(const std::string &value) override { box_.setText(value); }
    [[nodiscard]] const std::string &oldText() const override { return box_.Tag(); }

private:
    void loadNumber(const EditStart &start, int col, const std::string &text);
    void loadText(const EditStart &start, int col, const std::string &text);
    bool clipboardKey(KeyCode key, ShiftState shift);
    void changed();
    void reshape();
    [[nodiscard]] bool isFull() const;
    [[nodiscard]] std::int16_t filtered(std::int16_t keyAscii) const;
    [[nodiscard]] bool exceedsDecimals(std::int16_t keyAscii) const;
    [[nodiscard]] char32_t folded(char32_t character, int col) const;
    [[nodiscard]] int col() const noexcept { return session_.cell().col; }

    ControlState &state_;
    EditSession &session_;
    Navigator &navigator_;
    TextBox &box_;
};

} // namespace tablio
