#pragma once

/// How the web face spells what the member table has: names, types and signatures of TypeScript.
/// The printers of tools/web_types share it; nothing of it is compiled into the face.

#include <tablio/members.h>

#include <optional>
#include <string>
#include <string_view>

namespace tablio {

/// "TextMatrix" as "textMatrix".
[[nodiscard]] std::string webName(std::string_view name);
/// What a member answers and a handler reads; "void" for None.
[[nodiscard]] std::string webType(MemberType type);
/// What a caller may give: a number also where a text is wanted.
[[nodiscard]] std::string webTaken(MemberType type);
/// "row: number, newColWidth?: number". Empty without arguments.
[[nodiscard]] std::string webArguments(std::span<const Argument> arguments);

/// A property that a page reads and writes as one, in place of two functions.
[[nodiscard]] bool isPlainProperty(const Member &member) noexcept;
/// The table's Matrix is two functions with the indexes of what it holds.
[[nodiscard]] std::span<const Argument> webIndexes(const Member &member) noexcept;
/// The type of a property's value; of a matrix that of what it holds.
[[nodiscard]] MemberType webValueType(const Member &member) noexcept;

/// What preventDefault() writes, and into which argument. A handler may write into that alone.
struct Veto {
    std::size_t argument;
    /// As TypeScript has it: "true", "false", "0".
    std::string_view value;
};
/// Nothing for an event from which nothing comes back.
[[nodiscard]] std::optional<Veto> vetoOf(const Event &event);

} // namespace tablio
