/// How a binding keeps in step with its grid: which rows there are, and what has changed in them.

#include "binding/tablio_model_binding_p.h"

#include "widget/guarded.h"

#include <tablio/cells.h>
#include <tablio/qt/tablio_widget.h>

#include <QApplication>

#include <algorithm>

namespace tablio::qt {

namespace {

constexpr int usualRetryInterval = 1000;

} // namespace

TablioModelBindingPrivate::TablioModelBindingPrivate(TablioModelBinding &binding,
                                                     TablioWidget &widget,
                                                     QAbstractItemModel &itemModel,
                                                     std::unique_ptr<TablioModelWriter> rowWriter)
    : q(binding), grid(&widget), model(itemModel), writer(std::move(rowWriter)), marks(widget),
      watch_(widget.core(), *this) {
    rows.resize(static_cast<std::size_t>(std::max(widget.rows() - widget.fixedRows(), 0)));
    retry_.setInterval(usualRetryInterval);
    QObject::connect(&retry_, &QTimer::timeout, &binding, [this] { guarded([this] { retry(); }); });
    focusMoved(QApplication::focusWidget());
}

int TablioModelBindingPrivate::gridRow(std::size_t at) const {
    return static_cast<int>(at) + grid->fixedRows();
}

std::optional<std::size_t> TablioModelBindingPrivate::indexOf(int row) const {
    const int at = row - grid->fixedRows();
    if (at < 0 || static_cast<std::size_t>(at) >= rows.size())
        return std::nullopt;
    return static_cast<std::size_t>(at);
}

CellValue TablioModelBindingPrivate::cell(std::size_t at, const ColumnLink &link) const {
    return tablio::Cells(grid->core()).value(gridRow(at), link.gridColumn());
}

bool TablioModelBindingPrivate::isBlank(std::size_t at) const {
    return std::all_of(links.begin(), links.end(), [&](const ColumnLink &link) {
        const CellValue value = cell(at, link);
        return value.isEmpty() || value == CellValue(false);
    });
}

// ---- what the grid tells while it happens: remembered here, acted on in settle() ----------------

void TablioModelBindingPrivate::rowsCame(int first, int count) {
    const auto at = static_cast<std::size_t>(std::max(first - grid->fixedRows(), 0));
    rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(std::min(at, rows.size())),
                static_cast<std::size_t>(count), BoundRow());
    marks.rowsMoved(first, count);
    rowsMoved(at);
}

void TablioModelBindingPrivate::rowsGoing(int first, int count) {
    const auto at = static_cast<std::size_t>(std::max(first - grid->fixedRows(), 0));
    const std::size_t end = std::min(at + static_cast<std::size_t>(count), rows.size());
    for (std::size_t each = at; each < end && quiet_ == 0; ++each) {
        if (rows[each].source.isValid())
            removed.push_back({rows[each].source, keyNow(rows[each]), {}});
    }
}

void TablioModelBindingPrivate::rowsWent(int first, int count) {
    const auto at = static_cast<std::size_t>(std::max(first - grid->fixedRows(), 0));
    const std::size_t end = std::min(at + static_cast<std::size_t>(count), rows.size());
    if (at < end)
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(at),
                   rows.begin() + static_cast<std::ptrdiff_t>(end));
    marks.rowsMoved(first, -count);
    rowsMoved(at);
}

void TablioModelBindingPrivate::cellsChanged(const CellBlock &cells) {
    if (quiet_ > 0)
        return;
    for (std::size_t link = 0; link < links.size(); ++link) {
        if (links[link].gridColumn() < cells.firstCol || links[link].gridColumn() > cells.lastCol)
            continue;
        for (int row = cells.firstRow; row <= cells.lastRow; ++row) {
            if (const auto at = indexOf(row))
                markChanged(*at, link);
        }
    }
}

/// Anything may be another, so each cell is compared with what the model has.
void TablioModelBindingPrivate::tableChanged() {
    const auto count = static_cast<std::size_t>(std::max(grid->rows() - grid->fixedRows(), 0));
    for (std::size_t at = count; at < rows.size() && quiet_ == 0; ++at) {
        if (rows[at].source.isValid())
            removed.push_back({rows[at].source, keyNow(rows[at]), {}});
    }
    rows.resize(count);
    marks.forget();
    if (quiet_ > 0)
        return;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        for (std::size_t link = 0; link < links.size(); ++link)
            markChanged(at, link);
    }
}

void TablioModelBindingPrivate::markChanged(std::size_t at, std::size_t link) {
    BoundRow &row = rows[at];
    remember(row);
    row.changed.insert(link);
    row.isTried = false;
    schedule();
}

void TablioModelBindingPrivate::rowsMoved(std::size_t first) {
    for (std::size_t at = first; positionColumn && at < rows.size(); ++at) {
        remember(rows[at]);
        rows[at].isMoved = rows[at].source.isValid();
    }
    schedule();
}

QString TablioModelBindingPrivate::keyNow(const BoundRow &row) const {
    return row.isUnsaved() ? row.key : keyOf(row.source.row());
}

void TablioModelBindingPrivate::focusMoved(QWidget *now) {
    if (now == nullptr || grid == nullptr)
        return;
    hasKeyboard_ = now == grid || grid->isAncestorOf(now);
    schedule();
}

void TablioModelBindingPrivate::schedule() {
    if (isScheduled_)
        return;
    isScheduled_ = true;
    QMetaObject::invokeMethod(
        &q, [this] { guarded([this] { settle(); }); }, Qt::QueuedConnection);
}

void TablioModelBindingPrivate::settle() {
    isScheduled_ = false;
    if (grid == nullptr)
        return;
    write(false);
    // More rows would end an open edit; an operator who never stops typing changes rows some time.
    if (!grid->isEditing())
        keepSpareRows();
}

/// What was changed and changed back, or written as it was, is not to be saved.
void TablioModelBindingPrivate::dropWhatIsTheSame() {
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (rows[at].isUnsaved())
            dropWhatIsTheSame(rows[at], at);
    }
}

void TablioModelBindingPrivate::dropWhatIsTheSame(BoundRow &row, std::size_t at) {
    for (auto link = row.changed.begin(); link != row.changed.end();) {
        const ColumnLink &column = links[*link];
        const CellValue now = cell(at, column);
        const bool isSame = row.source.isValid() ? now == column.shown(row.base[*link])
                                                 : now.isEmpty() || now == CellValue(false);
        link = isSame ? row.changed.erase(link) : std::next(link);
    }
    if (row.isMoved)
        row.isMoved = row.source.isValid() &&
                      model.index(row.source.row(), *positionColumn).data(Qt::EditRole).toInt() !=
                          static_cast<int>(at) + 1;
    if (row.isUnsaved())
        return;
    row.base.clear();
    row.trouble = {};
}

} // namespace tablio::qt
