#include <tablio/tablio.h>

#include "control/control.h"

#include <utility>

namespace tablio {

// Each function that can reach the host holds the control while it runs: a handler may destroy
// this object.

Tablio::Tablio() : control_(std::make_shared<Control>()), input_(control_) {}

Tablio::~Tablio() { control_->state.link.close(); }

void Tablio::setFace(Face *face) { control_->state.link.setFace(face); }

void Tablio::setHost(HostEvents *host) { control_->state.link.setHost(host); }

void Tablio::InitProperties() { control_->state.settings = Settings{}; }

void Tablio::Show() {
    const std::shared_ptr<Control> control = control_;
    ControlState &state = control->state;
    ControlState::PageEditing = false;
    state.SetStatusCell = true;
    control->rows.clear();
    state.grid.setCol(state.settings.PrimaryColumn);
    state.grid.setRow(state.grid.table.FixedRows());
    control->appearance.repaintStripes();
}

int Tablio::Rows() const { return control_->state.grid.table.Rows(); }

void Tablio::setRows(int count) {
    const std::shared_ptr<Control> control = control_;
    control->state.grid.table.setRows(count);
    control->notify("Rows");
}

int Tablio::FixedRows() const { return control_->state.grid.table.FixedRows(); }

void Tablio::setFixedRows(int count) {
    const std::shared_ptr<Control> control = control_;
    control->state.grid.table.setFixedRows(count);
    control->notify("FixedRows");
}

int Tablio::FixedCols() const { return control_->state.grid.table.FixedCols(); }

void Tablio::setFixedCols(int count) {
    const std::shared_ptr<Control> control = control_;
    control->state.grid.table.setFixedCols(count);
    control->notify("FixedCols");
}

bool Tablio::WithFixedColumn() const { return control_->state.settings.WithFixedColumn; }

void Tablio::setWithFixedColumn(bool fixed) {
    control_->state.settings.WithFixedColumn = fixed;
    control_->notify("WithFixedColumn");
}

int Tablio::PrimaryColumn() const { return control_->state.settings.PrimaryColumn; }

void Tablio::setPrimaryColumn(int col) {
    control_->state.settings.PrimaryColumn = col;
    control_->notify("PrimaryColumn");
}

int Tablio::CheckBoxes() const { return control_->state.settings.CheckBoxes; }

void Tablio::setCheckBoxes(int checkBoxes) {
    control_->state.settings.CheckBoxes = to16Bit(checkBoxes, "CheckBoxes");
    control_->notify("CheckBoxes");
}

bool Tablio::GridPopUpMenu() const { return control_->state.settings.GridPopUpMenu; }

void Tablio::setGridPopUpMenu(bool offered) {
    control_->state.settings.GridPopUpMenu = offered;
    control_->notify("GridPopUpMenu");
}

bool Tablio::Enabled() const { return control_->state.gridEnabled(); }

void Tablio::setEnabled(bool enabled) {
    const std::shared_ptr<Control> control = control_;
    if (!enabled)
        control->session.end();
    control->state.Enabled = enabled;
    control->state.grid.view.invalidateAll();
    control->notify("Enabled");
}

std::string Tablio::TextMatrix(int Row, int Col) const {
    return control_->cells.read(to16Bit(Row, "TextMatrix row"), to16Bit(Col, "TextMatrix column"));
}

void Tablio::setTextMatrix(int Row, int Col, std::string_view Value) {
    control_->cells.write(to16Bit(Row, "TextMatrix row"), to16Bit(Col, "TextMatrix column"), Value);
}

std::shared_ptr<TMatrix> Tablio::CellTag() const { return control_->state.CellTag; }

void Tablio::setCellTag(std::shared_ptr<TMatrix> tags) {
    control_->state.CellTag = tags ? std::move(tags) : std::make_shared<TMatrix>();
}

Twips Tablio::RowMinHeight() const { return control_->state.grid.table.RowHeightMin(); }

void Tablio::setRowMinHeight(Twips height) {
    control_->state.grid.table.setRowHeightMin(height);
    control_->notify("RowMinHeight");
}

Twips Tablio::RowHeight(int Row) const { return control_->state.grid.table.RowHeight(Row); }

void Tablio::setRowHeight(int Row, Twips height) {
    control_->state.grid.table.setRowHeight(Row, height);
}

Twips Tablio::HeaderRowHeight() const { return RowHeight(0); }

void Tablio::setHeaderRowHeight(Twips height) {
    setRowHeight(0, height);
    control_->notify("HeaderRowHeight");
}

bool Tablio::SetStatusCell() const { return control_->state.SetStatusCell; }

void Tablio::setSetStatusCell(bool status) { control_->state.setStatusCell(status); }

} // namespace tablio
