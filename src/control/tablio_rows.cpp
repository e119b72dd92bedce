/// The rows, marks, ticks, choices and lookups of `Tablio`.

#include <tablio/tablio.h>

#include "control/call.h"

namespace tablio {

namespace {

/// A row operation without a marked row marks the row it is given; with one, the cursor comes back
/// there.
void enterRow(Control &control, int row, std::string_view operation) {
    control.state.grid.table.checkRow(to16Bit(row, operation), operation);
    control.state.cursor.enter({row, control.state.cursor.CurrentCol()});
}

} // namespace

void Tablio::AddRow() { Call(control_)->settledRows().add(); }

void Tablio::InsertRow(int Row) {
    const Call control(control_);
    enterRow(*control, Row, "InsertRow");
    control->settledRows().insertAtMark();
    control->appearance.repaintStripes();
}

void Tablio::RemoveRow(int Row) {
    const Call control(control_);
    enterRow(*control, Row, "RemoveRow");
    control->settledRows().removeMarked();
    control->appearance.repaintStripes();
}

void Tablio::ResetRow(int Row) {
    const Call control(control_);
    const int row = to16Bit(Row, "ResetRow");
    control->settledRows().reset(row);
}

void Tablio::TableClear() { Call(control_)->settledRows().clear(); }

bool Tablio::UndoTableClear() { return Call(control_)->settledRows().undoClear(); }

int Tablio::DataCount() const { return Call(control_)->rows.dataCount(); }

void Tablio::CellFocus(int nRow, int nCol) {
    const Call control(control_);
    FlexGrid &grid = control->state.grid;
    grid.table.checkCell({to16Bit(nRow, "CellFocus row"), to16Bit(nCol, "CellFocus column")},
                         "CellFocus");
    // The cursor never leaves an editor, one that a handler has opened on the way neither.
    control->session.settle();
    grid.setRow(nRow);
    control->session.settle();
    grid.setCol(nCol);
    grid.view.ensureVisible(grid.Row(), grid.Col());
    control->session.giveFocusToGrid();
    grid.setFocusRect(2);
}

int Tablio::FindDuplicatePrimaryColumn(int Row) const {
    return Call(control_)->rows.findDuplicate(to16Bit(Row, "FindDuplicatePrimaryColumn"));
}

int Tablio::MarkRow() const { return control_->marker.MarkRow(); }

void Tablio::setMarkRow(int row) { control_->marker.setMarkRow(to16Bit(row, "MarkRow")); }

bool Tablio::MarkStatus() const { return control_->marker.isMarked(); }

void Tablio::MarkActiveRow() { Call(control_)->marker.toggle(); }

void Tablio::Check(int Row, bool Checked) {
    Call(control_)->checks.check(to16Bit(Row, "Check"), Checked);
}

bool Tablio::Checked(int Row) const { return control_->checks.isChecked(to16Bit(Row, "Checked")); }

void Tablio::ComboClear() { Call(control_)->state.widgets.cboEdit.clearItems(); }

void Tablio::ComboAddItem(std::string_view NewItem) {
    Call(control_)->state.widgets.cboEdit.addItem(std::string(NewItem));
}

int Tablio::ListIndex(int Row, int Col) {
    const Call control(control_);
    const CellAddress cell{to16Bit(Row, "ListIndex row"), to16Bit(Col, "ListIndex column")};
    if (control->state.columns.ColEditType(cell.col) != TColumnType::ColumnCombo)
        return -1;
    const std::string text = control->cells.read(cell.row, cell.col);
    ComboBox &combo = control->state.widgets.cboEdit;
    if (!combo.Visible())
        combo.load(text);
    return combo.indexOf(text);
}

void Tablio::setLookupResult(int Row, int Col, std::string_view Value) {
    Call(control_)->replacement.setLookupResult(
        {to16Bit(Row, "LookupResult row"), to16Bit(Col, "LookupResult column")},
        std::string(Value));
}

bool Tablio::Commit() { return Call(control_)->session.commit(); }

void Tablio::CancelEdit() { Call(control_)->session.cancel(); }

bool Tablio::IsEditing() const { return control_->session.isOpen(); }

int Tablio::CurrentRow() const {
    return control_->state.isCursorOnCell() ? control_->state.cursor.CurrentRow() : -1;
}

int Tablio::CurrentCol() const {
    return control_->state.isCursorOnCell() ? control_->state.cursor.CurrentCol() : -1;
}

} // namespace tablio
