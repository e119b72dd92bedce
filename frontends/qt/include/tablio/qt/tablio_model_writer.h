#pragma once

/// How a `TablioModelBinding` writes a row into its model for good. This one serves models that
/// keep what they are given; a model on top of a database brings its own, with transactions
/// (`TablioSqlBinding` has one). It knows rows of the model and nothing of the grid.

#include <QAbstractItemModel>
#include <QString>

#include <vector>

namespace tablio::qt {

/// Why something was not written.
struct TablioWriteTrouble {
    enum Kind {
        None,
        /// What the row holds cannot be taken; it is tried again when it has changed.
        Refused,
        /// Somebody else has changed the row meanwhile; the next try writes over that.
        Conflict,
        /// Nothing can be written for now: locked, full, gone. It is tried again by itself.
        Unavailable,
    };
    Kind kind = None;
    /// For the operator.
    QString reason;
};

class TablioModelWriter {
public:
    explicit TablioModelWriter(QAbstractItemModel &model) : model_(model) {}
    virtual ~TablioModelWriter() = default;
    TablioModelWriter(const TablioModelWriter &) = delete;
    TablioModelWriter &operator=(const TablioModelWriter &) = delete;

    /// Whether rollback() takes back all since begin(); otherwise rows are written one by one.
    [[nodiscard]] virtual bool isAtomic() const { return false; }
    /// Before the first row. False, with a trouble, where nothing can be written.
    virtual bool begin() { return true; }
    virtual bool commit() { return true; }
    /// Afterwards these rows of the model, which were written since begin(), show what is stored;
    /// those that were new are gone from there. Only where isAtomic().
    virtual void rollback(const std::vector<QPersistentModelIndex> & /*written*/) {}

    /// False for a row that the model still counts and that is none any more.
    [[nodiscard]] virtual bool hasRow(int /*row*/) const { return true; }
    /// Makes the model's row what is stored now, if another program may have changed it: the model
    /// emits dataChanged() then. False where the row has gone.
    virtual bool refresh(int /*row*/) { return true; }
    /// A blank row, to be filled by setData(); −1 where the model refuses.
    virtual int insert();
    /// What was set in this row since it was written last becomes what is stored.
    virtual bool submit(int row);
    /// Forgets what was set in this row; one that is new and was never stored goes.
    virtual void revert(int row, bool isNew);
    virtual bool remove(int row);

    /// What the last answer of false was about.
    [[nodiscard]] const TablioWriteTrouble &trouble() const { return trouble_; }

protected:
    void setTrouble(TablioWriteTrouble trouble) { trouble_ = std::move(trouble); }

private:
    QAbstractItemModel &model_;
    TablioWriteTrouble trouble_;
};

} // namespace tablio::qt
