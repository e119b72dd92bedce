#pragma once

/// One call from outside into the control. Every public function that can change or reach anything
/// opens one: it keeps the control alive, since a handler may destroy its owner, and when the
/// outermost call ends the face hears once that something changed.

#include "control/control.h"

#include <memory>
#include <string_view>
#include <utility>

namespace tablio {

class Call {
public:
    explicit Call(std::shared_ptr<Control> control) : control_(std::move(control)) {
        control_->state.link.enter();
    }
    ~Call() { control_->state.link.leave(); }
    Call(const Call &) = delete;
    Call &operator=(const Call &) = delete;

    Control *operator->() const noexcept { return control_.get(); }
    Control &operator*() const noexcept { return *control_; }

private:
    std::shared_ptr<Control> control_;
};

/// A call that sets a property, whose name the face hears when it is done.
template <typename Set>
void setProperty(const std::shared_ptr<Control> &owned, std::string_view name, Set set) {
    const Call control(owned);
    set(*control);
    control->notify(name);
}

template <typename Value>
void setSetting(const std::shared_ptr<Control> &owned, std::string_view name,
                Value Settings::*member, const Value &value) {
    setProperty(owned, name, [&](Control &control) { control.state.settings.*member = value; });
}

} // namespace tablio
