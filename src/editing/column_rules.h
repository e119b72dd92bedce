#pragma once

/// What a column lets in when a whole text arrives at once, by paste or drop: the same case, sign,
/// number and length rules that hold for typing. They look at settings only and change nothing.

#include "state/column_settings.h"

#include <tablio/face.h>

#include <optional>
#include <string>
#include <string_view>

namespace tablio {

/// The character as the column's case rule wants it.
[[nodiscard]] char32_t foldCase(char32_t character, TDataType dataType, const Face &face);

/// The text as the column takes it, trimmed, folded and cut to room UTF-16 units (0: no limit);
/// nothing for a text that is no value of a numeric column.
[[nodiscard]] std::optional<std::string> acceptableText(const ColumnSettings &columns,
                                                        const Face &face, int col,
                                                        std::string_view text, int room);

} // namespace tablio
