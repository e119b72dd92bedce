#pragma once

/// A text box that always shows the shape of a date, `__/__/____`: digits go into the ten places
/// and step over the slashes, and nothing that is typed or deleted breaks the shape. It does not
/// know whether the digits are a date.

#include "widgets/widget.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tablio {

/// Positions are 0 to 10, before each place and after the last.
class MaskedBox : public Widget {
public:
    using Widget::Widget;

    static constexpr std::string_view blankText = "__/__/____";
    static constexpr int length = 10;

    /// Called after every change of the text that somebody other than `load` made.
    std::function<void()> onChange;

    [[nodiscard]] const std::string &Text() const noexcept { return text_; }
    /// Takes a text of the mask's shape; any other text is the blank one.
    void load(std::string_view text);
    void setText(std::string_view text);

    [[nodiscard]] int SelStart() const noexcept { return selStart_; }
    [[nodiscard]] int SelLength() const noexcept { return selLength_; }
    void select(int start, int count);

    [[nodiscard]] const EditorLook &look() const noexcept { return look_; }
    void setLook(const EditorLook &look) { set(look_, look); }

    /// A digit takes the place at the caret; a separator fills a begun day or month with a leading
    /// zero and steps over the slash; other characters do nothing.
    void type(char32_t character);
    void backspace();
    /// Caret keys, selection keys, Delete. Answers whether the key is one of those.
    bool keyDown(KeyCode key, ShiftState shift);
    /// Takes a date in any usual order of digits and separators, or just digits from the caret on.
    void paste(std::string_view text);

    /// Takes over what a face's native box holds after it has edited by itself; a text that breaks
    /// the shape is taken like a pasted one.
    void settle(std::string_view text, int anchor, int caret);
    /// Where the selection began, and its other end, which keys move.
    [[nodiscard]] int anchor() const noexcept { return anchor_; }
    [[nodiscard]] int caret() const noexcept {
        return anchor_ == selStart_ ? selStart_ + selLength_ : selStart_;
    }
    /// A pasted text as day, month and year in the mask's shape; nothing where it is no such text.
    [[nodiscard]] static std::optional<std::string> shaped(std::string_view text);

private:
    void put(std::string text, int caret);
    void blank(int from, int to);
    void moveCaret(int to, bool select);

    std::string text_{blankText};
    int selStart_ = 0;
    int selLength_ = 0;
    int anchor_ = 0;
    EditorLook look_;
};

} // namespace tablio
