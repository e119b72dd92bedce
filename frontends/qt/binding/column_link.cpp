#include "binding/column_link.h"

#include "widget/qt_text.h"

#include <tablio/cells.h>
#include <tablio/errors.h>
#include <tablio/qt/cell_variant.h>
#include <tablio/qt/tablio_widget.h>

namespace tablio::qt {

namespace {

bool isTick(const TablioWidget &grid, int col) {
    return grid.checkBoxes() != 0 && col == grid.cols() - 1;
}

} // namespace

ColumnLink::ColumnLink(const TablioBoundColumn &column, TablioWidget &grid)
    : column_(column), grid_(grid) {}

void ColumnLink::readList() {
    if (column_.list == nullptr)
        return;
    QAbstractItemModel &list = *column_.list;
    while (list.canFetchMore({}))
        list.fetchMore({});
    texts_.clear();
    keys_.clear();
    textsByKey_.clear();
    for (int row = 0; row < list.rowCount(); ++row) {
        const QVariant key = list.index(row, column_.keyColumn).data(Qt::EditRole);
        const QString text = list.index(row, column_.textColumn).data().toString();
        texts_ += text;
        keys_.insert(text, key);
        textsByKey_.insert(key.toString(), text);
    }
}

QVariant ColumnLink::held(const QAbstractItemModel &model, int row) const {
    return model.index(row, column_.modelColumn)
        .data(column_.answersText ? Qt::DisplayRole : Qt::EditRole);
}

CellValue ColumnLink::shown(const QVariant &held) const {
    if (held.isNull() || (!column_.empty.isNull() && held == column_.empty))
        return isTick(grid_, column_.gridColumn) ? CellValue(false) : CellValue();
    CellValue value;
    if (hasList() && !column_.answersText) {
        const QString key = held.toString();
        value = CellValue(fromQString(textsByKey_.value(key, key)));
    } else {
        value = fromVariant(held);
    }
    try {
        if (column_.places != 0)
            value = value.toDecimal().timesPowerOfTen(-column_.places);
        if (isTick(grid_, column_.gridColumn))
            return value.toBoolean();
        switch (grid_.colEditType(column_.gridColumn)) {
        case TablioWidget::ColumnInteger:
            return value.toInteger();
        case TablioWidget::ColumnDecimal:
            return value.toDecimal();
        case TablioWidget::ColumnDate:
            return value.toDate();
        default:
            break;
        }
    } catch (const Error &) {
        // What is stored there was not made by this form; it is shown as it is.
    }
    return CellValue(value.toText());
}

QVariant ColumnLink::toWrite(const CellValue &value) const {
    if (value.isEmpty())
        return column_.empty;
    const auto refuse = [&](const QString &reason) {
        throw TypeMismatch(fromQString(reason.arg(toQString(value.toText()))));
    };
    if (hasList()) {
        const auto key = keys_.find(toQString(value.toText()));
        if (key == keys_.end())
            refuse(TablioModelBinding::tr("“%1” is not in the list of %2")
                       .arg(QStringLiteral("%1"), grid_.colTextHeader(column_.gridColumn)));
        return key == keys_.end() ? QVariant() : *key;
    }
    const TablioWidget::ColumnType type = grid_.colEditType(column_.gridColumn);
    const bool isNumeric =
        type == TablioWidget::ColumnInteger || type == TablioWidget::ColumnDecimal;
    if (value.type() == CellValue::Type::Text && isNumeric)
        refuse(TablioModelBinding::tr("“%1” is no number"));
    if (value.type() == CellValue::Type::Text && type == TablioWidget::ColumnDate)
        refuse(TablioModelBinding::tr("“%1” is no date"));
    if (column_.places != 0)
        return static_cast<qlonglong>(
            CellValue(value.toDecimal().timesPowerOfTen(column_.places).rounded(0)).toInteger());
    return toVariant(value);
}

void showValue(TablioWidget &grid, int row, int col, const CellValue &value) {
    tablio::Cells cells(grid.core());
    if (cells.value(row, col) == value)
        return;
    try {
        cells.setValue(row, col, value);
    } catch (const TypeMismatch &) {
        grid.core().setTextMatrix(row, col, value.toText());
    }
}

} // namespace tablio::qt
