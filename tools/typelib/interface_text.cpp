#include "typelib/typelib.h"

#include "server/identifiers.h"

#include <tablio/members.h>

#include <array>
#include <string_view>

namespace tablio {

namespace {

namespace ids = com::identifiers;

std::string_view typeText(MemberType type) {
    static constexpr std::array<std::string_view, 8> own{
        "void", "VARIANT_BOOL", "short", "long", "BSTR", "OLE_COLOR", "Font *", "_TMatrix *"};
    const auto place = static_cast<std::size_t>(type);
    if (type == MemberType::Any)
        return "VARIANT";
    return place < own.size() ? own[place] : nameOf(type);
}

/// A type and a name, which stand apart unless the type ends with its own star.
std::string declared(MemberType type, bool byReference, std::string_view name) {
    std::string text(typeText(type));
    text += text.back() == '*' ? "" : " ";
    return text.append(byReference ? "*" : "").append(name);
}

/// What identifiers.h spells with braces.
std::string unbraced(std::string_view id) { return std::string(id.substr(1, id.size() - 2)); }

std::string argumentText(const Argument &argument) {
    std::string text(argument.byReference ? "[in, out" : "[in");
    if (argument.optional) {
        const bool isText = argument.type == MemberType::String;
        text.append(", optional, defaultvalue(")
            .append(isText ? "\"\"" : std::to_string(argument.defaultNumber))
            .append(")");
    }
    return text.append("] ").append(declared(argument.type, argument.byReference, argument.name));
}

std::string argumentsText(std::span<const Argument> arguments) {
    std::string text;
    for (const Argument &argument : arguments)
        text.append(text.empty() ? "" : ", ").append(argumentText(argument));
    return text;
}

std::string numberText(MemberNumber number) {
    if (number < 0x10000)
        return std::to_string(number);
    std::string digits("0x");
    for (int shift = 28; shift >= 0; shift -= 4)
        digits += "0123456789ABCDEF"[(static_cast<std::uint32_t>(number) >> shift) & 0xF];
    return digits;
}

void addFunction(std::string &idl, MemberNumber number, std::string_view attribute,
                 std::string_view declaration, std::string_view arguments) {
    idl.append("        [id(").append(numberText(number)).append(")").append(attribute);
    idl.append("] ").append(declaration).append("(").append(arguments).append(");\n");
}

/// A matrix' members have no accessors of their own and are read and written.
void addMember(std::string &idl, const Member &member) {
    const bool isMatrix = member.type == MemberType::Any;
    const bool isMethod = member.kind == MemberKind::Method;
    std::string arguments = argumentsText(member.arguments);
    const std::string result = declared(member.type, false, member.name);
    if (member.read != nullptr || isMatrix)
        addFunction(idl, member.number, isMethod ? "" : ", propget", result, arguments);
    if (member.write == nullptr && !isMatrix)
        return;
    arguments.append(arguments.empty() ? "" : ", ")
        .append(member.valueByReference ? "[in, out] " : "[in] ")
        .append(declared(member.type, member.valueByReference, "Value"));
    const std::string writer = "void " + std::string(member.name);
    // A matrix takes values and objects.
    if (!isObject(member.type))
        addFunction(idl, member.number, ", propput", writer, arguments);
    if (isObject(member.type) || isMatrix)
        addFunction(idl, member.number, ", propputref", writer, arguments);
}

void openInterface(std::string &idl, std::string_view id, std::string_view name,
                   std::string_view attributes = {}) {
    idl.append("\n    [uuid(").append(unbraced(id)).append(")").append(attributes);
    idl.append("]\n    dispinterface ").append(name);
    idl.append(" {\n    properties:\n    methods:\n");
}

void addInterface(std::string &idl, std::string_view id, std::string_view name,
                  std::span<const Member> members) {
    openInterface(idl, id, name);
    for (const Member &member : members)
        addMember(idl, member);
    idl += "    };\n";
}

void addClass(std::string &idl, std::string_view id, std::string_view attributes,
              std::string_view name, std::string_view interfaces) {
    idl.append("\n    [uuid(").append(unbraced(id)).append(")").append(attributes);
    idl.append("]\n    coclass ").append(name).append(" { ").append(interfaces).append(" };\n");
}

void addEnumeration(std::string &idl, const Enumeration &enumeration) {
    idl.append("\n    typedef enum ").append(enumeration.name).append(" {\n");
    for (const EnumerationMember &member : enumeration.members)
        idl.append("        ")
            .append(member.name)
            .append(" = ")
            .append(std::to_string(member.value))
            .append(",\n");
    idl.append("    } ").append(enumeration.name).append(";\n");
}

} // namespace

std::string interfaceText() {
    std::string idl =
        "// Printed by tools/typelib from the member table. Do not edit.\n\n"
        "import \"standard.idl\";\n\n"
        "// Of the platform, where they are found by these identifiers.\n"
        "[uuid(66504301-BE0F-101A-8BBB-00AA00300CAB), public] typedef unsigned long "
        "OLE_COLOR;\n"
        "[uuid(BEF6E003-A874-101A-8BBA-00AA00300CAB)] dispinterface Font { properties: "
        "methods: }\n\n"
        "[uuid(" +
        unbraced(ids::library) +
        "), version(1.0), lcid(0x0409),\n"
        " helpstring(\"Tablio data-entry grid\")]\n"
        "library TablioLib {\n"
        "    importlib(\"stdole2.tlb\");\n"
        "    dispinterface _TMatrix;\n";
    for (const Enumeration &enumeration : enumerations())
        addEnumeration(idl, enumeration);
    addInterface(idl, ids::matrixMembers, "_TMatrix", matrixMembers());
    addInterface(idl, ids::members, "_Tablio", members());
    openInterface(idl, ids::events, "__Tablio");
    for (const Event &event : events())
        addFunction(idl, event.number, "", "void " + std::string(event.name),
                    argumentsText(event.arguments));
    idl += "    };\n";
    addClass(idl, ids::tablioClass, ", control, helpstring(\"Tablio\")", "Tablio",
             "[default] dispinterface _Tablio; [default, source] dispinterface __Tablio;");
    addClass(idl, ids::matrixClass, "", "TMatrix", "[default] dispinterface _TMatrix;");
    for (const auto &[id, name] : {std::pair(ids::generalPage, "General"),
                                   {ids::columnsPage, "Columns"},
                                   {ids::entryPage, "Entry"}})
        addClass(idl, id, ", hidden", name, "[default] interface IUnknown;");
    return idl += "};\n";
}

} // namespace tablio
