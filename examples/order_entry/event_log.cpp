#include "event_log.h"

#include <tablio/qt/tablio_widget.h>

#include <QThread>
#include <QTimer>

using tablio::qt::TablioWidget;

namespace {

constexpr int mostShown = 3;

QString quoted(const QString &text) { return QStringLiteral("“%1”").arg(text); }

/// Of the keys that end an edit; others are shown by their codes.
QString keyName(int key) {
    switch (key) {
    case tablio::Key::Back:
        return QStringLiteral("Backspace");
    case tablio::Key::Enter:
        return QStringLiteral("Enter");
    case tablio::Key::Escape:
        return QStringLiteral("Esc");
    default:
        return QStringLiteral("key %1").arg(key);
    }
}

} // namespace

EventLog::EventLog(TablioWidget &grid, QObject *parent) : QObject(parent), grid_(grid) {
    connect(&grid, &TablioWidget::editPreValidation, this, [this](int &row, int &col, bool &) {
        hear(QStringLiteral("EditPreValidation"), {cell(row, col)});
    });
    connect(&grid, &TablioWidget::editOnChange, this, [this](int &row, int &col, QString &text) {
        hear(QStringLiteral("EditOnChange"), {cell(row, col), quoted(text)});
    });
    connect(
        &grid, &TablioWidget::editPostValidation, this,
        [this](int &row, int &col, bool &valid, QString &oldData, QString &newData, int &lastKey) {
            hear(QStringLiteral("EditPostValidation"),
                 {cell(row, col), valid ? tr("valid") : tr("not valid"),
                  tr("%1 to %2").arg(quoted(oldData), quoted(newData)), keyName(lastKey)});
        });
    connect(&grid, &TablioWidget::editLookup, this,
            [this](int &row, int &col) { hear(QStringLiteral("EditLookup"), {cell(row, col)}); });
    connect(&grid, &TablioWidget::cellFocus, this,
            [this](int &row, int &col) { hear(QStringLiteral("CellFocus"), {cell(row, col)}); });
    connect(&grid, &TablioWidget::cellKeyPress, this, [this](int &row, int &col, int &key) {
        hear(QStringLiteral("CellKeyPress"),
             {cell(row, col), key < 32 ? keyName(key) : quoted(QString(QChar(key)))});
    });
    connect(&grid, &TablioWidget::tableChange, this,
            [this] { hear(QStringLiteral("TableChange"), {}); });
    connect(&grid, &TablioWidget::tableKeyDown, this,
            [this](int &key, int &shift, int &row, int &col) {
                hear(QStringLiteral("TableKeyDown"),
                     {keyName(key), tr("shift %1").arg(shift), cell(row, col)});
            });
    connect(&grid, &TablioWidget::tableRowChange, this, [this](int &oldRow, int &newRow) {
        hear(QStringLiteral("TableRowChange"), {tr("row %1 to row %2").arg(oldRow).arg(newRow)});
    });
    connect(&grid, &TablioWidget::doubleClick, this,
            [this](int &row, int &col) { hear(QStringLiteral("DoubleClick"), {cell(row, col)}); });
}

void EventLog::hear(const QString &event, const QStringList &arguments) {
    if (delay_.count() > 0)
        QThread::msleep(static_cast<unsigned long>(delay_.count()));
    if (events_.isEmpty())
        QTimer::singleShot(0, this, [this] {
            emit heard(events_.join(QStringLiteral(", ")));
            events_.clear();
        });
    else if (events_.size() == mostShown)
        events_.removeFirst();
    events_ += QStringLiteral("%1(%2)").arg(event, arguments.join(QStringLiteral(", ")));
}

QString EventLog::cell(int row, int col) const {
    return tr("row %1, %2").arg(row).arg(grid_.colTextHeader(col));
}
