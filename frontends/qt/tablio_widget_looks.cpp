/// The colours of `TablioWidget` and the looks of its cells.

#include "qt_text.h"
#include "tablio_widget_p.h"

namespace tablio::qt {

namespace {

Colour fromQColor(const QColor &colour) {
    return Colour{static_cast<std::uint32_t>(colour.red()) |
                  static_cast<std::uint32_t>(colour.green()) << 8U |
                  static_cast<std::uint32_t>(colour.blue()) << 16U};
}

} // namespace

QColor TablioWidget::backColor() const { return d_->colours().of(d_->core.BackColor()); }

void TablioWidget::setBackColor(const QColor &colour) { d_->core.setBackColor(fromQColor(colour)); }

QColor TablioWidget::backColorData() const { return d_->colours().of(d_->core.BackColorData()); }

void TablioWidget::setBackColorData(const QColor &colour) {
    d_->core.setBackColorData(fromQColor(colour));
}

QColor TablioWidget::foreColorData() const { return d_->colours().of(d_->core.ForeColorData()); }

void TablioWidget::setForeColorData(const QColor &colour) {
    d_->core.setForeColorData(fromQColor(colour));
}

QColor TablioWidget::backColorFixed() const { return d_->colours().of(d_->core.BackColorFixed()); }

void TablioWidget::setBackColorFixed(const QColor &colour) {
    d_->core.setBackColorFixed(fromQColor(colour));
}

QColor TablioWidget::foreColorFixed() const { return d_->colours().of(d_->core.ForeColorFixed()); }

void TablioWidget::setForeColorFixed(const QColor &colour) {
    d_->core.setForeColorFixed(fromQColor(colour));
}

QColor TablioWidget::gridColorData() const { return d_->colours().of(d_->core.GridColorData()); }

void TablioWidget::setGridColorData(const QColor &colour) {
    d_->core.setGridColorData(fromQColor(colour));
}

QColor TablioWidget::gridColorFixed() const { return d_->colours().of(d_->core.GridColorFixed()); }

void TablioWidget::setGridColorFixed(const QColor &colour) {
    d_->core.setGridColorFixed(fromQColor(colour));
}

QColor TablioWidget::backColorMarkRow() const {
    return d_->colours().of(d_->core.BackColorMarkRow());
}

void TablioWidget::setBackColorMarkRow(const QColor &colour) {
    d_->core.setBackColorMarkRow(fromQColor(colour));
}

QColor TablioWidget::foreColorMarkRow() const {
    return d_->colours().of(d_->core.ForeColorMarkRow());
}

void TablioWidget::setForeColorMarkRow(const QColor &colour) {
    d_->core.setForeColorMarkRow(fromQColor(colour));
}

QColor TablioWidget::stripeColor() const { return d_->colours().of(d_->core.StripeColor()); }

void TablioWidget::setStripeColor(const QColor &colour) {
    d_->core.setStripeColor(fromQColor(colour));
}

QColor TablioWidget::checkBoxColor() const { return d_->colours().of(d_->core.CheckBoxColor()); }

void TablioWidget::setCheckBoxColor(const QColor &colour) {
    d_->core.setCheckBoxColor(fromQColor(colour));
}

bool TablioWidget::headerFontBold() const { return d_->core.HeaderFontBold(); }

void TablioWidget::setHeaderFontBold(bool bold) { d_->core.setHeaderFontBold(bold); }

QString TablioWidget::cellFont(int row, int col) { return toQString(d_->core.CellFont(row, col)); }

void TablioWidget::setCellFont(int row, int col, const QString &family) {
    d_->core.setCellFont(row, col, fromQString(family));
}

bool TablioWidget::cellFontBold(int row, int col) { return d_->core.CellFontBold(row, col); }

void TablioWidget::setCellFontBold(int row, int col, bool bold) {
    d_->core.setCellFontBold(row, col, bold);
}

bool TablioWidget::cellFontItalic(int row, int col) { return d_->core.CellFontItalic(row, col); }

void TablioWidget::setCellFontItalic(int row, int col, bool italic) {
    d_->core.setCellFontItalic(row, col, italic);
}

int TablioWidget::cellFontSize(int row, int col) { return d_->core.CellFontSize(row, col); }

void TablioWidget::setCellFontSize(int row, int col, int points) {
    d_->core.setCellFontSize(row, col, points);
}

QColor TablioWidget::cellBackColor(int row, int col) {
    return d_->colours().of(d_->core.CellBackColor(row, col));
}

void TablioWidget::setCellBackColor(int row, int col, const QColor &colour) {
    d_->core.setCellBackColor(row, col, fromQColor(colour));
}

QColor TablioWidget::cellForeColor(int row, int col) {
    return d_->colours().of(d_->core.CellForeColor(row, col));
}

void TablioWidget::setCellForeColor(int row, int col, const QColor &colour) {
    d_->core.setCellForeColor(row, col, fromQColor(colour));
}

void TablioWidget::setHeaderBackColor(int col, const QColor &colour) {
    d_->core.SetHeaderBackColor(col, fromQColor(colour));
}

void TablioWidget::setHeaderForeColor(int col, const QColor &colour) {
    d_->core.SetHeaderForeColor(col, fromQColor(colour));
}

} // namespace tablio::qt
