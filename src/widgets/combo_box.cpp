#include "widgets/combo_box.h"

#include "model/text/ascii.h"
#include "model/text/utf16.h"

#include <algorithm>
#include <utility>

namespace tablio {

namespace {

constexpr int pageSize = 8;

/// Blind to the case of ASCII letters; other letters have to be typed as they stand in the list.
bool beginsWith(std::string_view text, std::string_view start) noexcept {
    return text.size() >= start.size() &&
           std::equal(start.begin(), start.end(), text.begin(), [](char left, char right) {
               return ascii::lower(left) == ascii::lower(right);
           });
}

} // namespace

void ComboBox::clearItems() {
    items_.clear();
    changed();
}

void ComboBox::addItem(std::string item) {
    items_.push_back(std::move(item));
    changed();
}

int ComboBox::ListIndex() const noexcept {
    if (Text().empty())
        return -1;
    const auto chosen = static_cast<std::size_t>(chosen_);
    const bool isChosen = chosen < items_.size() && items_[chosen] == Text();
    return isChosen ? chosen_ : indexOf(Text());
}

void ComboBox::setListIndex(int index) {
    const bool exists = index >= 0 && static_cast<std::size_t>(index) < items_.size();
    chosen_ = exists ? index : -1;
    std::string text = exists ? items_[static_cast<std::size_t>(index)] : std::string();
    const int end = utf16::length(text);
    put(std::move(text), 0, end);
}

int ComboBox::indexOf(std::string_view text) const noexcept {
    const auto found = std::find(items_.begin(), items_.end(), text);
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

void ComboBox::replace(int from, int to, std::string_view text) {
    std::string typed = Text().substr(0, utf16::byteOffset(Text(), from)).append(text);
    const bool atEnd = to == length();
    const auto match = std::find_if(items_.begin(), items_.end(), [&](const std::string &item) {
        return beginsWith(item, typed);
    });
    if (text.empty() || !atEnd || match == items_.end()) {
        TextField::replace(from, to, text);
        return;
    }
    // The rest of the item stands selected, so that the next key takes its place.
    put(*match, utf16::length(typed), utf16::length(*match));
}

bool ComboBox::keyDown(KeyCode key, ShiftState shift) {
    if (key == Key::F4 || ((shift & Shift::Alt) != 0 && (key == Key::Down || key == Key::Up))) {
        setDroppedDown(!droppedDown_);
        return true;
    }
    const auto count = static_cast<int>(items_.size());
    const bool isPlain = shift == Shift::None;
    if (isPlain && (key == Key::Up || key == Key::Down))
        step(key == Key::Up ? -1 : 1);
    else if (isPlain && (key == Key::PageUp || key == Key::PageDown))
        step(key == Key::PageUp ? -pageSize : pageSize);
    else if (isPlain && droppedDown_ && (key == Key::Home || key == Key::End))
        step(key == Key::Home ? -count : count);
    else
        return TextField::keyDown(key, shift);
    return true;
}

void ComboBox::step(int by) {
    if (!items_.empty())
        setListIndex(std::clamp(ListIndex() + by, 0, static_cast<int>(items_.size()) - 1));
}

} // namespace tablio
