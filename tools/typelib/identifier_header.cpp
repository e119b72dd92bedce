#include "typelib/typelib.h"

#include "server/identifiers.h"

#include <tablio/members.h>

#include <string_view>

namespace tablio {

namespace {

namespace ids = com::identifiers;

void addLine(std::string &header, std::initializer_list<std::string_view> texts) {
    for (const std::string_view text : texts)
        header.append(text);
    header += "\n";
}

/// "{630823B3-BF3F-4174-BC48-453295D14E08}" as the members of a GUID.
void addIdentifier(std::string &header, std::string_view name, std::string_view id) {
    std::string value("{0x");
    value.append(id.substr(1, 8)).append(", 0x").append(id.substr(10, 4)).append(", 0x");
    value.append(id.substr(15, 4)).append(",\n    {");
    for (const std::size_t place : {20, 22, 25, 27, 29, 31, 33, 35})
        value.append(place == 20 ? "0x" : ", 0x").append(id.substr(place, 2));
    addLine(header, {"inline constexpr GUID ", name, value, "}};"});
}

template <typename Rows>
void addNumbers(std::string &header, std::string_view what, const Rows &rows) {
    addLine(header, {"\nnamespace ", what, " {"});
    for (const auto &row : rows)
        addLine(header,
                {"inline constexpr long ", row.name, " = ", std::to_string(row.number), ";"});
    addLine(header, {"} // namespace ", what});
}

} // namespace

std::string identifierHeader() {
    std::string header = "#pragma once\n\n"
                         "/// The identifiers, numbers and enumerations of the registered control "
                         "Tablio, for hosts in C++.\n"
                         "/// Printed by tools/typelib from the member table. Do not edit.\n\n"
                         "// clang-format off\n\n"
                         "#include <guiddef.h>\n\n"
                         "namespace TablioLib {\n\n";
    addIdentifier(header, "LIBID_TablioLib", ids::library);
    addIdentifier(header, "CLSID_Tablio", ids::tablioClass);
    addIdentifier(header, "CLSID_TMatrix", ids::matrixClass);
    addIdentifier(header, "CLSID_General", ids::generalPage);
    addIdentifier(header, "CLSID_Columns", ids::columnsPage);
    addIdentifier(header, "CLSID_Entry", ids::entryPage);
    addIdentifier(header, "DIID__Tablio", ids::members);
    addIdentifier(header, "DIID___Tablio", ids::events);
    addIdentifier(header, "DIID__TMatrix", ids::matrixMembers);
    for (const Enumeration &enumeration : enumerations()) {
        addLine(header, {"\nenum ", enumeration.name, " : long {"});
        for (const EnumerationMember &member : enumeration.members)
            addLine(header, {"    ", member.name, " = ", std::to_string(member.value), ","});
        addLine(header, {"};"});
    }
    addNumbers(header, "member", members());
    addNumbers(header, "matrixMember", matrixMembers());
    addNumbers(header, "event", events());
    return header += "\n} // namespace TablioLib\n";
}

} // namespace tablio
