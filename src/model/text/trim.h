#pragma once

/// Text without the blanks at its ends, as the control compares and measures texts everywhere.

#include <string_view>

namespace tablio {

[[nodiscard]] inline std::string_view trimmed(std::string_view text) noexcept {
    const std::size_t from = text.find_first_not_of(' ');
    if (from == std::string_view::npos)
        return {};
    return text.substr(from, text.find_last_not_of(' ') - from + 1);
}

} // namespace tablio
