#pragma once

/// What a `TablioModelBinding` knows of each row of its grid, and how it comes to be the same on
/// both sides: filling from the model (binding_fill.cpp), keeping in step with what the grid tells
/// (binding_rows.cpp), and writing (binding_write.cpp).

#include "binding/column_link.h"
#include "binding/row_marks.h"

#include <tablio/table_watcher.h>

#include <QPersistentModelIndex>
#include <QPointer>
#include <QTimer>

#include <optional>
#include <set>
#include <vector>

namespace tablio::qt {

/// A data row of the grid.
struct BoundRow {
    /// Invalid for a row that the model does not have.
    QPersistentModelIndex source;
    bool wasStored = false;
    /// Its key when it was last the same as in the model; the model may have others meanwhile.
    QString key;
    /// Places of the links whose cells are others than the model's.
    std::set<std::size_t> changed;
    /// What the model held, by links, when the first of them became another.
    std::vector<QVariant> base;
    /// Its position is another than the model says.
    bool isMoved = false;
    /// As it is now, writing it was tried; a row check may answer otherwise another time.
    bool isTried = false;
    bool waitsForCheck = false;
    TablioWriteTrouble trouble;

    [[nodiscard]] bool isUnsaved() const { return !changed.empty() || isMoved; }
};

/// A row that has left the grid, and not yet the model.
struct RemovedRow {
    QPersistentModelIndex source;
    QString key;
    TablioWriteTrouble trouble;
};

/// What has to be written: a row of the grid, or one that has left it.
struct RowWork {
    enum What { Update, Insert, Remove, MoveOnly, RemoveLeft };
    What what = Update;
    /// Of rows_, or of removed_ for RemoveLeft.
    std::size_t at = 0;
};

/// What is not saved, while the model is read anew.
struct KeptRow {
    std::size_t at = 0;
    BoundRow row;
    std::vector<CellValue> cells;
};

class TablioModelBindingPrivate final : public TableWatcher {
public:
    TablioModelBindingPrivate(TablioModelBinding &binding, TablioWidget &widget,
                              QAbstractItemModel &itemModel,
                              std::unique_ptr<TablioModelWriter> rowWriter);

    // Settings.
    std::vector<ColumnLink> links;
    TablioModelBinding::Writing writing = TablioModelBinding::WhenRowIsLeft;
    QList<int> keyColumns;
    std::optional<int> positionColumn;
    std::vector<std::pair<int, QVariant>> newRowValues;
    std::function<QString(int)> check;
    bool incompleteLeaves = false;
    int spareRows = 12;
    int pageSize = 20000;
    int page = 0;
    /// Why nothing can be saved, though nothing may wait for it.
    QString outage;

    // Filling.
    void load();
    [[nodiscard]] int fetched(int wanted) const;
    void modelChanged(const QModelIndex &from, const QModelIndex &to);
    void modelRowsCame(int first, int last);
    void modelRowsWent();
    void keepUnsaved();
    void keepSpareRows();
    void fillChoices(int gridColumn);
    /// Shows what the model holds; links of the set are left alone.
    void showRow(std::size_t at, const std::set<std::size_t> &except = {});

    // Rows.
    void rowsCame(int first, int count) override;
    void rowsGoing(int first, int count) override;
    void rowsWent(int first, int count) override;
    void cellsChanged(const CellBlock &cells) override;
    void tableChanged() override;
    /// Looks at what has changed when the event that did it is over.
    void schedule();
    void settle();
    void focusMoved(QWidget *now);
    [[nodiscard]] int gridRow(std::size_t at) const;
    [[nodiscard]] std::optional<std::size_t> indexOf(int row) const;
    [[nodiscard]] bool isBlank(std::size_t at) const;
    [[nodiscard]] CellValue cell(std::size_t at, const ColumnLink &link) const;

    // Writing.
    /// What is due, or all; whether nothing is left of that.
    bool write(bool everything);
    /// Tries what waits.
    void retry();
    void setRetryInterval(int milliseconds) { retry_.setInterval(milliseconds); }
    [[nodiscard]] QString problem() const;
    void showTroubles();

    TablioModelBinding &q;
    QPointer<TablioWidget> grid;
    QAbstractItemModel &model;
    std::unique_ptr<TablioModelWriter> writer;
    std::vector<BoundRow> rows;
    std::vector<RemovedRow> removed;
    RowMarks marks;

private:
    void markChanged(std::size_t at, std::size_t link);
    void rowsMoved(std::size_t first);
    [[nodiscard]] QString keyNow(const BoundRow &row) const;
    void dropWhatIsTheSame();
    void dropWhatIsTheSame(BoundRow &row, std::size_t at);
    [[nodiscard]] QString keyOf(int modelRow) const;
    [[nodiscard]] std::size_t firstFree() const;
    void place(std::size_t at, int modelRow);
    void restore(KeptRow kept);
    void remember(BoundRow &row) const;
    void setRowCount(int dataRows);

    [[nodiscard]] std::vector<RowWork> planned(bool everything);
    std::optional<RowWork> planned(std::size_t at);
    [[nodiscard]] QString objection(std::size_t at) const;
    void sortByPosition(std::vector<RowWork> &works) const;
    void carryOut(const std::vector<RowWork> &works);
    bool perform(const std::vector<RowWork> &works, const RowWork *&failed);
    bool writeOne(const RowWork &work, std::vector<QPersistentModelIndex> &written);
    bool update(std::size_t at, bool contents);
    bool insert(std::size_t at, std::vector<QPersistentModelIndex> &written);
    bool remove(const QPersistentModelIndex &source);
    bool setCells(BoundRow &row, std::size_t at, int modelRow, bool all);
    bool setPosition(std::size_t at, int modelRow);
    void finish(const RowWork &work);
    void note(const RowWork &work, const TablioWriteTrouble &trouble);
    [[nodiscard]] bool isBound(int modelColumn) const;

    TableWatch watch_;
    QTimer retry_;
    /// While positive, what changes in the grid is of our own making.
    int quiet_ = 0;
    bool isLoading_ = false;
    bool isWriting_ = false;
    /// The row whose model row is being compared with what is stored, while that is done.
    std::optional<std::size_t> refreshed_;
    bool isScheduled_ = false;
    bool needsLoad_ = false;
    bool hasKeyboard_ = false;
    bool isUnavailable_ = false;
    /// By their keys, and those that the model never had.
    QHash<QString, KeptRow> kept_;
    std::vector<KeptRow> keptNew_;
    bool hasKept_ = false;
    /// Rows that were removed, all columns, by what their cells held: a row that comes back gets
    /// its key and what the grid does not show again.
    QHash<QString, QVariantList> buried_;
    /// What the last try met with.
    TablioWriteTrouble trouble_;
    std::vector<QPersistentModelIndex> saved_;
};

} // namespace tablio::qt
