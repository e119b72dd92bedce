#pragma once

/// A single-line text box with the caret, selection and deletion keys that every platform's text
/// box has. It knows no column rules: handlers filter a key before it is typed here.

#include "widgets/widget.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tablio {

enum class TextAlignment { Left, Right };

/// Caret positions and lengths count UTF-16 units from 0.
class TextBox : public Widget {
public:
    using Widget::Widget;

    /// Called after every change of the text that somebody other than `load` made.
    std::function<void()> onChange;

    [[nodiscard]] const std::string &Text() const noexcept { return text_; }
    /// Replaces the text; the caret goes to its start.
    void setText(std::string text);
    /// The same without a change being reported, for putting a cell's text into the box.
    void load(std::string text);
    /// Shows the same content in another form: no change is reported, undo stays, and the caret
    /// goes to the end.
    void reshape(std::string text);
    [[nodiscard]] int length() const noexcept;

    [[nodiscard]] int SelStart() const noexcept { return selStart_; }
    [[nodiscard]] int SelLength() const noexcept { return selLength_; }
    [[nodiscard]] std::string_view SelText() const noexcept;
    /// Positions outside the text are moved to its nearest end.
    void select(int start, int length);
    void setCaretToEnd() { select(length(), 0); }

    /// Most UTF-16 units that may be typed; 0 is no limit.
    [[nodiscard]] int MaxLength() const noexcept { return maxLength_; }
    void setMaxLength(int maxLength) { set(maxLength_, maxLength); }
    [[nodiscard]] TextAlignment Alignment() const noexcept { return alignment_; }
    void setAlignment(TextAlignment alignment) { set(alignment_, alignment); }
    [[nodiscard]] const EditorLook &look() const noexcept { return look_; }
    void setLook(const EditorLook &look) { set(look_, look); }

    /// Puts a text in place of the selection, the caret behind it.
    void insert(std::string_view text);
    /// Takes the selection away, or without one the character before the caret.
    void backspace();
    /// Does what the key does in any text box: caret, selection, deletion, undo. Answers whether
    /// the key is one of those.
    bool keyDown(KeyCode key, ShiftState shift);
    /// Takes over what a face's native box holds after it has edited by itself.
    void settle(std::string text, int anchor, int caret);
    /// Where the selection began, and its other end, which keys move.
    [[nodiscard]] int anchor() const noexcept { return anchor_; }
    [[nodiscard]] int caret() const noexcept {
        return anchor_ == selStart_ ? selStart_ + selLength_ : selStart_;
    }

private:
    void replace(std::size_t from, std::size_t to, std::string_view text);
    void moveCaret(int to, bool select);
    void undo();

    struct Snapshot {
        std::string text;
        int caret;
    };

    std::string text_;
    int selStart_ = 0;
    int selLength_ = 0;
    /// Where a selection made with the keyboard began; the caret is its other end.
    int anchor_ = 0;
    int maxLength_ = 0;
    TextAlignment alignment_ = TextAlignment::Left;
    EditorLook look_;
    std::vector<Snapshot> undo_;
};

} // namespace tablio
