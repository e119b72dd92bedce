#include "editing/text_editor.h"

#include "editing/column_rules.h"
#include "model/text/ascii.h"
#include "model/text/number_picture.h"
#include "model/text/number_text.h"
#include "model/text/trim.h"
#include "model/text/utf16.h"

#include <algorithm>

namespace tablio {

namespace {

/// A numeric editor ends short of the cell's right border, where the grid pads its numbers too.
constexpr Twips numberMargin = 50;
constexpr Twips buttonGap = 20;

} // namespace

TextEditor::TextEditor(ControlState &state, EditSession &session, Navigator &navigator)
    : BoxEditor(state, session, navigator, state.widgets.txtEdit, &state.widgets.picText),
      box_(state.widgets.txtEdit) {
    box_.admits = [this](std::string &text) { return admitsSettled(text); };
}

Rect TextEditor::placeOver(const Rect &cell) const {
    const Twips margin = button() != nullptr ? button()->Width() + buttonGap : numberMargin;
    return {0, 0, cell.width - (isNumeric() ? margin : 0), cell.height};
}

void TextEditor::load(const EditStart &start, const std::string &text) {
    box_.setMaxLength(state_.columns.ColMaxLength(col()));
    box_.setAlignment(isNumeric() ? TextAlignment::Right : TextAlignment::Left);
    box_.setTag(isNumeric() ? NormalizeNumberText(text) : text);
    const bool isZero = isNumeric() && box_.Tag() == "0";
    box_.load(start.Typed || isZero ? std::string() : box_.Tag());
    if (!trimmed(box_.Text()).empty())
        box_.selectAll();
}

/// The host is not asked about the character that opens the editor.
void TextEditor::typeFirst(const EditStart &start) {
    if (!start.Typed || start.Key == 0)
        return;
    const bool takesMinus = state_.columns.ColDataType(col()) != TDataType::Positive;
    if (isFull(start.Key))
        return;
    if (!isNumeric() || ascii::isDigit(start.Key) || (start.Key == U'-' && takesMinus))
        box_.type(isNumeric() ? start.Key : filtered(start.Key));
}

char32_t TextEditor::admitted(char32_t character) {
    const auto back = static_cast<char32_t>(Key::Back);
    if (character != back && character != U'.' && isFull(character))
        return 0;
    // No 16-bit key code names it, so no host can change it; numbers have no such character.
    if (character > 0xFFFF)
        return isNumeric() ? 0 : character;
    const char32_t taken = askHost(character);
    return taken == 0 ? 0 : filtered(taken);
}

/// A selection is about to be replaced and so leaves room, also in a text that is too long already.
bool TextEditor::isFull(char32_t character) const {
    const int room = box_.MaxLength() - box_.length() + box_.SelLength();
    return box_.MaxLength() > 0 && utf16::units(character) > std::max(room, box_.SelLength());
}

char32_t TextEditor::filtered(char32_t character) const {
    const TDataType dataType = state_.columns.ColDataType(col());
    const Face &face = state_.link.face();
    if (!isNumeric())
        return foldCase(character, dataType, face);
    auto keyAscii = static_cast<std::int16_t>(static_cast<std::uint16_t>(character));
    const EditorText editor{box_.Text(), box_.SelStart(), box_.SelLength()};
    if (state_.columns.ColEditType(col()) == TColumnType::ColumnDecimal)
        FilterDecimalKey(keyAscii, editor, dataType, face.numberFormat());
    else
        FilterIntegerKey(keyAscii, editor, dataType);
    return exceedsDecimals(keyAscii) ? 0 : static_cast<std::uint16_t>(keyAscii);
}

bool TextEditor::exceedsDecimals(std::int16_t keyAscii) const {
    const ColumnSettings &columns = state_.columns;
    if (columns.ColEditType(col()) != TColumnType::ColumnDecimal ||
        columns.ColCalcStyle(col()) != TCalcStyle::CalcStyle)
        return false;
    const int allowed = decimalsOfPicture(columns.ColFormat(col()));
    const NumberFormat signs = state_.link.face().numberFormat();
    if (allowed < 1 || keyAscii == '-' || keyAscii == Key::Back || isDecimalKey(keyAscii, signs))
        return false;
    const std::string_view text = trimmed(box_.Text());
    const std::size_t sign = findDecimalSign(text, signs);
    if (sign == std::string_view::npos)
        return false;
    const int decimals = utf16::length(text.substr(sign + decimalSignLength(text, sign, signs)));
    return decimals >= allowed && box_.SelLength() == 0 &&
           box_.SelStart() > utf16::length(text.substr(0, sign));
}

void TextEditor::paste(std::string_view text) {
    // A number takes the place of the whole text.
    const int kept = isNumeric() ? 0 : box_.length() - box_.SelLength();
    const int room = box_.MaxLength() == 0 ? 0 : std::max(1, box_.MaxLength() - kept);
    const std::optional<std::string> taken = acceptableText(state_, col(), text, room);
    // An empty clipboard, or one that holds no text, takes nothing away.
    if (!taken || taken->empty() || isFull(U' '))
        return;
    if (isNumeric())
        box_.selectAll();
    box_.insert(*taken);
}

void TextEditor::changed() {
    if (!isNumeric())
        return;
    const NumberFormat signs = state_.link.face().numberFormat();
    const bool isInteger = state_.columns.ColEditType(col()) == TColumnType::ColumnInteger;
    if (textToDecimal(box_.Text(), signs).isZero() && isInteger)
        return;
    box_.reshape(groupWhileTyping(trimmed(box_.Text()),
                                  isInteger ? NumberKind::Integer : NumberKind::Decimal, signs));
}

/// What a native box has made of the text by itself, by a drop say.
bool TextEditor::admitsSettled(std::string &text) const {
    if (isNumeric()) {
        const bool isInteger = state_.columns.ColEditType(col()) == TColumnType::ColumnInteger;
        return isTypedNumber(text, isInteger ? NumberKind::Integer : NumberKind::Decimal,
                             state_.columns.ColDataType(col()), state_.link.face().numberFormat());
    }
    text = foldedText(state_, col(), text);
    if (box_.MaxLength() > 0)
        text.resize(utf16::byteOffset(text, std::max(box_.MaxLength(), box_.length())));
    return true;
}

EditResult TextEditor::result(bool accepted) const {
    std::string text = accepted ? finishedText(state_, col(), box_.Text()) : box_.Text();
    const bool valid = isValidEntry(state_, col(), text, oldText());
    return {accepted ? std::optional(text) : std::nullopt, std::move(text), valid};
}

} // namespace tablio
