/// The colours of `TablioWidget` and the looks of its cells.

#include "widget/qt_look.h"
#include "widget/qt_text.h"
#include "widget/tablio_widget_p.h"

namespace tablio::qt {

namespace {

/// An invalid colour stands for the one that a new widget has.
Colour colourOr(const QColor &colour, Colour start) {
    return colour.isValid() ? fromQColor(colour) : start;
}

} // namespace

QColor TablioWidget::backColor() const { return d_->colour(d_->core.BackColor()); }

void TablioWidget::setBackColor(const QColor &colour) {
    d_->core.setBackColor(colourOr(colour, d_->startLook.BackColorBkg));
}

QColor TablioWidget::backColorData() const { return d_->colour(d_->core.BackColorData()); }

void TablioWidget::setBackColorData(const QColor &colour) {
    d_->core.setBackColorData(colourOr(colour, d_->startLook.BackColor));
}

QColor TablioWidget::foreColorData() const { return d_->colour(d_->core.ForeColorData()); }

void TablioWidget::setForeColorData(const QColor &colour) {
    d_->core.setForeColorData(colourOr(colour, d_->startLook.ForeColor));
}

QColor TablioWidget::backColorFixed() const { return d_->colour(d_->core.BackColorFixed()); }

void TablioWidget::setBackColorFixed(const QColor &colour) {
    d_->core.setBackColorFixed(colourOr(colour, d_->startLook.BackColorFixed));
}

QColor TablioWidget::foreColorFixed() const { return d_->colour(d_->core.ForeColorFixed()); }

void TablioWidget::setForeColorFixed(const QColor &colour) {
    d_->core.setForeColorFixed(colourOr(colour, d_->startLook.ForeColorFixed));
}

QColor TablioWidget::gridColorData() const { return d_->colour(d_->core.GridColorData()); }

void TablioWidget::setGridColorData(const QColor &colour) {
    d_->core.setGridColorData(colourOr(colour, d_->startLook.GridColor));
}

QColor TablioWidget::gridColorFixed() const { return d_->colour(d_->core.GridColorFixed()); }

void TablioWidget::setGridColorFixed(const QColor &colour) {
    d_->core.setGridColorFixed(colourOr(colour, d_->startLook.GridColorFixed));
}

QColor TablioWidget::backColorMarkRow() const { return d_->colour(d_->core.BackColorMarkRow()); }

void TablioWidget::setBackColorMarkRow(const QColor &colour) {
    d_->core.setBackColorMarkRow(colourOr(colour, d_->startLook.BackColorSel));
}

QColor TablioWidget::foreColorMarkRow() const { return d_->colour(d_->core.ForeColorMarkRow()); }

void TablioWidget::setForeColorMarkRow(const QColor &colour) {
    d_->core.setForeColorMarkRow(colourOr(colour, d_->startLook.ForeColorSel));
}

QColor TablioWidget::stripeColor() const { return d_->colour(d_->core.StripeColor()); }

void TablioWidget::setStripeColor(const QColor &colour) {
    d_->core.setStripeColor(colourOr(colour, d_->startSettings.StripeColor));
}

QColor TablioWidget::checkBoxColor() const { return d_->colour(d_->core.CheckBoxColor()); }

void TablioWidget::setCheckBoxColor(const QColor &colour) {
    d_->core.setCheckBoxColor(colourOr(colour, d_->startSettings.CheckBoxColor));
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
    return d_->colour(d_->core.CellBackColor(row, col));
}

void TablioWidget::setCellBackColor(int row, int col, const QColor &colour) {
    d_->core.setCellBackColor(row, col, fromQColor(colour));
}

QColor TablioWidget::cellForeColor(int row, int col) {
    return d_->colour(d_->core.CellForeColor(row, col));
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
