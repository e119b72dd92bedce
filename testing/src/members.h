#pragma once

/// The members of the control by name, for `call`, `set` and `expect … is`: the words of a step as
/// the values that the control's own member table asks for. The driver carries them out.

#include <tablio/testing/driver.h>
#include <tablio/testing/script.h>

#include <string>
#include <string_view>

namespace tablio::scenario {

/// These throw ScriptError for a name that no member has, for a member that cannot be used like
/// this and for a wrong number of values; what the control throws passes through.
void callMember(Driver &driver, std::string_view name, const Tokens &arguments);
/// The new value stands behind the indexes.
void setMember(Driver &driver, std::string_view name, Tokens arguments);

/// What a member is and what it should be, written alike.
struct Comparison {
    std::string expected;
    std::string found;
};
/// Also a value of the inside.
[[nodiscard]] Comparison readMember(Driver &driver, std::string_view name, const Tokens &arguments,
                                    const Token &expected);

} // namespace tablio::scenario
