#pragma once

/// One stored value as a line of ASCII text and back: name, type, value, with a blank between them.
/// Texts stand in quotation marks; `\u{…}` is a character by its number and `\x{…}` a byte that is
/// no part of one. `TextBag` puts the lines together.

#include <tablio/value.h>

#include <string>
#include <string_view>
#include <utility>

namespace tablio::textform {

/// Throws Error for a name that no line can begin with.
void checkName(std::string_view name);
/// Throws TypeMismatch for an object and for a number that is not finite.
void checkStorable(const Value &value);

/// Without a line end. Both have been checked.
[[nodiscard]] std::string toLine(std::string_view name, const Value &value);
/// Throws Error that says what is wrong with the line.
[[nodiscard]] std::pair<std::string, Value> fromLine(std::string_view line);

} // namespace tablio::textform
