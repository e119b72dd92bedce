#pragma once

/// What scenarios see of the control that is no member of it: cells as shown, the open editor, the
/// widgets, the menu. The one source of the player that looks behind the control's public headers;
/// it changes nothing.

#include <tablio/members.h>
#include <tablio/tablio.h>
#include <tablio/testing/script.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tablio::scenario {

[[nodiscard]] std::string shownText(Tablio &core, CellAddress cell);
[[nodiscard]] CellAddress cursorOf(Tablio &core);
[[nodiscard]] std::optional<WidgetId> focusOf(Tablio &core);
/// Twips from the control's corner, as all places here.
[[nodiscard]] Rect placeOf(Tablio &core, CellAddress cell);
/// The cell that is to be seen at this point of the control, if there is one.
[[nodiscard]] std::optional<CellAddress> cellAt(Tablio &core, Twips x, Twips y);
[[nodiscard]] Rect areaOf(Tablio &core);

/// What all editors have in common.
struct OpenEditor {
    /// Of the frame that lies over the cell.
    Rect place;
    std::string text;
    int selStart = 0;
    int selLength = 0;
    std::string tag;
    int maxLength = 0;
    bool isRightAligned = false;
};
[[nodiscard]] std::optional<OpenEditor> editorOf(Tablio &core);
/// 0 for no edit.
[[nodiscard]] EditNumber openEditOf(Tablio &core);

struct WidgetView {
    Rect place;
    bool isVisible = false;
};
/// Throws ScriptError for a widget that the control has no model of.
[[nodiscard]] WidgetView widgetOf(Tablio &core, WidgetId id);

struct EntryView {
    bool isEnabled = false;
    bool isChecked = false;
};
/// Throws ScriptError for a line of the menu.
[[nodiscard]] EntryView entryOf(Tablio &core, MenuEntry entry);

/// A value that is no member, by name: "TopRow", "LastKey"; nothing for another name.
[[nodiscard]] std::optional<std::pair<MemberType, Value>> insideValue(Tablio &core,
                                                                      std::string_view name);

} // namespace tablio::scenario
