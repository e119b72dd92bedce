#pragma once

/// What a recorder of sessions hears of a control: what the user does, as a face reports it, and
/// every event before and after the host. `Tablio::setWitness` takes one. It must change nothing.

#include <tablio/host_events.h>
#include <tablio/value.h>

#include <string_view>
#include <vector>

namespace tablio {

/// The function of `Input` that a face has called, with its arguments; an edit's number is left
/// out, and a day is its year, month and day.
struct UserAction {
    std::string_view name;
    std::vector<Value> arguments;
};

class Witness {
public:
    virtual ~Witness() = default;

    /// All that comes between these two follows from the action. What happens while a handler of
    /// the host waits for the user, in a message box say, belongs to the action that it interrupts
    /// and is not told by itself.
    virtual void actionBegins(const UserAction &action) = 0;
    virtual void actionEnds() = 0;

    /// Hear each event as the control raises it, and then as the host has left it. What they write
    /// into arguments goes nowhere.
    [[nodiscard]] virtual HostEvents &raised() = 0;
    [[nodiscard]] virtual HostEvents &answered() = 0;
};

} // namespace tablio
