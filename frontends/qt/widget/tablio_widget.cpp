#include <tablio/qt/tablio_widget.h>

#include "editors/native_text_box.h"
#include "widget/accessible_grid.h"
#include "widget/guarded.h"
#include "widget/qt_text.h"
#include "widget/tablio_widget_p.h"

#include <QEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>

namespace tablio::qt {

namespace {

/// A table that is larger than this is better scrolled than laid out whole, in pixels.
constexpr QSize largestHint{800, 480};
constexpr QSize smallestHint{240, 120};
constexpr int rowsToShow = 3;

} // namespace

TablioWidget::TablioWidget(QWidget *parent) : QWidget(parent) {
    installAccessibleGrids();
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(tr("Data entry grid"));
    setContentsMargins(1, 1, 1, 1);
    d_ = std::make_unique<TablioWidgetPrivate>(*this);
    setFocusProxy(d_->textBox);
    d_->arrange();
}

TablioWidget::~TablioWidget() { setFocusProxy(nullptr); }

tablio::Tablio &TablioWidget::core() noexcept { return d_->core; }

const tablio::Tablio &TablioWidget::core() const noexcept { return d_->core; }

bool TablioWidget::event(QEvent *event) {
    // While the widget is being made or taken apart it has no parts.
    if (d_ != nullptr && event->type() == QEvent::ScreenChangeInternal)
        d_->showAnew();
    if (d_ != nullptr && event->type() == TablioWidgetPrivate::enterEvent()) {
        d_->enter();
        return true;
    }
    return QWidget::event(event);
}

void TablioWidget::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (d_ == nullptr)
        return;
    switch (event->type()) {
    case QEvent::FontChange:
        guarded([&] { d_->fitRowsToFont(); });
        d_->showAnew();
        break;
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::ActivationChange:
        d_->showAnew();
        break;
    case QEvent::LocaleChange:
        d_->face.forgetNumberFormat();
        break;
    case QEvent::EnabledChange:
        guarded([&] { d_->core.setEnabled(isEnabled()); });
        break;
    default:
        break;
    }
}

/// Only what the grid and its scroll bars leave free: a line around them, and a host's style sheet.
void TablioWidget::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
    const QRect outline = contentsRect().adjusted(-1, -1, 1, 1);
    painter.fillRect(outline, d_->colour(d_->state().grid.table.look().GridColorFixed));
}

void TablioWidget::resizeEvent(QResizeEvent * /*event*/) { d_->arrange(); }

void TablioWidget::showEvent(QShowEvent * /*event*/) {
    d_->arrange();
    guarded([&] { d_->input().appeared(); });
}

QSize TablioWidget::sizeHint() const {
    const GridTable &table = d_->state().grid.table;
    Twips width = 0;
    for (int col = 0; col < table.Cols(); ++col)
        width += table.ColWidth(col);
    Twips height = 0;
    for (int row = 0; row < table.Rows() && height < largestHint.height() * twipsPerPixel; ++row)
        height += table.RowHeight(row);
    const QSize whole =
        QSize(width / twipsPerPixel + d_->vertical->sizeHint().width(), height / twipsPerPixel + 1)
            .grownBy(contentsMargins());
    return whole.boundedTo(largestHint).expandedTo(smallestHint);
}

QSize TablioWidget::minimumSizeHint() const {
    const GridTable &table = d_->state().grid.table;
    const Twips row = table.Rows() > 0 ? table.RowHeight(0) : GridTable::defaultRowHeight;
    return {GridTable::defaultColWidth / twipsPerPixel + d_->vertical->sizeHint().width(),
            std::max(rowsToShow * row / twipsPerPixel, d_->vertical->minimumSizeHint().height())};
}

bool TablioWidget::hostKeyPreview() const { return d_->face.hostKeyPreview(); }

} // namespace tablio::qt
