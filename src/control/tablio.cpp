#include <tablio/tablio.h>

#include "control/call.h"

#include <tablio/members.h>

#include <utility>

namespace tablio {

Tablio::Tablio() : control_(std::make_shared<Control>()), input_(control_), screen_(*control_) {}

Tablio::~Tablio() { control_->state.link.close(); }

void Tablio::setFace(Face *face) { control_->state.link.setFace(face); }

Face *Tablio::face() const noexcept {
    const HostLink &link = control_->state.link;
    return link.hasFace() ? &link.face() : nullptr;
}

void Tablio::setHost(HostEvents *host) { control_->state.link.setHost(host); }

void Tablio::setNotices(TableNotices *notices) { control_->state.changes.setNotices(notices); }

void Tablio::setWitness(Witness *witness) { control_->state.link.setWitness(witness); }

void Tablio::InitProperties() { control_->state.settings = Settings{}; }

void Tablio::startThemed() {
    const Call control(control_);
    InitProperties();
    {
        const Temporarily loading(control->isLoading, true);
        for (const Member &member : members()) {
            const Value colour = member.themed;
            if (member.stored.written > 0 && member.type == MemberType::Colour)
                member.write(*this, {&colour, 1});
        }
    }
    Show();
    control->start.leaveCursor();
}

void Tablio::Show() {
    const Call control(control_);
    ControlState &state = control->state;
    control->rows.setPageEditing(false);
    state.setStatusCell(true);
    RowStock &rows = control->settledRows();
    const std::uint64_t claims = state.grid.claims();
    rows.clear();
    if (claims == state.grid.claims())
        state.grid.setCol(state.settings.PrimaryColumn);
    if (claims == state.grid.claims())
        state.grid.setRow(state.grid.table.FixedRows());
    control->appearance.repaintStripes();
}

int Tablio::Rows() const { return control_->state.grid.table.Rows(); }

void Tablio::setRows(int count) {
    setProperty(control_, "Rows", [&](Control &control) {
        control.state.grid.table.checkRowCount(count);
        control.session.EndCellEdit();
        control.rows.setRows(count);
    });
}

int Tablio::FixedRows() const { return control_->state.grid.table.FixedRows(); }

void Tablio::setFixedRows(int count) {
    setProperty(control_, "FixedRows",
                [&](Control &control) { control.state.grid.table.setFixedRows(count); });
}

int Tablio::FixedCols() const { return control_->state.grid.table.FixedCols(); }

void Tablio::setFixedCols(int count) {
    setProperty(control_, "FixedCols",
                [&](Control &control) { control.state.grid.table.setFixedCols(count); });
}

TEntryRules Tablio::EntryRules() const { return control_->state.settings.EntryRules; }

void Tablio::setEntryRules(TEntryRules rules) {
    setProperty(control_, "EntryRules", [&](Control &control) {
        control.session.EndCellEdit();
        control.state.settings.EntryRules = rules;
    });
}

bool Tablio::TabWalks() const { return control_->state.settings.TabWalks; }

void Tablio::setTabWalks(bool walks) {
    setProperty(control_, "TabWalks",
                [&](Control &control) { control.state.settings.TabWalks = walks; });
}

bool Tablio::WithFixedColumn() const { return control_->state.settings.WithFixedColumn; }

void Tablio::setWithFixedColumn(bool fixed) {
    setSetting(control_, "WithFixedColumn", &Settings::WithFixedColumn, fixed);
}

int Tablio::PrimaryColumn() const { return control_->state.settings.PrimaryColumn; }

void Tablio::setPrimaryColumn(int col) {
    setSetting(control_, "PrimaryColumn", &Settings::PrimaryColumn, col);
}

int Tablio::CheckBoxes() const { return control_->state.settings.CheckBoxes; }

void Tablio::setCheckBoxes(int checkBoxes) {
    setSetting(control_, "CheckBoxes", &Settings::CheckBoxes, to16Bit(checkBoxes, "CheckBoxes"));
}

bool Tablio::GridPopUpMenu() const { return control_->state.settings.GridPopUpMenu; }

void Tablio::setGridPopUpMenu(bool offered) {
    setSetting(control_, "GridPopUpMenu", &Settings::GridPopUpMenu, offered);
}

bool Tablio::Enabled() const { return control_->state.gridEnabled(); }

void Tablio::setEnabled(bool enabled) {
    setProperty(control_, "Enabled", [&](Control &control) {
        if (!enabled)
            control.session.EndCellEdit();
        control.state.settings.Enabled = enabled;
        control.state.grid.view.invalidateAll();
    });
}

std::string Tablio::TextMatrix(int Row, int Col) const {
    return control_->cells.read(to16Bit(Row, "TextMatrix row"), to16Bit(Col, "TextMatrix column"));
}

void Tablio::setTextMatrix(int Row, int Col, std::string_view Value) {
    const auto write = [&](Control &control) {
        control.cells.write(to16Bit(Row, "TextMatrix row"), to16Bit(Col, "TextMatrix column"),
                            Value);
    };
    // Nothing else than a notice runs anybody's code here.
    if (control_->state.changes.isHeard())
        write(*Call(control_));
    else
        write(*control_);
}

void Tablio::setTexts(int Row, int Col, int Cols, std::span<const std::string_view> Texts) {
    const Call control(control_);
    control->writeBlock({to16Bit(Row, "setTexts row"), to16Bit(Col, "setTexts column")}, Cols,
                        Texts);
}

std::shared_ptr<TMatrix> Tablio::CellTag() const { return control_->rows.CellTag(); }

void Tablio::setCellTag(std::shared_ptr<TMatrix> tags) {
    control_->rows.setCellTag(std::move(tags));
}

Twips Tablio::RowMinHeight() const { return control_->state.grid.table.RowHeightMin(); }

void Tablio::setRowMinHeight(Twips height) {
    setProperty(control_, "RowMinHeight",
                [&](Control &control) { control.state.grid.table.setRowHeightMin(height); });
}

Twips Tablio::RowHeight(int Row) const { return control_->state.grid.table.RowHeight(Row); }

void Tablio::setRowHeight(int Row, Twips height) {
    Call(control_)->state.grid.table.setRowHeight(Row, height);
}

Twips Tablio::HeaderRowHeight() const { return RowHeight(0); }

void Tablio::setHeaderRowHeight(Twips height) {
    setProperty(control_, "HeaderRowHeight",
                [&](Control &control) { control.state.grid.table.setRowHeight(0, height); });
}

bool Tablio::SetStatusCell() const { return control_->state.settings.SetStatusCell; }

void Tablio::setSetStatusCell(bool status) { Call(control_)->state.setStatusCell(status); }

} // namespace tablio
