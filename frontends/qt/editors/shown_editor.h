#pragma once

/// Which of the control's retained text editors is open, as the one native text box has to show it.
/// A further kind of editor is added here and nowhere else in the native box.

#include "state/control_state.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace tablio::qt {

struct ShownEditor {
    WidgetId id;
    /// The clipping frame, in twips of the grid, and the editor inside of it.
    Rect frame;
    Rect place;
    std::string_view text;
    /// Where the selection began, and the caret, its other end.
    int anchor;
    int caret;
    bool alignsRight;
    const EditorLook &look;
};

/// The part of a combo's cell that its arrow takes, in twips.
inline constexpr Twips comboArrowWidth = 330;

/// Nothing while no edit is open. Valid until the state changes.
[[nodiscard]] inline std::optional<ShownEditor> shownEditor(const ControlState &state) {
    const TextBox &box = state.widgets.txtEdit;
    const PlainWidget &frame = state.widgets.picText;
    if (box.Visible() && frame.Visible())
        return ShownEditor{box.id(),
                           frame.place(),
                           box.place(),
                           box.Text(),
                           box.anchor(),
                           box.caret(),
                           box.Alignment() == TextAlignment::Right,
                           box.look()};
    const ComboBox &combo = state.widgets.cboEdit;
    if (combo.Visible()) {
        const Rect &cell = state.widgets.picEdit.place();
        return ShownEditor{combo.id(),
                           cell,
                           {0, 0, std::max(0, cell.width - comboArrowWidth), cell.height},
                           combo.Text(),
                           combo.anchor(),
                           combo.caret(),
                           false,
                           combo.look()};
    }
    const MaskedBox &date = state.widgets.txtDateEdit;
    if (date.Visible())
        return ShownEditor{date.id(),   date.place(),  {0, 0, date.Width(), date.Height()},
                           date.Text(), date.anchor(), date.caret(),
                           false,       date.look()};
    return std::nullopt;
}

} // namespace tablio::qt
