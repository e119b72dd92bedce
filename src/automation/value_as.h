#pragma once

/// Which type of the automation interface stands for which C++ type, and the conversion from a
/// `Value` to it. Dispatch, events and persistence share it.

#include <tablio/members.h>
#include <tablio/tmatrix.h>
#include <tablio/types.h>
#include <tablio/value.h>

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace tablio {

/// The declared type that a typed function's own type stands for.
template <typename T> inline constexpr MemberType memberTypeOf = MemberType::String;
template <> inline constexpr MemberType memberTypeOf<void> = MemberType::None;
template <> inline constexpr MemberType memberTypeOf<bool> = MemberType::Boolean;
template <> inline constexpr MemberType memberTypeOf<std::int16_t> = MemberType::Integer;
template <> inline constexpr MemberType memberTypeOf<std::int32_t> = MemberType::Long;
template <> inline constexpr MemberType memberTypeOf<Colour> = MemberType::Colour;
template <> inline constexpr MemberType memberTypeOf<Font> = MemberType::Font;
template <> inline constexpr MemberType memberTypeOf<std::shared_ptr<TMatrix>> = MemberType::Matrix;
template <> inline constexpr MemberType memberTypeOf<TColumnStyle> = MemberType::ColumnStyle;
template <> inline constexpr MemberType memberTypeOf<TColumnType> = MemberType::ColumnType;
template <> inline constexpr MemberType memberTypeOf<TDataType> = MemberType::DataType;
template <> inline constexpr MemberType memberTypeOf<TCalcStyle> = MemberType::CalcStyle;
template <> inline constexpr MemberType memberTypeOf<TEntryRules> = MemberType::EntryRules;
template <>
inline constexpr MemberType memberTypeOf<TColumnAlignment> = MemberType::ColumnAlignment;

/// What Value::to… answers, as the type that a typed function takes. Text is answered as a string
/// also where a view is wanted, so that somebody owns it during the call.
template <typename T> auto valueAs(const Value &value) {
    if constexpr (std::is_same_v<T, bool>)
        return value.toBoolean();
    else if constexpr (std::is_same_v<T, std::int16_t>)
        return value.toInteger();
    else if constexpr (std::is_same_v<T, std::int32_t>)
        return value.toLong();
    else if constexpr (std::is_enum_v<T>)
        return static_cast<T>(value.toLong());
    else if constexpr (std::is_same_v<T, Colour>)
        return value.toColour();
    else if constexpr (std::is_same_v<T, Font>)
        return value.toFont();
    else if constexpr (std::is_same_v<T, std::shared_ptr<TMatrix>>)
        return value.toObject();
    else {
        static_assert(std::is_same_v<T, std::string> || std::is_same_v<T, std::string_view>);
        return value.toText();
    }
}

} // namespace tablio
