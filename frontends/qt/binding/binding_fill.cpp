/// How a binding fills its grid from the model, and follows what others change there.

#include "binding/tablio_model_binding_p.h"

#include "widget/qt_text.h"

#include <tablio/cells.h>
#include <tablio/errors.h>
#include <tablio/qt/tablio_widget.h>

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace tablio::qt {

namespace {

constexpr int mostRows = 32768;

/// Many cells at once are painted once.
class PaintingOff {
public:
    explicit PaintingOff(TablioWidget &grid) : grid_(grid), was_(grid.statusCell()) {
        grid_.setStatusCell(false);
    }
    ~PaintingOff() { grid_.setStatusCell(was_); }
    PaintingOff(const PaintingOff &) = delete;
    PaintingOff &operator=(const PaintingOff &) = delete;

private:
    TablioWidget &grid_;
    bool was_;
};

} // namespace

int TablioModelBindingPrivate::fetched(int wanted) const {
    while (model.rowCount() < wanted && model.canFetchMore({}))
        model.fetchMore({});
    return model.rowCount();
}

/// In place: the cursor and an open edit stay where they are.
void TablioModelBindingPrivate::load() {
    if (isWriting_) { // The writer has read the model anew.
        needsLoad_ = true;
        return;
    }
    keepUnsaved();
    {
        const QScopedValueRollback<int> quiet(quiet_, quiet_ + 1);
        const QScopedValueRollback<bool> loading(isLoading_, true);
        const PaintingOff paintingOff(*grid);
        for (ColumnLink &link : links)
            link.readList();
        const int first = positionColumn ? 0 : page * pageSize;
        const int wanted = positionColumn ? mostRows : first + pageSize;
        const int end = std::min(fetched(wanted), wanted);
        rows.assign(rows.size(), {});
        std::size_t next = 0;
        for (int source = first; source < end; ++source) {
            if (!writer->hasRow(source))
                continue;
            const QString key = keyOf(source);
            const auto gone =
                std::find_if(removed.begin(), removed.end(),
                             [&key](const RemovedRow &each) { return each.key == key; });
            if (gone != removed.end()) {
                gone->source = model.index(source, 0);
                continue;
            }
            std::size_t at = next;
            if (positionColumn) {
                const int number = model.index(source, *positionColumn).data(Qt::EditRole).toInt();
                const auto kept = kept_.find(key);
                at = kept != kept_.end() ? kept->at : static_cast<std::size_t>(number - 1);
                if (number < 1 || gridRow(at) >= mostRows)
                    continue;
            }
            place(at, source);
            next = at + 1;
        }
        setRowCount(static_cast<int>(firstFree()) + spareRows);
        for (std::size_t at = 0; at < rows.size(); ++at)
            showRow(at);
        hasKept_ = false;
        for (std::size_t at = 0; at < rows.size(); ++at) {
            if (rows[at].source.isValid() && kept_.contains(keyOf(rows[at].source.row())))
                restore(kept_.take(keyOf(rows[at].source.row())));
        }
        for (const KeptRow &kept : std::exchange(kept_, {}))
            restore(kept);
        for (const KeptRow &kept : std::exchange(keptNew_, {}))
            restore(kept);
    }
    schedule();
    Q_EMIT q.changed();
}

void TablioModelBindingPrivate::place(std::size_t at, int modelRow) {
    if (at >= rows.size())
        setRowCount(static_cast<int>(at) + 1 + spareRows);
    if (at >= rows.size())
        return;
    rows[at].source = model.index(modelRow, 0);
    rows[at].wasStored = true;
}

/// At least so many; rows that are there stay.
void TablioModelBindingPrivate::setRowCount(int dataRows) {
    const int count = std::min(grid->fixedRows() + dataRows, mostRows);
    if (count <= grid->rows())
        return;
    grid->setRows(count);
    // Giving a column this style numbers its rows.
    for (int col = 0; col < grid->cols(); ++col) {
        if (grid->colStyle(col) == TablioWidget::ColumnFixedWithAutoNumber)
            grid->setColStyle(col, TablioWidget::ColumnFixedWithAutoNumber);
    }
}

void TablioModelBindingPrivate::showRow(std::size_t at, const std::set<std::size_t> &except) {
    {
        const QScopedValueRollback<int> quiet(quiet_, quiet_ + 1);
        for (std::size_t link = 0; link < links.size(); ++link) {
            if (except.contains(link))
                continue;
            const bool isThere = rows[at].source.isValid();
            const QVariant held =
                isThere ? links[link].held(model, rows[at].source.row()) : QVariant();
            showValue(*grid, gridRow(at), links[link].gridColumn(), links[link].shown(held));
        }
    }
    Q_EMIT q.rowShown(gridRow(at));
}

/// Before the model forgets which row was which.
void TablioModelBindingPrivate::keepUnsaved() {
    if (std::exchange(hasKept_, true))
        return;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (!rows[at].isUnsaved())
            continue;
        KeptRow kept{at, rows[at], {}};
        for (const ColumnLink &link : links)
            kept.cells.push_back(cell(at, link));
        if (rows[at].wasStored)
            kept_.insert(rows[at].key, kept);
        else
            keptNew_.push_back(kept);
    }
}

