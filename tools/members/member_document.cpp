#include "member_document.h"

#include <tablio/members.h>

namespace tablio {

namespace {

/// As "&H6803002D" where the high bits say what kind of member it is, else in decimal.
std::string numberText(MemberNumber number) {
    if (number < 0x10000)
        return std::to_string(number);
    std::string digits;
    for (int shift = 28; shift >= 0; shift -= 4)
        digits += "0123456789ABCDEF"[(static_cast<std::uint32_t>(number) >> shift) & 0xF];
    return "&H" + digits;
}

std::string argumentText(const Argument &argument) {
    std::string text(argument.byReference ? "&" : "");
    text.append(argument.name);
    text.append(": ").append(nameOf(argument.type));
    if (!argument.optional)
        return text;
    const bool isText = argument.type == MemberType::String;
    return "[" + text + " = " + (isText ? "\"\"" : std::to_string(argument.defaultNumber)) + "]";
}

std::string argumentsText(std::span<const Argument> arguments) {
    std::string text;
    for (const Argument &argument : arguments)
        text.append(text.empty() ? "" : ", ").append(argumentText(argument));
    return text;
}

std::string kindText(const Member &member) {
    if (member.kind == MemberKind::Method)
        return "method";
    const bool readsOnly = member.read != nullptr && member.write == nullptr;
    const bool writesOnly = member.write != nullptr && member.read == nullptr;
    std::string text = readsOnly ? "property, read" : "property, write";
    if (readsOnly == writesOnly)
        text = "property, read/write";
    return text.append(isObject(member.type) ? " (object)" : "");
}

void addRow(std::string &document, std::initializer_list<std::string_view> cells) {
    for (const std::string_view cell : cells)
        document.append(cell.empty() ? "|" : "| ").append(cell).append(" ");
    document.append("|\n");
}

void addMembers(std::string &document, std::span<const Member> members) {
    addRow(document, {"Member", "Kind", "Index or arguments", "Type", "Number"});
    document += "| --- | --- | --- | --- | --- |\n";
    for (const Member &member : members)
        addRow(document,
               {"`" + std::string(member.name) + "`", kindText(member),
                argumentsText(member.arguments), nameOf(member.type), numberText(member.number)});
}

} // namespace

std::string membersDocument() {
    std::string document =
        "# Members by name and number\n\n"
        "What a late-bound host sees of the control, through `tablio/dispatch.h`. What each "
        "member\n"
        "does is told where it is declared: properties and methods in `tablio/tablio.h`, events "
        "in\n"
        "`tablio/host_events.h`. Names are not case-sensitive.\n\n"
        "<!-- Printed by tools/members from the member table. Do not edit. -->\n\n"
        "## Properties and methods\n\n"
        "Arguments in brackets may be left out and are then what stands behind the equals "
        "sign; one\n"
        "with & is passed by reference.\n\n";
    addMembers(document, members());
    document += "\n## Members of TMatrix\n\n";
    addMembers(document, matrixMembers());
    document += "\n## Events\n\n";
    addRow(document, {"Event", "Arguments", "Number"});
    document += "| --- | --- | --- |\n";
    for (const Event &event : events())
        addRow(document, {"`" + std::string(event.name) + "`", argumentsText(event.arguments),
                          numberText(event.number)});
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
