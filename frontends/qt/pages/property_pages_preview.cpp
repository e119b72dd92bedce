#include "pages/property_pages_preview.h"

#include "widget/qt_text.h"

#include "control/control.h"

#include <tablio/pixels.h>
#include <tablio/text_bag.h>

#include <QLocale>
#include <QResizeEvent>
#include <QStyle>

#include <algorithm>

namespace tablio::qt {

namespace {

constexpr int sampleRows = 3;
/// In pixels.
constexpr int markHeight = 3;

/// What the pages of the preview say, nobody hears.
class Nobody final : public PageListener {};

/// Settings know nothing of columns that went, but these come back with a greater count.
void copyAllColumns(const ColumnSettings &from, ColumnSettings &to) {
    using List = ColumnSettings::List;
    to.clear();
    for (int col = 0; col < from.length(); ++col)
        to.append({from.text(List::Style, col), from.text(List::EditType, col),
                   from.text(List::Format, col), from.text(List::MaxLength, col),
                   from.text(List::DataType, col), from.text(List::CalcStyle, col)});
}

QString sampleText(const TablioWidget &table, int col) {
    QString text = TablioWidget::tr("Sample text");
    if (table.colDataType(col) == TablioWidget::UpperCase)
        text = table.locale().toUpper(text);
    if (table.colDataType(col) == TablioWidget::LowerCase)
        text = table.locale().toLower(text);
    return table.colMaxLength(col) > 0 ? text.left(table.colMaxLength(col)) : text;
}

QString sampleValue(const TablioWidget &table, int col) {
    const QString sign =
        table.colDataType(col) == TablioWidget::Negative ? QStringLiteral("-") : QString();
    switch (table.colEditType(col)) {
    case TablioWidget::ColumnDecimal:
        return sign + QStringLiteral("1234") + table.locale().decimalPoint() + QStringLiteral("56");
    case TablioWidget::ColumnInteger:
        return sign + QStringLiteral("1234");
    case TablioWidget::ColumnDate:
        return QStringLiteral("31/12/2030");
    case TablioWidget::ColumnCombo:
        return TablioWidget::tr("Choice");
    default:
        return sampleText(table, col);
    }
}

} // namespace

PropertyPagesPreview::PropertyPagesPreview(TablioWidget &edited, const PropertyPages &pages,
                                           QWidget *parent)
    : QWidget(parent), edited_(edited), pages_(pages), table_(new TablioWidget(this)),
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
    TextBag bag = TextBag::parse(edited_.settings().toStdString());
    const auto fixedRows = bag.readProperty("FixedRows", 0).toLong();
    const int rows = std::max(fixedRows, 1) + sampleRows;
    bag.writeProperty("Rows", rows, 2);
    table_->setSettings(QByteArray::fromStdString(bag.text()));

    copyAllColumns(edited_.core().control().state.columns, table_->core().control().state.columns);

    Nobody nobody;
    PropertyPages shown(table_->core(), nobody);
    shown.copyFrom(pages_);
    if (shown.general.Changed())
        shown.general.txtRows.setText(std::to_string(rows));
    shown.apply();
    fitHeight();
    for (int col = 0; col < table_->cols(); ++col)
        fillColumn(col);
    // Ticking has moved the cursor.
    FlexGrid &grid = table_->core().control().state.grid;
    const CellAddress first{table_->fixedRows(), table_->primaryColumn()};
    if (grid.table.hasCell(first.row, first.col))
        grid.setCurrentQuietly(first);
    columnMark_->hide();
    if (editsColumn)
        showEditedColumn();
}

void PropertyPagesPreview::fitHeight() {
    const GridTable &table = table_->core().control().state.grid.table;
    qint64 twips = 0;
    for (int row = 0; row < table.Rows(); ++row)
        twips += table.RowHeight(row);
    const int least = (1 + sampleRows) * fontRowHeight_ / twipsPerPixel;
    const int rows =
        static_cast<int>(std::clamp<qint64>(twips / twipsPerPixel, least, QWIDGETSIZE_MAX));
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
    const int col = toQString(pages_.columns.txtIndex.Text()).toInt();
    if (col < 0 || col >= table_->cols())
        return;
    GridView &view = table_->core().control().state.grid.view;
    if (col >= table_->fixedCols())
        view.ensureVisible(table_->fixedRows(), col);
    const Rect header = view.cellRect(0, col);
    const QRect place(header.left / twipsPerPixel, 0, header.width / twipsPerPixel, markHeight);
    columnMark_->setGeometry(place.translated(table_->contentsRect().topLeft()) & rect());
    columnMark_->raise();
    columnMark_->show();
}

void PropertyPagesPreview::fillColumn(int col) {
    const bool isTicks = table_->checkBoxes() != 0 && col == table_->cols() - 1;
    const int first = std::max(table_->fixedRows(), 1);
    for (int row = first; row < std::min(first + sampleRows - 1, table_->rows()); ++row) {
        if (isTicks)
            table_->check(row, row == first);
        else if (table_->colStyle(col) != TablioWidget::ColumnFixedWithAutoNumber)
            table_->setTextMatrix(row, col, sampleValue(*table_, col));
    }
}

} // namespace tablio::qt
