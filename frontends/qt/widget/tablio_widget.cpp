#include <tablio/qt/tablio_widget.h>

#include "accessible/accessible_grid.h"
#include "editors/native_text_box.h"
#include "widget/guarded.h"
#include "widget/qt_text.h"
#include "widget/tablio_widget_p.h"

#include <QEvent>
#include <QHideEvent>
#include <QMetaMethod>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>
#include <array>

namespace tablio::qt {

namespace {

/// A table that is larger than this is better scrolled than laid out whole, in pixels.
constexpr QSize largestHint{800, 480};
constexpr QSize smallestHint{240, 120};
constexpr int rowsToShow = 3;
/// Of a column and of a row without a size of their own.
constexpr Twips usualColWidth = 960;
constexpr Twips usualRowHeight = 300;

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
    // The control shows its own menu when the button is released.
    if (d_ != nullptr && event->type() == QEvent::ContextMenu && gridPopUpMenu())
        return true;
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
    case QEvent::LayoutDirectionChange:
        guarded([&] { d_->followDirection(); });
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
    painter.fillRect(outline, gridColorFixed());
}

void TablioWidget::resizeEvent(QResizeEvent * /*event*/) { d_->arrange(); }

void TablioWidget::showEvent(QShowEvent * /*event*/) {
    d_->arrange();
    guarded([&] { d_->input().appeared(); });
}

/// Who hides a form looks at what was entered next. A window that is minimised is only out of
/// sight.
void TablioWidget::hideEvent(QHideEvent *event) {
    if (event->spontaneous())
        return;
    guarded([&] {
        if (d_->input().hasKeyboard())
            d_->input().focusLeft();
        else
            d_->input().endEdit();
    });
}

QSize TablioWidget::sizeHint() const {
    const Rect table = d_->screen().wholeTable();
    const QSize whole = QSize(table.width / twipsPerPixel + d_->vertical->sizeHint().width(),
                              table.height / twipsPerPixel + 1)
                            .grownBy(contentsMargins());
    return whole.boundedTo(largestHint).expandedTo(smallestHint);
}

QSize TablioWidget::minimumSizeHint() const {
    const Twips row = rows() > 0 ? headerRowHeight() : usualRowHeight;
    return {usualColWidth / twipsPerPixel + d_->vertical->sizeHint().width(),
            std::max(rowsToShow * row / twipsPerPixel, d_->vertical->minimumSizeHint().height())};
}

void TablioWidget::connectNotify(const QMetaMethod &signal) {
    QWidget::connectNotify(signal);
    // Whoever has listened once is told for ever: when a slot goes, Qt must not be asked about
    // others.
    static const QMetaMethod told = QMetaMethod::fromSignal(&TablioWidget::propertyChanged);
    if (d_ != nullptr && signal == told)
        d_->face.listen();
    static const std::array changes{
        QMetaMethod::fromSignal(&TablioWidget::cellChanged),
        QMetaMethod::fromSignal(&TablioWidget::rowsInserted),
        QMetaMethod::fromSignal(&TablioWidget::rowsRemoved),
        QMetaMethod::fromSignal(&TablioWidget::tableCleared),
        QMetaMethod::fromSignal(&TablioWidget::tableReset),
    };
    if (d_ != nullptr && std::find(changes.begin(), changes.end(), signal) != changes.end())
        d_->core.setNotices(&d_->changes);
}

bool TablioWidget::hostKeyPreview() const { return d_->face.hostKeyPreview(); }

} // namespace tablio::qt
