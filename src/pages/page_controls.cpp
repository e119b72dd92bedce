#include <tablio/pages/page_controls.h>

#include <utility>

namespace tablio {

void PageControl::setEnabled(bool enabled) {
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    changed();
}

void PageTextBox::setText(std::string text) {
    if (text == text_)
        return;
    text_ = std::move(text);
    changed();
    if (onChange)
        onChange();
}

void PageTextBox::copy(const PageControl &other) {
    text_ = static_cast<const PageTextBox &>(other).text_;
    changed();
}

void PageCheckBox::setValue(int value) {
    if (value == value_ || (value != 0 && value != 1))
        return;
    value_ = value;
    changed();
    if (onClick)
        onClick();
}

void PageCheckBox::copy(const PageControl &other) {
    value_ = static_cast<const PageCheckBox &>(other).value_;
    changed();
}

void PageList::setItems(std::vector<std::string> items) {
    items_ = std::move(items);
    listIndex_ = -1;
    changed();
}

void PageList::setListIndex(int index) {
    if (index < -1 || index >= static_cast<int>(items_.size()))
        return;
    listIndex_ = index;
    changed();
    if (onClick)
        onClick();
}

void PageList::copy(const PageControl &other) {
    const auto &list = static_cast<const PageList &>(other);
    items_ = list.items_;
    listIndex_ = list.listIndex_;
    changed();
}

void PageSpinner::setValue(int value) {
    if (value == value_ || value < min_ || value > max_)
        return;
    value_ = value;
    changed();
    if (onChange)
        onChange();
}

} // namespace tablio
