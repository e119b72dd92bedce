/// The cells of `TablioWidget` as values with types.

#include "widget/tablio_widget_p.h"

#include <tablio/cells.h>
#include <tablio/qt/cell_variant.h>

#include <algorithm>
#include <vector>

namespace tablio::qt {

QVariant TablioWidget::value(int row, int col) const {
    return toVariant(Cells(d_->core).value(row, col));
}

void TablioWidget::setValue(int row, int col, const QVariant &value) {
    Cells(d_->core).setValue(row, col, fromVariant(value));
}

bool TablioWidget::isEmpty(int row, int col) const { return Cells(d_->core).isEmpty(row, col); }

void TablioWidget::clearCell(int row, int col) { Cells(d_->core).clear(row, col); }

QVariantList TablioWidget::rowValues(int row) const {
    QVariantList values;
    for (const CellValue &value : Cells(d_->core).rowValues(row))
        values.append(toVariant(value));
    return values;
}

void TablioWidget::setRowValues(int row, const QVariantList &values) {
    std::vector<CellValue> converted;
    converted.reserve(static_cast<std::size_t>(values.size()));
    for (const QVariant &value : values)
        converted.push_back(fromVariant(value));
    Cells(d_->core).setRowValues(row, converted);
}

int TablioWidget::appendRows(const QList<QVariantList> &rows) {
    qsizetype width = 1;
    for (const QVariantList &row : rows)
        width = std::max(width, row.size());
    std::vector<CellValue> values(static_cast<std::size_t>(rows.size() * width));
    auto place = values.begin();
    for (const QVariantList &row : rows) {
        std::transform(row.begin(), row.end(), place, fromVariant);
        place += width;
    }
    return Cells(d_->core).appendRows(values, static_cast<int>(width));
}

} // namespace tablio::qt
