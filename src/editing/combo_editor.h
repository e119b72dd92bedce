#pragma once

/// The editor of combo cells: `cboEdit` and its list, which Left, Right and Delete treat in their
/// own way. A text that is not in the list is kept as typed; the host is told Valid False.

#include "editing/box_editor.h"

namespace tablio {

class ComboEditor final : public BoxEditor {
public:
    ComboEditor(ControlState &state, EditSession &session, Navigator &navigator);

    [[nodiscard]] EditResult result(bool accepted) const override;
    void hide() override;
    bool keyDown(KeyCode key, ShiftState shift) override;
    void paste(std::string_view text) override;

private:
    [[nodiscard]] Rect placeOver(const Rect &cell) const override;
    void load(const EditStart &start, const std::string &text) override;
    char32_t admitted(char32_t character) override;
    [[nodiscard]] bool leavesBy(KeyCode key, ShiftState shift) const override;
    void moveOn(KeyCode key) override;

    ComboBox &box_;
};

} // namespace tablio
