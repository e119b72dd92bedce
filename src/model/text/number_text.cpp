#include "model/text/number_text.h"

#include "model/text/ascii.h"
#include "model/text/number_picture.h"
#include "model/text/trim.h"
#include "model/text/utf16.h"

#include <algorithm>
#include <optional>

namespace tablio {

namespace {

constexpr std::int16_t backspace = 8;
constexpr std::string_view integerPicture = "###,##0";
constexpr std::string_view decimalPicture = "###,##0.0#########";
constexpr std::size_t greatestFraction = 10; ///< Digits that decimalPicture can show.

bool isDigitKey(std::int16_t key) noexcept { return key >= '0' && key <= '9'; }

/// The format's own decimal sign as a key, or 0 when it is not one UTF-16 unit of a key's range.
std::int16_t ownDecimalKey(const NumberFormat &format) noexcept {
    const std::string_view sign = decimalSignOf(format);
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(sign[index]); };
    int key = 0;
    if (sign.size() == 1 && byteAt(0) < 0x80)
        key = byteAt(0);
    else if (sign.size() == 2 && byteAt(0) >= 0xC0 && byteAt(0) < 0xE0)
        key = (byteAt(0) & 0x1F) << 6 | (byteAt(1) & 0x3F);
    else if (sign.size() == 3 && byteAt(0) >= 0xE0 && byteAt(0) < 0xF0)
        key = (byteAt(0) & 0x0F) << 12 | (byteAt(1) & 0x3F) << 6 | (byteAt(2) & 0x3F);
    return key <= INT16_MAX ? static_cast<std::int16_t>(key) : std::int16_t{0};
}

bool isSignRule(TDataType dataType) noexcept {
    return dataType == TDataType::AllValue || dataType == TDataType::Positive ||
           dataType == TDataType::Negative;
}

/// What the key will stand in: it takes the place of the selection.
std::string textWithoutSelection(const EditorText &editor) {
    std::string text(editor.text);
    const std::size_t from = utf16::byteOffset(text, editor.selStart);
    const std::size_t to = utf16::byteOffset(text, editor.selStart + editor.selLength);
    return text.erase(from, to - from);
}

/// The part of both filters that guards the leading minus sign of a signed column.
bool breaksLeadingMinus(std::int16_t key, int caret, std::string_view text) noexcept {
    if (key == '-')
        return caret != 0 || text.find('-') != std::string_view::npos;
    return caret == 0 && text.substr(0, 1) == "-";
}

/// A number as far as it has been typed: any part may still be missing.
struct TypedNumber {
    bool isNegative = false;
    std::string digits; ///< Of the integer part, without grouping.
    std::string_view decimalSign;
    std::string_view fraction;
};

/// Unlike Decimal::parse() this takes grouping signs anywhere before the decimal sign, because
/// deleting from "1,234" leaves ",234" or "1,", and it takes no exponent.
std::optional<TypedNumber> readTyped(std::string_view text, const NumberFormat &format) {
    TypedNumber typed;
    std::size_t position = 0;
    bool hasSign = false;
    const auto takeMinus = [&] {
        const std::size_t length = hasSign ? 0 : minusLength(text, position);
        typed.isNegative = typed.isNegative || length > 0;
        hasSign = hasSign || length > 0;
        position = skipBlanks(text, position + length);
    };

    position = skipBlanks(text, position);
    takeMinus();
    if (!hasSign && position < text.size() && text[position] == '+') {
        hasSign = true;
        ++position;
    }
    while (position < text.size()) {
        if (ascii::isDigit(text[position])) {
            typed.digits += text[position++];
        } else if (const std::size_t sign = decimalSignLength(text, position, format)) {
            typed.decimalSign = text.substr(position, sign);
            position += sign;
            break;
        } else if (const std::size_t group = groupSignLength(text, position, format)) {
            position += group;
        } else {
            break;
        }
    }
    const std::size_t start = position;
    while (!typed.decimalSign.empty() && position < text.size() && ascii::isDigit(text[position]))
        ++position;
    typed.fraction = text.substr(start, position - start);

    position = skipBlanks(text, position);
    takeMinus();
    return position == text.size() ? std::optional(typed) : std::nullopt;
}

/// What is shown for text that was not typed digit by digit, such as a pasted "1.5e3".
std::string groupNumber(std::string_view text, NumberKind kind, const NumberFormat &format) {
    const std::optional<Decimal> number = Decimal::parse(text, format);
    if (!number || number->isZero())
        return std::string(text);
    const bool isWhole = kind == NumberKind::Integer || number->fractionDigits() == 0;
    return formatNumber(*number, isWhole ? integerPicture : decimalPicture, format);
}

} // namespace

std::string NormalizeNumberText(std::string_view Value, std::int16_t Digits) {
    if (Digits > 0)
        return std::string(static_cast<std::size_t>(Digits), '\x0F');
    const std::string_view text = trimmed(Value);
    return text.empty() ? "0" : std::string(text);
}

