#include <tablio/qt/tablio_sql_binding.h>

#include "sql/sql_writer.h"

#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QSqlIndex>
#include <QSqlRecord>
#include <QSqlRelationalTableModel>

namespace tablio::qt {

TablioSqlBinding::TablioSqlBinding(TablioWidget *grid, QSqlTableModel *model)
    : TablioModelBinding(grid, model, std::make_unique<SqlWriter>(*model)), model_(model) {
    const QSqlIndex key = model->primaryKey();
    QList<int> columns;
    for (int field = 0; field < key.count(); ++field)
        columns += columnOf(key.fieldName(field));
    setKeyColumns(columns);
    const auto &writer = static_cast<const SqlWriter &>(this->writer());
    if (writer.file().isEmpty())
        return;
    auto *watcher = new QFileSystemWatcher({QFileInfo(writer.file()).absolutePath()}, this);
    connect(watcher, &QFileSystemWatcher::directoryChanged, this,
            [this, &writer] { setOutage(writer.fileTrouble()); });
}

void TablioSqlBinding::bindField(int gridColumn, const QString &field, TablioBoundColumn column) {
    column.gridColumn = gridColumn;
    column.modelColumn = columnOf(field);
    auto *relational = qobject_cast<QSqlRelationalTableModel *>(model_);
    const QSqlRelation relation =
        relational != nullptr ? relational->relation(column.modelColumn) : QSqlRelation();
    if (relation.isValid()) {
        QSqlTableModel *list = relational->relationModel(column.modelColumn);
        column.list = list;
        column.keyColumn = list->fieldIndex(relation.indexColumn());
        column.textColumn = list->fieldIndex(relation.displayColumn());
        column.answersText = true;
    }
    bind(column);
}

void TablioSqlBinding::setPositionField(const QString &field) {
    setPositionColumn(columnOf(field));
}

void TablioSqlBinding::setNewRowField(const QString &field, const QVariant &value) {
    setNewRowValue(columnOf(field), value);
}

/// A relational model calls its columns by what they show, in the table's own order.
int TablioSqlBinding::columnOf(const QString &field) const {
    return model_->database().record(model_->tableName()).indexOf(field);
}

} // namespace tablio::qt
