#include "editing/text_editor.h"

#include "editing/column_rules.h"
#include "model/text/ascii.h"
#include "model/text/digits.h"
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
    const Twips kept = isNumeric() ? margin : 0;
    // The button stands where the text would begin.
    const bool isPushed = button() != nullptr && state_.grid.view.isRightToLeft();
    return {isPushed ? kept : 0, 0, cell.width - kept, cell.height};
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
    const char32_t key = meant(start.Key);
    const bool takesMinus = state_.columns.ColDataType(col()) != TDataType::Positive;
    const bool takesSign = state_.rules().opensWithZero && isDecimalSign(key);
    if (isFull(key))
        return;
    if (!isNumeric() || ascii::isDigit(key) || (key == U'-' && takesMinus) || takesSign)
        enter(isNumeric() ? key : filtered(key));
}

/// What the key stands for by the entry rules.
char32_t TextEditor::meant(char32_t character) const {
    const EntryRuleSet rules = state_.rules();
    if (isNumeric() && rules.takesAllDigits)
        character = plainDigit(character);
    const NumberFormat signs = state_.link.face().numberFormat();
    if (character != U'.' || !rules.takesPointForComma || !isDecimal() || signs.decimalSign != ",")
        return character;
    // Behind digits other than a zero a point that groups may well be meant to.
    const bool mayGroup =
        signs.groupSign == "." && textBeforeCaret().find_first_of("123456789") != std::string::npos;
    return mayGroup ? character : U',';
}

bool TextEditor::isDecimalSign(char32_t character) const {
    return isDecimal() && character <= 0x7FFF &&
           isDecimalKey(static_cast<std::int16_t>(character), state_.link.face().numberFormat());
}

std::string TextEditor::textBeforeCaret() const {
    return box_.Text().substr(0, utf16::byteOffset(box_.Text(), box_.SelStart()));
}

void TextEditor::enter(char32_t character) {
    const bool isFirst = textBeforeCaret().find_first_of("0123456789") == std::string::npos;
    std::string text;
    if (state_.rules().opensWithZero && isDecimalSign(character) && isFirst)
        text = "0";
    utf16::append(text, character);
    box_.insert(text);
}

char32_t TextEditor::admitted(char32_t character) {
    const auto back = static_cast<char32_t>(Key::Back);
    character = meant(character);
    const bool passesFull =
        state_.rules().countsDigitsAlone ? isDecimalSign(character) : character == U'.';
    if (character != back && !passesFull && isFull(character))
        return 0;
    // No 16-bit key code names it, so no host can change it; numbers have no such character.
    if (character > 0xFFFF)
        return isNumeric() ? 0 : character;
    const char32_t taken = askHost(character);
    return taken == 0 ? 0 : filtered(taken);
}

/// A selection is about to be replaced and so leaves room, also in a text that is too long already.
bool TextEditor::isFull(char32_t character) const {
    int length = box_.length();
    if (isNumeric() && state_.rules().countsDigitsAlone)
        length = utf16::length(withoutGroups(box_.Text(), state_.link.face().numberFormat()));
    const int room = box_.MaxLength() - length + box_.SelLength();
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
    if (!taken && !trimmed(text).empty())
        state_.link.face().showWarning("Warning", whyRefused(state_, col(), text, room));
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
    const std::string grouped = groupWhileTyping(
        trimmed(box_.Text()), isInteger ? NumberKind::Integer : NumberKind::Decimal, signs);
    const std::string_view text = box_.Text();
    const auto behind = withoutGroups(text.substr(utf16::byteOffset(text, box_.caret())), signs);
    box_.reshape(grouped);
    if (!state_.rules().keepsCaret)
        return;
    // As many digits stand behind the caret as before; it keeps left of a grouping sign.
    std::size_t at = 0;
    while (at < grouped.size() && withoutGroups(grouped.substr(at), signs).size() > behind.size())
        at += std::max<std::size_t>(groupSignLength(grouped, at, signs), 1);
    const int caret = utf16::length(grouped.substr(0, at));
    box_.select(caret, caret);
}

/// A grouping sign comes back by itself: the key means the digit on its other side.
void TextEditor::erase() {
    if (const int group = groupSignAtCaret(false))
        box_.select(box_.caret() - group, box_.caret() - group);
    box_.backspace();
}

bool TextEditor::keyDown(KeyCode key, ShiftState shift) {
    const int group = key == Key::Delete && shift == Shift::None ? groupSignAtCaret(true) : 0;
    if (group > 0)
        box_.select(box_.caret() + group, box_.caret() + group);
    return BoxEditor::keyDown(key, shift);
}

/// The length of the grouping sign on one side of the caret, 0 where there is none to step over.
int TextEditor::groupSignAtCaret(bool behind) const {
    if (!isNumeric() || !state_.rules().keepsCaret || box_.SelLength() > 0)
        return 0;
    const NumberFormat signs = state_.link.face().numberFormat();
    const std::string before = textBeforeCaret();
    const int length = utf16::length(signs.groupSign);
    const bool isGroup = behind ? groupSignLength(box_.Text(), before.size(), signs) > 0
                                : before.size() >= signs.groupSign.size() && length > 0 &&
                                      before.ends_with(signs.groupSign);
    return isGroup ? length : 0;
}

/// What a native box has made of the text by itself, by a drop say.
bool TextEditor::admitsSettled(std::string &text) const {
    if (isNumeric()) {
        if (state_.rules().takesAllDigits)
            text = withPlainDigits(text);
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
