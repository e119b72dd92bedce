#pragma once

/// `TablioModelBinding` keeps a `TablioWidget` and a Qt item model in step: it fills the grid from
/// the model and writes what the operator changes back, row by row. What cannot be written stays in
/// the grid, is shown at its row with the reason, and is tried again; nothing that was typed is
/// lost for it. Models on a database are bound by `TablioSqlBinding`.

#include <tablio/cell_value.h>
#include <tablio/qt/tablio_model_writer.h>

#include <QObject>
#include <QVariant>

#include <functional>
#include <memory>

namespace tablio::qt {

class TablioModelBindingPrivate;
class TablioWidget;

/// A column of the grid that shows a column of the model.
struct TablioBoundColumn {
    int gridColumn = 0;
    int modelColumn = 0;
    /// What the model holds where the cell is empty: null, unless a column must not be.
    QVariant empty = {};
    /// The model counts in units of 10 to the power −places: 2 for a price in hundredths.
    int places = 0;
    /// The model holds keys of this list, and the cell shows the text beside the key. A combo
    /// column offers these texts. The list must outlive the binding.
    QAbstractItemModel *list = nullptr;
    int keyColumn = 0;
    int textColumn = 1;
    /// The model answers the text itself and is given the key, as QSqlRelationalTableModel does.
    bool answersText = false;
};

/// The grid's columns are set up first, then they are bound, then load() fills the grid. From then
/// on the operator's changes are written by themselves, always after the event that made them is
/// over. A row in which all bound cells are empty is none: it leaves the model when it was in it. A
/// row whose primary column is empty is incomplete and waits for it.
///
/// Slots may do anything but delete the binding.
class TablioModelBinding : public QObject {
    Q_OBJECT

public:
    enum Writing {
        /// When the cursor has left the row, or the keyboard the grid.
        WhenRowIsLeft,
        /// After each cell.
        AtOnce,
    };
    Q_ENUM(Writing)

    /// The model must outlive the binding; without a writer of its own it is written to as it is.
    TablioModelBinding(TablioWidget *grid, QAbstractItemModel *model,
                       std::unique_ptr<TablioModelWriter> writer = nullptr);
    ~TablioModelBinding() override;

    // Setting up.
    void bind(const TablioBoundColumn &column);
    /// WhenRowIsLeft at first.
    void setWriting(Writing writing);
    /// By which columns of the model a row is known again when the model is read anew.
    void setKeyColumns(const QList<int> &modelColumns);
    /// This column of the model holds the number of the row in the grid and decides where a row is
    /// shown; rows that move get their new numbers. Such a table has one page.
    void setPositionColumn(int modelColumn);
    /// Written into new rows, such as the key of the order that they belong to.
    void setNewRowValue(int modelColumn, const QVariant &value);
    /// Says why a row must not be written, or nothing. It is asked before each try.
    void setRowCheck(std::function<QString(int row)> check);
    /// A row whose primary cell was emptied leaves the model at once, and not only when the rest of
    /// it is empty, too.
    void setIncompleteRowsLeave(bool leave);
    /// Blank rows below the last one, where the operator goes on; 12 at first.
    void setSpareRows(int count);
    /// Between two tries while nothing can be written; 1,000 at first.
    void setRetryInterval(int milliseconds);

    // Rows.
    /// Reads the model and shows the first page. What was not saved stays and is not saved.
    void load();
    /// Most rows of a page, 20,000 at first and 32,000 at most.
    void setPageSize(int rows);
    [[nodiscard]] int page() const;
    /// Whether the model has rows behind this page; reads no further than needed.
    [[nodiscard]] bool hasNextPage() const;
    /// False, with nothing changed, while something of this page is not saved.
    bool showPage(int page);

    // Saving. What is still being typed is not in its cell: call TablioWidget::commit() first.
    /// Writes all that is not saved; whether nothing is left.
    bool save();
    [[nodiscard]] bool isSaved() const;
    /// Of rows that the grid shows.
    [[nodiscard]] QList<int> unsavedRows() const;
    /// Why a row is not saved; nothing for one that was not tried yet.
    [[nodiscard]] TablioWriteTrouble trouble(int row) const;
    /// What was tried and is not saved, in a sentence for the operator; empty when all is well.
    [[nodiscard]] QString problem() const;
    /// What the model holds for this cell, as the grid would show it.
    [[nodiscard]] CellValue storedValue(int row, int gridColumn) const;
    /// Whether the model has this row.
    [[nodiscard]] bool isStored(int row) const;
    /// Gives up what was changed in a row and shows what the model holds.
    void revertRow(int row);

Q_SIGNALS:
    /// The row was filled from the model: the place for cells that the host works out.
    void rowShown(int row);
    void rowSaved(int row);
    /// Something was saved, or what is not saved or why is another.
    void changed();

protected:
    [[nodiscard]] const TablioModelWriter &writer() const;
    /// Nothing can be saved for this reason, or again, with none, also while nothing is unsaved;
    /// what waits is tried at once.
    void setOutage(const QString &reason);
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    friend class TablioModelBindingPrivate;
    std::unique_ptr<TablioModelBindingPrivate> d_;
};

} // namespace tablio::qt
