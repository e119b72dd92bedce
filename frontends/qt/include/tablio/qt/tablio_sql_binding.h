#pragma once

/// `TablioSqlBinding` binds a grid to a QSqlTableModel or a QSqlRelationalTableModel: rows are
/// written in transactions, changes of other programs are noticed before they are written over, and
/// while the database is locked, full, read-only or gone the operator is told and types on. It
/// needs Qt Sql; the widget does not.

#include <tablio/qt/tablio_model_binding.h>

#include <QSqlTableModel>

namespace tablio::qt {

/// The table needs a primary key. The model's edit strategy becomes OnRowChange and is the
/// binding's own; nobody else keeps changes in the model.
class TablioSqlBinding : public TablioModelBinding {
    Q_OBJECT

public:
    /// The model has its table, its relations, if any, and was selected.
    TablioSqlBinding(TablioWidget *grid, QSqlTableModel *model);

    /// Binds a column to the field with this name; the other settings of a column as they are
    /// given. A relation of the model becomes the column's list.
    void bindField(int gridColumn, const QString &field, TablioBoundColumn column = {});
    void setPositionField(const QString &field);
    void setNewRowField(const QString &field, const QVariant &value);

private:
    [[nodiscard]] int columnOf(const QString &field) const;

    QSqlTableModel *model_;
};

} // namespace tablio::qt
