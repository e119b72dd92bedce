#pragma once

/// What the edit session asks of an editor. An editor shows its widget over a cell, loads it, and
/// takes it away again; it never decides whether an edit starts.

#include <tablio/types.h>

#include <string>
#include <string_view>

namespace tablio {

/// How an edit is started.
struct EditStart {
    /// A typed character takes the place of the cell's content.
    bool typed = false;
    /// The character, or the code of the key: Enter, F2 or F10.
    char32_t key = 0;
    bool withLookup = false;
    /// F10 opens the editor without pressing its button.
    bool noAutoButton = false;
};

class CellEditor {
public:
    virtual ~CellEditor() = default;

    /// Shows the editor over the cell, whose rectangle is relative to the grid.
    virtual void place(const Rect &cell, int col, bool withLookup) = 0;
    /// Puts the cell's text and the first key into the editor and takes the focus.
    virtual void load(const EditStart &start, int col, const std::string &text) = 0;
    /// The cell stands somewhere else now.
    virtual void follow(const Rect &cell) = 0;
    /// Answers whether the key is dealt with, so that no character follows from it.
    virtual bool keyDown(KeyCode key, ShiftState shift) = 0;
    virtual void keyPress(char32_t character) = 0;
    /// The keyboard has left the editor: the edit ends.
    virtual void lostFocus() = 0;
    /// Puts a text that arrives whole into the editor, by the column's rules.
    virtual void paste(std::string_view text) = 0;
    /// Puts a looked-up value into the editor as it is.
    virtual void setAnswer(const std::string &value) = 0;
    /// The cell's text from before the edit, as the host is told it.
    [[nodiscard]] virtual const std::string &oldText() const = 0;
    /// Presses the editor's own button, if it has one.
    virtual void pressButton() {}
};

} // namespace tablio
