#pragma once

/// The text field under every box editor: a text, a selection with its moving end, caret and word
/// keys, deletion, and undo of what was typed, alike in all of them. A kind of box says how a text
/// gets in; nobody here knows column rules or the clipboard.

#include "widgets/widget.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tablio {

/// Caret positions and lengths count UTF-16 units from 0.
class TextField : public Widget {
public:
    using Widget::Widget;

    /// Called after every change of the text that somebody other than `load` and `reshape` made.
    std::function<void()> onChange;
    /// Asked about a text that a face's native box has made by itself: shapes it, or answers
    /// whether it has a place here.
    std::function<bool(std::string &text)> admits;

    [[nodiscard]] const std::string &Text() const noexcept { return text_; }
    [[nodiscard]] int length() const noexcept;
    /// Replaces the text; the caret goes to its end.
    void setText(std::string text);
    /// Puts a cell's text into the box: no change is reported, there is nothing to undo, and the
    /// caret stands at the start.
    void load(std::string text);
    /// Shows the same content in another form: no change is reported, undo stays, and the caret
    /// goes to the end.
    void reshape(std::string text);

    /// Where the selection began, and the caret, its other end, which keys move.
    [[nodiscard]] int anchor() const noexcept { return anchor_; }
    [[nodiscard]] int caret() const noexcept { return caret_; }
    [[nodiscard]] int SelStart() const noexcept { return anchor_ < caret_ ? anchor_ : caret_; }
    [[nodiscard]] int SelEnd() const noexcept { return anchor_ < caret_ ? caret_ : anchor_; }
    [[nodiscard]] int SelLength() const noexcept { return SelEnd() - SelStart(); }
    [[nodiscard]] std::string_view SelText() const noexcept;
    /// Positions outside the text are moved to its nearest end.
    void select(int anchor, int caret);
    void selectAll() { select(0, length()); }

    [[nodiscard]] const EditorLook &look() const noexcept { return look_; }
    void setLook(const EditorLook &look) { set(look_, look); }

    void type(char32_t character);
    /// Puts a text in place of the selection, the caret behind it.
    void insert(std::string_view text) { replace(SelStart(), SelEnd(), text); }
    /// Takes the selection away, or without one the character before the caret.
    void backspace();
    /// Does what the key does in any text box: caret, words, selection, deletion, undo. Answers
    /// whether the key is one of those.
    virtual bool keyDown(KeyCode key, ShiftState shift);
    /// Takes over what a face's native box holds after it has edited by itself; what is no news
    /// changes nothing.
    void settle(std::string text, int anchor, int caret);

protected:
    virtual ~TextField() = default;

    /// Puts a text in place of what stands between two positions, as this kind of box takes it.
    virtual void replace(int from, int to, std::string_view text);
    /// Makes a whole text one that the box can hold; answers whether it was.
    [[nodiscard]] virtual bool fit(std::string & /*text*/) const { return true; }
    /// A new text, to be undone and reported, or just another selection.
    void put(std::string text, int anchor, int caret);

private:
    void moveCaret(int to, bool selecting) { select(selecting ? anchor_ : to, to); }
    void deleteTo(int position);
    void undo();

    struct Snapshot {
        std::string text;
        int caret;
    };

    std::string text_;
    int anchor_ = 0;
    int caret_ = 0;
    EditorLook look_;
    std::vector<Snapshot> undo_;
};

enum class TextAlignment { Left, Right };

/// `txtEdit`, which takes any text.
class TextBox final : public TextField {
public:
    using TextField::TextField;

    /// Most UTF-16 units that may be typed; 0 is no limit.
    [[nodiscard]] int MaxLength() const noexcept { return maxLength_; }
    void setMaxLength(int maxLength) { set(maxLength_, maxLength); }
    [[nodiscard]] TextAlignment Alignment() const noexcept { return alignment_; }
    void setAlignment(TextAlignment alignment) { set(alignment_, alignment); }

private:
    int maxLength_ = 0;
    TextAlignment alignment_ = TextAlignment::Left;
};

} // namespace tablio
