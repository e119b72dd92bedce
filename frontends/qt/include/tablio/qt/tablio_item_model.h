#pragma once

/// `TablioItemModel` shows the table of a `TablioWidget` to Qt's other classes: a completer, a
/// mapper, a proxy, a view beside the grid, code that prints. It follows every change, whoever
/// makes it, and keeps nothing of the table itself.

#include <QAbstractTableModel>

#include <memory>

namespace tablio::qt {

class TablioWidget;

/// Rows are the data rows, blank ones included, and columns are all of the grid's. EditRole and
/// setData() use what TablioWidget::value() answers, DisplayRole what the cell shows. Cells of a
/// tick column have a CheckStateRole.
class TablioItemModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// A model of a widget that is gone is empty.
    explicit TablioItemModel(TablioWidget *grid, QObject *parent = nullptr);
    ~TablioItemModel() override;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index,
                                int role = Qt::DisplayRole) const override;
    /// False for what the column cannot hold and for columns that the operator cannot enter.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Behind the last row only.
    bool insertRows(int row, int count, const QModelIndex &parent = {}) override;

private:
    class Watcher;
    std::unique_ptr<Watcher> watcher_;
};

} // namespace tablio::qt
