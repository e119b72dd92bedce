/// The column settings of `TablioWidget`. Its enumerations have the core's values.

#include "widget/qt_text.h"
#include "widget/tablio_widget_p.h"

namespace tablio::qt {

TablioWidget::ColumnStyle TablioWidget::colStyle(int col) const {
    return static_cast<ColumnStyle>(d_->core.ColStyle(col));
}

void TablioWidget::setColStyle(int col, ColumnStyle style) {
    d_->core.setColStyle(col, static_cast<TColumnStyle>(style));
}

TablioWidget::ColumnType TablioWidget::colEditType(int col) const {
    return static_cast<ColumnType>(d_->core.ColEditType(col));
}

void TablioWidget::setColEditType(int col, ColumnType type) {
    d_->core.setColEditType(col, static_cast<TColumnType>(type));
}

QString TablioWidget::colFormat(int col) const { return toQString(d_->core.ColFormat(col)); }

void TablioWidget::setColFormat(int col, const QString &format) {
    d_->core.setColFormat(col, fromQString(format));
}

int TablioWidget::colMaxLength(int col) const { return d_->core.ColMaxLength(col); }

void TablioWidget::setColMaxLength(int col, int length) { d_->core.setColMaxLength(col, length); }

TablioWidget::DataType TablioWidget::colDataType(int col) const {
    return static_cast<DataType>(d_->core.ColDataType(col));
}

void TablioWidget::setColDataType(int col, DataType type) {
    d_->core.setColDataType(col, static_cast<TDataType>(type));
}

TablioWidget::CalculationStyle TablioWidget::colCalcStyle(int col) const {
    return static_cast<CalculationStyle>(d_->core.ColCalcStyle(col));
}

void TablioWidget::setColCalcStyle(int col, CalculationStyle style) {
    d_->core.setColCalcStyle(col, static_cast<TCalcStyle>(style));
}

QString TablioWidget::colTextHeader(int col) const {
    return toQString(d_->core.ColTextHeader(col));
}

void TablioWidget::setColTextHeader(int col, const QString &header) {
    d_->core.setColTextHeader(col, fromQString(header));
}

int TablioWidget::colWidth(int col) const { return d_->core.ColWidth(col); }

void TablioWidget::setColWidth(int col, int twips) { d_->core.setColWidth(col, twips); }

TablioWidget::ColumnAlignment TablioWidget::colDataAlignment(int col) const {
    return static_cast<ColumnAlignment>(d_->core.ColDataAlignment(col));
}

void TablioWidget::setColDataAlignment(int col, ColumnAlignment alignment) {
    d_->core.setColDataAlignment(col, static_cast<TColumnAlignment>(alignment));
}

TablioWidget::ColumnAlignment TablioWidget::colHeaderAlignment(int col) const {
    return static_cast<ColumnAlignment>(d_->core.ColHeaderAlignment(col));
}

void TablioWidget::setColHeaderAlignment(int col, ColumnAlignment alignment) {
    d_->core.setColHeaderAlignment(col, static_cast<TColumnAlignment>(alignment));
}

void TablioWidget::setColProperty(int col, const QString &textHeader, int widthTwips,
                                  ColumnStyle style, ColumnType editType,
                                  ColumnAlignment headerAlignment, ColumnAlignment dataAlignment,
                                  int maxLength, const QString &format) {
    d_->core.SetColProperty(
        col, fromQString(textHeader), widthTwips, static_cast<TColumnStyle>(style),
        static_cast<TColumnType>(editType), static_cast<TColumnAlignment>(headerAlignment),
        static_cast<TColumnAlignment>(dataAlignment), maxLength, fromQString(format));
}

} // namespace tablio::qt
