#include "editing/combo_editor.h"

#include "editing/column_rules.h"

#include <algorithm>

namespace tablio {

namespace {

/// The combo is this much larger than its frame on each side, so that its border is clipped away.
constexpr Twips overhang = 35;

} // namespace

ComboEditor::ComboEditor(ControlState &state, EditSession &session, Navigator &navigator)
    : BoxEditor(state, session, navigator, state.widgets.cboEdit, &state.widgets.picEdit),
      box_(state.widgets.cboEdit) {
    box_.lower = [&state](char32_t character) { return state.link.face().toLower(character); };
    box_.admits = [this](std::string &text) {
        text = foldedText(state_, col(), text);
        return true;
    };
}

Rect ComboEditor::placeOver(const Rect &cell) const {
    return {-overhang, -overhang, cell.width + 2 * overhang, cell.height + 2 * overhang};
}

void ComboEditor::load(const EditStart &start, const std::string &text) {
    box_.setTag(text);
    box_.load(start.Typed ? std::string() : text);
    box_.selectAll();
}

void ComboEditor::hide() {
    box_.setDroppedDown(false);
    BoxEditor::hide();
}

bool ComboEditor::keyDown(KeyCode key, ShiftState shift) {
    if (key != Key::Delete || shift != Shift::None)
        return BoxEditor::keyDown(key, shift);
    box_.setListIndex(-1);
    return true;
}

bool ComboEditor::leavesBy(KeyCode key, ShiftState shift) const {
    const bool isPlain = shift == Shift::None;
    return key == Key::Enter || (isPlain && (key == Key::Left || key == Key::Right));
}

void ComboEditor::moveOn(KeyCode key) {
    const CellAddress cell = state_.grid.current();
    const GridTable &table = state_.grid.table;
    const bool isFirst =
        state_.settings.WithFixedColumn ? cell.col == state_.settings.PrimaryColumn : cell.col < 1;
    if (key == Key::Enter || state_.rules().skipsClosedCells)
        BoxEditor::moveOn(key);
    else if (key == Key::Left && !isFirst)
        navigator_.moveTo({cell.row, cell.col - 1});
    else if (key == Key::Right && cell.col != table.Cols() - 1)
        navigator_.moveTo({cell.row, cell.col + 1});
    else if (key == Key::Right)
        navigator_.moveTo({std::min(cell.row + 1, table.Rows() - 1), state_.firstColumn()});
}

char32_t ComboEditor::admitted(char32_t character) {
    // The host learns the key from LastKey only; what it answers here has never had an effect.
    const Standing asked(state_, session_, session_.cell());
    static_cast<void>(askHost(0));
    if (asked.isSameEdit())
        session_.setLastKey(static_cast<std::int16_t>(character));
    return character;
}

void ComboEditor::paste(std::string_view text) {
    std::optional<std::string> taken = acceptableText(state_, col(), text, 0);
    if (taken && !taken->empty())
        box_.setText(std::move(*taken));
}

EditResult ComboEditor::result(bool accepted) const {
    const std::string &text = box_.Text();
    return {accepted ? std::optional(text) : std::nullopt, text,
            isValidEntry(state_, col(), text, oldText())};
}

} // namespace tablio
