#include <tablio/pages/property_page.h>

#include "model/text/number_text.h"

#include <limits>
#include <utility>

namespace tablio {

void PropertyPage::setChanged(bool changed) {
    if (changed_ == changed)
        return;
    changed_ = changed;
    listener_.changedFlagSet(*this);
}

void PropertyPage::copyFrom(const PropertyPage &other) {
    for (std::size_t place = 0; place < controls_.size(); ++place)
        controls_[place]->copy(*other.controls_[place]);
    setChanged(other.changed_);
}

bool PropertyPage::takesKey(const PageTextBox &box, char32_t character, int selStart,
                            int selLength) const {
    if (!box.Enabled())
        return false;
    if (box.keys() == PageKeys::All)
        return true;
    if (character > std::numeric_limits<std::int16_t>::max())
        return false;
    auto key = static_cast<std::int16_t>(character);
    FilterIntegerKey(key, {box.Text(), selStart, selLength}, TDataType::AllValue);
    return key != 0;
}

void PropertyPage::typed(PageTextBox &box, std::string text) {
    if (box.Enabled())
        box.setText(std::move(text));
}

void PropertyPage::lostFocus(PageTextBox &box) {
    if (box.onLostFocus)
        box.onLostFocus();
}

void PropertyPage::clicked(PageCheckBox &box) {
    if (box.Enabled())
        box.setValue(1 - box.Value());
}

void PropertyPage::chosen(PageList &list, int index) {
    if (list.Enabled())
        list.setListIndex(index);
}

void PropertyPage::pressed(PageButton &button) {
    if (button.Enabled() && button.onClick)
        button.onClick();
}

void PropertyPage::spun(PageSpinner &spinner, int value) {
    if (!spinner.Enabled())
        return;
    // The box may hold something that the spinner has not taken.
    if (value == spinner.Value() && spinner.onChange)
        spinner.onChange();
    spinner.setValue(value);
}

void PropertyPage::put(std::string_view property, const Value &value) {
    attempt([&] { selected_.put(property, value); });
}

void PropertyPage::put(std::string_view property, int index, const Value &value) {
    attempt([&] { selected_.put(property, value, {Value(index)}); });
}

} // namespace tablio
