#include "web_glue.h"

#include "web_names.h"

namespace tablio {

namespace {

constexpr std::string_view tableBeginning =
    R"(// The member table: numbers by the names that a page uses. define_members.ts makes members and
// events of it. Printed by tools/web_types. Do not edit.

/** name, number, what may be done (r reads, w writes, c calls), count of indexes */
export type MemberRow = readonly [string, number, string, number];
/** By number, from 1: name, names of the arguments; which of them a veto writes, and what */
export type EventRow = readonly [string, readonly string[], number?, (boolean | number)?];

export const memberRows: readonly MemberRow[] = [
)";

std::string accessOf(const Member &member) {
    if (member.kind == MemberKind::Method)
        return "c";
    std::string access(member.read == nullptr ? "" : "r");
    return access.append(member.write == nullptr ? "" : "w");
}

/// A bar would end the cell, also inside code.
std::string cellText(std::string_view text) {
    std::string escaped;
    for (const char character : text)
        escaped.append(character == '|' ? "\\" : "").push_back(character);
    return escaped;
}

void addRow(std::string &document, std::initializer_list<std::string_view> cells) {
    for (const std::string_view cell : cells)
        document.append(cell.empty() ? "|" : "| ").append(cellText(cell)).append(" ");
    document.append("|\n");
}

/// As a page writes it, one spelling or two.
std::string usesOf(const Member &member) {
    const std::string name = webName(member.name);
    if (isPlainProperty(member))
        return "`" + name + "`";
    const std::string indexes = webArguments(webIndexes(member));
    std::string text;
    if (member.kind == MemberKind::Method || member.read != nullptr)
        text.append("`").append(name).append("(").append(indexes).append(")`");
    if (member.kind == MemberKind::Property && member.write != nullptr)
        text.append(text.empty() ? "`set" : ", `set")
            .append(member.name)
            .append("(")
            .append(indexes)
            .append(", value)`");
    return text;
}

std::string kindOf(const Member &member) {
    if (member.kind == MemberKind::Method)
        return "method";
    if (!isPlainProperty(member))
        return "functions";
    return member.write == nullptr ? "property, read" : "property";
}

} // namespace

std::string webMemberTable() {
    std::string text(tableBeginning);
    for (const Member &member : members()) {
        text.append("    ['").append(webName(member.name)).append("', ");
        text.append(std::to_string(member.number)).append(", '").append(accessOf(member));
        const bool isMethod = member.kind == MemberKind::Method;
        text.append("', ").append(isMethod ? "0" : std::to_string(webIndexes(member).size()));
        text.append("],\n");
    }
    text += "];\n\nexport const eventRows: readonly EventRow[] = [\n";
    for (const Event &event : events()) {
        text.append("    ['").append(webName(event.name)).append("', [");
        for (const Argument &argument : event.arguments)
            text.append(&argument == event.arguments.data() ? "'" : ", '")
                .append(webName(argument.name))
                .append("'");
        text += "]";
        if (const auto veto = vetoOf(event))
            text.append(", ")
                .append(std::to_string(veto->argument))
                .append(", ")
                .append(veto->value);
        text += "],\n";
    }
    text += "];\n";
    for (const Enumeration &enumeration : enumerations()) {
        text.append("\nexport const ").append(enumeration.name).append(" = {\n");
        for (const EnumerationMember &member : enumeration.members)
            text.append("    ")
                .append(member.name)
                .append(": ")
                .append(std::to_string(member.value) + ",\n");
        text += "} as const;\n";
    }
    return text;
}

std::string webMembersDocument() {
    std::string document =
        "# Members of `<tablio-grid>`\n\n"
        "What a page sees of the control, as the types in `tablio-grid.d.ts` have it. How they are "
        "used\nis told in [web.md](web.md), what each of them does in [hosting.md](hosting.md) and "
        "in\n`tablio/tablio.h`.\n\n"
        "<!-- Printed by tools/web_types from the member table. Do not edit. -->\n\n"
        "## Properties and methods\n\n"
        "A property without indexes is read and written as such; one with indexes is a function "
        "that\nreads and another that writes. An argument with a question mark may be left "
        "out.\n\n";
    addRow(document, {"Member", "Kind", "Type", "Called"});
    document += "| --- | --- | --- | --- |\n";
    for (const Member &member : members())
        addRow(document, {usesOf(member), kindOf(member), webType(webValueType(member)),
                          "`" + std::string(member.name) + "`"});
    document += "\n## Events\n\n"
                "Each is a `CustomEvent` that does not bubble, with its arguments in `detail`. "
                "`preventDefault()`\nwrites what the last column tells; a handler may write "
                "another value there instead.\n\n";
    addRow(document, {"Event", "`detail`", "`preventDefault()`"});
    document += "| --- | --- | --- |\n";
    for (const Event &event : events()) {
        std::string refused;
        if (const auto veto = vetoOf(event))
            refused = "`" + webName(event.arguments[veto->argument].name) + " = " +
                      std::string(veto->value) + "`";
        std::string arguments;
        for (const Argument &argument : event.arguments)
            arguments.append(arguments.empty() ? "`" : ", `")
                .append(webName(argument.name))
                .append("`");
        addRow(document, {"`" + webName(event.name) + "`", arguments, refused});
    }
    document += "\n## Enumerations\n\n";
    addRow(document, {"Enumeration", "Members"});
    document += "| --- | --- |\n";
    for (const Enumeration &enumeration : enumerations()) {
        std::string values;
        for (const EnumerationMember &member : enumeration.members)
            values.append(values.empty() ? "`" : ", `")
                .append(member.name)
                .append("` = ")
                .append(std::to_string(member.value));
        addRow(document, {"`" + std::string(enumeration.name) + "`", values});
    }
    return document;
}

} // namespace tablio
