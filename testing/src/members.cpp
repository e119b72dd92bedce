#include "members.h"

#include "inside.h"
#include "values.h"

#include <tablio/errors.h>
#include <tablio/members.h>

namespace tablio::scenario {

namespace {

const Member &memberNamed(std::string_view name) {
    try {
        return findMember(name);
    } catch (const UnknownMember &error) {
        throw ScriptError(error.what());
    }
}

/// The values in the types that the member declares; optional ones may be left out at the end.
Values valuesFor(const Member &member, const Tokens &tokens) {
    const std::size_t most = member.arguments.size();
    Values values;
    for (std::size_t at = 0; at < tokens.size() && at < most; ++at)
        values.push_back(valueFor(member.arguments[at].type, tokens[at]));
    if (tokens.size() > most || (tokens.size() < most && !member.arguments[tokens.size()].optional))
        throw ScriptError(std::string(member.name) + " takes " + std::to_string(most) +
                          " values here, not " + std::to_string(tokens.size()));
    return values;
}

[[noreturn]] void refuse(std::string_view name) {
    throw ScriptError(std::string(name) + " cannot be used like this");
}

/// A tag is a text that a host keeps with a cell; the member itself is the matrix of all of them.
bool isTag(const Member &member, const Tokens &index) {
    return member.name == "CellTag" && index.size() == 2;
}

Values cellFor(const Tokens &index) { return {valueOf<int>(index[0]), valueOf<int>(index[1])}; }

} // namespace

void callMember(Driver &driver, std::string_view name, const Tokens &arguments) {
    const Member &member = memberNamed(name);
    if (member.kind != MemberKind::Method)
        refuse(name);
    driver.callMember(name, valuesFor(member, arguments));
}

void setMember(Driver &driver, std::string_view name, Tokens arguments) {
    const Member &member = memberNamed(name);
    if (arguments.empty() || member.write == nullptr)
        refuse(name);
    const Token value = arguments.back();
    arguments.pop_back();
    if (isTag(member, arguments))
        driver.setMember(name, cellFor(arguments), valueOf<std::string>(value));
    else
        driver.setMember(name, valuesFor(member, arguments), valueFor(member.type, value));
}

Comparison readMember(Driver &driver, std::string_view name, const Tokens &arguments,
                      const Token &expected) {
    const auto compared = [&](MemberType type, const Value &found) {
        return Comparison{shown(type, valueFor(type, expected)), shown(type, found)};
    };
    if (const auto inside = insideValue(*driver.core(), name))
        return compared(inside->first, inside->second);
    const Member &member = memberNamed(name);
    if (isTag(member, arguments))
        return compared(MemberType::String, driver.readMember(name, cellFor(arguments)));
    if (member.read == nullptr || member.type == MemberType::None)
        refuse(name);
    const Values values = valuesFor(member, arguments);
    return compared(member.type, member.kind == MemberKind::Method
                                     ? driver.callMember(name, values)
                                     : driver.readMember(name, values));
}

} // namespace tablio::scenario
