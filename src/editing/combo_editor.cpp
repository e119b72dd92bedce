#include "editing/combo_editor.h"

#include "editing/column_rules.h"

#include <algorithm>

namespace tablio {

namespace {

/// The combo is this much larger than its frame on each side, so that its border is clipped away.
constexpr Twips overhang = 35;

} // namespace

ComboEditor::ComboEditor(ControlState &state, EditSession &session, Navigator &navigator,
                         CellText &cells)
    : state_(state), session_(session), navigator_(navigator), cells_(cells),
      box_(state.widgets.cboEdit) {
    box_.onChange = [this] { changed(); };
}

void ComboEditor::place(const Rect &cell, int /*col*/, bool /*withLookup*/) {
    const GridLook &look = state_.grid.table.look();
    state_.widgets.picEdit.setPlace(cell);
    box_.setLook({look.BackColor, look.ForeColor, look.Font});
    box_.setPlace({-overhang, -overhang, cell.width + 2 * overhang, cell.height + 2 * overhang});
    box_.setVisible(true);
    state_.widgets.picEdit.setVisible(true);
}

void ComboEditor::load(const EditStart &start, int /*col*/, const std::string &text) {
    box_.setTag(text);
    box_.load(start.typed ? std::string() : text);
    box_.selectAll();
    state_.focus.set(WidgetId::cboEdit);
    if (start.typed && start.key != 0)
        keyPress(start.key);
}

void ComboEditor::follow(const Rect &cell) {
    state_.widgets.picEdit.moveTo(cell.left, cell.top);
    box_.moveTo(-overhang, -overhang);
}

bool ComboEditor::keyDown(KeyCode key, ShiftState shift) {
    session_.setLastKey(key);
    if ((shift & (Shift::Ctrl | Shift::Alt)) != 0) {
        if (shift != Shift::Ctrl || key != Key::V)
            return box_.keyDown(key, shift);
        paste(state_.link.clipboardText());
        return true;
    }
    switch (key) {
    case Key::Escape:
        session_.cancel([this] {
            if (box_.Tag().empty())
                box_.setListIndex(-1);
            else
                box_.setText(box_.Tag());
        });
        return true;
    case Key::Delete:
        box_.setListIndex(-1);
        return true;
    case Key::F10:
        if (state_.columns.ColStyle(session_.cell().col) == TColumnStyle::ColumnInputWithLookup)
            session_.pressLookup();
        return true;
    case Key::Left:
        session_.leave([this] { goLeft(); });
        return true;
    case Key::Right:
        session_.leave([this] { goRight(); });
        return true;
    case Key::Enter:
        session_.leave([this] { navigator_.advance(); });
        return true;
    default:
        return box_.keyDown(key, shift);
    }
}

void ComboEditor::goLeft() {
    const CellAddress cell = state_.grid.current();
    const bool stops =
        state_.settings.WithFixedColumn ? cell.col == state_.settings.PrimaryColumn : cell.col < 1;
    if (!stops)
        navigator_.moveTo({cell.row, cell.col - 1});
}

void ComboEditor::goRight() {
    const CellAddress cell = state_.grid.current();
    const GridTable &table = state_.grid.table;
    if (cell.col != table.Cols() - 1)
        navigator_.moveTo({cell.row, cell.col + 1});
    else
        navigator_.moveTo({std::min(cell.row + 1, table.Rows() - 1), state_.firstColumn()});
}

void ComboEditor::keyPress(char32_t character) {
    const OpenEdit *edit = session_.open();
    if (edit == nullptr || (character < U' ' && character != static_cast<char32_t>(Key::Back)))
        return;
    const std::uint64_t number = edit->number;
    // The host learns the key from LastKey only; what it answers here has never had an effect.
    (void)state_.link.CellKeyPress(state_.cursor.cell(), 0);
    if (!session_.isOpen(number))
        return;
    session_.setLastKey(static_cast<std::int16_t>(character));
    if (character == static_cast<char32_t>(Key::Back))
        box_.backspace();
    else
        box_.type(character);
}

void ComboEditor::paste(std::string_view text) {
    if (!session_.isOpen())
        return;
    const std::optional<std::string> taken =
        acceptableText(state_.columns, state_.link.face(), session_.cell().col, text, 0);
    if (taken && !taken->empty())
        box_.setText(*taken);
}

void ComboEditor::changed() { session_.reportChange(*this, box_.Text()); }

void ComboEditor::lostFocus() {
    const std::optional<OpenEdit> edit = session_.detach(*this);
    if (!edit)
        return;
    const std::string text = box_.Text();
    const std::string before = box_.Tag();
    const bool valid = text != before && box_.ListIndex() != -1;
    box_.setDroppedDown(false);
    state_.widgets.picEdit.setVisible(false);
    box_.setVisible(false);
    session_.finish(*edit, {text, text, before, valid});
}

int ComboEditor::listIndexOf(CellAddress cell) {
    if (state_.columns.ColEditType(cell.col) != TColumnType::ColumnCombo)
        return -1;
    const std::string text = cells_.read(cell.row, cell.col);
    if (!box_.Visible())
        box_.load(text);
    return box_.indexOf(text);
}

} // namespace tablio
