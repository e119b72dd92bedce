#pragma once

/// Draws what a user sees of the control as text: the table with the cursor, and the open editor
/// with its caret. Scenarios compare these pictures; they read the control and change nothing.

#include <tablio/testing/script.h>

#include "state/control_state.h"

#include <string>
#include <vector>

namespace tablio::scenario {

/// The rows of cells as they are shown, header first, the cursor's cell in [ ].
[[nodiscard]] std::vector<std::vector<std::string>> pictureOfTable(const ControlState &state);
/// Rows of cells as scenarios write them.
[[nodiscard]] std::string drawn(const std::vector<std::vector<std::string>> &rows);

/// What all editors have in common.
struct EditorView {
    const Widget *widget = nullptr;
    /// The frame that lies over the cell, or the widget itself.
    const Widget *frame = nullptr;
    std::string text;
    int selStart = 0;
    int selLength = 0;
    int maxLength = 0;
    bool isRightAligned = false;
};
/// The editor that is visible; without a widget when none is.
[[nodiscard]] EditorView editorOf(const ControlState &state);
/// The text with | for the caret or [ ] around the selection.
[[nodiscard]] std::string pictureOf(const EditorView &editor);

/// Throws ScriptError for a widget that the control has no model of.
[[nodiscard]] const Widget &widgetOf(const ControlState &state, WidgetId id);

} // namespace tablio::scenario
