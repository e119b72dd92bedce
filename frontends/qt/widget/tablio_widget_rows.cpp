/// The rows of `TablioWidget`, their marks and ticks, and what a host offers to choose from.

#include "widget/qt_text.h"
#include "widget/tablio_widget_p.h"

namespace tablio::qt {

void TablioWidget::addRow() { d_->core.AddRow(); }

void TablioWidget::tableClear() { d_->core.TableClear(); }

void TablioWidget::insertRow(int row) { d_->core.InsertRow(row); }

void TablioWidget::removeRow(int row) { d_->core.RemoveRow(row); }

void TablioWidget::resetRow(int row) { d_->core.ResetRow(row); }

int TablioWidget::dataCount() const { return d_->core.DataCount(); }

int TablioWidget::findDuplicatePrimaryColumn(int row) const {
    return d_->core.FindDuplicatePrimaryColumn(row);
}

void TablioWidget::focusCell(int row, int col) { d_->core.CellFocus(row, col); }

int TablioWidget::markRow() const { return d_->core.MarkRow(); }

void TablioWidget::setMarkRow(int row) { d_->core.setMarkRow(row); }

bool TablioWidget::markStatus() const { return d_->core.MarkStatus(); }

void TablioWidget::markActiveRow() { d_->core.MarkActiveRow(); }

void TablioWidget::check(int row, bool checked) { d_->core.Check(row, checked); }

bool TablioWidget::checked(int row) const { return d_->core.Checked(row); }

void TablioWidget::comboClear() { d_->core.ComboClear(); }

void TablioWidget::comboAddItem(const QString &item) { d_->core.ComboAddItem(fromQString(item)); }

int TablioWidget::listIndex(int row, int col) { return d_->core.ListIndex(row, col); }

void TablioWidget::setLookupResult(int row, int col, const QString &value) {
    d_->core.setLookupResult(row, col, fromQString(value));
}

} // namespace tablio::qt
