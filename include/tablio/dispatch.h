#pragma once

/// Late-bound access to a `Tablio`: its members by number or by name with `Value` arguments, and
/// its events as numbers with `Value` arguments. Binding layers and scripts use it; a host written
/// in C++ calls `Tablio` itself. The members are listed in docs/members.md.

#include <tablio/host_events.h>
#include <tablio/value.h>

#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace tablio {

class Tablio;

using Values = std::vector<Value>;

/// Names are compared without regard to case. Arguments are converted to their declared types
/// (TypeMismatch, OverflowError); optional ones at the end may be left out and others be
/// Value::missing(). ArgumentCount for too few or too many, UnknownMember for what does not exist
/// or is used the wrong way; errors of the control pass through unchanged. No member changes its
/// arguments. A number that is given for a text is written with the decimal sign of the control's
/// user. What `CellTag` holds is reached with a row and a column, or all of it through
/// `Value::toObject()`.
class Dispatch {
public:
    /// The control must live as long as this object is used; a call may destroy both.
    explicit Dispatch(Tablio &control) noexcept : control_(control) {}

    /// Calls a method, or reads a property: a caller who writes `Name(…)` cannot tell. Answers
    /// Empty where there is no result.
    Value call(MemberNumber number, const Values &arguments = {});
    Value call(std::string_view name, const Values &arguments = {});
    /// Reads a property; an indexed one needs its indexes.
    [[nodiscard]] Value get(MemberNumber number, const Values &index = {});
    [[nodiscard]] Value get(std::string_view name, const Values &index = {});
    /// Writes a property, objects included.
    void put(MemberNumber number, const Value &value, const Values &index = {});
    void put(std::string_view name, const Value &value, const Values &index = {});

    /// The number of a property or method; UnknownMember if there is none. An event has its own
    /// number, whatever else bears its name.
    [[nodiscard]] static MemberNumber numberOf(std::string_view name);
    [[nodiscard]] static MemberNumber numberOfEvent(std::string_view name);

private:
    Tablio &control_;
};

/// Hears events by number.
class EventSink {
public:
    virtual ~EventSink() = default;
    /// What the sink writes into an argument is read back, converted to the argument's type
    /// (TypeMismatch, OverflowError); it means something where `HostEvents` says so.
    virtual void event(MemberNumber number, std::span<Value> arguments) = 0;
};

/// The host that hands each event on to a sink, which must live as long as this is the host.
[[nodiscard]] std::unique_ptr<HostEvents> relayTo(EventSink &sink);

} // namespace tablio
