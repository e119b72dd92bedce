#include "editing/lookup.h"

#include "model/text/trim.h"

namespace tablio {

void Lookup::setResult(CellAddress cell, const std::string &value) {
    GridTable &table = state_.grid.table;
    table.checkRow(cell.row, "LookupResult");
    if (state_.columns.ColStyle(cell.col) != TColumnStyle::ColumnInputWithLookup)
        return;
    const auto openHere = [&]() -> const OpenEdit * {
        const OpenEdit *edit = session_.open();
        return edit != nullptr && edit->cell == cell ? edit : nullptr;
    };
    const OpenEdit *edit = openHere();
    const std::uint64_t number = edit != nullptr ? edit->number : 0;
    const std::string oldText =
        edit != nullptr ? edit->editor->oldText() : cells_.read(cell.row, cell.col);
    const CellContent before = cells_.content(cell);
    const std::uint64_t shiftStamp = table.shiftStamp();
    const bool wasCurrent = state_.grid.current() == cell;
    const auto isSameCell = [&] {
        return !state_.link.isClosed() && shiftStamp == table.shiftStamp() &&
               table.hasCell(cell.row, cell.col);
    };

    if (edit != nullptr)
        edit->editor->setAnswer(value);
    if (!isSameCell())
        return;
    cells_.write(cell.row, cell.col, value);
    const std::uint64_t cursorStamp = state_.grid.cursorStamp();
    const bool valid = !trimmed(value).empty() && trimmed(value) != trimmed(oldText);
    const bool accepted = state_.link.EditPostValidation(cell, valid, oldText, value, Key::Enter);
    if (!isSameCell())
        return;
    if (valid && !accepted) {
        cells_.putBack(cell, before);
    }
    if (number != 0 && session_.isOpen(number)) {
        session_.setLastKey(Key::Enter);
        if (valid && !accepted)
            session_.giveUp();
        session_.leave([this] { navigator_.advance(); });
    } else if (wasCurrent && !session_.isOpen() && cursorStamp == state_.grid.cursorStamp()) {
        // The edit had ended before the host answered; the operator still waits at the cell.
        navigator_.giveFocusToGrid();
        navigator_.advance();
    }
}

} // namespace tablio
