#pragma once

/// The members of the control by name, for `call`, `set` and `expect … is`. The public ones stand
/// in the control's own member table; what a scenario sees of the inside is one line each of the
/// table in scenario_members.cpp.

#include <tablio/testing/script.h>

#include <tablio/tablio.h>

#include <string>
#include <string_view>

namespace tablio::scenario {

/// These throw ScriptError for a name that no member has, for a member that cannot be used like
/// this and for a wrong number of values; what the control throws passes through.
void callMember(Tablio &core, std::string_view name, const Tokens &arguments);
/// The new value stands behind the indexes.
void setMember(Tablio &core, std::string_view name, const Tokens &arguments);

/// What a member is and what it should be, written alike.
struct Comparison {
    std::string expected;
    std::string found;
};
[[nodiscard]] Comparison readMember(Tablio &core, std::string_view name, const Tokens &arguments,
                                    const Token &expected);

} // namespace tablio::scenario
