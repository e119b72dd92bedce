#include "widgets/text_box.h"

#include "model/text/utf16.h"

#include <algorithm>
#include <utility>

namespace tablio {

namespace {

constexpr std::size_t undoDepth = 100;

/// The position one character further or back, over whole characters.
int stepped(std::string_view text, int position, int direction) {
    if (direction > 0) {
        const std::size_t offset = utf16::byteOffset(text, position);
        return offset < text.size() ? position + utf16::characterAt(text, offset).units : position;
    }
    const std::size_t before = utf16::byteOffset(text, position - 1);
    return position > 0 ? utf16::length(text.substr(0, before)) : 0;
}

} // namespace

int TextBox::length() const noexcept { return utf16::length(text_); }

void TextBox::setText(std::string text) {
    const bool isOther = text != text_;
    load(std::move(text));
    if (isOther && onChange)
        onChange();
}

void TextBox::load(std::string text) {
    text_ = std::move(text);
    selStart_ = selLength_ = anchor_ = 0;
    undo_.clear();
    changed();
}

void TextBox::reshape(std::string text) {
    text_ = std::move(text);
    selStart_ = anchor_ = length();
    selLength_ = 0;
    changed();
}

std::string_view TextBox::SelText() const noexcept {
    const std::size_t from = utf16::byteOffset(text_, selStart_);
    const std::size_t to = utf16::byteOffset(text_, selStart_ + selLength_);
    return std::string_view(text_).substr(from, to - from);
}

void TextBox::select(int start, int length) {
    const int end = this->length();
    const int from = std::clamp(start, 0, end);
    const int count = std::clamp(length, 0, end - from);
    anchor_ = from;
    if (from == selStart_ && count == selLength_)
        return;
    selStart_ = from;
    selLength_ = count;
    changed();
}

void TextBox::insert(std::string_view text) {
    replace(utf16::byteOffset(text_, selStart_), utf16::byteOffset(text_, selStart_ + selLength_),
            text);
}

void TextBox::backspace() {
    const int from = selLength_ > 0 ? selStart_ : stepped(text_, selStart_, -1);
    replace(utf16::byteOffset(text_, from), utf16::byteOffset(text_, selStart_ + selLength_), {});
}

void TextBox::replace(std::size_t from, std::size_t to, std::string_view text) {
    if (from == to && text.empty())
        return;
    undo_.push_back({text_, selStart_ + selLength_});
    if (undo_.size() > undoDepth)
        undo_.erase(undo_.begin());
    text_.replace(from, to - from, text);
    selStart_ = anchor_ = utf16::length(std::string_view(text_).substr(0, from + text.size()));
    selLength_ = 0;
    changed();
    if (onChange)
        onChange();
}

bool TextBox::keyDown(KeyCode key, ShiftState shift) {
    const bool selecting = (shift & Shift::Shift) != 0;
    const bool ctrl = (shift & Shift::Ctrl) != 0;
    if ((shift & Shift::Alt) != 0)
        return false;
    if (ctrl) {
        if (key == Key::A)
            select(0, length());
        else if (key == Key::Z)
            undo();
        return key == Key::A || key == Key::Z;
    }
    const auto edge = [&](int direction) {
        const bool collapses = selLength_ > 0 && !selecting;
        if (collapses)
            return direction < 0 ? selStart_ : selStart_ + selLength_;
        return stepped(text_, caret(), direction);
    };
    switch (key) {
    case Key::Left:
        moveCaret(edge(-1), selecting);
        return true;
    case Key::Right:
        moveCaret(edge(1), selecting);
        return true;
    case Key::Home:
        moveCaret(0, selecting);
        return true;
    case Key::End:
        moveCaret(length(), selecting);
        return true;
    case Key::Delete: {
        const int end = selStart_ + selLength_;
        const int to = selLength_ > 0 ? end : stepped(text_, end, 1);
        replace(utf16::byteOffset(text_, selStart_), utf16::byteOffset(text_, to), {});
        return true;
    }
    default:
        return false;
    }
}

void TextBox::moveCaret(int to, bool select) {
    const int anchor = select ? anchor_ : to;
    this->select(std::min(anchor, to), std::abs(to - anchor));
    anchor_ = anchor;
}

void TextBox::undo() {
    if (undo_.empty())
        return;
    Snapshot last = std::move(undo_.back());
    undo_.pop_back();
    text_ = std::move(last.text);
    selStart_ = anchor_ = last.caret;
    selLength_ = 0;
    changed();
    if (onChange)
        onChange();
}

void TextBox::settle(std::string text, int anchor, int caret) {
    const bool isOther = text != text_;
    text_ = std::move(text);
    const int end = length();
    anchor_ = std::clamp(anchor, 0, end);
    moveCaret(std::clamp(caret, 0, end), true);
    if (isOther && onChange)
        onChange();
}

} // namespace tablio
