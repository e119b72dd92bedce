#include "sql/sql_writer.h"

#include "sql/sql_trouble.h"

#include <tablio/qt/tablio_sql_binding.h>

#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>

namespace tablio::qt {

namespace {

/// How long a statement waits for another program, in milliseconds: an operator who types must not
/// wait for it, and what is locked is tried again anyway.
constexpr int lockWait = 150;

QString fileOf(const QSqlDatabase &database) {
    const bool isFile = database.driverName() == QLatin1String("QSQLITE") &&
                        QFileInfo::exists(database.databaseName());
    return isFile ? QFileInfo(database.databaseName()).absoluteFilePath() : QString();
}

} // namespace

SqlWriter::SqlWriter(QSqlTableModel &model)
    : TablioModelWriter(model), model_(model), database_(model.database()),
      file_(fileOf(database_)) {
    model_.setEditStrategy(QSqlTableModel::OnRowChange);
    setLockWait();
}

bool SqlWriter::isLite() const { return database_.driverName() == QLatin1String("QSQLITE"); }

void SqlWriter::setLockWait() {
    if (isLite())
        QSqlQuery(database_).exec(QStringLiteral("PRAGMA busy_timeout = %1").arg(lockWait));
    else if (database_.driverName() == QLatin1String("QPSQL"))
        QSqlQuery(database_).exec(QStringLiteral("SET lock_timeout = %1").arg(lockWait));
}

bool SqlWriter::begin() {
    hasRemoved_ = false;
    if (!isFileThere() || (isLost_ && !reconnect()))
        return false;
    // A query that is still open would hold what it has seen, and a writer behind it never gets in.
    while (isLite() && model_.canFetchMore())
        model_.fetchMore();
    // IMMEDIATE: whether the file can be written shows here, not halfway through.
    if (isLite())
        return run(QStringLiteral("BEGIN IMMEDIATE"));
    return database_.transaction() || fail(database_.lastError());
}

bool SqlWriter::commit() {
    return isLite() ? run(QStringLiteral("COMMIT"))
                    : database_.commit() || fail(database_.lastError());
}

void SqlWriter::rollback(const std::vector<QPersistentModelIndex> &written) {
    if (isLite())
        QSqlQuery(database_).exec(QStringLiteral("ROLLBACK"));
    else
        database_.rollback();
    // The model cannot take back a row that was removed, nor one that was given another key.
    if (!isLost_ && (hasRemoved_ || !written.empty()))
        model_.select();
}

/// The model marks a row that is not in the table any more.
bool SqlWriter::hasRow(int row) const {
    return model_.headerData(row, Qt::Vertical).toString() != QLatin1String("!");
}

bool SqlWriter::refresh(int row) {
    if (!model_.selectRow(row))
        return fail(model_.lastError());
    if (hasRow(row))
        return true;
    setTrouble({TablioWriteTrouble::Conflict,
                TablioModelBinding::tr("another program has removed it; what is entered here again "
                                       "is taken")});
    return false;
}

int SqlWriter::insert() {
    const int row = model_.rowCount();
    if (model_.insertRow(row))
        return row;
    fail(model_.lastError());
    return -1;
}

bool SqlWriter::submit(int /*row*/) { return model_.submit() || fail(model_.lastError()); }

void SqlWriter::revert(int /*row*/, bool /*isNew*/) { model_.revertAll(); }

bool SqlWriter::remove(int row) {
    if (!model_.removeRow(row)) {
        fail(model_.lastError());
        model_.revertAll();
        return false;
    }
    hasRemoved_ = true;
    return true;
}

bool SqlWriter::run(const QString &statement) {
    QSqlQuery query(database_);
    return query.exec(statement) || fail(query.lastError());
}

QString SqlWriter::fileTrouble() const {
    return file_.isThere() ? QString()
                           : TablioModelBinding::tr("the file %1 was renamed, removed or replaced")
                                 .arg(QFileInfo(file_.path()).fileName());
}

bool SqlWriter::isFileThere() {
    const QString reason = fileTrouble();
    if (reason.isEmpty())
        return true;
    setTrouble({TablioWriteTrouble::Unavailable, reason});
    return false;
}

/// What the model has read is of the connection before.
bool SqlWriter::reconnect() {
    database_.close();
    if (!database_.open())
        return fail(database_.lastError());
    setLockWait();
    isLost_ = false;
    model_.select();
    setTrouble({TablioWriteTrouble::Unavailable,
                TablioModelBinding::tr("the connection to the database was lost")});
    return false;
}

/// Always false, for the caller to answer.
bool SqlWriter::fail(const QSqlError &error) {
    const SqlTrouble trouble = troubleOf(error, database_);
    isLost_ = isLost_ || trouble.isLost;
    setTrouble(trouble.trouble);
    return false;
}

} // namespace tablio::qt
