#pragma once

/// Builds rows of the member table from pointers to the typed functions of `Tablio`. The accessor
/// is made from the function's own signature, and a row whose declared arguments do not match that
/// signature does not compile.

#include "automation/value_as.h"
#include <tablio/members.h>

#include <tablio/tablio.h>

#include <cstddef>
#include <type_traits>
#include <utility>

namespace tablio::detail {

/// Whether a typed function's parameter or result can carry the declared type. The typed functions
/// count in int where the interface counts in 16 or in 32 bits.
template <typename T> constexpr bool carries(MemberType type) {
    using Plain = std::remove_cvref_t<T>;
    return type == memberTypeOf<Plain> ||
           (std::is_same_v<Plain, std::int32_t> && type == MemberType::Integer);
}

template <typename Function> struct Signature;

template <typename Class, typename Result, typename... Parameters>
struct Signature<Result (Class::*)(Parameters...)> {
    static constexpr std::size_t count = sizeof...(Parameters);

    static constexpr bool resultIs(MemberType type) { return carries<Result>(type); }
    static constexpr bool startsWith(std::span<const Argument> arguments) {
        std::size_t place = 0;
        return ((place >= arguments.size() || carries<Parameters>(arguments[place++].type)) && ...);
    }
    /// The last parameter of a writer is the value.
    static constexpr bool endsWith(MemberType type) {
        bool matches = false;
        ((matches = carries<Parameters>(type)), ...);
        return matches;
    }

    template <auto function> static Value call(Tablio &control, std::span<const Value> arguments) {
        return callWith<function>(control, arguments, std::index_sequence_for<Parameters...>());
    }

private:
    template <auto function, std::size_t... place>
    static Value callWith(Tablio &control, [[maybe_unused]] std::span<const Value> arguments,
                          std::index_sequence<place...>) {
        if constexpr (std::is_void_v<Result>) {
            (control.*function)(valueAs<std::remove_cvref_t<Parameters>>(arguments[place])...);
            return {};
        } else {
            return (control.*
                    function)(valueAs<std::remove_cvref_t<Parameters>>(arguments[place])...);
        }
    }
};

template <typename Class, typename Result, typename... Parameters>
struct Signature<Result (Class::*)(Parameters...) const>
    : Signature<Result (Class::*)(Parameters...)> {};

template <auto function> using SignatureOf = Signature<decltype(function)>;

/// Ends the compilation, as the table is a constant.
constexpr void require(bool condition) {
    if (!condition)
        throw "the declared types differ from the typed function's";
}

template <auto function> constexpr Accessor reader(Member row) {
    using Typed = SignatureOf<function>;
    require(Typed::count == row.arguments.size() && Typed::startsWith(row.arguments) &&
            Typed::resultIs(row.type));
    return &Typed::template call<function>;
}

template <auto function> constexpr Accessor writer(Member row) {
    using Typed = SignatureOf<function>;
    require(Typed::count == row.arguments.size() + 1 && Typed::startsWith(row.arguments) &&
            Typed::endsWith(row.type) && Typed::resultIs(MemberType::None));
    return &Typed::template call<function>;
}

template <auto get, auto set>
constexpr Member property(std::string_view name, MemberNumber number, MemberType type,
                          std::span<const Argument> index = {}) {
    Member row{name, number, MemberKind::Property, type, index};
    row.read = reader<get>(row);
    row.write = writer<set>(row);
    return row;
}

constexpr Member stored(Member row, Stored how) {
    row.stored = how;
    return row;
}

template <auto get, auto set>
constexpr Member colour(std::string_view name, MemberNumber number, Stored how, Colour themed) {
    Member row = stored(property<get, set>(name, number, MemberType::Colour), how);
    row.themed = themed;
    return row;
}

template <auto get>
constexpr Member readOnly(std::string_view name, MemberNumber number, MemberType type) {
    Member row{name, number, MemberKind::Property, type, {}};
    row.read = reader<get>(row);
    return row;
}

template <auto set>
constexpr Member writeOnly(std::string_view name, MemberNumber number, MemberType type,
                           std::span<const Argument> index) {
    Member row{name, number, MemberKind::Property, type, index};
    row.write = writer<set>(row);
    return row;
}

template <auto function>
constexpr Member method(std::string_view name, MemberNumber number,
                        std::span<const Argument> arguments = {},
                        MemberType result = MemberType::None) {
    Member row{name, number, MemberKind::Method, result, arguments};
    row.read = reader<function>(row);
    return row;
}

} // namespace tablio::detail
