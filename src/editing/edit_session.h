#pragma once

/// One edit from the question to the host to the news of its end. The session chooses the editor,
/// keeps which cell it belongs to, writes the result and tells the host; the editors know how to
/// show, load and filter. Nobody else opens or closes an editor.

#include "editing/cell_editor.h"
#include "editing/navigator.h"
#include "rows/marker.h"
#include "state/cell_text.h"

#include <functional>
#include <optional>

namespace tablio {

/// What an open edit remembers. Its number tells it from every other edit of the control's life.
struct OpenEdit {
    EditNumber number = 0;
    CellEditor *editor = nullptr;
    CellAddress cell;
    /// The cell as it was, for putting it back to the letter.
    CellContent before;
    std::uint64_t shiftStamp = 0;
    /// Esc: the cell stays as it was.
    bool restored = false;
};

/// How an edit has ended, as the editor sees it.
struct EditResult {
    /// What goes into the cell.
    std::string written;
    /// What the host is told.
    std::string newText;
    std::string oldText;
    bool valid = false;
};

class EditSession {
public:
    EditSession(ControlState &state, CellText &cells, Navigator &navigator, Marker &marker)
        : state_(state), cells_(cells), navigator_(navigator), marker_(marker) {}

    /// The editor for a column's edit kind.
    void setEditors(std::function<CellEditor &(TColumnType)> choose) {
        editorFor_ = std::move(choose);
    }

    /// Starts an edit of the current cell, unless the host vetoes it or Enter finds the cell
    /// filled; Enter then moves on. An edit that is open already ends first.
    void begin(const EditStart &start);

    [[nodiscard]] bool isOpen() const noexcept { return open_.has_value(); }
    [[nodiscard]] bool isOpen(EditNumber number) const noexcept {
        return open_ && open_->number == number;
    }
    /// Null while no edit is open.
    [[nodiscard]] const OpenEdit *open() const noexcept { return open_ ? &*open_ : nullptr; }
    /// The cell of the open edit, or of the last one.
    [[nodiscard]] CellAddress cell() const noexcept { return cell_; }

    /// The last key code or character that an editor saw.
    [[nodiscard]] std::int16_t LastKey() const noexcept { return LastKey_; }
    void setLastKey(std::int16_t key) noexcept { LastKey_ = key; }

    /// Marks the open edit as given up: its end writes nothing.
    void giveUp() noexcept {
        if (open_)
            open_->restored = true;
    }
    /// Ends an open edit as if the operator had clicked elsewhere.
    void end();
    /// Gives the focus to the grid, which ends the edit, and then moves the cursor on, unless a
    /// handler has moved it, opened another edit or ended the control.
    void leave(const std::function<void()> &move);

    /// The editor's text has changed: the host hears it. Answers whether the edit is still open.
    bool reportChange(const CellEditor &editor, std::string_view text);
    /// First step of an end: the edit is over, whatever handlers do from here on. Answers nothing
    /// when this editor has no open edit.
    std::optional<OpenEdit> detach(const CellEditor &editor);
    /// Last step, with the editor hidden: writes the text and tells the host.
    void finish(const OpenEdit &edit, const EditResult &result);

    /// The lookup button's click: the host is asked, then the grid takes the focus.
    void pressLookup();
    /// Escape in any editor: the editor shows its old text again and the cell stays as it was.
    void cancel(const std::function<void()> &showOldText);
    /// The grid has scrolled: the open editor follows its cell.
    void reposition();

private:
    [[nodiscard]] bool isFilled(CellAddress cell) const;
    void showLookupButton(const Rect &cell);

    ControlState &state_;
    CellText &cells_;
    Navigator &navigator_;
    Marker &marker_;
    std::function<CellEditor &(TColumnType)> editorFor_;
    std::optional<OpenEdit> open_;
    CellAddress cell_;
    std::uint64_t count_ = 0;
    std::int16_t LastKey_ = 0;
};

} // namespace tablio
