#include "editing/cell_replacement.h"

#include "editing/box_editor.h"
#include "editing/column_rules.h"
#include "model/text/trim.h"

#include <algorithm>
#include <vector>

namespace tablio {

namespace {

using Block = std::vector<std::vector<std::string>>;

/// Spreadsheets put a field that holds tabs, line ends or quotes between quotes. A quote that is
/// never closed is an ordinary character.
bool takeQuoted(std::string_view &text, std::string &field) {
    std::string content;
    for (std::size_t at = 1; at < text.size(); ++at) {
        if (text[at] != '"') {
            content += text[at];
        } else if (at + 1 < text.size() && text[at + 1] == '"') {
            content += '"';
            ++at;
        } else {
            field = std::move(content);
            text.remove_prefix(at + 1);
            return true;
        }
    }
    return false;
}

Block parsed(std::string_view text) {
    Block rows(1);
    while (true) {
        std::string field;
        if (text.empty() || text.front() != '"' || !takeQuoted(text, field)) {
            const std::size_t end = std::min(text.find_first_of("\t\r\n"), text.size());
            field.assign(text.substr(0, end));
            text.remove_prefix(end);
        }
        rows.back().push_back(std::move(field));
        if (text.empty())
            return rows;
        const bool endsRow = text.front() != '\t';
        text.remove_prefix(text.substr(0, 2) == "\r\n" ? 2 : 1);
        if (endsRow && text.empty())
            return rows;
        if (endsRow)
            rows.emplace_back();
    }
}

} // namespace

bool CellReplacement::isBlock(std::string_view text) {
    const Block rows = parsed(text);
    return rows.size() > 1 || rows.front().size() > 1;
}

CellReplacement::Outcome CellReplacement::clear(CellAddress cell) {
    return replace(cell, {}, true, Key::Delete);
}

CellReplacement::Outcome CellReplacement::write(CellAddress cell, std::string_view text,
                                                KeyCode lastKey) {
    // A blank field blanks its cell, in a numeric column too.
    if (trimmed(text).empty())
        return replace(cell, {}, true, lastKey);
    const bool isCombo = state_.columns.ColEditType(cell.col) == TColumnType::ColumnCombo;
    const int room = isCombo ? 0 : state_.columns.ColMaxLength(cell.col);
    const std::optional<std::string> accepted = acceptableText(state_, cell.col, text, room);
    return replace(cell, accepted ? std::string_view(*accepted) : text, accepted.has_value(),
                   lastKey);
}

CellReplacement::Outcome CellReplacement::replace(CellAddress cell, std::string_view newText,
                                                  bool taken, KeyCode lastKey) {
    const Standing asked(state_, session_, cell);
    const auto isGone = [&] { return !asked.isSameCell() || !asked.isSameEdit(); };
    const bool cancelled = state_.link.EditPreValidation(cell);
    if (cancelled || isGone())
        return isGone() ? Outcome::Gone : Outcome::Refused;
    marker_.unmark();
    if (isGone())
        return Outcome::Gone;
    const CellContent before = cells_.content(cell);
    const std::string oldText = cells_.read(cell.row, cell.col);
    session_.setLastKey(lastKey);
    const std::string written =
        taken ? finishedText(state_, cell.col, std::string(newText)) : std::string(newText);
    if (taken) {
        state_.link.EditOnChange(cell, newText);
        if (isGone())
            return Outcome::Gone;
        state_.link.TableChange();
        if (isGone())
            return Outcome::Gone;
        // A wiped cell is blank whatever its format makes of nothing.
        if (written.empty())
            state_.grid.table.setTextMatrix(cell.row, cell.col, {});
        else
            cells_.write(cell.row, cell.col, written);
    }
    const bool valid = taken && isValidEntry(state_, cell.col, written, oldText);
    const bool accepted =
        state_.link.EditPostValidation(cell, valid, oldText, written, session_.LastKey());
    if (isGone())
        return Outcome::Gone;
    if (valid && !accepted)
        cells_.putBack(cell, before);
    return taken && (accepted || !valid) ? Outcome::Written : Outcome::Refused;
}

void CellReplacement::pasteBlock(std::string_view text) {
    const CellAddress start = state_.grid.current();
    const Block rows = parsed(text);
    for (std::size_t down = 0; down < rows.size(); ++down) {
        const int row = start.row + static_cast<int>(down);
        if (row >= state_.grid.table.Rows())
            rows_.append();
        for (std::size_t right = 0; right < rows[down].size(); ++right) {
            const CellAddress cell{row, start.col + static_cast<int>(right)};
            if (!state_.grid.table.hasCell(cell.row, cell.col) ||
                !state_.columns.isInput(cell.col) || state_.isCheckCell(cell))
                continue;
            if (write(cell, rows[down][right], Key::V) == Outcome::Gone)
                return;
        }
    }
}

void CellReplacement::setLookupResult(CellAddress cell, const std::string &value) {
    state_.grid.table.checkRow(cell.row, "LookupResult");
    if (state_.columns.ColStyle(cell.col) != TColumnStyle::ColumnInputWithLookup)
        return;
    const std::string text = finishedText(state_, cell.col, value);
    const auto isNews = [&](std::string_view oldText) {
        return !trimmed(value).empty() && trimmed(value) != trimmed(oldText);
    };
    const auto advance = [this] { navigator_.advance(); };
    const Standing answered(state_, session_, cell);
    if (session_.isOpen() && session_.cell() == cell) {
        BoxEditor &editor = *session_.editor();
        editor.box().setText(value);
        if (answered.isSameEdit())
            session_.answer({text, value, isNews(editor.oldText())}, advance);
        return;
    }
    const std::string oldText = cells_.read(cell.row, cell.col);
    const CellContent before = cells_.content(cell);
    const bool wasCurrent = state_.grid.current() == cell;
    const bool hadKeyboard = state_.focus.owner().has_value();
    cells_.write(cell.row, cell.col, text);
    const bool valid = isNews(oldText);
    const bool accepted = state_.link.EditPostValidation(cell, valid, oldText, value, Key::Enter);
    if (!answered.isSameCell())
        return;
    if (valid && !accepted)
        cells_.putBack(cell, before);
    // The edit had ended before the host answered; the operator still waits at the cell.
    if (!wasCurrent || session_.isOpen() || !answered.isSameCursor())
        return;
    if (hadKeyboard)
        session_.giveFocusToGrid();
    advance();
}

} // namespace tablio
