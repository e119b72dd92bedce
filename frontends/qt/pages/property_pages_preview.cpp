#include "pages/property_pages_preview.h"

#include "widget/qt_text.h"

#include <tablio/pixels.h>

#include <QLocale>
#include <QResizeEvent>
#include <QStyle>

#include <algorithm>

namespace tablio::qt {

namespace {

/// In pixels.
constexpr int markHeight = 3;

} // namespace

PropertyPagesPreview::PropertyPagesPreview(const TablioWidget &edited, const PropertyPages &pages,
                                           QWidget *parent)
    : QWidget(parent), pages_(pages), table_(new TablioWidget(this)),
      columnMark_(new QWidget(this)) {
    table_->setFont(edited.font());
    fontRowHeight_ = table_->rowMinHeight();
    table_->setPalette(edited.palette());
    table_->setLocale(edited.locale());
    columnMark_->setAutoFillBackground(true);
    columnMark_->setBackgroundRole(QPalette::Highlight);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    for (QWidget *part : findChildren<QWidget *>())
        part->setFocusPolicy(Qt::NoFocus);
}

void PropertyPagesPreview::refresh(bool editsColumn) {
    pages_.preview(table_->core(), {fromQString(TablioWidget::tr("Sample text")),
                                    fromQString(TablioWidget::tr("Choice"))});
    fitHeight();
    columnMark_->hide();
    if (editsColumn)
        showEditedColumn();
}

void PropertyPagesPreview::fitHeight() {
    const int least = (1 + PropertyPages::sampleRows) * fontRowHeight_ / twipsPerPixel;
    const int rows = std::clamp(table_->core().screen().wholeTable().height / twipsPerPixel, least,
                                QWIDGETSIZE_MAX);
    const QMargins frame = table_->contentsMargins();
    const int rest =
        table_->style()->pixelMetric(QStyle::PM_ScrollBarExtent) + frame.top() + frame.bottom() + 1;
    // All rows fit into the table, so that it needs no bar for them, but very high ones are cut
    // off.
    table_->resize(width(), rows + rest);
    setFixedHeight(std::min(rows, 2 * least) + rest);
}

void PropertyPagesPreview::resizeEvent(QResizeEvent *event) {
    table_->resize(event->size().width(), table_->height());
}

void PropertyPagesPreview::showEditedColumn() {
    const std::optional<Rect> header = pages_.showEditedColumn(table_->core());
    if (!header)
        return;
    const QRect place(header->left / twipsPerPixel, 0, header->width / twipsPerPixel, markHeight);
    columnMark_->setGeometry(place.translated(table_->contentsRect().topLeft()) & rect());
    columnMark_->raise();
    columnMark_->show();
}

} // namespace tablio::qt
