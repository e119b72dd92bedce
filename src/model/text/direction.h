#pragma once

/// Which way a text runs: by its first letter, as text boxes of all platforms have it. Nobody here
/// orders characters; that is the platform's.

#include <string_view>

namespace tablio {

/// Whether the first letter is one of a script that is written to the left. A text without letters
/// runs to the right, as numbers do everywhere.
[[nodiscard]] bool runsRightToLeft(std::string_view text) noexcept;

} // namespace tablio
