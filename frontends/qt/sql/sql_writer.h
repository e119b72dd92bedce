#pragma once

/// Writes rows of a QSqlTableModel in transactions, and knows what a database says. The bindings
/// see nothing of it but a `TablioModelWriter`.

#include "sql/file_identity.h"

#include <tablio/qt/tablio_model_writer.h>

#include <QSqlDatabase>
#include <QSqlTableModel>

namespace tablio::qt {

class SqlWriter final : public TablioModelWriter {
public:
    explicit SqlWriter(QSqlTableModel &model);

    [[nodiscard]] bool isAtomic() const override { return true; }
    bool begin() override;
    bool commit() override;
    void rollback(const std::vector<QPersistentModelIndex> &written) override;
    [[nodiscard]] bool hasRow(int row) const override;
    bool refresh(int row) override;
    int insert() override;
    bool submit(int row) override;
    void revert(int row, bool isNew) override;
    bool remove(int row) override;

    /// Why the database's file is not the one that was opened; empty while it is.
    [[nodiscard]] QString fileTrouble() const;
    /// Of the database, where it is one in a file; else empty.
    [[nodiscard]] QString file() const { return file_.path(); }

private:
    [[nodiscard]] bool isLite() const;
    bool run(const QString &statement);
    bool isFileThere();
    bool reconnect();
    void setLockWait();
    bool fail(const QSqlError &error);

    QSqlTableModel &model_;
    QSqlDatabase database_;
    FileIdentity file_;
    bool hasRemoved_ = false;
    bool isLost_ = false;
};

} // namespace tablio::qt
