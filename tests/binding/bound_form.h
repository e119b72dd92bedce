#pragma once

/// A grid in a window on a table "item" of a database, as the tests of bindings use it: columns
/// name, count, price and code, and a note that the grid does not show.

#include "qt/grid_window.h"

#include <tablio/qt/tablio_sql_binding.h>

#include <QSqlDatabase>
#include <QTemporaryDir>

#include <memory>

/// An SQLite file of its own, and a second connection that is another program's.
class LiteFile {
public:
    LiteFile();
    ~LiteFile();

    QTemporaryDir directory;
    QSqlDatabase own;
    QSqlDatabase other;
    [[nodiscard]] QString path() const { return directory.filePath(QStringLiteral("item.sqlite")); }
};

/// Runs statements; answers the rows of the last one, fields joined by "|". Fails the test.
QStringList sql(const QSqlDatabase &database, const QStringList &statements);
inline QStringList sql(const QSqlDatabase &database, const QString &statement) {
    return sql(database, QStringList(statement));
}

class BoundForm : public GridWindow {
public:
    /// The model is made here and bound, and the grid filled.
    explicit BoundForm(const QSqlDatabase &database);

    std::unique_ptr<QSqlTableModel> model;
    tablio::qt::TablioSqlBinding *binding;

    /// Lets what was typed be written.
    static void settle() { QCoreApplication::processEvents(); }
    void enter(const QString &keys) {
        type(keys);
        settle();
    }
    [[nodiscard]] QStringList shown(int row) const;
};
