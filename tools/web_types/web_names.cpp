#include "web_names.h"

#include <array>

namespace tablio {

namespace {

struct NamedVeto {
    std::string_view event;
    std::string_view argument;
    std::string_view value;
};

/// What `HostEvents` says of the arguments that mean something when they come back.
constexpr std::array vetoes{
    NamedVeto{"EditPreValidation", "Cancel", "true"},
    NamedVeto{"EditPostValidation", "Valid", "false"},
    NamedVeto{"CellKeyPress", "KeyAscii", "0"},
    NamedVeto{"TableKeyDown", "KeyCode", "0"},
};

} // namespace

std::string webName(std::string_view name) {
    std::string text(name);
    if (!text.empty() && text.front() >= 'A' && text.front() <= 'Z')
        text.front() = static_cast<char>(text.front() - 'A' + 'a');
    return text;
}

std::string webType(MemberType type) {
    switch (type) {
    case MemberType::None:
        return "void";
    case MemberType::Boolean:
        return "boolean";
    case MemberType::Integer:
    case MemberType::Long:
        return "number";
    case MemberType::String:
        return "string";
    case MemberType::Colour:
        return "TColour";
    case MemberType::Font:
        return "TFont";
    case MemberType::Any:
    case MemberType::Matrix:
        return "TTag";
    case MemberType::ColumnStyle:
    case MemberType::ColumnType:
    case MemberType::DataType:
    case MemberType::CalcStyle:
    case MemberType::ColumnAlignment:
    case MemberType::EntryRules:
        break;
    }
    return std::string(nameOf(type));
}

std::string webTaken(MemberType type) {
    return type == MemberType::String ? "string | number" : webType(type);
}

std::string webArguments(std::span<const Argument> arguments) {
    std::string text;
    for (const Argument &argument : arguments)
        text.append(text.empty() ? "" : ", ")
            .append(webName(argument.name))
            .append(argument.optional ? "?: " : ": ")
            .append(webTaken(argument.type));
    return text;
}

bool isPlainProperty(const Member &member) noexcept {
    return member.kind == MemberKind::Property && webIndexes(member).empty();
}

std::span<const Argument> webIndexes(const Member &member) noexcept {
    return member.type == MemberType::Matrix ? matrixMembers().front().arguments : member.arguments;
}

MemberType webValueType(const Member &member) noexcept {
    return member.type == MemberType::Matrix ? matrixMembers().front().type : member.type;
}

std::optional<Veto> vetoOf(const Event &event) {
    for (const NamedVeto &veto : vetoes) {
        if (veto.event != event.name)
            continue;
        for (std::size_t i = 0; i < event.arguments.size(); ++i) {
            if (event.arguments[i].name == veto.argument)
                return Veto{i, veto.value};
        }
    }
    return std::nullopt;
}

} // namespace tablio