/// Into the row that the model still has, or, where it has gone, into one of its own.
void TablioModelBindingPrivate::restore(KeptRow kept) {
    std::size_t at = 0;
    while (at < rows.size() && !(kept.row.wasStored && rows[at].source.isValid() &&
                                 keyOf(rows[at].source.row()) == kept.row.key))
        ++at;
    const bool isFound = at < rows.size();
    if (!isFound) {
        at = kept.at;
        if (at >= rows.size() || rows[at].isUnsaved() || rows[at].source.isValid())
            at = firstFree();
        if (at >= rows.size())
            setRowCount(static_cast<int>(at) + 1 + spareRows);
        if (kept.row.wasStored)
            kept.row.trouble = {TablioWriteTrouble::Conflict,
                                TablioModelBinding::tr("another program has removed it; what is "
                                                       "entered here again is taken")};
        for (std::size_t link = 0; link < links.size(); ++link)
            kept.row.changed.insert(link);
        kept.row.isMoved = false;
        kept.row.key.clear();
    }
    kept.row.source = rows[at].source;
    kept.row.wasStored = isFound;
    kept.row.base.clear();
    rows[at] = kept.row;
    remember(rows[at]);
    for (const std::size_t link : kept.row.changed)
        showValue(*grid, gridRow(at), links[link].gridColumn(), kept.cells[link]);
    Q_EMIT q.rowShown(gridRow(at));
}

/// What the model holds of a row that is about to be another.
void TablioModelBindingPrivate::remember(BoundRow &row) const {
    if (!row.source.isValid() || !row.base.empty())
        return;
    row.key = keyOf(row.source.row());
    for (const ColumnLink &each : links)
        row.base.push_back(each.held(model, row.source.row()));
}

QString TablioModelBindingPrivate::keyOf(int modelRow) const {
    QString key;
    for (const int column : keyColumns)
        key += model.index(modelRow, column).data(Qt::EditRole).toString() + QChar(0);
    return keyColumns.isEmpty() ? QString::number(modelRow) : key;
}

/// The first row behind all that hold something.
std::size_t TablioModelBindingPrivate::firstFree() const {
    std::size_t free = rows.size();
    while (free > 0 && !rows[free - 1].source.isValid() && !rows[free - 1].isUnsaved())
        --free;
    return free;
}

void TablioModelBindingPrivate::keepSpareRows() {
    dropWhatIsTheSame();
    const std::size_t used = firstFree();
    const auto wanted = static_cast<std::size_t>(spareRows);
    if (rows.size() - used > wanted / 2 || wanted == 0 || grid->rows() >= mostRows)
        return;
    const QScopedValueRollback<int> quiet(quiet_, quiet_ + 1);
    setRowCount(static_cast<int>(used + wanted));
}

/// The control has one list of choices, which is filled for the column that is entered.
void TablioModelBindingPrivate::fillChoices(int gridColumn) {
    if (grid->colEditType(gridColumn) != TablioWidget::ColumnCombo)
        return;
    for (const ColumnLink &link : links) {
        if (link.gridColumn() != gridColumn || !link.hasList())
            continue;
        grid->comboClear();
        for (const QString &text : link.texts())
            grid->comboAddItem(text);
    }
}

// ---- what others change in the model ------------------------------------------------------------

void TablioModelBindingPrivate::modelChanged(const QModelIndex &from, const QModelIndex &to) {
    if (isLoading_ || (isWriting_ && !refreshed_) || from.parent().isValid())
        return;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        BoundRow &row = rows[at];
        if (!row.source.isValid() || row.source.row() < from.row() || row.source.row() > to.row() ||
            (refreshed_ && *refreshed_ != at) || !writer->hasRow(row.source.row()))
            continue;
        QStringList lost;
        for (const std::size_t link : row.changed) {
            const QVariant now = links[link].held(model, row.source.row());
            if (now == row.base[link])
                continue;
            const QString value = toQString(links[link].shown(now).toText());
            lost += TablioModelBinding::tr("%1 “%2”").arg(
                grid->colTextHeader(links[link].gridColumn()), value);
            row.base[link] = now;
        }
        if (!lost.isEmpty()) {
            row.trouble = {TablioWriteTrouble::Conflict,
                           TablioModelBinding::tr("another program has entered %1; what is entered "
                                                  "here again is taken")
                               .arg(lost.join(QStringLiteral(", ")))};
            row.isTried = true;
        }
        showRow(at, row.changed);
    }
    schedule();
}

void TablioModelBindingPrivate::modelRowsCame(int first, int last) {
    if (isLoading_ || isWriting_)
        return;
    const QScopedValueRollback<int> quiet(quiet_, quiet_ + 1);
    for (int source = first; source <= last; ++source) {
        std::size_t at = firstFree();
        if (positionColumn)
            at = static_cast<std::size_t>(
                std::max(model.index(source, *positionColumn).data(Qt::EditRole).toInt() - 1, 0));
        if (static_cast<int>(at) >= (positionColumn ? mostRows - 1 : pageSize))
            return; // On a later page.
        if (at < rows.size() && (rows[at].source.isValid() || rows[at].isUnsaved()))
            continue; // Said when this one is written.
        place(at, source);
        showRow(at);
    }
    Q_EMIT q.changed();
}

void TablioModelBindingPrivate::modelRowsWent() {
    if (isLoading_ || isWriting_)
        return;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        BoundRow &row = rows[at];
        if (!row.wasStored || row.source.isValid())
            continue;
        row.wasStored = false;
        row.base.clear();
        if (!row.isUnsaved()) {
            row = {};
            showRow(at);
            continue;
        }
        for (std::size_t link = 0; link < links.size(); ++link)
            row.changed.insert(link);
        row.isMoved = false;
        row.isTried = true;
        row.trouble = {TablioWriteTrouble::Conflict,
                       TablioModelBinding::tr("another program has removed it; what is entered "
                                              "here again is taken")};
    }
    schedule();
    Q_EMIT q.changed();
}

} // namespace tablio::qt
