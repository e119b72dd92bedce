#pragma once

/// The one list of everything that `Tablio` shows to late-bound callers: its properties and methods
/// in the interface's own order, its events, its enumerations. Dispatch, persistence, the reference
/// document and binding layers read it; no other place names all members.

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
    EntryRules,
    /// A value of any type; only in a `TMatrix`.
    Any,
};
/// Whether hosts assign a value of this type as an object.
[[nodiscard]] constexpr bool isObject(MemberType type) noexcept {
    return type == MemberType::Font || type == MemberType::Matrix;
}

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
    /// As compiled hosts pass it. Only an event's argument is read back.
    bool byReference = false;

    [[nodiscard]] Value defaultValue() const;
};

/// Properties that change often: a face that nobody asks need not look their names up.
namespace Number {
/// In a notice: any of them may have changed.
inline constexpr MemberNumber All = -1;
inline constexpr MemberNumber TextMatrix = 0x68030006;
inline constexpr MemberNumber ColWidth = 0x68030017;
} // namespace Number

enum class MemberKind { Property, Method };

/// Calls the typed function. The arguments have their declared types, none is missing; a writer
/// gets the new value after the indexes and answers Empty.
using Accessor = Value (*)(Tablio &control, std::span<const Value> arguments);

/// How a property is kept in a container's store, under its own name. Hosts' files hold it: orders
/// and defaults are fixed, also where it is written and read with different ones.
struct Stored {
    /// Its place among those written and among those read, from 1; 0 for what is not stored so.
    int written = 0;
    int read = 0;
    Value::Type defaultType = Value::Type::Empty;
    double writeDefault = 0;
    double readDefault = writeDefault;

    /// What is not written, and what is read where nothing is.
    [[nodiscard]] Value defaultToWrite() const;
    [[nodiscard]] Value defaultToRead() const;
};

struct Member {
    std::string_view name;
    MemberNumber number = 0;
    MemberKind kind = MemberKind::Property;
    /// The type of the property or of the method's result.
    MemberType type = MemberType::None;
    /// The indexes of a property or the arguments of a method.
    std::span<const Argument> arguments;
    /// Reads the property or calls the method; null for a write-only property.
    Accessor read = nullptr;
    /// Null for a read-only property and for a method.
    Accessor write = nullptr;
    /// How a writer takes the new value.
    bool valueByReference = false;
    Stored stored = {};
    /// A colour's value in a control that follows the platform's theme.
    Colour themed = {};
};

/// The handler may change the arguments, which are all by reference.
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
/// Of the matrix that `CellTag` answers. They are called on the matrix itself, so they have no
/// accessors; a property is both read and written.
[[nodiscard]] std::span<const Member> matrixMembers() noexcept;
[[nodiscard]] std::span<const Enumeration> enumerations() noexcept;

/// Names without regard to case. UnknownMember when there is none.
[[nodiscard]] const Member &findMember(std::string_view name);
[[nodiscard]] const Member &findMember(MemberNumber number);
[[nodiscard]] const Event &findEvent(std::string_view name);

} // namespace tablio
