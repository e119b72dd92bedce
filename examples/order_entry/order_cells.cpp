#include "order_cells.h"

#include <tablio/qt/tablio_widget.h>

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

using tablio::qt::TablioWidget;

namespace {

/// A date cell's own form, whatever the locale.
QString dateForm() { return QStringLiteral("dd/MM/yyyy"); }

QString tr(const char *text) { return QCoreApplication::translate("OrderCells", text); }

} // namespace

void OrderCells::setUpTickColumn() {
    grid_.setColTextHeader(Delivered, tr("Delivered"));
    grid_.setColWidth(Delivered, 1200);
    grid_.setColDataAlignment(Delivered, TablioWidget::ColumnCentre);
    grid_.setColHeaderAlignment(Delivered, TablioWidget::ColumnCentre);
}

QStringList OrderCells::unitChoices() {
    // Saved as they stand here, so they are not translated.
    return {QStringLiteral("piece"), QStringLiteral("pack"),     QStringLiteral("box"),
            QStringLiteral("set"),   QStringLiteral("kilogram"), QStringLiteral("litre"),
            QStringLiteral("metre")};
}

std::optional<OrderLine> OrderCells::line(int row) const {
    const QString code = text(row, Code);
    if (code.isEmpty())
        return std::nullopt;
    return OrderLine{
        code,          text(row, Description), quantity(row), price(row), text(row, Unit),
        delivery(row), grid_.checked(row)};
}

/// A quantity or a price that is 0 is left blank.
void OrderCells::show(int row, const OrderLine &line) {
    grid_.setTextMatrix(row, Code, line.article);
    grid_.setTextMatrix(row, Description, line.description);
    if (line.quantity != 0)
        grid_.setTextMatrix(row, Quantity, QString::number(line.quantity));
    if (line.price != Money())
        setMoney(row, Price, line.price);
    setMoney(row, Total, line.total().value_or(Money()));
    grid_.setTextMatrix(row, Unit, line.unit);
    if (line.delivery.isValid())
        grid_.setTextMatrix(row, Delivery, line.delivery.toString(dateForm()));
    if (line.delivered)
        grid_.check(row, true);
}

QString OrderCells::text(int row, int col) const { return grid_.textMatrix(row, col).trimmed(); }

qint64 OrderCells::quantity(int row) const { return text(row, Quantity).toLongLong(); }

Money OrderCells::price(int row) const {
    return Money::fromText(text(row, Price), decimalSign()).value_or(Money());
}

QDate OrderCells::delivery(int row) const {
    return QDate::fromString(text(row, Delivery), dateForm());
}

bool OrderCells::isNoDate(const QString &text) {
    // A date that was taken out leaves its slashes.
    const bool isBlank =
        std::none_of(text.begin(), text.end(), [](QChar each) { return each.isDigit(); });
    return !isBlank && !QDate::fromString(text, dateForm()).isValid();
}

void OrderCells::setMoney(int row, int col, Money amount) {
    grid_.setTextMatrix(row, col, amount.text(decimalSign()));
}

/// Numbers go into and come out of the control as its user writes them.
QString OrderCells::decimalSign() const { return grid_.locale().decimalPoint(); }
