#include "widgets/combo_box.h"

#include "model/text/ascii.h"
#include "model/text/utf16.h"

#include <algorithm>
#include <utility>

namespace tablio {

namespace {

constexpr int pageSize = 8;

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
    typed_.clear();
    std::string text = exists ? items_[static_cast<std::size_t>(index)] : std::string();
    const int end = utf16::length(text);
    put(std::move(text), 0, end);
}

int ComboBox::indexOf(std::string_view text) const noexcept {
    const auto found = std::find(items_.begin(), items_.end(), text);
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

std::string ComboBox::folded(std::string_view text) const {
    if (!lower)
        return ascii::lower(text);
    std::string result;
    for (const char32_t character : utf16::characters(text))
        utf16::append(result, lower(character));
    return result;
}

const std::string *ComboBox::completion(std::string_view typed) const {
    const std::string start = folded(typed);
    const std::string *longer = nullptr;
    for (const std::string &item : items_) {
        const std::string name = folded(item);
        if (name == start)
            return &item;
        if (longer == nullptr && name.compare(0, start.size(), start) == 0)
            longer = &item;
    }
    return longer;
}

void ComboBox::replace(int from, int to, std::string_view text) {
    if (to != length()) {
        TextField::replace(from, to, text);
        return;
    }
    std::string typed = Text().substr(0, utf16::byteOffset(Text(), from));
    // What an item has completed goes on as it was typed.
    if (folded(typed) == folded(typed_))
        typed = typed_;
    typed.append(text);
    typed_ = typed;
    const int end = utf16::length(typed);
    if (const std::string *item = text.empty() ? nullptr : completion(typed)) {
        // The rest of the item stands selected, so that the next key takes its place.
        put(*item, end, utf16::length(*item));
    } else {
        put(std::move(typed), end, end);
    }
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
