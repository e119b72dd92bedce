#pragma once

/// One edit from the question to the host to the news of its end. The session chooses the editor,
/// keeps which cell it belongs to, writes the result and tells the host; the editors know how to
/// show, load and filter. Nobody else opens or ends an edit.

#include "editing/navigator.h"
#include "editing/standing.h"
#include "rows/marker.h"
#include "state/cell_text.h"

#include <functional>
#include <optional>

namespace tablio {

class BoxEditor;

/// How an edit is started.
struct EditStart {
    /// A typed character takes the place of the cell's content.
    bool Typed = false;
    /// The character, or the code of the key: Enter, F2 or F10.
    char32_t Key = 0;
    bool WithLookup = false;
    /// F10 opens the editor without pressing its button.
    bool NoAutoButton = false;
};

/// What an editor makes of the edit that ends.
struct EditResult {
    /// What goes into the cell; nothing leaves it to the letter as it was.
    std::optional<std::string> written;
    /// What the host is told.
    std::string newText;
    bool valid = false;
    /// What was typed is nothing that the cell can hold, and is dropped.
    bool dropsText = false;
};

class EditSession {
public:
    EditSession(ControlState &state, CellText &cells, Navigator &navigator, Marker &marker)
        : state_(state), cells_(cells), navigator_(navigator), marker_(marker) {}

    /// The editor for a column's edit kind.
    void setEditors(std::function<BoxEditor &(TColumnType)> choose) {
        editorFor_ = std::move(choose);
    }

    /// Starts an edit of the cell last entered, unless the host vetoes it or Enter finds the cell
    /// filled; Enter then moves on. An edit that is open already ends first.
    void BeginCellEdit(const EditStart &start);
    /// Ends the open edit, if there is one: this is the only way in which an edit ends. With Accept
    /// False, or after giveUp, the cell keeps what it holds. The keyboard goes to a widget of the
    /// control or, with nothing, out of it. Answers whether nobody has meanwhile taken the cell
    /// away, begun another edit or set the cursor, so that the cursor may go on.
    bool EndCellEdit(bool Accept = true, std::optional<WidgetId> keyboardTo = WidgetId::Grid);
    /// Ends the open edit before the cursor goes where it must. Handlers may open others meanwhile:
    /// the first one ends in the same way, a further one without a word, since its host would open
    /// the next for ever. No edit is open afterwards.
    void settle();
    /// The grid has scrolled or changed: the open editor follows its cell. Where the cell is gone
    /// or has no size any more, the edit ends.
    void RepositionEditor();

    /// Ends the open edit, for whoever is about to look at the table. Answers whether what was
    /// typed stands in the cell now; True where no edit was open.
    bool commit();
    [[nodiscard]] bool isOpen() const noexcept { return open_.has_value(); }
    [[nodiscard]] bool isOpen(EditNumber edit) const noexcept {
        return open_ && open_->number == edit;
    }
    /// The number of the open edit, 0 for none.
    [[nodiscard]] EditNumber openEdit() const noexcept { return open_ ? open_->number : 0; }
    /// Null while no edit is open.
    [[nodiscard]] BoxEditor *editor() const noexcept { return open_ ? open_->editor : nullptr; }
    /// The cell of the open edit, or of the last one.
    [[nodiscard]] CellAddress cell() const noexcept { return cell_; }
    [[nodiscard]] int EditRow() const noexcept { return cell_.row; }
    [[nodiscard]] int EditCol() const noexcept { return cell_.col; }

    /// Whether the host refused what was last entered into the cell, and nothing elsewhere since.
    [[nodiscard]] bool isRefused(CellAddress cell) const noexcept {
        return refused_ && refused_->cell() == cell && refused_->isSameCell();
    }
    /// The last key code or character that an editor saw.
    [[nodiscard]] std::int16_t LastKey() const noexcept { return LastKey_; }
    void setLastKey(std::int16_t key) noexcept { LastKey_ = key; }

    /// The keyboard goes to the grid; an open edit ends.
    void giveFocusToGrid();
    /// Ends the edit with the cursor on its cell, and then moves the cursor on if it may.
    void leave(const std::function<void()> &move);
    /// Esc: the editor shows its old text again, and the cell stays as it was. Answers like
    /// EndCellEdit; True where nothing was open.
    bool cancel();
    /// Whatever ends the open edit, its cell keeps what it holds.
    void giveUp() noexcept;
    /// The host has given the open edit its value: the edit ends with it as with Enter.
    void answer(EditResult result, const std::function<void()> &move);
    /// The editor's text has changed: the host hears it. Answers whether the edit goes on.
    bool reportChange(std::string_view text);

    /// F10 in the editor: the host is asked, then the edit ends unless it has answered.
    void askLookup();
    /// The lookup button is pressed: it takes the keyboard, which ends the typing first.
    void pressLookup();

private:
    /// What an open edit remembers. Its number tells it from every other edit of the control's
    /// life.
    struct OpenEdit {
        EditNumber number;
        BoxEditor *editor;
        /// Before anything was typed; the cell as it was, for putting it back to the letter.
        Standing begun;
        CellContent before;
        bool accepts = true;
        bool isTouched = false;
        /// What the host has said in place of the editor.
        std::optional<EditResult> answer;
    };

    [[nodiscard]] bool isFilled(CellAddress cell) const;

    ControlState &state_;
    CellText &cells_;
    Navigator &navigator_;
    Marker &marker_;
    std::function<BoxEditor &(TColumnType)> editorFor_;
    std::optional<OpenEdit> open_;
    std::optional<Standing> refused_;
    CellAddress cell_;
    EditNumber count_ = 0;
    /// Whether the last edit that ended left its text in the cell.
    bool wasTaken_ = true;
    std::int16_t LastKey_ = 0;
};

} // namespace tablio
