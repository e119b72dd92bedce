/// The samples of docs/binding.md, as they stand there: they compile.

#include <tablio/qt/tablio_item_model.h>
#include <tablio/qt/tablio_sql_binding.h>
#include <tablio/qt/tablio_widget.h>

#include <QCompleter>
#include <QMessageBox>
#include <QSqlRelationalTableModel>

#include "guide_samples.inc"
