#include "members.h"

#include "automation/member_table.h"
#include "control/inside.h"
#include "model/text/date_text.h"
#include "values.h"

#include <tablio/errors.h>

#include <algorithm>

namespace tablio::scenario {

namespace {

struct InsideFact {
    std::string_view name;
    MemberType type;
    Value (*read)(ControlState &);
};

constexpr InsideFact insides[] = {
    {"Calendar", MemberType::String,
     [](ControlState &s) -> Value { return DateToText(s.widgets.mvCalender.Value()); }},
    {"Col", MemberType::Long, [](ControlState &s) -> Value { return s.grid.Col(); }},
    {"FocusRect", MemberType::Long, [](ControlState &s) -> Value { return s.grid.FocusRect(); }},
    {"GridHeight", MemberType::Long, [](ControlState &s) -> Value { return s.grid.view.Height(); }},
    {"GridWidth", MemberType::Long, [](ControlState &s) -> Value { return s.grid.view.Width(); }},
    {"IsClearing", MemberType::Boolean, [](ControlState &s) -> Value { return s.IsClearing; }},
    {"LastKey", MemberType::Long, [](ControlState &s) -> Value { return s.LastKey; }},
    {"LeftCol", MemberType::Long, [](ControlState &s) -> Value { return s.grid.view.LeftCol(); }},
    {"PageEditing", MemberType::Boolean, [](ControlState &s) -> Value { return s.PageEditing; }},
    {"Redraw", MemberType::Boolean, [](ControlState &s) -> Value { return s.grid.view.Redraw(); }},
    {"Row", MemberType::Long, [](ControlState &s) -> Value { return s.grid.Row(); }},
    {"TopRow", MemberType::Long, [](ControlState &s) -> Value { return s.grid.view.TopRow(); }},
};

const Member &memberNamed(std::string_view name) {
    try {
        return findMember(name);
    } catch (const UnknownMember &error) {
        throw ScriptError(error.what());
    }
}

/// The values as the member declares them, the ones left out at the end by their defaults.
Values valuesFor(const Member &member, const Tokens &tokens) {
    Values values;
    for (std::size_t at = 0; at < member.arguments.size(); ++at) {
        const Argument &argument = member.arguments[at];
        if (at >= tokens.size() && !argument.optional)
            break;
        values.push_back(at < tokens.size() ? valueFor(argument.type, tokens[at])
                                            : argument.defaultValue());
    }
    if (values.size() < member.arguments.size() || tokens.size() > values.size())
        throw ScriptError(std::string(member.name) + " takes " +
                          std::to_string(member.arguments.size()) + " values here, not " +
                          std::to_string(tokens.size()));
    return values;
}

[[noreturn]] void refuse(std::string_view name) {
    throw ScriptError(std::string(name) + " cannot be used like this");
}

/// A tag is a text that a host keeps with a cell; the member itself is the matrix of all of them.
bool isTag(std::string_view name, const Tokens &arguments) {
    return name == "CellTag" && arguments.size() >= 2;
}

} // namespace

void callMember(Tablio &core, std::string_view name, const Tokens &arguments) {
    const Member &member = memberNamed(name);
    if (member.kind != MemberKind::Method)
        refuse(name);
    if (name == "SetColProperty" && arguments.size() == 1)
        core.SetColProperty(valueOf<int>(arguments[0])); // with the header's own defaults
    else
        member.read(core, valuesFor(member, arguments));
}

void setMember(Tablio &core, std::string_view name, const Tokens &arguments) {
    const Member &member = memberNamed(name);
    if (arguments.empty() || (member.write == nullptr && !isTag(name, arguments)))
        refuse(name);
    Tokens index = arguments;
    const Token value = index.back();
    index.pop_back();
    if (isTag(name, index)) {
        core.CellTag()->setText(valueOf<int>(index[0]), valueOf<int>(index[1]),
                                valueOf<std::string>(value));
        return;
    }
    Values values = valuesFor(member, index);
    values.push_back(valueFor(member.type, value));
    member.write(core, values);
}

Comparison readMember(Tablio &core, std::string_view name, const Tokens &arguments,
                      const Token &expected) {
    const auto *const inside = std::ranges::find(insides, name, &InsideFact::name);
    if (inside != std::end(insides))
        return {shown(inside->type, valueFor(inside->type, expected)),
                shown(inside->type, inside->read(Inside::of(core).state))};
    if (isTag(name, arguments)) {
        const MatrixValue tag =
            core.CellTag()->Text(valueOf<int>(arguments[0]), valueOf<int>(arguments[1]));
        return {valueOf<std::string>(expected), std::get<std::string>(tag)};
    }
    const Member &member = memberNamed(name);
    if (member.read == nullptr || member.type == MemberType::None)
        refuse(name);
    const Values index = valuesFor(member, arguments);
    const std::string wanted = shown(member.type, valueFor(member.type, expected));
    return {wanted, shown(member.type, member.read(core, index))};
}

} // namespace tablio::scenario
