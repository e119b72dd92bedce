#pragma once

/// A bound column at work: values on their way between a model and the grid. It keeps the texts of
/// the column's list, and decides nothing about rows.

#include <tablio/qt/tablio_model_binding.h>

#include <QHash>
#include <QStringList>

namespace tablio::qt {

class ColumnLink {
public:
    ColumnLink(const TablioBoundColumn &column, TablioWidget &grid);

    [[nodiscard]] int gridColumn() const { return column_.gridColumn; }
    [[nodiscard]] int modelColumn() const { return column_.modelColumn; }
    [[nodiscard]] bool hasList() const { return column_.list != nullptr; }
    /// Texts and keys as the list has them now, all of them.
    void readList();
    [[nodiscard]] const QStringList &texts() const { return texts_; }
    [[nodiscard]] QAbstractItemModel *list() const { return column_.list; }

    /// What the model holds in this row.
    [[nodiscard]] QVariant held(const QAbstractItemModel &model, int row) const;
    /// As the grid shows it: of the column's type, or a text where it cannot be that.
    [[nodiscard]] CellValue shown(const QVariant &held) const;
    /// What the model is given for a cell. Throws TypeMismatch, with what to tell the operator.
    [[nodiscard]] QVariant toWrite(const CellValue &value) const;

private:
    TablioBoundColumn column_;
    TablioWidget &grid_;
    QStringList texts_;
    QHash<QString, QVariant> keys_;
    QHash<QString, QString> textsByKey_;
};

/// Writes a value that shown() has answered; the text where the column cannot hold it.
void showValue(TablioWidget &grid, int row, int col, const CellValue &value);

} // namespace tablio::qt
