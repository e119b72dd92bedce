/// The colours, fonts and other looks of `Tablio`.

#include <tablio/tablio.h>

#include "control/control.h"

#include <tablio/value.h>

namespace tablio {

namespace {

CellAddress cell16(int row, int col) {
    return {to16Bit(row, "cell row"), to16Bit(col, "cell column")};
}

} // namespace

void Tablio::changeColour(Colour GridLook::*member, Colour colour, std::string_view property) {
    const std::shared_ptr<Control> control = control_;
    control->appearance.changeLook([&](GridLook &look) { look.*member = colour; });
    control->notify(property);
}

Colour Tablio::BackColor() const { return control_->state.grid.table.look().BackColorBkg; }

void Tablio::setBackColor(Colour colour) {
    changeColour(&GridLook::BackColorBkg, colour, "BackColor");
}

Colour Tablio::BackColorData() const { return control_->state.grid.table.look().BackColor; }

void Tablio::setBackColorData(Colour colour) {
    changeColour(&GridLook::BackColor, colour, "BackColorData");
}

Colour Tablio::ForeColorData() const { return control_->state.grid.table.look().ForeColor; }

void Tablio::setForeColorData(Colour colour) {
    changeColour(&GridLook::ForeColor, colour, "ForeColorData");
}

Colour Tablio::BackColorFixed() const { return control_->state.grid.table.look().BackColorFixed; }

void Tablio::setBackColorFixed(Colour colour) {
    changeColour(&GridLook::BackColorFixed, colour, "BackColorFixed");
}

Colour Tablio::ForeColorFixed() const { return control_->state.grid.table.look().ForeColorFixed; }

void Tablio::setForeColorFixed(Colour colour) {
    changeColour(&GridLook::ForeColorFixed, colour, "ForeColorFixed");
}

Colour Tablio::GridColorData() const { return control_->state.grid.table.look().GridColor; }

void Tablio::setGridColorData(Colour colour) {
    changeColour(&GridLook::GridColor, colour, "GridColorData");
}

Colour Tablio::GridColorFixed() const { return control_->state.grid.table.look().GridColorFixed; }

void Tablio::setGridColorFixed(Colour colour) {
    changeColour(&GridLook::GridColorFixed, colour, "GridColorFixed");
}

Colour Tablio::BackColorMarkRow() const { return control_->state.grid.table.look().BackColorSel; }

void Tablio::setBackColorMarkRow(Colour colour) {
    changeColour(&GridLook::BackColorSel, colour, "BackColorMarkRow");
}

Colour Tablio::ForeColorMarkRow() const { return control_->state.grid.table.look().ForeColorSel; }

void Tablio::setForeColorMarkRow(Colour colour) {
    changeColour(&GridLook::ForeColorSel, colour, "ForeColorMarkRow");
}

Colour Tablio::StripeColor() const { return control_->state.settings.StripeColor; }

void Tablio::setStripeColor(Colour colour) {
    const std::shared_ptr<Control> control = control_;
    control->state.settings.StripeColor = colour;
    control->notify("StripeColor");
    control->appearance.PaintStripes();
}

Colour Tablio::CheckBoxColor() const { return control_->state.settings.CheckBoxColor; }

void Tablio::setCheckBoxColor(Colour colour) {
    control_->state.settings.CheckBoxColor = colour;
    control_->notify("CheckBoxColor");
}

bool Tablio::HeaderFontBold() const { return control_->state.settings.HeaderFontBold; }

void Tablio::setHeaderFontBold(bool bold) {
    const std::shared_ptr<Control> control = control_;
    control->appearance.setHeaderFontBold(bold);
}

bool Tablio::WordWrap() const { return control_->state.grid.table.look().WordWrap; }

void Tablio::setWordWrap(bool wrap) {
    const std::shared_ptr<Control> control = control_;
    control->appearance.changeLook([wrap](GridLook &look) { look.WordWrap = wrap; });
    control->notify("WordWrap");
}

Font Tablio::Font() const { return control_->state.grid.table.look().Font; }

void Tablio::setFont(const tablio::Font &font) {
    const std::shared_ptr<Control> control = control_;
    control->appearance.changeLook([&](GridLook &look) { look.Font = font; });
    control->notify("Font");
}

std::string Tablio::CellFont(int Row, int Col) {
    control_->appearance.visit({Row, Col});
    return control_->state.grid.CellFont().name;
}

void Tablio::setCellFont(int Row, int Col, std::string_view name) {
    control_->appearance.styleFont({Row, Col}, [name](CellStyle &style) { style.fontName = name; });
}

bool Tablio::CellFontBold(int Row, int Col) {
    control_->appearance.visit({Row, Col});
    return control_->state.grid.CellFont().bold;
}

void Tablio::setCellFontBold(int Row, int Col, bool bold) {
    control_->appearance.styleFont({Row, Col}, [bold](CellStyle &style) { style.fontBold = bold; });
}

bool Tablio::CellFontItalic(int Row, int Col) {
    control_->appearance.visit({Row, Col});
    return control_->state.grid.CellFont().italic;
}

void Tablio::setCellFontItalic(int Row, int Col, bool italic) {
    control_->appearance.styleFont({Row, Col},
                                   [italic](CellStyle &style) { style.fontItalic = italic; });
}

int Tablio::CellFontSize(int Row, int Col) {
    control_->appearance.visit({Row, Col});
    return Value(static_cast<double>(control_->state.grid.CellFont().size)).toInteger();
}

void Tablio::setCellFontSize(int Row, int Col, int points) {
    const auto size = static_cast<float>(to16Bit(points, "CellFontSize"));
    control_->appearance.styleFont({Row, Col}, [size](CellStyle &style) { style.fontSize = size; });
}

Colour Tablio::CellBackColor(int Row, int Col) {
    control_->appearance.visit(cell16(Row, Col));
    return control_->state.grid.CellBackColor();
}

void Tablio::setCellBackColor(int Row, int Col, Colour colour) {
    control_->appearance.styleColour(cell16(Row, Col),
                                     [colour](CellStyle &style) { style.backColor = colour; });
}

Colour Tablio::CellForeColor(int Row, int Col) {
    control_->appearance.visit(cell16(Row, Col));
    return control_->state.grid.CellForeColor();
}

void Tablio::setCellForeColor(int Row, int Col, Colour colour) {
    control_->appearance.styleColour(cell16(Row, Col),
                                     [colour](CellStyle &style) { style.foreColor = colour; });
}

void Tablio::SetHeaderBackColor(int Col, Colour NewColor) {
    control_->appearance.styleHeader(cell16(0, Col).col,
                                     [NewColor](CellStyle &style) { style.backColor = NewColor; });
}

void Tablio::SetHeaderForeColor(int Col, Colour NewColor) {
    control_->appearance.styleHeader(cell16(0, Col).col,
                                     [NewColor](CellStyle &style) { style.foreColor = NewColor; });
}

} // namespace tablio
