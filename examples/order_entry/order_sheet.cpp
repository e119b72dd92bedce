#include "order_sheet.h"

#include <tablio/cells.h>
#include <tablio/qt/tablio_sql_binding.h>
#include <tablio/qt/tablio_widget.h>

#include <QDate>

#include <utility>

using tablio::CellValue;
using tablio::qt::TablioModelBinding;
using tablio::qt::TablioSqlBinding;
using tablio::qt::TablioWidget;

namespace {

/// The columns as order_window.ui sets them up. An operator goes from the article to the price and
/// on to the next line. What stands behind the total has a default or becomes known later. A tick
/// column is always the last one.
enum Column { Number, Code, Description, Quantity, Price, Total, Unit, Delivery, Delivered };

/// The tag of the cell for which an article is looked up: tags move with their rows.
QVariant wanted() { return QStringLiteral("wanted"); }

/// Saved as they stand here, so they are not translated.
QStringList units() {
    return {QStringLiteral("piece"), QStringLiteral("pack"),     QStringLiteral("box"),
            QStringLiteral("set"),   QStringLiteral("kilogram"), QStringLiteral("litre"),
            QStringLiteral("metre")};
}

tablio::Decimal amount(Hundredths hundredths) {
    return tablio::Decimal(hundredths).timesPowerOfTen(-2);
}

} // namespace

OrderSheet::OrderSheet(TablioWidget &grid, OrderBook &book, QObject *parent)
    : QObject(parent), grid_(grid), book_(book),
      binding_(*new TablioSqlBinding(&grid, &book.lines())) {
    // The form has set up all columns but this one, which the grid adds for the ticks.
    grid.setColTextHeader(Delivered, tr("Delivered"));
    grid.setColWidth(Delivered, 1200);
    grid.setColDataAlignment(Delivered, TablioWidget::ColumnCentre);
    grid.setColHeaderAlignment(Delivered, TablioWidget::ColumnCentre);

    binding_.setPositionField(QStringLiteral("row"));
    binding_.bindField(Code, QStringLiteral("article"));
    binding_.bindField(Description, QStringLiteral("description"), {.empty = QString("")});
    binding_.bindField(Quantity, QStringLiteral("quantity"), {.empty = 0});
    binding_.bindField(Price, QStringLiteral("price_hundredths"), {.empty = 0, .places = 2});
    binding_.bindField(Unit, QStringLiteral("unit"), {.empty = QString("")});
    binding_.bindField(Delivery, QStringLiteral("delivery"));
    binding_.bindField(Delivered, QStringLiteral("delivered"));
    binding_.setWriting(TablioModelBinding::AtOnce);
    binding_.setIncompleteRowsLeave(true);
    binding_.setRowCheck([this](int row) { return objection(row); });
    connect(&binding_, &TablioModelBinding::rowShown, this, &OrderSheet::showTotal);
    connect(&binding_, &TablioModelBinding::changed, this, &OrderSheet::changed);

    connect(&grid, &TablioWidget::editPreValidation, this,
            [this](int &row, int &col, bool & /*cancel*/) { editBegins(row, col); });
    connect(&grid, &TablioWidget::editOnChange, this,
            [this](int & /*row*/, int & /*col*/, QString &text) { typed_ = text; });
    connect(&grid, &TablioWidget::editPostValidation, this,
            [this](int &row, int &col, bool &valid, QString &oldData, QString &newData,
                   int &lastKey) { cellEdited(row, col, valid, oldData, newData, lastKey); });
    connect(&grid, &TablioWidget::editLookup, this,
            [this](int &row, int & /*col*/) { lookUp(row); });
    connect(&grid, &TablioWidget::tableKeyDown, this,
            [this](int &key, int &shift, int &row, int &col) { keyDown(key, shift, row, col); });
    binding_.load();
    grid.focusCell(1, Code);
}

bool OrderSheet::save() { return binding_.save(); }

QString OrderSheet::problem() const { return binding_.problem(); }

int OrderSheet::lineCount() const {
    int count = 0;
    for (int row = grid_.dataCount(); row > 0; --row)
        count += grid_.isEmpty(row, Code) ? 0 : 1;
    return count;
}

std::optional<Hundredths> OrderSheet::sumOfLines() const {
    std::optional<Hundredths> all = 0;
    for (int row = grid_.dataCount(); row > 0; --row) {
        if (!grid_.isEmpty(row, Code))
            all = sum(all, total(row));
    }
    return all;
}

// ---- what the host does on events ---------------------------------------------------------------

/// EditPreValidation: the control has one list of choices, which is filled for the column.
void OrderSheet::editBegins(int row, int col) {
    typed_ = text(row, col);
    if (col != Unit)
        return;
    grid_.comboClear();
    for (const QString &unit : units())
        grid_.comboAddItem(unit);
}

