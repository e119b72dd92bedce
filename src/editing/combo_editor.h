#pragma once

/// The editor of combo cells: how `cboEdit` lies over the cell, which keys leave it, and what the
/// host hears of it. A text that is not in the list is kept as typed; the host is told Valid False.

#include "editing/edit_session.h"

namespace tablio {

class ComboEditor final : public CellEditor {
public:
    ComboEditor(ControlState &state, EditSession &session, Navigator &navigator, CellText &cells);

    void place(const Rect &cell, int col, bool withLookup) override;
    void load(const EditStart &start, int col, const std::string &text) override;
    void follow(const Rect &cell) override;
    bool keyDown(KeyCode key, ShiftState shift) override;
    void keyPress(char32_t character) override;
    void lostFocus() override;
    void paste(std::string_view text) override;
    void setAnswer(const std::string &value) override { box_.setText(value); }
    [[nodiscard]] const std::string &oldText() const override { return box_.Tag(); }

    /// The position in the list of the text of a combo cell; −1 for none and for other columns.
    /// Shows the text in the combo unless it is being edited.
    [[nodiscard]] int listIndexOf(CellAddress cell);

private:
    void changed();
    void goLeft();
    void goRight();

    ControlState &state_;
    EditSession &session_;
    Navigator &navigator_;
    CellText &cells_;
    ComboBox &box_;
};

} // namespace tablio