double TextToNumber(std::string &Value, const NumberFormat &format) {
    const double number = textToDecimal(Value, format).toDouble();
    if (number == 0.0)
        Value.assign(1, '0');
    return number;
}

Decimal textToDecimal(std::string_view text, const NumberFormat &format) {
    return Decimal::parse(text, format).value_or(Decimal());
}

std::int16_t decimalKey(const NumberFormat &format) noexcept {
    const std::int16_t own = ownDecimalKey(format);
    return own != 0 ? own : std::int16_t{','};
}

bool isDecimalKey(std::int16_t KeyAscii, const NumberFormat &format) noexcept {
    const std::int16_t own = ownDecimalKey(format);
    if (KeyAscii != 0 && KeyAscii == own)
        return true;
    return KeyAscii == ',' && own != '.' && format.groupSign != ",";
}

void FilterDecimalKey(std::int16_t &KeyAscii, const EditorText &Editor, TDataType DataType,
                      const NumberFormat &format) {
    if (!isSignRule(DataType))
        return;
    const std::int16_t key = KeyAscii;
    const bool isSigned = DataType != TDataType::Positive;
    const bool isSeparator = isDecimalKey(key, format);
    const bool isKnown =
        isDigitKey(key) || key == backspace || isSeparator || (isSigned && key == '-');
    const std::string text = textWithoutSelection(Editor);
    const bool secondSeparator =
        isSeparator && findDecimalSign(text, format) != std::string_view::npos;
    if (!isKnown || secondSeparator || (isSigned && breaksLeadingMinus(key, Editor.selStart, text)))
        KeyAscii = 0;
}

void FilterIntegerKey(std::int16_t &KeyAscii, const EditorText &Editor, TDataType DataType) {
    if (!isSignRule(DataType))
        return;
    const std::int16_t key = KeyAscii;
    const bool isSigned = DataType != TDataType::Positive;
    const bool isKnown = isDigitKey(key) || key == backspace || (isSigned && key == '-');
    if (!isKnown ||
        (isSigned && breaksLeadingMinus(key, Editor.selStart, textWithoutSelection(Editor))))
        KeyAscii = 0;
}

bool hasProperGroups(std::string_view text, const NumberFormat &format) {
    text = text.substr(0, findDecimalSign(text, format));
    const bool isScientific = text.find_first_of("eE") != std::string_view::npos;
    int digitsBehind = static_cast<int>(
        std::count_if(text.begin(), text.end(), [](char byte) { return ascii::isDigit(byte); }));
    bool hasDigit = false;
    bool hasGroups = false;
    bool isProper = true;
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t sign = groupSignLength(text, position, format);
        if (ascii::isDigit(text[position])) {
            hasDigit = true;
            --digitsBehind;
        } else if (sign > 0 && hasDigit && digitsBehind > 0) {
            hasGroups = true;
            isProper = isProper && format.groupsBefore(digitsBehind);
        }
        position += std::max<std::size_t>(sign, 1);
    }
    if (!hasGroups)
        return true;
    // Where one sign stands, all the others do; but a blank means nothing else, and some languages
    // leave the thousands alone.
    const std::string whole = withoutGroups(text, format);
    return isProper && !isScientific &&
           (blankLength(format.groupSign, 0) > 0 ||
            utf16::length(text) - utf16::length(whole) ==
                utf16::length(groupWhileTyping(whole, NumberKind::Integer, format)) -
                    utf16::length(whole));
}

std::string withoutGroups(std::string_view text, const NumberFormat &format) {
    std::string result;
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t sign = groupSignLength(text, position, format);
        if (sign == 0)
            result += text[position];
        position += std::max<std::size_t>(sign, 1);
    }
    return result;
}

bool isTypedNumber(std::string_view text, NumberKind kind, TDataType DataType,
                   const NumberFormat &format) {
    if (!isSignRule(DataType))
        return true;
    const std::optional<TypedNumber> typed = readTyped(text, format);
    return typed && (kind == NumberKind::Decimal || typed->decimalSign.empty()) &&
           !(typed->isNegative && DataType == TDataType::Positive);
}

std::string groupWhileTyping(std::string_view text, NumberKind kind, const NumberFormat &format) {
    const std::optional<TypedNumber> typed = readTyped(text, format);
    if (!typed || (kind == NumberKind::Integer && !typed->decimalSign.empty()))
        return groupNumber(text, kind, format);

    const bool isBegun = typed->digits.empty() && typed->fraction.empty();
    const bool isZero = typed->digits.find_first_not_of('0') == std::string::npos;
    if (isBegun || (kind == NumberKind::Integer && isZero))
        return std::string(text);

    std::string result = typed->isNegative ? "-" : "";
    const std::optional<Decimal> integerPart =
        typed->digits.empty() ? Decimal() : Decimal::parse(typed->digits, format);
    if (!integerPart)
        return std::string(text);
    result += formatNumber(*integerPart, integerPicture, format);
    result += typed->decimalSign;
    result += typed->fraction.substr(0, greatestFraction);
    return result;
}

} // namespace tablio
