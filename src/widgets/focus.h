#pragma once

/// Which widget of the control owns the keyboard. The core routes keys by this and by nothing
/// else. No edit ends by it: whoever ends one passes the keyboard on.

#include <tablio/face.h>

#include <functional>
#include <optional>
#include <utility>

namespace tablio {

class Focus {
public:
    std::function<void(WidgetId)> onLost;
    std::function<void(WidgetId)> onGot;
    /// A widget of the control wants the keyboard: the face moves the platform's focus. Answers
    /// whether it can.
    std::function<bool()> onMoved;

    /// Nobody while the keyboard is outside the control.
    [[nodiscard]] std::optional<WidgetId> owner() const noexcept { return owner_; }

    /// Gives the keyboard to a widget, which the old owner, the face and the new one hear.
    void set(WidgetId widget) {
        if (owner_ == widget)
            return;
        pass(widget);
        arrive(widget);
    }
    /// First half: keys go to this widget or, with nothing, out of the control. Only the old owner
    /// hears it.
    void pass(std::optional<WidgetId> to) {
        const std::optional<WidgetId> old = std::exchange(owner_, to);
        if (old && old != to && onLost)
            onLost(*old);
    }
    /// Second half: the others hear it, unless the keyboard has gone on meanwhile.
    void arrive(WidgetId widget) {
        if (onMoved && owner_ == widget && !onMoved())
            return pass(std::nullopt);
        if (onGot && owner_ == widget)
            onGot(widget);
    }

private:
    std::optional<WidgetId> owner_;
};

} // namespace tablio
