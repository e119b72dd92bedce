#pragma once

/// Qt's key events in the control's own terms: virtual-key codes, shift state and the characters
/// that a key types. It decides nothing about what a key does.

#include <tablio/types.h>

#include <QKeyEvent>

#include <string>

namespace tablio::qt {

struct Keystroke {
    /// 0 for a key without a code, such as a dead key.
    KeyCode code = 0;
    ShiftState shift = 0;
    /// Backspace is character 8; other control characters are no text.
    std::u32string characters;
};

[[nodiscard]] Keystroke keystroke(const QKeyEvent &event);

} // namespace tablio::qt
