#include "editing/text_editor.h"

#include "editing/column_rules.h"
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

std::string asText(char32_t character) {
    std::string text;
    if (character != 0)
        utf16::append(text, character);
    return text;
}

} // namespace

TextEditor::TextEditor(ControlState &state, EditSession &session, Navigator &navigator)
    : state_(state), session_(session), navigator_(navigator), box_(state.widgets.txtEdit) {
    box_.onChange = [this] { changed(); };
}

void TextEditor::place(const Rect &cell, int col, bool withLookup) {
    const GridLook &look = state_.grid.table.look();
    Twips width = cell.width;
    if (state_.columns.isNumeric(col))
        width -= withLookup ? state_.widgets.cmdLookup.Width() + buttonGap : numberMargin;
    state_.widgets.picText.setPlace(cell);
    box_.setLook({look.BackColor, look.ForeColor, look.Font});
    box_.setPlace({0, 0, width, cell.height});
    state_.widgets.picText.setVisible(true);
    box_.setVisible(true);
    box_.setMaxLength(state_.columns.ColMaxLength(col));
}

void TextEditor::load(const EditStart &start, int col, const std::string &text) {
    if (state_.columns.isNumeric(col))
        loadNumber(start, col, text);
    else
        loadText(start, col, text);
}

void TextEditor::loadNumber(const EditStart &start, int col, const std::string &text) {
    const std::string normalised = NormalizeNumberText(text);
    box_.setAlignment(TextAlignment::Right);
    box_.setTag(normalised);
    box_.load(start.typed || normalised == "0" ? std::string() : normalised);
    if (!start.typed)
        box_.select(0, box_.length());
    state_.focus.set(WidgetId::txtEdit);
    const bool isDigit = start.key >= U'0' && start.key <= U'9';
    const bool isMinus =
        start.key == U'-' && state_.columns.ColDataType(col) != TDataType::Positive;
    if (start.typed && (isDigit || isMinus))
        box_.insert(asText(start.key));
}

void TextEditor::loadText(const EditStart &start, int col, const std::string &text) {
    box_.setAlignment(TextAlignment::Left);
    box_.setTag(text);
    box_.load(start.typed ? std::string() : text);
    if (!trimmed(box_.Text()).empty())
        box_.select(0, box_.length());
    state_.focus.set(WidgetId::txtEdit);
    if (start.typed && start.key != 0)
        box_.insert(asText(folded(start.key, col)));
}

void TextEditor::follow(const Rect &cell) {
    state_.widgets.picText.moveTo(cell.left, cell.top);
    box_.moveTo(0, 0);
}

bool TextEditor::keyDown(KeyCode key, ShiftState shift) {
    session_.setLastKey(key);
    if (clipboardKey(key, shift))
        return true;
    if ((shift & (Shift::Ctrl | Shift::Alt)) != 0)
        return box_.keyDown(key, shift);
    switch (key) {
    case Key::Escape:
        session_.cancel([this] { box_.setText(box_.Tag()); });
        return true;
    case Key::F10:
        if (state_.columns.ColStyle(col()) == TColumnStyle::ColumnInputWithLookup)
            session_.pressLookup();
        return true;
    case Key::Up:
        session_.leave([this] { navigator_.up(); });
        return true;
    case Key::Down:
        session_.leave([this] { navigator_.down(); });
        return true;
    case Key::Enter:
        session_.leave([this] { navigator_.advance(); });
        return true;
    case Key::Left:
        if (shift != Shift::None || box_.SelStart() != 0)
            break;
        session_.leave([this] { navigator_.left(); });
        return true;
    case Key::Right:
        if (shift != Shift::None || box_.SelStart() != utf16::length(trimmed(box_.Text())))
            break;
        session_.leave([this] { navigator_.right(); });
        return true;
    default:
        break;
    }
    return box_.keyDown(key, shift);
}

bool TextEditor::clipboardKey(KeyCode key, ShiftState shift) {
    const bool ctrl = shift == Shift::Ctrl;
    const bool pasting = (ctrl && key == Key::V) || (shift == Shift::Shift && key == Key::Insert);
    const bool cutting = (ctrl && key == Key::X) || (shift == Shift::Shift && key == Key::Delete);
    if (pasting) {
        paste(state_.link.clipboardText());
        return true;
    }
    if (!cutting && !(ctrl && (key == Key::C || key == Key::Insert)))
        return false;
    if (box_.SelLength() > 0) {
        state_.link.setClipboardText(box_.SelText());
        if (cutting)
            box_.insert({});
    }
    return true;
}

