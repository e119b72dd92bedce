/// How a binding writes rows: what is due, in which order, in one transaction or one by one, and
/// what becomes of what was not taken.

#include "binding/tablio_model_binding_p.h"

#include "widget/qt_text.h"

#include <tablio/errors.h>
#include <tablio/qt/tablio_widget.h>

#include <QHash>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace tablio::qt {

bool TablioModelBindingPrivate::write(bool everything) {
    if (isWriting_ || grid == nullptr)
        return false;
    {
        const QScopedValueRollback<bool> guard(isWriting_, true);
        dropWhatIsTheSame();
        if (everything)
            isUnavailable_ = false;
        carryOut(planned(everything));
        // Where something gets in again, what the table has refused may, too.
        for (std::size_t at = 0; !everything && !saved_.empty() && at < rows.size(); ++at) {
            const BoundRow &row = rows[at];
            if (needsLoad_ || isUnavailable_ || !row.isUnsaved() || row.waitsForCheck ||
                row.trouble.kind != TablioWriteTrouble::Refused)
                continue;
            if (const auto work = planned(at))
                carryOut({*work});
        }
        if (!needsLoad_)
            removed.erase(
                std::remove_if(removed.begin(), removed.end(),
                               [](const RemovedRow &row) { return !row.source.isValid(); }),
                removed.end());
    }
    if (std::exchange(needsLoad_, false))
        load();
    if (isUnavailable_ && !retry_.isActive())
        retry_.start();
    else if (!isUnavailable_)
        retry_.stop();
    showTroubles();
    for (const QPersistentModelIndex &source : std::exchange(saved_, {})) {
        for (std::size_t at = 0; source.isValid() && at < rows.size(); ++at) {
            if (rows[at].source == source)
                Q_EMIT q.rowSaved(gridRow(at));
        }
    }
    Q_EMIT q.changed();
    return true;
}

void TablioModelBindingPrivate::retry() {
    isUnavailable_ = false;
    write(false);
}

// ---- what is due --------------------------------------------------------------------------------

std::vector<RowWork> TablioModelBindingPrivate::planned(bool everything) {
    std::vector<RowWork> works;
    for (std::size_t at = 0; at < removed.size(); ++at) {
        if (everything || removed[at].trouble.kind != TablioWriteTrouble::Refused)
            works.push_back({RowWork::RemoveLeft, at});
    }
    const auto current = indexOf(grid->currentRow());
    for (std::size_t at = 0; at < rows.size(); ++at) {
        BoundRow &row = rows[at];
        if (!row.isUnsaved())
            continue;
        const bool isLeft = writing == TablioModelBinding::AtOnce || !hasKeyboard_ || current != at;
        const bool isNew = !row.isTried || row.waitsForCheck;
        const bool isWaiting = row.trouble.kind == TablioWriteTrouble::Unavailable;
        if (!everything && !(isNew && isLeft) && !isWaiting && !row.isMoved)
            continue;
        if (const auto work = planned(at))
            works.push_back(*work);
    }
    if (positionColumn)
        sortByPosition(works);
    return works;
}

std::optional<RowWork> TablioModelBindingPrivate::planned(std::size_t at) {
    BoundRow &row = rows[at];
    const bool isStored = row.source.isValid();
    row.waitsForCheck = false;
    if (isBlank(at))
        return isStored ? std::optional(RowWork{RowWork::Remove, at}) : std::nullopt;
    const QString reason = row.changed.empty() ? QString() : objection(at);
    if (reason.isEmpty() && row.changed.empty())
        return RowWork{RowWork::MoveOnly, at};
    if (reason.isEmpty())
        return RowWork{isStored ? RowWork::Update : RowWork::Insert, at};
    row.trouble = {TablioWriteTrouble::Refused, reason};
    row.isTried = true;
    row.waitsForCheck = true;
    if (isStored && incompleteLeaves && grid->isEmpty(gridRow(at), grid->primaryColumn()))
        return RowWork{RowWork::Remove, at};
    return row.isMoved ? std::optional(RowWork{RowWork::MoveOnly, at}) : std::nullopt;
}

