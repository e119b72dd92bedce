#pragma once

/// Which widget of the control owns the keyboard. The core routes keys by this and by nothing
/// else; whoever loses the focus hears it before anything else happens.

#include <tablio/face.h>

#include <functional>
#include <optional>

namespace tablio {

class Focus {
public:
    std::function<void(WidgetId)> onLost;
    std::function<void(WidgetId)> onGot;
    /// A widget of the control wants the keyboard: the face moves the platform's focus.
    std::function<void()> onMoved;

    /// Nobody while the keyboard is outside the control.
    [[nodiscard]] std::optional<WidgetId> owner() const noexcept { return owner_; }

    /// Gives the keyboard to a widget. The old owner's handler runs first and may move the focus
    /// on; then the new owner's does not run.
    void set(WidgetId widget) {
        if (owner_ == widget)
            return;
        change(widget);
        if (onMoved && owner_ == widget)
            onMoved();
        if (owner_ == widget && onGot)
            onGot(widget);
    }

    /// The keyboard has left the control.
    void leave() {
        if (owner_)
            change(std::nullopt);
    }

private:
    void change(std::optional<WidgetId> to) {
        const std::optional<WidgetId> old = owner_;
        owner_ = to;
        if (old && onLost)
            onLost(*old);
    }

    std::optional<WidgetId> owner_;
};

} // namespace tablio
