#pragma once

/// A drop-down combo: a text that can be typed and a list to choose from. Typing completes to the
/// first item that begins alike; a text that no item has is kept with nothing selected. It knows
/// nothing of cells.

#include "widgets/widget.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tablio {

class ComboBox : public Widget {
public:
    using Widget::Widget;

    /// Called after every change of the text that somebody other than `load` made.
    std::function<void()> onChange;

    [[nodiscard]] const std::vector<std::string> &items() const noexcept { return items_; }
    /// The text stays, with nothing selected.
    void clearItems();
    void addItem(std::string item);

    [[nodiscard]] const std::string &Text() const noexcept { return text_; }
    /// Also selects the item that reads so, if there is one; the caret goes to the end.
    void setText(std::string text);
    /// The same without a change being reported, with all of the text selected.
    void load(std::string text);
    /// Position in the list, −1 for none.
    [[nodiscard]] int ListIndex() const noexcept { return listIndex_; }
    /// Shows the item's text; −1 empties the text.
    void setListIndex(int index);
    /// The position of the item that reads exactly so, −1 where none does.
    [[nodiscard]] int indexOf(std::string_view text) const noexcept;

    [[nodiscard]] int SelStart() const noexcept { return selStart_; }
    [[nodiscard]] int SelLength() const noexcept { return selLength_; }
    [[nodiscard]] bool DroppedDown() const noexcept { return droppedDown_; }
    void setDroppedDown(bool dropped) { set(droppedDown_, dropped); }

    [[nodiscard]] const EditorLook &look() const noexcept { return look_; }
    void setLook(const EditorLook &look) { set(look_, look); }

    /// Puts a text in place of the selection and completes what is typed from the list.
    void type(std::string_view text);
    void backspace();
    /// Moves through the list: arrows and pages, Home and End while it is down; F4 and Alt+Down
    /// open and close it. Answers whether the key is one of those.
    bool keyDown(KeyCode key, ShiftState shift);
    /// Takes over what a face's native box holds after it has edited by itself.
    void settle(std::string text, int anchor, int caret);

private:
    void put(std::string text, int selStart, int selLength);
    void step(int by);

    std::vector<std::string> items_;
    std::string text_;
    int listIndex_ = -1;
    int selStart_ = 0;
    int selLength_ = 0;
    bool droppedDown_ = false;
    EditorLook look_;
};

} // namespace tablio
