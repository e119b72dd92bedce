#pragma once

/// The rules for numbers as text that all numeric columns share: what a cell's text is worth, which
/// keys a numeric editor takes, and how digits are grouped while they are typed. Editors,
/// properties and pages use them; they keep no state and change no editor.

#include "model/text/decimal_text.h"
#include <tablio/types.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace tablio {

/// What the key filters need to see of an editor; positions and lengths in UTF-16 code units.
struct EditorText {
    std::string_view text;
    int selStart = 0;
    int selLength = 0;
};

/// The two kinds of numeric columns.
enum class NumberKind { Integer, Decimal };

/// `Value` without blanks at either end, and "0" when nothing is left. A positive `Digits` formats
/// with a picture of that many shift-in characters (code 15), which show themselves and no digit.
std::string NormalizeNumberText(std::string_view Value, std::int16_t Digits = 0);

/// The number that `Value` holds. Text that is no number, or zero however written, answers 0 and
/// is replaced by "0", so that afterwards the caller's text is a number.
double TextToNumber(std::string &Value, const NumberFormat &format);

/// Like TextToNumber with every digit kept and without the repair: zero for text that is no number.
Decimal textToDecimal(std::string_view text, const NumberFormat &format);

/// The character (a UTF-16 code unit) that a keypad's decimal key types: the decimal sign of
/// `format` when it is one unit, otherwise ",".
std::int16_t decimalKey(const NumberFormat &format) noexcept;

/// Whether the key types a decimal sign: "." exactly where `format` uses it, "," wherever "." is
/// not used and the comma does not group, and any other sign of `format` that is one UTF-16 unit.
bool isDecimalKey(std::int16_t KeyAscii, const NumberFormat &format) noexcept;

/// Sets `KeyAscii` to 0 when a decimal editor must not take it, judged against the text without the
/// selection that it replaces: it takes digits, Backspace, one
/// decimal sign and, unless the column is `Positive`, one leading minus sign before which nothing
/// is typed. A `DataType` outside the three sign rules lets every key pass.
void FilterDecimalKey(std::int16_t &KeyAscii, const EditorText &Editor, TDataType DataType,
                      const NumberFormat &format);

/// The same for an integer editor, which takes no decimal sign.
void FilterIntegerKey(std::int16_t &KeyAscii, const EditorText &Editor, TDataType DataType);

/// Whether the grouping signs of a number stand where the locale puts them; a text without any has
/// none in a wrong place.
bool hasProperGroups(std::string_view text, const NumberFormat &format);

/// The text without its grouping signs.
std::string withoutGroups(std::string_view text, const NumberFormat &format);

/// Whether an editor can hold `text`: a number of that kind and sign rule as far as it has been
/// typed, any part of which may still be missing.
bool isTypedNumber(std::string_view text, NumberKind kind, TDataType DataType,
                   const NumberFormat &format);

/// The text an editor shows after the user has changed it to `text`; the caret belongs at its end.
/// The integer part is grouped, and what follows a decimal sign stays as typed, up to ten digits.
/// A number that is only begun ("-", ".", "-0", "12.") is left for the user to go on with, and an
/// integer zero keeps the zeros typed. Text that is no number is answered unchanged.
std::string groupWhileTyping(std::string_view text, NumberKind kind, const NumberFormat &format);

} // namespace tablio
