#pragma once

/// How keys, enumerations and other values are written in scenarios. Texts are read into values
/// and values are shown as texts; an unknown name throws ScriptError.

#include <tablio/members.h>
#include <tablio/testing/driver.h>
#include <tablio/testing/script.h>

#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

namespace tablio::scenario {

/// The entry of a table in which this member is the key; null when there is none.
template <typename Table, typename Member, typename Key>
[[nodiscard]] auto findBy(const Table &table, Member member, const Key &key)
    -> decltype(&*std::begin(table)) {
    for (const auto &entry : table) {
        if (entry.*member == key)
            return &entry;
    }
    return nullptr;
}

/// "Enter", "Ctrl+V", "Shift+Left", "A", or a key's code of two digits or more, as one stroke on an
/// American keyboard.
[[nodiscard]] KeyStroke keyStrokeOf(std::string_view name);
/// The stroke that types the character; its key is 0 where no American keyboard has it.
[[nodiscard]] KeyStroke keyStrokeFor(char32_t character);
[[nodiscard]] std::string nameOf(KeyCode key, ShiftState shift);

template <typename T> [[nodiscard]] T valueOf(const Token &token);
template <> std::int32_t valueOf<std::int32_t>(const Token &token);
template <> bool valueOf<bool>(const Token &token);
template <> std::string valueOf<std::string>(const Token &token);
template <> Date valueOf<Date>(const Token &token);
template <> WidgetId valueOf<WidgetId>(const Token &token);
template <> MenuEntry valueOf<MenuEntry>(const Token &token);

/// A value of a member or of an event's argument: a colour is "&H00FF00", a font a text such as
/// "Arial 9 bold", an enumeration one of its names or a number.
[[nodiscard]] Value valueFor(MemberType type, const Token &token);
[[nodiscard]] std::string shown(MemberType type, const Value &value);
[[nodiscard]] std::string shown(WidgetId value);
[[nodiscard]] std::string shown(MenuEntry value);

} // namespace tablio::scenario
