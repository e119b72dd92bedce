#include "widgets/masked_box.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace tablio {

namespace {

bool isDigit(char32_t character) noexcept { return character >= U'0' && character <= U'9'; }

bool isSlash(int position) noexcept { return position == 2 || position == 5; }

bool hasShape(std::string_view text) noexcept {
    if (text.size() != static_cast<std::size_t>(MaskedBox::length))
        return false;
    for (int position = 0; position < MaskedBox::length; ++position) {
        const char character = text[static_cast<std::size_t>(position)];
        const bool fits = isSlash(position)
                              ? character == '/'
                              : character == '_' || isDigit(static_cast<unsigned char>(character));
        if (!fits)
            return false;
    }
    return true;
}

std::string padded(std::string_view digits, std::size_t width) {
    std::string text(digits);
    if (text.size() < width)
        text.insert(0, width - text.size(), '0');
    return text;
}

} // namespace

void MaskedBox::load(std::string_view text) {
    text_ = hasShape(text) ? text : blankText;
    selStart_ = selLength_ = anchor_ = 0;
    changed();
}

void MaskedBox::setText(std::string_view text) {
    put(std::string(hasShape(text) ? text : blankText), 0);
}

void MaskedBox::select(int start, int count) {
    const int from = std::clamp(start, 0, length);
    const int size = std::clamp(count, 0, length - from);
    anchor_ = from;
    if (from == selStart_ && size == selLength_)
        return;
    selStart_ = from;
    selLength_ = size;
    changed();
}

void MaskedBox::put(std::string text, int caret) {
    const bool isOther = text != text_;
    text_ = std::move(text);
    selStart_ = anchor_ = caret;
    selLength_ = 0;
    changed();
    if (isOther && onChange)
        onChange();
}

void MaskedBox::type(char32_t character) {
    std::string text = text_;
    const auto wipe = [&text](int from, int to) {
        for (int position = from; position < to; ++position) {
            if (!isSlash(position))
                text[static_cast<std::size_t>(position)] = '_';
        }
    };
    if (isDigit(character)) {
        if (selLength_ > 0)
            wipe(selStart_, selStart_ + selLength_);
        int position = isSlash(selStart_) ? selStart_ + 1 : selStart_;
        if (position >= length)
            return;
        text[static_cast<std::size_t>(position++)] = static_cast<char>(character);
        put(std::move(text), isSlash(position) ? position + 1 : position);
        return;
    }
    if (character != U'/' && character != U'.' && character != U'-')
        return;
    // "5/" means the fifth: the digit moves up behind a zero.
    const int section = selStart_ <= 2 ? 0 : 3;
    char &first = text[static_cast<std::size_t>(section)];
    char &second = text[static_cast<std::size_t>(section) + 1];
    if (selStart_ == section + 1 && second == '_') {
        second = std::exchange(first, '0');
        put(std::move(text), section + 3);
    } else if (isSlash(selStart_)) {
        select(selStart_ + 1, 0);
    }
}

void MaskedBox::backspace() {
    if (selLength_ > 0) {
        blank(selStart_, selStart_ + selLength_);
        return;
    }
    const int place = isSlash(selStart_ - 1) ? selStart_ - 2 : selStart_ - 1;
    if (place >= 0)
        blank(place, place + 1);
}

void MaskedBox::blank(int from, int to) {
    std::string text = text_;
    for (int position = from; position < to; ++position) {
        if (!isSlash(position))
            text[static_cast<std::size_t>(position)] = '_';
    }
    put(std::move(text), from);
}

bool MaskedBox::keyDown(KeyCode key, ShiftState shift) {
    const bool selecting = (shift & Shift::Shift) != 0;
    if ((shift & Shift::Alt) != 0)
        return false;
    if ((shift & Shift::Ctrl) != 0) {
        if (key == Key::A)
            select(0, length);
        return key == Key::A;
    }
    const int end = selStart_ + selLength_;
    switch (key) {
    case Key::Left:
        moveCaret(selLength_ > 0 && !selecting ? selStart_ : caret() - 1, selecting);
        return true;
    case Key::Right:
        moveCaret(selLength_ > 0 && !selecting ? end : caret() + 1, selecting);
        return true;
    case Key::Home:
        moveCaret(0, selecting);
        return true;
    case Key::End:
        moveCaret(length, selecting);
        return true;
    case Key::Delete: {
        const int from = selLength_ == 0 && isSlash(selStart_) ? selStart_ + 1 : selStart_;
        blank(from, selLength_ > 0 ? end : std::min(from + 1, length));
        return true;
    }
    default:
        return false;
    }
}

void MaskedBox::moveCaret(int to, bool select) {
    const int target = std::clamp(to, 0, length);
    const int anchor = select ? anchor_ : target;
    this->select(std::min(anchor, target), std::abs(target - anchor));
    anchor_ = anchor;
}

void MaskedBox::paste(std::string_view text) {
    if (std::optional<std::string> date = shaped(text)) {
        put(std::move(*date), length);
        return;
    }
    for (const char character : text) {
        if (isDigit(static_cast<unsigned char>(character)))
            type(static_cast<unsigned char>(character));
    }
}

void MaskedBox::settle(std::string_view text, int anchor, int caret) {
    if (text == text_) {
        anchor_ = std::clamp(anchor, 0, length);
        moveCaret(caret, true);
        return;
    }
    if (hasShape(text))
        put(std::string(text), std::clamp(caret, 0, length));
    else if (std::optional<std::string> date = shaped(text))
        put(std::move(*date), length);
    else
        changed();
}

std::optional<std::string> MaskedBox::shaped(std::string_view text) {
    std::array<std::string, 3> groups;
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size();) {
        if (!isDigit(static_cast<unsigned char>(text[at]))) {
            ++at;
            continue;
        }
        std::size_t end = at;
        while (end < text.size() && isDigit(static_cast<unsigned char>(text[end])))
            ++end;
        if (count == groups.size())
            return std::nullopt;
        groups[count++] = text.substr(at, end - at);
        at = end;
    }
    if (count == 1 && groups[0].size() == 8)
        groups = {groups[0].substr(0, 2), groups[0].substr(2, 2), groups[0].substr(4)};
    else if (count != 3)
        return std::nullopt;
    if (groups[0].size() == 4)
        std::swap(groups[0], groups[2]);
    if (groups[0].size() > 2 || groups[1].size() > 2 || groups[2].size() != 4)
        return std::nullopt;
    return padded(groups[0], 2) + '/' + padded(groups[1], 2) + '/' + groups[2];
}

} // namespace tablio
