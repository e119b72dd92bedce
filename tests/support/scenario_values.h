#pragma once

/// How keys, enumerations and other values are written in scenarios. Texts are read into values
/// and values are shown as texts; an unknown name throws ScriptError.

#include "support/scenario_driver.h"
#include "support/scenario_text.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tablio::scenario {

/// "Enter", "Ctrl+V", "Shift+Left", "A" as one stroke on an American keyboard.
[[nodiscard]] KeyStroke keyStrokeOf(std::string_view name);
/// The stroke that types the character; its key is 0 where no American keyboard has it.
[[nodiscard]] KeyStroke keyStrokeFor(char32_t character);
[[nodiscard]] std::string nameOf(KeyCode key, ShiftState shift);

template <typename T> [[nodiscard]] T valueOf(const Token &token);
template <> std::int32_t valueOf<std::int32_t>(const Token &token);
template <> std::int16_t valueOf<std::int16_t>(const Token &token);
template <> bool valueOf<bool>(const Token &token);
template <> std::string_view valueOf<std::string_view>(const Token &token);
template <> std::string valueOf<std::string>(const Token &token);
template <> TColumnStyle valueOf<TColumnStyle>(const Token &token);
template <> TColumnType valueOf<TColumnType>(const Token &token);
template <> TDataType valueOf<TDataType>(const Token &token);
template <> TCalcStyle valueOf<TCalcStyle>(const Token &token);
template <> TColumnAlignment valueOf<TColumnAlignment>(const Token &token);
template <> Colour valueOf<Colour>(const Token &token);
template <> Date valueOf<Date>(const Token &token);
/// "Name size", then bold and italic if so.
template <> Font valueOf<Font>(const Token &token);
template <> WidgetId valueOf<WidgetId>(const Token &token);
template <> MenuEntry valueOf<MenuEntry>(const Token &token);

[[nodiscard]] std::string shown(std::int32_t value);
[[nodiscard]] std::string shown(bool value);
[[nodiscard]] std::string shown(std::string_view value);
[[nodiscard]] std::string shown(TColumnStyle value);
[[nodiscard]] std::string shown(TColumnType value);
[[nodiscard]] std::string shown(TDataType value);
[[nodiscard]] std::string shown(TCalcStyle value);
[[nodiscard]] std::string shown(TColumnAlignment value);
[[nodiscard]] std::string shown(Colour value);
[[nodiscard]] std::string shown(const Font &value);
[[nodiscard]] std::string shown(WidgetId value);

} // namespace tablio::scenario
