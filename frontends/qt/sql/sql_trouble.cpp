#include "sql/sql_trouble.h"

#include <tablio/qt/tablio_model_binding.h>

#include <QSqlDatabase>
#include <QSqlError>

namespace tablio::qt {

namespace {

enum class Meaning { RefusesRow, Locked, Full, ReadOnly, Broken, Lost };

/// SQLite's result codes; what is more than their last byte says no more than they.
Meaning ofLite(int code) {
    switch (code & 0xFF) {
    case 5: // BUSY
    case 6: // LOCKED
        return Meaning::Locked;
    case 8: // READONLY
        return Meaning::ReadOnly;
    case 13: // FULL
        return Meaning::Full;
    case 10: // IOERR
    case 11: // CORRUPT
    case 14: // CANTOPEN
    case 26: // NOTADB
        return Meaning::Broken;
    default:
        return Meaning::RefusesRow;
    }
}

/// PostgreSQL's five letters, of which the first two are a class.
Meaning ofPostgres(const QString &state, bool isOpen) {
    if (!isOpen || state.isEmpty() || state.startsWith(QLatin1String("08")) ||
        state.startsWith(QLatin1String("57P")))
        return Meaning::Lost;
    if (state == QLatin1String("55P03") || state == QLatin1String("57014") ||
        state.startsWith(QLatin1String("40")))
        return Meaning::Locked;
    if (state == QLatin1String("53100") || state == QLatin1String("53200"))
        return Meaning::Full;
    if (state == QLatin1String("25006"))
        return Meaning::ReadOnly;
    return Meaning::RefusesRow;
}

Meaning meaningOf(const QSqlError &error, const QSqlDatabase &database) {
    // The driver of SQLite calls any failed step a lost connection.
    if (database.driverName() == QLatin1String("QSQLITE"))
        return ofLite(error.nativeErrorCode().toInt());
    if (database.driverName() == QLatin1String("QPSQL"))
        return ofPostgres(error.nativeErrorCode(), database.isOpen());
    const bool isLost = error.type() == QSqlError::ConnectionError || !database.isOpen();
    return isLost ? Meaning::Lost : Meaning::RefusesRow;
}

} // namespace

SqlTrouble troubleOf(const QSqlError &error, const QSqlDatabase &database) {
    const Meaning meaning = meaningOf(error, database);
    const QString said = error.databaseText().section(u'\n', 0, 0).trimmed();
    const auto passing = [](const QString &reason) {
        return TablioWriteTrouble{TablioWriteTrouble::Unavailable, reason};
    };
    switch (meaning) {
    case Meaning::Locked:
        return {passing(TablioModelBinding::tr("another program holds the database"))};
    case Meaning::Full:
        return {passing(TablioModelBinding::tr("the database is full"))};
    case Meaning::ReadOnly:
        return {passing(TablioModelBinding::tr("the database can only be read"))};
    case Meaning::Broken:
        return {passing(TablioModelBinding::tr("the database cannot be written: %1").arg(said))};
    case Meaning::Lost:
        return {passing(TablioModelBinding::tr("the database does not answer")), true};
    default:
        return {{TablioWriteTrouble::Refused, said}};
    }
}

} // namespace tablio::qt