/// Why a row cannot be written before anybody is asked.
QString TablioModelBindingPrivate::objection(std::size_t at) const {
    for (const ColumnLink &link : links) {
        const CellValue value = cell(at, link);
        if (link.gridColumn() == grid->primaryColumn() && value.isEmpty())
            return TablioModelBinding::tr("%1 is missing")
                .arg(grid->colTextHeader(link.gridColumn()));
        try {
            static_cast<void>(link.toWrite(value));
        } catch (const Error &error) {
            return QString::fromUtf8(error.what());
        }
    }
    return check ? check(gridRow(at)) : QString();
}

/// No row may be given a number that another one still has. Rows that change their places in a ring
/// are left in their order: one of them is refused then, and said.
void TablioModelBindingPrivate::sortByPosition(std::vector<RowWork> &works) const {
    const auto isMove = [this](const RowWork &work) {
        return (work.what == RowWork::Update || work.what == RowWork::MoveOnly) &&
               rows[work.at].isMoved;
    };
    const auto held = [this](const RowWork &work) {
        return model.index(rows[work.at].source.row(), *positionColumn).data(Qt::EditRole).toInt();
    };
    std::stable_sort(works.begin(), works.end(), [&](const RowWork &one, const RowWork &other) {
        const auto rank = [&](const RowWork &work) {
            if (work.what == RowWork::RemoveLeft || work.what == RowWork::Remove)
                return 0;
            return isMove(work) ? 1 : 2;
        };
        return rank(one) < rank(other);
    });
    const auto first = std::find_if(works.begin(), works.end(), isMove);
    const auto last = std::find_if(first, works.end(), std::not_fn(isMove));
    // Rows that go up are written from the top, rows that go down from the bottom.
    const auto goesDown = [&](const RowWork &work) {
        return held(work) < static_cast<int>(work.at) + 1;
    };
    const auto down = std::stable_partition(first, last, std::not_fn(goesDown));
    std::reverse(down, last);
}

// ---- writing ------------------------------------------------------------------------------------

void TablioModelBindingPrivate::carryOut(const std::vector<RowWork> &works) {
    const RowWork *failed = nullptr;
    const bool isOne = works.size() == 1;
    if (works.empty())
        return;
    if (!isUnavailable_ && (isOne || writer->isAtomic()) && (perform(works, failed) || isOne))
        return;
    // Where one row is refused the others are written without it.
    for (const RowWork &work : works) {
        const RowWork *alone = nullptr;
        if (needsLoad_)
            return; // The rest is due again when the model's rows are known again.
        if (isUnavailable_)
            note(work, trouble_);
        else if (&work != failed)
            static_cast<void>(perform({work}, alone));
    }
}

/// Answers whether all are written. Of the one that was refused, if it was one, the row knows why.
bool TablioModelBindingPrivate::perform(const std::vector<RowWork> &works, const RowWork *&failed) {
    trouble_ = {};
    std::vector<QPersistentModelIndex> written;
    const bool isBegun = writer->begin();
    bool isDone = isBegun;
    for (auto work = works.begin(); isDone && work != works.end(); ++work) {
        isDone = writeOne(*work, written);
        failed = isDone ? nullptr : &*work;
    }
    isDone = isDone && writer->commit();
    if (isDone) {
        for (const RowWork &work : works)
            finish(work);
        return true;
    }
    if (trouble_.kind == TablioWriteTrouble::None)
        trouble_ = writer->trouble();
    isUnavailable_ = trouble_.kind == TablioWriteTrouble::Unavailable;
    if (failed == nullptr && works.size() == 1)
        failed = &works.front();
    for (const RowWork &work : works) {
        if (isUnavailable_ || &work == failed)
            note(work, trouble_);
        if (work.what == RowWork::Insert)
            rows[work.at].source = QModelIndex();
    }
    // Which may read the model anew.
    if (isBegun && writer->isAtomic())
        writer->rollback(written);
    return false;
}

