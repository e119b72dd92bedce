#include "widgets/combo_box.h"

#include "model/text/utf16.h"

#include <algorithm>
#include <utility>

namespace tablio {

namespace {

constexpr int pageSize = 8;

char lower(char character) noexcept {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

/// Blind to the case of ASCII letters; other letters have to be typed as they stand in the list.
bool beginsWith(std::string_view text, std::string_view start) noexcept {
    return text.size() >= start.size() &&
           std::equal(start.begin(), start.end(), text.begin(),
                      [](char left, char right) { return lower(left) == lower(right); });
}

} // namespace

void ComboBox::clearItems() {
    items_.clear();
    listIndex_ = -1;
    changed();
}

void ComboBox::addItem(std::string item) {
    if (listIndex_ < 0 && item == text_ && !text_.empty())
        listIndex_ = static_cast<int>(items_.size());
    items_.push_back(std::move(item));
    changed();
}

void ComboBox::setText(std::string text) {
    const int end = utf16::length(text);
    put(std::move(text), end, 0);
}

void ComboBox::load(std::string text) {
    text_ = std::move(text);
    listIndex_ = indexOf(text_);
    selStart_ = 0;
    selLength_ = utf16::length(text_);
    droppedDown_ = false;
    changed();
}

void ComboBox::setListIndex(int index) {
    const bool exists = index >= 0 && static_cast<std::size_t>(index) < items_.size();
    const std::string text = exists ? items_[static_cast<std::size_t>(index)] : std::string();
    const bool isOther = text != text_ || listIndex_ != (exists ? index : -1);
    text_ = text;
    listIndex_ = exists ? index : -1;
    selStart_ = 0;
    selLength_ = utf16::length(text_);
    changed();
    if (isOther && onChange)
        onChange();
}

int ComboBox::indexOf(std::string_view text) const noexcept {
    const auto found = std::find(items_.begin(), items_.end(), text);
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

void ComboBox::put(std::string text, int selStart, int selLength) {
    const bool isOther = text != text_;
    text_ = std::move(text);
    listIndex_ = indexOf(text_);
    selStart_ = selStart;
    selLength_ = selLength;
    changed();
    if (isOther && onChange)
        onChange();
}

void ComboBox::type(std::string_view text) {
    std::string typed = text_;
    const std::size_t from = utf16::byteOffset(typed, selStart_);
    const std::size_t to = utf16::byteOffset(typed, selStart_ + selLength_);
    typed.replace(from, to - from, text);
    const int caret = utf16::length(std::string_view(typed).substr(0, from + text.size()));
    const bool atEnd = caret == utf16::length(typed);
    const auto match = std::find_if(items_.begin(), items_.end(), [&](const std::string &item) {
        return beginsWith(item, typed);
    });
    if (!atEnd || match == items_.end()) {
        put(std::move(typed), caret, 0);
        return;
    }
    // The rest of the item stands selected, so that the next key takes its place.
    put(*match, caret, utf16::length(*match) - caret);
}

void ComboBox::backspace() {
    std::string text = text_;
    int start = selStart_;
    if (selLength_ == 0 && selStart_ > 0)
        start =
            utf16::length(std::string_view(text).substr(0, utf16::byteOffset(text, selStart_ - 1)));
    const std::size_t from = utf16::byteOffset(text, start);
    text.erase(from, utf16::byteOffset(text, selStart_ + selLength_) - from);
    put(std::move(text), start, 0);
}

bool ComboBox::keyDown(KeyCode key, ShiftState shift) {
    if (key == Key::F4 || ((shift & Shift::Alt) != 0 && (key == Key::Down || key == Key::Up))) {
        setDroppedDown(!droppedDown_);
        return true;
    }
    if (shift != Shift::None)
        return false;
    switch (key) {
    case Key::Up:
        step(-1);
        return true;
    case Key::Down:
        step(1);
        return true;
    case Key::PageUp:
        step(-pageSize);
        return true;
    case Key::PageDown:
        step(pageSize);
        return true;
    case Key::Home:
    case Key::End: {
        const int end = utf16::length(text_);
        if (droppedDown_)
            step(key == Key::Home ? -static_cast<int>(items_.size())
                                  : static_cast<int>(items_.size()));
        else
            put(text_, key == Key::Home ? 0 : end, 0);
        return true;
    }
    default:
        return false;
    }
}

void ComboBox::step(int by) {
    if (!items_.empty())
        setListIndex(std::clamp(listIndex_ + by, 0, static_cast<int>(items_.size()) - 1));
}

void ComboBox::settle(std::string text, int anchor, int caret) {
    const int start = std::min(anchor, caret);
    const int length = std::max(anchor, caret) - start;
    if (text != text_ || start != selStart_ || length != selLength_)
        put(std::move(text), start, length);
}

} // namespace tablio
