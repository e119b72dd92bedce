#include <tablio/qt/tablio_model_binding.h>

#include "binding/tablio_model_binding_p.h"
#include "widget/guarded.h"

#include <tablio/qt/tablio_widget.h>

#include <QApplication>

#include <algorithm>
#include <utility>

namespace tablio::qt {

namespace {

/// What the control counts leaves room for a header and for spare rows.
constexpr int largestPage = 32000;

} // namespace

TablioModelBinding::TablioModelBinding(TablioWidget *grid, QAbstractItemModel *model,
                                       std::unique_ptr<TablioModelWriter> writer)
    : QObject(grid),
      d_(std::make_unique<TablioModelBindingPrivate>(
          *this, *grid, *model,
          writer ? std::move(writer) : std::make_unique<TablioModelWriter>(*model))) {
    grid->installEventFilter(this);
    connect(grid, &TablioWidget::editPreValidation, this,
            [this](int & /*row*/, int &col, bool & /*cancel*/) { d_->fillChoices(col); });
    connect(grid, &TablioWidget::tableRowChange, this, [this] {
        if (!d_->grid->isEditing())
            d_->keepSpareRows();
        d_->schedule();
    });
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget * /*old*/, QWidget *now) { d_->focusMoved(now); });
    connect(model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &from, const QModelIndex &to) {
                guarded([&] { d_->modelChanged(from, to); });
            });
    connect(model, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex &parent, int first, int last) {
                if (!parent.isValid())
                    guarded([&] { d_->modelRowsCame(first, last); });
            });
    connect(model, &QAbstractItemModel::rowsRemoved, this,
            [this] { guarded([this] { d_->modelRowsWent(); }); });
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this,
            [this] { guarded([this] { d_->keepUnsaved(); }); });
    connect(model, &QAbstractItemModel::modelReset, this,
            [this] { guarded([this] { d_->load(); }); });
}

TablioModelBinding::~TablioModelBinding() = default;

void TablioModelBinding::bind(const TablioBoundColumn &column) {
    d_->links.emplace_back(column, *d_->grid);
    if (column.list == nullptr)
        return;
    const auto readAgain = [this] {
        for (ColumnLink &link : d_->links)
            link.readList();
    };
    connect(column.list, &QAbstractItemModel::dataChanged, this, readAgain);
    connect(column.list, &QAbstractItemModel::modelReset, this, readAgain);
}

void TablioModelBinding::setWriting(Writing writing) { d_->writing = writing; }

void TablioModelBinding::setKeyColumns(const QList<int> &modelColumns) {
    d_->keyColumns = modelColumns;
}

void TablioModelBinding::setPositionColumn(int modelColumn) { d_->positionColumn = modelColumn; }

void TablioModelBinding::setNewRowValue(int modelColumn, const QVariant &value) {
    d_->newRowValues.emplace_back(modelColumn, value);
}

void TablioModelBinding::setRowCheck(std::function<QString(int row)> check) {
    d_->check = std::move(check);
}

void TablioModelBinding::setIncompleteRowsLeave(bool leave) { d_->incompleteLeaves = leave; }

void TablioModelBinding::setSpareRows(int count) { d_->spareRows = std::max(count, 0); }

void TablioModelBinding::setRetryInterval(int milliseconds) { d_->setRetryInterval(milliseconds); }

void TablioModelBinding::load() { d_->load(); }

void TablioModelBinding::setPageSize(int rows) { d_->pageSize = std::clamp(rows, 1, largestPage); }

int TablioModelBinding::page() const { return d_->page; }

bool TablioModelBinding::hasNextPage() const {
    const int behind = (d_->page + 1) * d_->pageSize;
    return d_->fetched(behind + 1) > behind;
}

bool TablioModelBinding::showPage(int page) {
    if (page < 0 || (page > 0 && d_->fetched(page * d_->pageSize + 1) <= page * d_->pageSize))
        return false;
    if (!d_->grid->commit() || !save())
        return false;
    d_->page = page;
    d_->load();
    return true;
}

bool TablioModelBinding::save() {
    d_->write(true);
    return isSaved();
}

bool TablioModelBinding::isSaved() const {
    return d_->removed.empty() && std::none_of(d_->rows.begin(), d_->rows.end(),
                                               [](const BoundRow &row) { return row.isUnsaved(); });
}

QList<int> TablioModelBinding::unsavedRows() const {
    QList<int> rows;
    for (std::size_t at = 0; at < d_->rows.size(); ++at) {
        if (d_->rows[at].isUnsaved())
            rows += d_->gridRow(at);
    }
    return rows;
}

TablioWriteTrouble TablioModelBinding::trouble(int row) const {
    const auto at = d_->indexOf(row);
    return at ? d_->rows[*at].trouble : TablioWriteTrouble();
}

QString TablioModelBinding::problem() const { return d_->problem(); }

CellValue TablioModelBinding::storedValue(int row, int gridColumn) const {
    const auto at = d_->indexOf(row);
    if (!at || !d_->rows[*at].source.isValid())
        return {};
    for (const ColumnLink &link : d_->links) {
        if (link.gridColumn() == gridColumn)
            return link.shown(link.held(d_->model, d_->rows[*at].source.row()));
    }
    return {};
}

bool TablioModelBinding::isStored(int row) const {
    const auto at = d_->indexOf(row);
    return at && d_->rows[*at].source.isValid();
}

void TablioModelBinding::revertRow(int row) {
    const auto at = d_->indexOf(row);
    if (!at)
        return;
    BoundRow &bound = d_->rows[*at];
    bound.changed.clear();
    bound.trouble = {};
    d_->showRow(*at);
    d_->showTroubles();
}

const TablioModelWriter &TablioModelBinding::writer() const { return *d_->writer; }

void TablioModelBinding::setOutage(const QString &reason) {
    if (reason == d_->outage)
        return;
    d_->outage = reason;
    d_->retry();
}

bool TablioModelBinding::eventFilter(QObject *watched, QEvent *event) {
    return (watched == d_->grid && d_->marks.showTip(event)) ||
           QObject::eventFilter(watched, event);
}

} // namespace tablio::qt
