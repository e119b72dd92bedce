#include "editing/column_rules.h"

#include "model/text/number_text.h"
#include "model/text/trim.h"
#include "model/text/utf16.h"

namespace tablio {

namespace {

std::string foldedText(std::string_view text, TDataType dataType, const Face &face) {
    std::string result;
    for (const char32_t character : utf16::characters(text)) {
        // Line ends and tabs have no place in a single-line editor.
        utf16::append(result, character < U' ' ? U' ' : foldCase(character, dataType, face));
    }
    return result;
}

std::optional<std::string> acceptableNumber(const ColumnSettings &columns, const Face &face,
                                            int col, std::string_view text) {
    const NumberFormat signs = face.numberFormat();
    const std::optional<Decimal> value = Decimal::parse(text, signs);
    if (!value || (value->isNegative() && columns.ColDataType(col) == TDataType::Positive))
        return std::nullopt;
    const bool isInteger = columns.ColEditType(col) == TColumnType::ColumnInteger;
    if (isInteger && value->fractionDigits() > 0)
        return std::nullopt;
    return groupWhileTyping(value->plainText(signs),
                            isInteger ? NumberKind::Integer : NumberKind::Decimal, signs);
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

std::optional<std::string> acceptableText(const ColumnSettings &columns, const Face &face, int col,
                                          std::string_view text, int room) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.remove_suffix(1);
    text = trimmed(text);
    if (columns.isNumeric(col))
        return acceptableNumber(columns, face, col, text);
    std::string result = columns.ColEditType(col) == TColumnType::ColumnString
                             ? foldedText(text, columns.ColDataType(col), face)
                             : std::string(text);
    if (room > 0)
        result.resize(utf16::byteOffset(result, room));
    return result;
}

} // namespace tablio
