#include "binding/row_marks.h"

#include <tablio/qt/tablio_widget.h>

#include <QHelpEvent>
#include <QToolTip>

#include <utility>

namespace tablio::qt {

namespace {

constexpr Colour red{0x2020D0};
constexpr int twipsPerPixel = 15;

} // namespace

void RowMarks::show(const QHash<int, QString> &reasons) {
    const QHash<int, QString> before = std::exchange(reasons_, reasons);
    for (auto mark = before.keyBegin(); mark != before.keyEnd(); ++mark) {
        if (!reasons_.contains(*mark))
            paint(*mark, false);
    }
    for (auto mark = reasons_.keyBegin(); mark != reasons_.keyEnd(); ++mark) {
        if (!before.contains(*mark))
            paint(*mark, true);
    }
}

void RowMarks::rowsMoved(int first, int count) {
    QHash<int, QString> moved;
    for (auto mark = reasons_.cbegin(); mark != reasons_.cend(); ++mark) {
        if (mark.key() < first)
            moved.insert(mark.key(), mark.value());
        else if (mark.key() + count >= first)
            moved.insert(mark.key() + count, mark.value());
    }
    reasons_ = moved;
}

bool RowMarks::showTip(QEvent *event) const {
    if (event->type() != QEvent::ToolTip || reasons_.isEmpty())
        return false;
    const auto *help = static_cast<QHelpEvent *>(event);
    const auto *canvas = grid_.findChild<QWidget *>(QStringLiteral("qt_grid"));
    const QPoint at = canvas->mapFrom(&grid_, help->pos()) * twipsPerPixel;
    const auto cell = grid_.core().screen().cellAt(at.x(), at.y());
    if (!cell || !reasons_.contains(cell->row))
        return false;
    QToolTip::showText(help->globalPos(), reasons_.value(cell->row), &grid_);
    return true;
}

void RowMarks::paint(int row, bool isMarked) {
    if (row >= grid_.rows() || grid_.cols() == 0)
        return;
    tablio::Tablio &core = grid_.core();
    const int col = column();
    const bool isFixed = col < grid_.fixedCols();
    core.setCellForeColor(row, col,
                          isMarked  ? red
                          : isFixed ? core.ForeColorFixed()
                                    : core.ForeColorData());
}

int RowMarks::column() const { return grid_.fixedCols() > 0 ? 0 : grid_.primaryColumn(); }

} // namespace tablio::qt
