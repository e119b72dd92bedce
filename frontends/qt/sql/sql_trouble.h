#pragma once

/// What an error of a database means to somebody who types: whether it passes, and in what words.

#include <tablio/qt/tablio_model_writer.h>

class QSqlDatabase;
class QSqlError;

namespace tablio::qt {

struct SqlTrouble {
    TablioWriteTrouble trouble;
    /// The connection has to be opened again.
    bool isLost = false;
};

[[nodiscard]] SqlTrouble troubleOf(const QSqlError &error, const QSqlDatabase &database);

} // namespace tablio::qt
