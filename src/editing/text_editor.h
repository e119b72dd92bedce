#pragma once

/// The editor of text, decimal and integer cells: which characters `txtEdit` takes by the column's
/// rules, how a number is grouped while it is typed, and the sign that it gets at the end.

#include "editing/box_editor.h"

namespace tablio {

class TextEditor final : public BoxEditor {
public:
    TextEditor(ControlState &state, EditSession &session, Navigator &navigator);

    [[nodiscard]] EditResult result(bool accepted) const override;
    void paste(std::string_view text) override;
    bool keyDown(KeyCode key, ShiftState shift) override;

private:
    [[nodiscard]] Rect placeOver(const Rect &cell) const override;
    void load(const EditStart &start, const std::string &text) override;
    void typeFirst(const EditStart &start) override;
    char32_t admitted(char32_t character) override;
    void enter(char32_t character) override;
    void erase() override;
    void changed() override;
    [[nodiscard]] bool isNumeric() const { return state_.columns.isNumeric(col()); }
    [[nodiscard]] bool isDecimal() const {
        return state_.columns.ColEditType(col()) == TColumnType::ColumnDecimal;
    }
    [[nodiscard]] char32_t meant(char32_t character) const;
    [[nodiscard]] bool isDecimalSign(char32_t character) const;
    [[nodiscard]] std::string textBeforeCaret() const;
    [[nodiscard]] int groupSignAtCaret(bool behind) const;
    [[nodiscard]] bool isFull(char32_t character) const;
    [[nodiscard]] bool admitsSettled(std::string &text) const;
    [[nodiscard]] char32_t filtered(char32_t character) const;
    [[nodiscard]] bool exceedsDecimals(std::int16_t keyAscii) const;

    TextBox &box_;
};

} // namespace tablio