bool TablioModelBindingPrivate::writeOne(const RowWork &work,
                                         std::vector<QPersistentModelIndex> &written) {
    switch (work.what) {
    case RowWork::RemoveLeft:
        return remove(removed[work.at].source);
    case RowWork::Remove:
        return remove(rows[work.at].source);
    case RowWork::Insert:
        return insert(work.at, written);
    default:
        if (!update(work.at, work.what == RowWork::Update))
            return false;
        written.push_back(rows[work.at].source);
        return true;
    }
}

bool TablioModelBindingPrivate::update(std::size_t at, bool contents) {
    BoundRow &row = rows[at];
    if (!contents) {
        const int modelRow = row.source.row();
        if (setPosition(at, modelRow) && writer->submit(modelRow))
            return true;
        writer->revert(modelRow, false);
        return false;
    }
    row.trouble = {};
    {
        const QScopedValueRollback<std::optional<std::size_t>> refreshed(refreshed_, at);
        if (!writer->refresh(row.source.row())) {
            if (writer->trouble().kind != TablioWriteTrouble::Conflict)
                return false;
            // It is a new row from now on.
            row.source = QModelIndex();
            row.wasStored = false;
            row.base.clear();
            row.isMoved = false;
            for (std::size_t link = 0; link < links.size(); ++link)
                row.changed.insert(link);
            trouble_ = writer->trouble();
            return false;
        }
    }
    if (row.trouble.kind == TablioWriteTrouble::Conflict) {
        trouble_ = row.trouble;
        return false;
    }
    const int modelRow = row.source.row();
    if (setCells(row, at, modelRow, false) && (!row.isMoved || setPosition(at, modelRow)) &&
        writer->submit(modelRow))
        return true;
    writer->revert(modelRow, false);
    return false;
}

bool TablioModelBindingPrivate::insert(std::size_t at,
                                       std::vector<QPersistentModelIndex> &written) {
    const int modelRow = writer->insert();
    if (modelRow < 0)
        return false;
    BoundRow &row = rows[at];
    bool isSet = true;
    // A row that was removed and has come back is the same one, with its key and what else it had.
    QString content;
    for (const ColumnLink &link : links)
        content += toQString(cell(at, link).toText()) + QChar(0);
    const QVariantList record = buried_.take(content);
    for (int column = 0; column < record.size(); ++column) {
        if (!record[column].isNull() && !isBound(column))
            model.setData(model.index(modelRow, column), record[column]);
    }
    for (const auto &[column, value] : newRowValues)
        isSet = isSet && model.setData(model.index(modelRow, column), value);
    isSet = isSet && setCells(row, at, modelRow, true) &&
            (!positionColumn || setPosition(at, modelRow));
    if (isSet && writer->submit(modelRow)) {
        row.source = model.index(modelRow, 0);
        written.push_back(row.source);
        return true;
    }
    writer->revert(modelRow, true);
    return false;
}

bool TablioModelBindingPrivate::remove(const QPersistentModelIndex &source) {
    if (!source.isValid())
        return true;
    QString content;
    for (const ColumnLink &link : links)
        content += toQString(link.shown(link.held(model, source.row())).toText()) + QChar(0);
    QVariantList record;
    for (int column = 0; column < model.columnCount(); ++column)
        record += model.index(source.row(), column).data(Qt::EditRole);
    if (!writer->remove(source.row()))
        return false;
    buried_.insert(content, record);
    return true;
}

