#include "editing/column_rules.h"

#include "model/text/date_reader.h"
#include "model/text/digits.h"
#include "model/text/number_text.h"
#include "model/text/trim.h"
#include "model/text/utf16.h"

namespace tablio {

namespace {

/// A number as an editor shows it, or what speaks against it.
struct NumberReading {
    std::optional<std::string> shown;
    std::string_view problem;
};

NumberReading readNumber(const ControlState &state, int col, std::string_view text, int room) {
    const ColumnSettings &columns = state.columns;
    const NumberFormat signs = state.link.face().numberFormat();
    const std::optional<Decimal> value = Decimal::parse(text, signs);
    if (!value)
        return {{}, "This is no number"};
    if (state.rules().mindsGroups && !hasProperGroups(text, signs))
        return {{}, "The digits are grouped in another way here"};
    if (value->isNegative() && columns.ColDataType(col) == TDataType::Positive)
        return {{}, "There are no negative numbers here"};
    const bool isInteger = columns.ColEditType(col) == TColumnType::ColumnInteger;
    if (isInteger && value->fractionDigits() > 0)
        return {{}, "There are whole numbers here only"};
    const std::string plain = value->plainText(signs);
    if (room > 0 && utf16::length(plain) > room)
        return {{}, "This number is too long"};
    const NumberKind kind = isInteger ? NumberKind::Integer : NumberKind::Decimal;
    return {groupWhileTyping(plain, kind, signs), {}};
}

/// Trimmed, and digits as the column's reader knows them.
std::string wholeText(const ControlState &state, int col, std::string_view text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.remove_suffix(1);
    const bool isText =
        !state.columns.isNumeric(col) && state.columns.ColEditType(col) != TColumnType::ColumnDate;
    const std::string digits =
        !isText && state.rules().takesAllDigits ? withPlainDigits(text) : std::string(text);
    return std::string(trimmed(digits));
}

} // namespace

char32_t foldCase(char32_t character, TDataType dataType, const Face &face) {
    switch (dataType) {
    case TDataType::UpperCase:
        return face.toUpper(character);
    case TDataType::LowerCase:
        return face.toLower(character);
    default:
        return character;
    }
}

std::string foldedText(const ControlState &state, int col, std::string_view text) {
    const bool hasRule = state.columns.ColEditType(col) == TColumnType::ColumnString;
    const TDataType rule = hasRule ? state.columns.ColDataType(col) : TDataType::AllCase;
    std::string result;
    for (const char32_t character : utf16::characters(text)) {
        // Line ends and tabs have no place in a single-line editor.
        const bool isControl = character < U' ';
        utf16::append(result, isControl ? U' ' : foldCase(character, rule, state.link.face()));
    }
    return result;
}

std::optional<std::string> acceptableText(const ControlState &state, int col, std::string_view text,
                                          int room) {
    const std::string whole = wholeText(state, col, text);
    if (state.columns.isNumeric(col))
        return readNumber(state, col, whole, room).shown;
    if (state.columns.ColEditType(col) == TColumnType::ColumnDate)
        return readDate(whole, state.link.dateOrderOf(text));
    std::string result = foldedText(state, col, whole);
    if (room > 0)
        result.resize(utf16::byteOffset(result, room));
    return result;
}

std::string whyRefused(const ControlState &state, int col, std::string_view text, int room) {
    const std::string whole = wholeText(state, col, text);
    const std::string_view problem = readNumber(state, col, whole, room).problem;
    return std::string(problem) + ": " + whole;
}

std::string finishedText(const ControlState &state, int col, std::string text) {
    if (state.columns.isNumeric(col) && state.columns.ColDataType(col) == TDataType::Negative) {
        const Decimal value = textToDecimal(text, state.link.face().numberFormat());
        if (!value.isZero() && !value.isNegative())
            text += '-';
    }
    return text;
}

bool isValidEntry(const ControlState &state, int col, std::string_view text,
                  std::string_view oldText) {
    if (state.columns.ColEditType(col) != TColumnType::ColumnCombo)
        return !trimmed(text).empty();
    return !text.empty() && text != oldText && state.widgets.cboEdit.indexOf(text) != -1;
}

} // namespace tablio
