#include "widgets/text_field.h"

#include "model/text/ascii.h"
#include "model/text/utf16.h"

#include <algorithm>
#include <utility>

namespace tablio {

namespace {

constexpr std::size_t undoDepth = 100;

enum class CharacterClass { Blank, Sign, Letter };

/// Words end at blanks, at the slashes of a date and at signs; a run of signs is a word of its own.
CharacterClass classAt(std::string_view text, std::size_t offset) noexcept {
    const char character = ascii::lower(text[offset]);
    if (character == ' ' || character == '\t' || character == '/')
        return CharacterClass::Blank;
    const bool isLetter = ascii::isDigit(character) || (character >= 'a' && character <= 'z') ||
                          character == '_' || static_cast<unsigned char>(character) >= 0x80;
    return isLetter ? CharacterClass::Letter : CharacterClass::Sign;
}

std::size_t wordBefore(std::string_view text, std::size_t offset) noexcept {
    while (offset > 0 && classAt(text, offset - 1) == CharacterClass::Blank)
        --offset;
    if (offset == 0)
        return 0;
    const CharacterClass word = classAt(text, offset - 1);
    while (offset > 0 && classAt(text, offset - 1) == word)
        --offset;
    return offset;
}

std::size_t wordBehind(std::string_view text, std::size_t offset) noexcept {
    const auto skip = [&](CharacterClass skipped) {
        while (offset < text.size() && classAt(text, offset) == skipped)
            ++offset;
    };
    if (offset < text.size())
        skip(classAt(text, offset));
    skip(CharacterClass::Blank);
    return offset;
}

/// The position one character or one word further or back.
int stepped(std::string_view text, int position, bool forward, bool words) {
    const std::size_t from = utf16::byteOffset(text, position);
    std::size_t to = utf16::byteOffset(text, position - 1);
    if (words)
        to = forward ? wordBehind(text, from) : wordBefore(text, from);
    else if (forward)
        to = from < text.size() ? from + utf16::characterAt(text, from).bytes : from;
    return utf16::length(text.substr(0, to));
}

} // namespace

int TextField::length() const noexcept { return utf16::length(text_); }

void TextField::setText(std::string text) {
    static_cast<void>(fit(text));
    const int end = utf16::length(text);
    put(std::move(text), end, end);
}

void TextField::load(std::string text) {
    static_cast<void>(fit(text));
    text_ = std::move(text);
    anchor_ = caret_ = 0;
    undo_.clear();
    changed();
}

void TextField::reshape(std::string text) {
    text_ = std::move(text);
    anchor_ = caret_ = length();
    changed();
}

std::string_view TextField::SelText() const noexcept {
    const std::size_t from = utf16::byteOffset(text_, SelStart());
    return std::string_view(text_).substr(from, utf16::byteOffset(text_, SelEnd()) - from);
}

void TextField::select(int anchor, int caret) {
    const int end = length();
    anchor = std::clamp(anchor, 0, end);
    caret = std::clamp(caret, 0, end);
    if (anchor == anchor_ && caret == caret_)
        return;
    anchor_ = anchor;
    caret_ = caret;
    changed();
}

void TextField::type(char32_t character) {
    std::string text;
    utf16::append(text, character);
    insert(text);
}

void TextField::replace(int from, int to, std::string_view text) {
    std::string result = text_;
    const std::size_t start = utf16::byteOffset(result, from);
    result.replace(start, utf16::byteOffset(result, to) - start, text);
    const int caret = from + utf16::length(text);
    put(std::move(result), caret, caret);
}

void TextField::put(std::string text, int anchor, int caret) {
    const bool isOther = text != text_;
    if (isOther) {
        undo_.push_back({std::exchange(text_, std::move(text)), SelEnd()});
        if (undo_.size() > undoDepth)
            undo_.erase(undo_.begin());
    }
    const int end = length();
    anchor_ = std::clamp(anchor, 0, end);
    caret_ = std::clamp(caret, 0, end);
    changed();
    if (isOther && onChange)
        onChange();
}

void TextField::deleteTo(int position) {
    if (SelLength() > 0)
        insert({});
    else if (position != caret_)
        replace(std::min(position, caret_), std::max(position, caret_), {});
}

void TextField::backspace() { deleteTo(stepped(text_, caret_, false, false)); }

bool TextField::keyDown(KeyCode key, ShiftState shift) {
    if ((shift & Shift::Alt) != 0)
        return false;
    const bool selecting = (shift & Shift::Shift) != 0;
    const bool ctrl = (shift & Shift::Ctrl) != 0;
    const bool collapses = SelLength() > 0 && !selecting && !ctrl;
    switch (key) {
    case Key::Left:
        moveCaret(collapses ? SelStart() : stepped(text_, caret_, false, ctrl), selecting);
        return true;
    case Key::Right:
        moveCaret(collapses ? SelEnd() : stepped(text_, caret_, true, ctrl), selecting);
        return true;
    case Key::Home:
        moveCaret(0, selecting);
        return true;
    case Key::End:
        moveCaret(length(), selecting);
        return true;
    case Key::Delete:
        deleteTo(stepped(text_, caret_, true, ctrl));
        return true;
    case Key::Back:
        // Without Ctrl it comes as a character, which the host may see.
        if (ctrl)
            deleteTo(stepped(text_, caret_, false, true));
        return ctrl;
    case Key::A:
        if (ctrl)
            selectAll();
        return ctrl;
    case Key::Z:
        if (ctrl)
            undo();
        return ctrl;
    default:
        return false;
    }
}

void TextField::undo() {
    if (undo_.empty())
        return;
    Snapshot last = std::move(undo_.back());
    undo_.pop_back();
    text_ = std::move(last.text);
    anchor_ = caret_ = last.caret;
    changed();
    if (onChange)
        onChange();
}

void TextField::settle(std::string text, int anchor, int caret) {
    const std::string given = text;
    if (!fit(text) || (admits && text != text_ && !admits(text))) {
        // The native box shows what cannot be; it is shown the old text again.
        changed();
        return;
    }
    if (utf16::length(text) != utf16::length(given))
        anchor = caret = utf16::length(text);
    if (text != text_ || anchor != anchor_ || caret != caret_)
        put(std::move(text), anchor, caret);
}

} // namespace tablio
