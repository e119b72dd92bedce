#pragma once

/// What a column makes of text, however it comes: typed, composed, pasted alone or in a block,
/// dropped, settled in a native box, or looked up by the host. Editors and whoever writes cells
/// without one ask here, so that no way goes round a rule. Nothing is changed here.

#include "state/control_state.h"

#include <optional>
#include <string>
#include <string_view>

namespace tablio {

/// The character as the column's case rule wants it.
[[nodiscard]] char32_t foldCase(char32_t character, TDataType dataType, const Face &face);

/// A single-line text as the column's case rule wants it: tabs and line ends become blanks. Only
/// text columns have such a rule.
[[nodiscard]] std::string foldedText(const ControlState &state, int col, std::string_view text);

/// What a whole text becomes that arrives at once: trimmed, folded, cut to room UTF-16 units (0:
/// no limit), a number grouped, a date in the box's own form. Nothing for a text that is no value
/// of a numeric column or has no room there, and for one that is no date in a date column.
[[nodiscard]] std::optional<std::string> acceptableText(const ControlState &state, int col,
                                                        std::string_view text, int room);

/// A sentence on why acceptableText() takes nothing of this text in a numeric column.
[[nodiscard]] std::string whyRefused(const ControlState &state, int col, std::string_view text,
                                     int room);

/// What the end of an entry makes of the text: a negative column signs its numbers.
[[nodiscard]] std::string finishedText(const ControlState &state, int col, std::string text);

/// What the host is told of an entry: whether there is one, in a combo column a new one that its
/// list has.
[[nodiscard]] bool isValidEntry(const ControlState &state, int col, std::string_view text,
                                std::string_view oldText);

} // namespace tablio
