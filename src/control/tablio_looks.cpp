/// The colours, fonts and other looks of `Tablio`.

#include <tablio/tablio.h>

#include "control/call.h"

#include <tablio/value.h>

namespace tablio {

namespace {

CellAddress cell16(int row, int col) {
    return {to16Bit(row, "cell row"), to16Bit(col, "cell column")};
}

template <typename Value>
void setLook(const std::shared_ptr<Control> &owned, std::string_view name, Value GridLook::*member,
             const Value &value) {
    setProperty(owned, name,
                [&](Control &control) { control.appearance.changeLook(member, value); });
}

/// The cell's font in force: what nobody has set is the face's own.
Font fontAt(const std::shared_ptr<Control> &owned, int row, int col) {
    const Call control(owned);
    control->appearance.visit({row, col});
    Font font = control->state.grid.fontOf(row, col);
    const Font own = control->state.link.face().defaultFont();
    if (font.name.empty())
        font.name = own.name;
    if (font.size <= 0)
        font.size = own.size;
    font.bold = font.bold || own.bold;
    font.italic = font.italic || own.italic;
    return font;
}

} // namespace

Colour Tablio::BackColor() const { return control_->state.grid.table.look().BackColorBkg; }

void Tablio::setBackColor(Colour colour) {
    setLook(control_, "BackColor", &GridLook::BackColorBkg, colour);
}

Colour Tablio::BackColorData() const { return control_->state.grid.table.look().BackColor; }

void Tablio::setBackColorData(Colour colour) {
    setLook(control_, "BackColorData", &GridLook::BackColor, colour);
}

Colour Tablio::ForeColorData() const { return control_->state.grid.table.look().ForeColor; }

void Tablio::setForeColorData(Colour colour) {
    setLook(control_, "ForeColorData", &GridLook::ForeColor, colour);
}

Colour Tablio::BackColorFixed() const { return control_->state.grid.table.look().BackColorFixed; }

void Tablio::setBackColorFixed(Colour colour) {
    setLook(control_, "BackColorFixed", &GridLook::BackColorFixed, colour);
}

Colour Tablio::ForeColorFixed() const { return control_->state.grid.table.look().ForeColorFixed; }

void Tablio::setForeColorFixed(Colour colour) {
    setLook(control_, "ForeColorFixed", &GridLook::ForeColorFixed, colour);
}

Colour Tablio::GridColorData() const { return control_->state.grid.table.look().GridColor; }

void Tablio::setGridColorData(Colour colour) {
    setLook(control_, "GridColorData", &GridLook::GridColor, colour);
}

Colour Tablio::GridColorFixed() const { return control_->state.grid.table.look().GridColorFixed; }

void Tablio::setGridColorFixed(Colour colour) {
    setLook(control_, "GridColorFixed", &GridLook::GridColorFixed, colour);
}

Colour Tablio::BackColorMarkRow() const { return control_->state.grid.table.look().BackColorSel; }

void Tablio::setBackColorMarkRow(Colour colour) {
    setLook(control_, "BackColorMarkRow", &GridLook::BackColorSel, colour);
}

Colour Tablio::ForeColorMarkRow() const { return control_->state.grid.table.look().ForeColorSel; }

void Tablio::setForeColorMarkRow(Colour colour) {
    setLook(control_, "ForeColorMarkRow", &GridLook::ForeColorSel, colour);
}

Colour Tablio::StripeColor() const { return control_->state.settings.StripeColor; }

void Tablio::setStripeColor(Colour colour) {
    const Call control(control_);
    setSetting(control_, "StripeColor", &Settings::StripeColor, colour);
    if (!control->isLoading)
        control->appearance.PaintStripes();
}

Colour Tablio::CheckBoxColor() const { return control_->state.settings.CheckBoxColor; }

void Tablio::setCheckBoxColor(Colour colour) {
    setSetting(control_, "CheckBoxColor", &Settings::CheckBoxColor, colour);
}

bool Tablio::CheckBoxFrame() const { return control_->state.settings.CheckBoxFrame; }

void Tablio::setCheckBoxFrame(bool framed) {
    setProperty(control_, "CheckBoxFrame", [&](Control &control) {
        control.state.settings.CheckBoxFrame = framed;
        control.state.grid.view.invalidateAll();
    });
}

bool Tablio::HeaderFontBold() const { return control_->state.settings.HeaderFontBold; }

void Tablio::setHeaderFontBold(bool bold) {
    const Call control(control_);
    setSetting(control_, "HeaderFontBold", &Settings::HeaderFontBold, bold);
    if (!control->isLoading)
        control->appearance.showHeaderFontBold();
}

bool Tablio::WordWrap() const { return control_->state.grid.table.look().WordWrap; }

void Tablio::setWordWrap(bool wrap) { setLook(control_, "WordWrap", &GridLook::WordWrap, wrap); }

Font Tablio::Font() const { return control_->state.grid.table.look().Font; }

void Tablio::setFont(const tablio::Font &font) { setLook(control_, "Font", &GridLook::Font, font); }

std::string Tablio::CellFont(int Row, int Col) { return fontAt(control_, Row, Col).name; }

void Tablio::setCellFont(int Row, int Col, std::string_view name) {
    Call(control_)->appearance.styleFont({Row, Col}, &CellStyle::fontName, std::string(name));
}

bool Tablio::CellFontBold(int Row, int Col) { return fontAt(control_, Row, Col).bold; }

void Tablio::setCellFontBold(int Row, int Col, bool bold) {
    Call(control_)->appearance.styleFont({Row, Col}, &CellStyle::fontBold, bold);
}

bool Tablio::CellFontItalic(int Row, int Col) { return fontAt(control_, Row, Col).italic; }

void Tablio::setCellFontItalic(int Row, int Col, bool italic) {
    Call(control_)->appearance.styleFont({Row, Col}, &CellStyle::fontItalic, italic);
}

int Tablio::CellFontSize(int Row, int Col) {
    return Value(static_cast<double>(fontAt(control_, Row, Col).size)).toInteger();
}

void Tablio::setCellFontSize(int Row, int Col, int points) {
    const auto size = static_cast<float>(to16Bit(points, "CellFontSize"));
    Call(control_)->appearance.styleFont({Row, Col}, &CellStyle::fontSize, size);
}

Colour Tablio::CellBackColor(int Row, int Col) {
    Call(control_)->appearance.visit(cell16(Row, Col));
    return control_->state.grid.backColorOf(Row, Col);
}

void Tablio::setCellBackColor(int Row, int Col, Colour colour) {
    Call(control_)->appearance.styleColour(cell16(Row, Col), &CellStyle::backColor, colour);
}

Colour Tablio::CellForeColor(int Row, int Col) {
    Call(control_)->appearance.visit(cell16(Row, Col));
    return control_->state.grid.foreColorOf(Row, Col);
}

void Tablio::setCellForeColor(int Row, int Col, Colour colour) {
    Call(control_)->appearance.styleColour(cell16(Row, Col), &CellStyle::foreColor, colour);
}

void Tablio::SetHeaderBackColor(int Col, Colour NewColor) {
    Call(control_)->appearance.styleHeader(cell16(0, Col).col, &CellStyle::backColor, NewColor);
}

void Tablio::SetHeaderForeColor(int Col, Colour NewColor) {
    Call(control_)->appearance.styleHeader(cell16(0, Col).col, &CellStyle::foreColor, NewColor);
}

} // namespace tablio
