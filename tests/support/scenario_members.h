#pragma once

/// The members of the control by name, for `call`, `set` and `expect … is`. One line of the table
/// in scenario_members.cpp is one member; its arguments and its result convert themselves.

#include "support/scenario_text.h"

#include <tablio/tablio.h>

#include <functional>
#include <string>
#include <string_view>

namespace tablio::scenario {

/// A getter, a setter or a method.
struct Function {
    int arguments = 0;
    /// How many arguments may be left out at the end.
    int optional = 0;
    /// Answers the result as scenarios write it, "" where there is none.
    std::function<std::string(Tablio &, const Tokens &)> run;
    /// What a scenario expects, written as `run` answers it.
    std::function<std::string(const Token &)> normalised;
};

/// A property has a getter and mostly a setter; a method has only `call`.
struct Member {
    Function get;
    Function set;
    Function call;
};

/// Throws ScriptError for a name that no member has.
[[nodiscard]] const Member &memberNamed(std::string_view name);
/// Runs one of a member's functions. Throws ScriptError when it has no such function or the number
/// of arguments is not right; what the control throws passes through.
std::string run(const Function &function, std::string_view name, Tablio &core,
                const Tokens &arguments);

} // namespace tablio::scenario
