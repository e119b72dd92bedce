/// The column settings of `Tablio`.

#include <tablio/tablio.h>

#include "control/control.h"

namespace tablio {

namespace {

int index16(int index) { return to16Bit(index, "column index"); }

} // namespace

int Tablio::Cols() const { return control_->state.grid.table.Cols(); }

void Tablio::setCols(int count) {
    const std::shared_ptr<Control> control = control_;
    control->state.grid.table.setCols(count);
    if (control->state.columns.followColumnCount())
        control->rows.RenumberFixedColumns();
    control->notify("Cols");
}

TColumnStyle Tablio::ColStyle(int Index) const {
    return control_->state.columns.ColStyle(index16(Index));
}

void Tablio::setColStyle(int Index, TColumnStyle style) {
    const std::shared_ptr<Control> control = control_;
    control->state.columns.setNumber(ColumnSettings::Style, index16(Index),
                                     static_cast<std::int32_t>(style));
    if (style == TColumnStyle::ColumnFixedWithAutoNumber || ControlState::PageEditing)
        control->rows.RenumberFixedColumns();
    control->notify("ColStyle");
}

TColumnType Tablio::ColEditType(int Index) const {
    return control_->state.columns.ColEditType(index16(Index));
}

void Tablio::setColEditType(int Index, TColumnType type) {
    control_->state.columns.setNumber(ColumnSettings::EditType, index16(Index),
                                      static_cast<std::int32_t>(type));
    control_->notify("ColEditType");
}

std::string Tablio::ColFormat(int Index) const {
    return control_->state.columns.ColFormat(index16(Index));
}

void Tablio::setColFormat(int Index, std::string_view format) {
    control_->state.columns.setText(ColumnSettings::Format, index16(Index), std::string(format));
    control_->notify("ColFormat");
}

int Tablio::ColMaxLength(int Index) const {
    return control_->state.columns.ColMaxLength(index16(Index));
}

void Tablio::setColMaxLength(int Index, int length) {
    control_->state.columns.setNumber(ColumnSettings::MaxLength, index16(Index),
                                      to16Bit(length, "ColMaxLength"));
    control_->notify("ColMaxLength");
}

TDataType Tablio::ColDataType(int Index) const {
    return control_->state.columns.ColDataType(index16(Index));
}

void Tablio::setColDataType(int Index, TDataType type) {
    control_->state.columns.setNumber(ColumnSettings::DataType, index16(Index),
                                      static_cast<std::int32_t>(type));
    control_->notify("ColDataType");
}

TCalcStyle Tablio::ColCalcStyle(int Index) const {
    return control_->state.columns.ColCalcStyle(index16(Index));
}

void Tablio::setColCalcStyle(int Index, TCalcStyle style) {
    control_->state.columns.setNumber(ColumnSettings::CalcStyle, index16(Index),
                                      static_cast<std::int32_t>(style));
    control_->notify("ColCalcStyle");
}

std::string Tablio::ColTextHeader(int Index) const {
    return std::string(control_->state.grid.table.TextMatrix(0, index16(Index)));
}

void Tablio::setColTextHeader(int Index, std::string_view header) {
    control_->state.grid.table.setTextMatrix(0, index16(Index), header);
    control_->notify("ColTextHeader");
}

Twips Tablio::ColWidth(int Index) const { return control_->state.grid.table.ColWidth(Index); }

void Tablio::setColWidth(int Index, Twips width) {
    const std::shared_ptr<Control> control = control_;
    control->state.grid.table.setColWidth(Index, width);
    control->notify("ColWidth");
}

TColumnAlignment Tablio::ColDataAlignment(int Index) const {
    return static_cast<TColumnAlignment>(control_->state.grid.table.ColAlignment(Index));
}

void Tablio::setColDataAlignment(int Index, TColumnAlignment alignment) {
    control_->state.grid.table.setColAlignment(
        Index, to16Bit(static_cast<int>(alignment), "ColDataAlignment"));
    control_->notify("ColDataAlignment");
}

TColumnAlignment Tablio::ColHeaderAlignment(int Index) const {
    return static_cast<TColumnAlignment>(control_->state.grid.table.FixedAlignment(Index));
}

void Tablio::setColHeaderAlignment(int Index, TColumnAlignment alignment) {
    control_->state.grid.table.setFixedAlignment(
        Index, to16Bit(static_cast<int>(alignment), "ColHeaderAlignment"));
    control_->notify("ColHeaderAlignment");
}

void Tablio::SetColProperty(int ColIndex, std::string_view NewColTextHeader, Twips NewColWidth,
                            TColumnStyle NewColStyle, TColumnType NewColEditType,
                            TColumnAlignment NewColHeaderAlignment,
                            TColumnAlignment NewColDataAlignment, int NewColMaxlength,
                            std::string_view NewColFormat) {
    // Nothing is set when one of the arguments cannot be.
    const Twips width = to16Bit(NewColWidth, "NewColWidth");
    static_cast<void>(to16Bit(NewColMaxlength, "NewColMaxlength"));
    control_->state.columns.checkEntry(index16(ColIndex));
    setColTextHeader(ColIndex, NewColTextHeader);
    setColWidth(ColIndex, width);
    setColStyle(ColIndex, NewColStyle);
    setColEditType(ColIndex, NewColEditType);
    setColHeaderAlignment(ColIndex, NewColHeaderAlignment);
    setColDataAlignment(ColIndex, NewColDataAlignment);
    setColMaxLength(ColIndex, NewColMaxlength);
    setColFormat(ColIndex, NewColFormat);
}

} // namespace tablio