bool TablioModelBindingPrivate::setCells(BoundRow &row, std::size_t at, int modelRow, bool all) {
    for (std::size_t place = 0; place < links.size(); ++place) {
        const ColumnLink &link = links[place];
        const QVariant value = link.toWrite(cell(at, link));
        if (all ? value.isNull() : !row.changed.contains(place))
            continue;
        if (model.setData(model.index(modelRow, link.modelColumn()), value))
            continue;
        trouble_ = {TablioWriteTrouble::Refused, TablioModelBinding::tr("%1 does not take “%2”")
                                                     .arg(grid->colTextHeader(link.gridColumn()),
                                                          toQString(cell(at, link).toText()))};
        return false;
    }
    return true;
}

bool TablioModelBindingPrivate::setPosition(std::size_t at, int modelRow) {
    if (model.setData(model.index(modelRow, *positionColumn), static_cast<int>(at) + 1))
        return true;
    trouble_ = {TablioWriteTrouble::Refused, TablioModelBinding::tr("its number is not taken")};
    return false;
}

void TablioModelBindingPrivate::finish(const RowWork &work) {
    if (work.what == RowWork::RemoveLeft) {
        removed[work.at].source = QModelIndex();
        return;
    }
    BoundRow &row = rows[work.at];
    row.isMoved = false;
    if (work.what == RowWork::MoveOnly)
        return;
    if (work.what == RowWork::Remove) {
        // One that is incomplete goes on as a new row.
        const bool isOver = isBlank(work.at);
        row.source = QModelIndex();
        row.wasStored = false;
        row.base.clear();
        row.changed.clear();
        for (std::size_t link = 0; !isOver && link < links.size(); ++link)
            row.changed.insert(link);
        if (isOver)
            row = {};
        return;
    }
    row.changed.clear();
    row.base.clear();
    row.trouble = {};
    row.isTried = false;
    row.wasStored = true;
    saved_.push_back(row.source);
    showRow(work.at);
}

void TablioModelBindingPrivate::note(const RowWork &work, const TablioWriteTrouble &trouble) {
    if (work.what == RowWork::RemoveLeft) {
        removed[work.at].trouble = trouble;
        return;
    }
    rows[work.at].trouble = trouble;
    rows[work.at].isTried = true;
}

bool TablioModelBindingPrivate::isBound(int modelColumn) const {
    return std::any_of(links.begin(), links.end(), [modelColumn](const ColumnLink &link) {
        return link.modelColumn() == modelColumn;
    });
}

// ---- what is said -------------------------------------------------------------------------------

void TablioModelBindingPrivate::showTroubles() {
    QHash<int, QString> reasons;
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (rows[at].isUnsaved() && rows[at].trouble.kind != TablioWriteTrouble::None)
            reasons.insert(gridRow(at), rows[at].trouble.reason);
    }
    marks.show(reasons);
}

QString TablioModelBindingPrivate::problem() const {
    constexpr int mostNamed = 10;
    QStringList reasons;
    QHash<QString, QStringList> places;
    const auto add = [&](const TablioWriteTrouble &trouble, const QString &place) {
        if (trouble.kind == TablioWriteTrouble::None)
            return;
        QStringList &said = places[trouble.reason];
        if (said.isEmpty())
            reasons += trouble.reason;
        if (said.size() < mostNamed)
            said += place;
        else if (said.size() == mostNamed)
            said += QStringLiteral("…");
    };
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (rows[at].isUnsaved())
            add(rows[at].trouble, QString::number(gridRow(at)));
    }
    for (const RemovedRow &row : removed)
        add(row.trouble, TablioModelBinding::tr("removed"));
    QStringList parts;
    for (const QString &reason : reasons)
        parts += TablioModelBinding::tr("row %1 (%2)")
                     .arg(places[reason].join(QStringLiteral(", ")), reason);
    if (parts.isEmpty())
        return outage.isEmpty() ? QString()
                                : TablioModelBinding::tr("Nothing can be saved: %1.").arg(outage);
    return TablioModelBinding::tr("Not saved: %1.").arg(parts.join(QStringLiteral("; ")));
}

} // namespace tablio::qt
