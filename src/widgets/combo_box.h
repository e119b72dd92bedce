#pragma once

/// A drop-down combo: a text field and a list to choose from. Typing completes to the item that
/// reads alike, else to the first one that begins so, blind to case; a text that no item has is
/// kept as it was typed, with nothing selected. It knows nothing of cells.

#include "widgets/text_field.h"

namespace tablio {

class ComboBox final : public TextField {
public:
    using TextField::TextField;

    /// A character in lower case, as the platform knows it.
    std::function<char32_t(char32_t)> lower;

    [[nodiscard]] const std::vector<std::string> &items() const noexcept { return items_; }
    /// The text stays, with nothing selected.
    void clearItems();
    void addItem(std::string item);

    /// Position of the text in the list, −1 for none.
    [[nodiscard]] int ListIndex() const noexcept;
    /// Shows the item's text, selected; −1 empties the text.
    void setListIndex(int index);
    /// The position of the first item that reads exactly so, −1 where none does.
    [[nodiscard]] int indexOf(std::string_view text) const noexcept;

    [[nodiscard]] bool DroppedDown() const noexcept { return droppedDown_; }
    /// A list without items stays closed.
    void setDroppedDown(bool dropped) { set(droppedDown_, dropped && !items_.empty()); }

    /// Moves through the list: arrows and pages, Home and End while it is down; F4 and Alt+Down
    /// open and close it. Any other key is the text field's.
    bool keyDown(KeyCode key, ShiftState shift) override;

private:
    void replace(int from, int to, std::string_view text) override;
    void step(int by);
    [[nodiscard]] std::string folded(std::string_view text) const;
    /// The item that a typed text means; null for none.
    [[nodiscard]] const std::string *completion(std::string_view typed) const;

    std::vector<std::string> items_;
    /// Which of several items that read alike was chosen.
    int chosen_ = -1;
    /// What was typed before an item completed it, in the case in which it was typed.
    std::string typed_;
    bool droppedDown_ = false;
};

} // namespace tablio
