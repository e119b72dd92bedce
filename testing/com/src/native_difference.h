#pragma once

/// Whether a control's native windows show what the control holds.

#include "window/window.h"

#include <string>

namespace tablio::scenario {

/// What differs, in words; nothing when all is well.
[[nodiscard]] std::string nativeDifference(const com::Window &window);

} // namespace tablio::scenario