/// EditPostValidation: the cell already holds what was entered.
void OrderSheet::cellEdited(int row, int col, bool &valid, const QString &oldText,
                            const QString &newText, int lastKey) {
    const QString reason = newText == oldText ? QString() : objection(row, col, newText);
    if (!reason.isEmpty()) {
        // What the control calls valid it puts back itself when the host does not.
        if (!std::exchange(valid, false))
            grid_.setTextMatrix(row, col, oldText);
        emit refused(reason);
        return;
    }
    if (!valid && newText != oldText && !newText.trimmed().isEmpty() && text(row, col) != newText)
        emit refused(tr("%1 of row %2 does not take “%3”.")
                         .arg(grid_.colTextHeader(col))
                         .arg(row)
                         .arg(newText));
    // A second line of an article is given nothing that would be left when it gets another.
    if (col == Code && objection(row).isEmpty())
        fillFromArticle(row, oldText);
    showTotal(row);
    // The control moves on to the next cell by itself unless the host has moved the cursor.
    if (lastKey == tablio::Key::Enter && (col == Price || col == Delivery))
        goDown(row, col == Price ? Code : Delivery);
}

QString OrderSheet::objection(int row, int col, const QString &newText) const {
    if (col == Unit && !newText.isEmpty() && !units().contains(newText))
        return tr("There is no unit “%1”.").arg(newText);
    // The control takes a February 29 every fourth year, and a cell makes a March 1 of the wrong
    // one. A date that was taken out leaves its slashes.
    const auto isDigit = [](QChar each) { return each.isDigit(); };
    if (col == Delivery && std::any_of(newText.begin(), newText.end(), isDigit) &&
        !QDate::fromString(newText, QStringLiteral("dd/MM/yyyy")).isValid())
        return tr("%1 is no date.").arg(newText);
    if (!total(row))
        return tr("The total of row %1 would be too large.").arg(row);
    return {};
}

/// A second line of an article stays as it was typed, with what was typed behind it, until it is
/// another's. What is saved, and of new lines the upper one, has the article.
QString OrderSheet::objection(int row) const {
    if (CellValue(text(row, Code).toStdString()) == binding_.storedValue(row, Code))
        return {};
    const int other = grid_.findDuplicatePrimaryColumn(row);
    if (other < 0 || (other > row && !binding_.isStored(other)))
        return {};
    return tr("%1 is in row %2 already").arg(text(row, Code)).arg(other);
}

/// EditLookup: the answer may come at any time, so the cell is marked and not its row remembered.
void OrderSheet::lookUp(int row) {
    for (int each = 1; each < grid_.rows(); ++each) {
        if (grid_.cellTag(each, Code) == wanted())
            grid_.setCellTag(each, Code, {});
    }
    grid_.setCellTag(row, Code, wanted());
    emit articleWanted(row, typed_);
}

void OrderSheet::articleFound(const QString &code) {
    grid_.setFocus();
    for (int row = 1; row < grid_.rows(); ++row) {
        if (grid_.cellTag(row, Code) != wanted())
            continue;
        grid_.setCellTag(row, Code, {});
        grid_.setLookupResult(row, Code, code);
        return;
    }
}

/// TableKeyDown: Enter on a price that is there already ends the line like one that is typed. Dates
/// and ticks are entered one below the other, so Enter goes down there.
void OrderSheet::keyDown(int &key, int shift, int row, int col) {
    if (key != tablio::Key::Enter || shift != 0)
        return;
    const bool endsLine = col == Total || (col == Price && !grid_.isEmpty(row, Price));
    if (endsLine || col == Delivery || col == Delivered) {
        key = 0;
        goDown(row, endsLine ? Code : col);
    }
}

/// To that cell of the next line; below the last line the next article is entered.
void OrderSheet::goDown(int row, int col) {
    if (row + 1 < grid_.rows())
        grid_.focusCell(row + 1, grid_.isEmpty(row + 1, Code) ? static_cast<int>(Code) : col);
}

/// What is blank, or still the old article's, becomes what the book knows of the new one.
void OrderSheet::fillFromArticle(int row, const QString &oldCode) {
    const std::optional<Article> article = articleCalled(text(row, Code));
    if (!article)
        return;
    const Article old = articleCalled(oldCode.trimmed()).value_or(Article());
    tablio::Cells cells(grid_.core());
    const auto fill = [&](int col, const CellValue &before, const CellValue &now) {
        if (grid_.isEmpty(row, col) || cells.value(row, col) == before)
            cells.setValue(row, col, now);
    };
    fill(Description, old.description.toStdString(), article->description.toStdString());
    fill(Price, amount(old.price), amount(article->price));
    fill(Unit, old.unit.toStdString(), article->unit.toStdString());
}

std::optional<Article> OrderSheet::articleCalled(const QString &code) const {
    try {
        return book_.article(code);
    } catch (const OrderBookError &) {
        // The row is saved next; a database that does not answer is reported there.
        return std::nullopt;
    }
}

QString OrderSheet::text(int row, int col) const {
    return grid_.value(row, col).toString().trimmed();
}

std::optional<Hundredths> OrderSheet::total(int row) const {
    const tablio::Cells cells(grid_.core());
    const CellValue quantity = cells.value(row, Quantity);
    const CellValue price = cells.value(row, Price);
    if (quantity.isEmpty() || price.isEmpty())
        return 0;
    const CellValue hundredths = price.toDecimal().timesPowerOfTen(2).rounded(0);
    return product(hundredths.toInteger(), quantity.toInteger());
}

void OrderSheet::showTotal(int row) {
    const Hundredths all = total(row).value_or(0);
    tablio::Cells(grid_.core())
        .setValue(row, Total,
                  grid_.isEmpty(row, Code) && all == 0 ? CellValue() : CellValue(amount(all)));
}
