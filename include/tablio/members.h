#pragma once

/// The one list of everything that `Tablio` shows to late-bound callers: its properties and methods
/// in the interface's own order, its events, its enumerations. Dispatch, the reference document and
/// binding layers read it; no other place names all members.

#include <tablio/dispatch.h>

#include <cstdint>
#include <span>
#include <string_view>

namespace tablio {

/// Types as the interface declares them.
enum class MemberType {
    None,
    Boolean,
    Integer,
    Long,
    String,
    Colour,
    Font,
    Matrix,
    ColumnStyle,
    ColumnType,
    DataType,
    CalcStyle,
    ColumnAlignment,
};

/// The published name: "OLE_COLOR", "TColumnStyle", … "" for None.
[[nodiscard]] std::string_view nameOf(MemberType type) noexcept;
/// The value as the type holds it; throws TypeMismatch or OverflowError.
[[nodiscard]] Value convertedTo(MemberType type, const Value &value);

struct Argument {
    std::string_view name;
    MemberType type = MemberType::None;
    bool optional = false;
    /// What an optional argument is when it is left out; for a text it is always "".
    std::int32_t defaultNumber = 0;

    [[nodiscard]] Value defaultValue() const;
};

/// Properties that change often: a face that nobody asks need not look their names up.
namespace Number {
inline constexpr MemberNumber TextMatrix = 0x68030006;
inline constexpr MemberNumber ColWidth = 0x68030017;
} // namespace Number

enum class MemberKind { Property, Method };

/// Calls the typed function. The arguments have their declared types, none is missing; a writer
/// gets the new value after the indexes and answers Empty.
using Accessor = Value (*)(Tablio &control, std::span<const Value> arguments);

struct Member {
    std::string_view name;
    MemberNumber number = 0;
    MemberKind kind = MemberKind::Property;
    /// The type of the property or of the method's result.
    MemberType type = MemberType::None;
    /// The indexes of a property or the arguments of a method, all by value.
    std::span<const Argument> arguments;
    /// Reads the property or calls the method; null for a write-only property.
    Accessor read = nullptr;
    /// Null for a read-only property and for a method.
    Accessor write = nullptr;
};

/// An event's arguments are all by reference: the handler may change them.
struct Event {
    std::string_view name;
    MemberNumber number = 0;
    std::span<const Argument> arguments;
};

struct EnumerationMember {
    std::string_view name;
    std::int32_t value = 0;
};

struct Enumeration {
    std::string_view name;
    std::span<const EnumerationMember> members;
};

[[nodiscard]] std::span<const Member> members() noexcept;
[[nodiscard]] std::span<const Event> events() noexcept;
[[nodiscard]] std::span<const Enumeration> enumerations() noexcept;

/// Names without regard to case. UnknownMember when there is none.
[[nodiscard]] const Member &findMember(std::string_view name);
[[nodiscard]] const Member &findMember(MemberNumber number);
[[nodiscard]] const Event &findEvent(std::string_view name);

} // namespace tablio