void TextEditor::keyPress(char32_t character) {
    const OpenEdit *edit = session_.open();
    if (edit == nullptr || (character < U' ' && character != static_cast<char32_t>(Key::Back)))
        return;
    const std::uint64_t number = edit->number;
    if (character != static_cast<char32_t>(Key::Back) && character != U'.' && isFull())
        return;
    if (character > 0xFFFF) {
        // No 16-bit key code names it, so no host can change it; numbers have no such character.
        if (!state_.columns.isNumeric(col()))
            box_.insert(asText(character));
        return;
    }
    std::int16_t keyAscii = state_.link.CellKeyPress(
        state_.cursor.cell(), static_cast<std::int16_t>(static_cast<std::uint16_t>(character)));
    if (!session_.isOpen(number))
        return;
    session_.setLastKey(keyAscii);
    keyAscii = filtered(keyAscii);
    if (keyAscii == 0 || exceedsDecimals(keyAscii))
        return;
    if (keyAscii == Key::Back)
        box_.backspace();
    else
        box_.insert(asText(static_cast<std::uint16_t>(keyAscii)));
}

/// A selection is about to be replaced and so leaves room.
bool TextEditor::isFull() const {
    return box_.MaxLength() > 0 && box_.SelLength() == 0 && box_.length() >= box_.MaxLength();
}

std::int16_t TextEditor::filtered(std::int16_t keyAscii) const {
    const TDataType dataType = state_.columns.ColDataType(col());
    const EditorText editor{box_.Text(), box_.SelStart(), box_.SelLength()};
    switch (state_.columns.ColEditType(col())) {
    case TColumnType::ColumnDecimal:
        FilterDecimalKey(keyAscii, editor, dataType, state_.link.face().numberFormat());
        return keyAscii;
    case TColumnType::ColumnInteger:
        FilterIntegerKey(keyAscii, editor, dataType);
        return keyAscii;
    default:
        return static_cast<std::int16_t>(folded(static_cast<std::uint16_t>(keyAscii), col()));
    }
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
    const std::size_t sign = text.find(signs.decimalSign);
    if (sign == std::string_view::npos)
        return false;
    const int decimals = utf16::length(text.substr(sign + signs.decimalSign.size()));
    return decimals >= allowed && box_.SelLength() == 0 &&
           box_.SelStart() > utf16::length(text.substr(0, sign));
}

char32_t TextEditor::folded(char32_t character, int col) const {
    return foldCase(character, state_.columns.ColDataType(col), state_.link.face());
}

void TextEditor::paste(std::string_view text) {
    if (!session_.isOpen())
        return;
    const int room = box_.MaxLength() == 0
                         ? 0
                         : std::max(1, box_.MaxLength() - box_.length() + box_.SelLength());
    const std::optional<std::string> taken =
        acceptableText(state_.columns, state_.link.face(), col(), text, room);
    // An empty clipboard, or one that holds no text, takes nothing away.
    if (!taken || taken->empty() || (box_.SelLength() == 0 && isFull()))
        return;
    if (state_.columns.isNumeric(col()))
        box_.select(0, box_.length());
    box_.insert(*taken);
}

void TextEditor::changed() {
    if (session_.reportChange(*this, box_.Text()) && !session_.open()->restored)
        reshape();
}

void TextEditor::reshape() {
    if (!state_.columns.isNumeric(col()))
        return;
    const NumberFormat signs = state_.link.face().numberFormat();
    const bool isInteger = state_.columns.ColEditType(col()) == TColumnType::ColumnInteger;
    if (textToDecimal(box_.Text(), signs).isZero() && isInteger)
        return;
    box_.reshape(groupWhileTyping(trimmed(box_.Text()),
                                  isInteger ? NumberKind::Integer : NumberKind::Decimal, signs));
}

void TextEditor::lostFocus() {
    const std::optional<OpenEdit> edit = session_.detach(*this);
    if (!edit)
        return;
    std::string text = box_.Text();
    if (!edit->restored && state_.columns.isNumeric(edit->cell.col) &&
        state_.columns.ColDataType(edit->cell.col) == TDataType::Negative) {
        const Decimal value = textToDecimal(text, state_.link.face().numberFormat());
        if (!value.isZero() && !value.isNegative()) {
            text += '-';
            box_.load(text);
        }
    }
    const std::string before = box_.Tag();
    state_.widgets.picText.setVisible(false);
    box_.setVisible(false);
    session_.finish(*edit, {text, text, before, !trimmed(text).empty()});
}

} // namespace tablio
