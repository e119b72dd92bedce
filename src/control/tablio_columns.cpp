/// The column settings of `Tablio`.

#include <tablio/tablio.h>

#include "control/call.h"

namespace tablio {

namespace {

int index16(int index) { return to16Bit(index, "column index"); }

void setSetting(const std::shared_ptr<Control> &owned, std::string_view name,
                ColumnSettings::List list, int index, int value) {
    setProperty(owned, name,
                [&](Control &control) { control.state.columns.setNumber(list, index, value); });
}

} // namespace

int Tablio::Cols() const { return control_->state.grid.table.Cols(); }

void Tablio::setCols(int count) {
    setProperty(control_, "Cols", [&](Control &control) {
        control.state.grid.table.checkColCount(count);
        control.session.EndCellEdit();
        control.state.grid.table.setCols(count);
        if (control.state.columns.followColumnCount())
            control.rows.RenumberFixedColumns();
    });
}

TColumnStyle Tablio::ColStyle(int Index) const { return control_->state.columns.ColStyle(Index); }

void Tablio::setColStyle(int Index, TColumnStyle style) {
    setProperty(control_, "ColStyle", [&](Control &control) {
        control.state.columns.setNumber(ColumnSettings::Style, Index,
                                        static_cast<std::int32_t>(style));
        if (style == TColumnStyle::ColumnFixedWithAutoNumber || control.rows.PageEditing())
            control.rows.RenumberFixedColumns();
    });
}

TColumnType Tablio::ColEditType(int Index) const {
    return control_->state.columns.ColEditType(Index);
}

void Tablio::setColEditType(int Index, TColumnType type) {
    setSetting(control_, "ColEditType", ColumnSettings::EditType, Index, static_cast<int>(type));
}

std::string Tablio::ColFormat(int Index) const { return control_->state.columns.ColFormat(Index); }

void Tablio::setColFormat(int Index, std::string_view format) {
    setProperty(control_, "ColFormat", [&](Control &control) {
        control.state.columns.setText(ColumnSettings::Format, Index, std::string(format));
    });
}

int Tablio::ColMaxLength(int Index) const { return control_->state.columns.ColMaxLength(Index); }

void Tablio::setColMaxLength(int Index, int length) {
    setSetting(control_, "ColMaxLength", ColumnSettings::MaxLength, Index,
               to16Bit(length, "ColMaxLength"));
}

TDataType Tablio::ColDataType(int Index) const {
    return control_->state.columns.ColDataType(Index);
}

void Tablio::setColDataType(int Index, TDataType type) {
    setSetting(control_, "ColDataType", ColumnSettings::DataType, Index, static_cast<int>(type));
}

TCalcStyle Tablio::ColCalcStyle(int Index) const {
    return control_->state.columns.ColCalcStyle(Index);
}

void Tablio::setColCalcStyle(int Index, TCalcStyle style) {
    setSetting(control_, "ColCalcStyle", ColumnSettings::CalcStyle, Index, static_cast<int>(style));
}

std::string Tablio::ColTextHeader(int Index) const {
    return std::string(control_->state.grid.table.TextMatrix(0, index16(Index)));
}

void Tablio::setColTextHeader(int Index, std::string_view header) {
    setProperty(control_, "ColTextHeader", [&](Control &control) {
        control.state.grid.table.setTextMatrix(0, index16(Index), header);
    });
}

Twips Tablio::ColWidth(int Index) const { return control_->state.grid.table.ColWidth(Index); }

void Tablio::setColWidth(int Index, Twips width) {
    setProperty(control_, "ColWidth",
                [&](Control &control) { control.state.grid.table.setColWidth(Index, width); });
}

TColumnAlignment Tablio::ColDataAlignment(int Index) const {
    return static_cast<TColumnAlignment>(control_->state.grid.table.ColAlignment(Index));
}

void Tablio::setColDataAlignment(int Index, TColumnAlignment alignment) {
    setProperty(control_, "ColDataAlignment", [&](Control &control) {
        control.state.grid.table.setColAlignment(
            Index, to16Bit(static_cast<int>(alignment), "ColDataAlignment"));
    });
}

TColumnAlignment Tablio::ColHeaderAlignment(int Index) const {
    return static_cast<TColumnAlignment>(control_->state.grid.table.FixedAlignment(Index));
}

void Tablio::setColHeaderAlignment(int Index, TColumnAlignment alignment) {
    setProperty(control_, "ColHeaderAlignment", [&](Control &control) {
        control.state.grid.table.setFixedAlignment(
            Index, to16Bit(static_cast<int>(alignment), "ColHeaderAlignment"));
    });
}

void Tablio::SetColProperty(int ColIndex, std::string_view NewColTextHeader, Twips NewColWidth,
                            TColumnStyle NewColStyle, TColumnType NewColEditType,
                            TColumnAlignment NewColHeaderAlignment,
                            TColumnAlignment NewColDataAlignment, int NewColMaxlength,
                            std::string_view NewColFormat) {
    // Nothing is set when one of the arguments cannot be.
    const Twips width = to16Bit(NewColWidth, "NewColWidth");
    static_cast<void>(to16Bit(NewColMaxlength, "NewColMaxlength"));
    control_->state.columns.checkEntry(ColIndex);
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
