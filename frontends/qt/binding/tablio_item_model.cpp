#include <tablio/qt/tablio_item_model.h>

#include "widget/qt_text.h"

#include <tablio/errors.h>
#include <tablio/qt/tablio_widget.h>
#include <tablio/table_watcher.h>

#include <algorithm>

namespace tablio::qt {

/// What the core tells while it happens, as a model tells it.
class TablioItemModel::Watcher final : public TableWatcher {
public:
    Watcher(TablioWidget &widget, TablioItemModel &model)
        : grid(&widget), model_(model), watch_(widget.core(), *this) {}

    /// Null when it is gone.
    TablioWidget *grid;

    [[nodiscard]] int header() const { return grid->fixedRows(); }
    [[nodiscard]] CellAddress cell(const QModelIndex &index) const {
        return {index.row() + header(), index.column()};
    }
    [[nodiscard]] CellFacts facts(const QModelIndex &index) const {
        return grid->core().screen().facts(cell(index));
    }

    void rowsComing(int first, int count) override {
        const int at = std::max(first - header(), 0);
        model_.beginInsertRows({}, at, at + count - 1);
    }
    void rowsCame(int /*first*/, int /*count*/) override { model_.endInsertRows(); }
    void rowsGoing(int first, int count) override {
        const int at = std::max(first - header(), 0);
        model_.beginRemoveRows({}, at, at + count - 1);
    }
    void rowsWent(int /*first*/, int /*count*/) override { model_.endRemoveRows(); }
    void cellsChanged(const CellBlock &cells) override {
        if (cells.firstRow < header())
            Q_EMIT model_.headerDataChanged(Qt::Horizontal, cells.firstCol, cells.lastCol);
        const int first = std::max(cells.firstRow - header(), 0);
        const int last = std::min(cells.lastRow - header(), model_.rowCount() - 1);
        if (first <= last)
            Q_EMIT model_.dataChanged(model_.index(first, cells.firstCol),
                                      model_.index(last, cells.lastCol));
    }
    void tableChanging() override { model_.beginResetModel(); }
    void tableChanged() override { model_.endResetModel(); }

private:
    TablioItemModel &model_;
    TableWatch watch_;
};

TablioItemModel::TablioItemModel(TablioWidget *grid, QObject *parent)
    : QAbstractTableModel(parent), watcher_(std::make_unique<Watcher>(*grid, *this)) {
    connect(grid, &QObject::destroyed, this, [this] {
        beginResetModel();
        watcher_->grid = nullptr;
        endResetModel();
    });
}

TablioItemModel::~TablioItemModel() = default;

int TablioItemModel::rowCount(const QModelIndex &parent) const {
    if (parent.isValid() || watcher_->grid == nullptr)
        return 0;
    return std::max(watcher_->grid->rows() - watcher_->header(), 0);
}

int TablioItemModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() || watcher_->grid == nullptr ? 0 : watcher_->grid->cols();
}

QVariant TablioItemModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid() || watcher_->grid == nullptr)
        return {};
    switch (role) {
    case Qt::DisplayRole: {
        const CellFacts facts = watcher_->facts(index);
        return facts.isCheckBox ? QVariant() : toQString(facts.text);
    }
    case Qt::EditRole:
        return watcher_->grid->value(watcher_->cell(index).row, index.column());
    case Qt::CheckStateRole: {
        const CellFacts facts = watcher_->facts(index);
        if (!facts.isCheckBox)
            return {};
        return QVariant::fromValue(facts.isTicked ? Qt::Checked : Qt::Unchecked);
    }
    case Qt::TextAlignmentRole:
        switch (watcher_->grid->colDataAlignment(index.column())) {
        case TablioWidget::ColumnCentre:
            return QVariant(Qt::AlignCenter);
        case TablioWidget::ColumnRight:
            return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        default:
            return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
        }
    default:
        return {};
    }
}

bool TablioItemModel::setData(const QModelIndex &index, const QVariant &value, int role) {
    if (!index.isValid() || watcher_->grid == nullptr)
        return false;
    const CellFacts facts = watcher_->facts(index);
    const bool isTick = facts.isCheckBox && role == Qt::CheckStateRole;
    if (!isTick && (role != Qt::EditRole || facts.isReadOnly))
        return false;
    try {
        watcher_->grid->setValue(watcher_->cell(index).row, index.column(),
                                 isTick ? QVariant(value.toInt() == Qt::Checked) : value);
    } catch (const TypeMismatch &) {
        return false;
    } catch (const OverflowError &) {
        return false;
    }
    return true;
}

QVariant TablioItemModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || section < 0)
        return {};
    if (orientation == Qt::Vertical)
        return section < rowCount() ? QVariant(section + 1) : QVariant();
    return section < columnCount() ? watcher_->grid->colTextHeader(section) : QVariant();
}

Qt::ItemFlags TablioItemModel::flags(const QModelIndex &index) const {
    if (!index.isValid() || watcher_->grid == nullptr)
        return Qt::NoItemFlags;
    const CellFacts facts = watcher_->facts(index);
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    flags.setFlag(Qt::ItemIsUserCheckable, facts.isCheckBox);
    flags.setFlag(Qt::ItemIsEditable, !facts.isReadOnly && !facts.isCheckBox);
    return flags;
}

bool TablioItemModel::insertRows(int row, int count, const QModelIndex &parent) {
    if (parent.isValid() || watcher_->grid == nullptr || row != rowCount() || count < 1)
        return false;
    try {
        watcher_->grid->setRows(watcher_->grid->rows() + count);
    } catch (const OverflowError &) {
        return false;
    }
    return true;
}

} // namespace tablio::qt
