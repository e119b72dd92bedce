#include "order_sheet.h"

#include <tablio/qt/tablio_widget.h>

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <utility>

using tablio::qt::TablioWidget;

namespace {

enum Column { Number, Code, Description, Quantity, Price, Total, ColumnCount };

/// Blank rows that wait for the operator below the last line.
constexpr int spareRows = 12;
/// The most rows that the control counts, its header included.
constexpr int mostRows = 32768;

constexpr tablio::Colour red{0x2020D0};

/// Many cells at once are painted once.
class PaintingOff {
public:
    explicit PaintingOff(TablioWidget &grid) : grid_(grid) { grid_.setStatusCell(false); }
    ~PaintingOff() { grid_.setStatusCell(true); }
    PaintingOff(const PaintingOff &) = delete;
    PaintingOff &operator=(const PaintingOff &) = delete;

private:
    TablioWidget &grid_;
};

} // namespace

OrderSheet::OrderSheet(TablioWidget &grid, OrderBook &book, QObject *parent)
    : QObject(parent), grid_(grid), book_(book) {
    setUpColumns();
    connect(&grid, &TablioWidget::editOnChange, this, [this] { typing_ = true; });
    connect(&grid, &TablioWidget::tableChange, this, &OrderSheet::tableChanged);
    connect(&grid, &TablioWidget::editPostValidation, this,
            [this](int &row, int &col, bool &valid, QString & /*oldData*/, QString & /*newData*/,
                   int &lastKey) { cellEdited(row, col, valid, lastKey); });
}

void OrderSheet::setUpColumns() {
    using T = TablioWidget;
    const QString money = QStringLiteral("###,##0.00");
    grid_.setCols(ColumnCount);
    grid_.setFixedRows(1);
    grid_.setFixedCols(1);
    grid_.setWithFixedColumn(true);
    grid_.setPrimaryColumn(Code);
    grid_.setGridPopUpMenu(true);
    grid_.setRowMinHeight(330);

    grid_.setColProperty(Number, tr("No."), 750, T::ColumnFixedWithAutoNumber, T::ColumnString,
                         T::ColumnRight, T::ColumnRight);
    grid_.setColProperty(Code, tr("Article"), 1800, T::ColumnInput, T::ColumnString, T::ColumnLeft,
                         T::ColumnLeft, 12);
    grid_.setColDataType(Code, T::UpperCase);
    grid_.setColProperty(Description, tr("Description"), 5100, T::ColumnInput, T::ColumnString,
                         T::ColumnLeft, T::ColumnLeft, 60);
    grid_.setColProperty(Quantity, tr("Quantity"), 1300, T::ColumnInput, T::ColumnInteger,
                         T::ColumnRight, T::ColumnRight, 11, QStringLiteral("###,##0"));
    grid_.setColDataType(Quantity, T::Positive);
    grid_.setColProperty(Price, tr("Unit price"), 1700, T::ColumnInput, T::ColumnDecimal,
                         T::ColumnRight, T::ColumnRight, 14, money);
    grid_.setColDataType(Price, T::Positive);
    grid_.setColCalcStyle(Price, T::CalcStyle);
    grid_.setColProperty(Total, tr("Total"), 2000, T::ColumnFixed, T::ColumnDecimal, T::ColumnRight,
                         T::ColumnRight, 24, money);
}

void OrderSheet::load() {
    lines_ = book_.lines();
    unsaved_.clear();
    setRowCount((lines_.empty() ? 0 : lines_.rbegin()->first) + 1 + spareRows);
    showLines();
    emit changed();
}

// ---- what the host does on events ---------------------------------------------------------------

/// EditPostValidation: the cell already holds what was entered.
void OrderSheet::cellEdited(int row, int col, bool &valid, int lastKey) {
    typing_ = false;
    if (col == Code)
        fillFromArticle(row);
    const std::optional<Money> total = priceAt(row).times(quantityAt(row));
    if (!total) {
        valid = false; // The control puts back what the cell held before.
        emit refused(tr("The total of row %1 would be too large.").arg(row));
        return;
    }
    if (lineAt(row) || *total != Money())
        setMoney(row, Total, *total);
    noteRow(row);
    save();

    if (col == Code && row == grid_.rows() - 1 && lineAt(row))
        setRowCount(grid_.rows() + spareRows);
    // The control moves on to the next cell by itself unless the host has moved the cursor.
    if (col == Price && lastKey == tablio::Key::Enter && row + 1 < grid_.rows())
        grid_.focusCell(row + 1, Code);
}

/// TableChange says that something has changed, not what. What is typed has been reported by
/// EditOnChange just before; otherwise rows have come, gone or moved.
void OrderSheet::tableChanged() {
    if (std::exchange(typing_, false))
        return;
    if (lines_.size() > 1 && grid_.dataCount() == 0) {
        bool keep = false;
        emit cleared(keep);
        if (keep)
            showLines();
    }
    const int last = std::max(grid_.rows() - 1, lines_.empty() ? 0 : lines_.rbegin()->first);
    for (int row = 1; row <= last; ++row)
        noteRow(row);
    save();
}

// ---- rows ---------------------------------------------------------------------------------------

/// Unlike the control's AddRow this leaves the cursor where it is.
void OrderSheet::setRowCount(int rows) {
    grid_.setRows(std::min(rows, mostRows));
    // Giving a column this style numbers its rows.
    grid_.setColStyle(Number, TablioWidget::ColumnFixedWithAutoNumber);
}

void OrderSheet::showLines() {
    const PaintingOff paintingOff(grid_);
    for (const auto &[row, line] : lines_)
        showLine(row, line);
}

/// A quantity or a price that is 0 is left blank.
void OrderSheet::showLine(int row, const OrderLine &line) {
    grid_.setTextMatrix(row, Code, line.article);
    grid_.setTextMatrix(row, Description, line.description);
    if (line.quantity != 0)
        grid_.setTextMatrix(row, Quantity, QString::number(line.quantity));
    if (line.price != Money())
        setMoney(row, Price, line.price);
    setMoney(row, Total, line.total().value_or(Money()));
}

void OrderSheet::fillFromArticle(int row) {
    std::optional<Article> article;
    try {
        article = book_.article(textAt(row, Code));
    } catch (const OrderBookError &) {
        // The row is saved next; a database that does not answer is reported there.
    }
    if (!article)
        return;
    if (textAt(row, Description).isEmpty())
        grid_.setTextMatrix(row, Description, article->description);
    if (priceAt(row) == Money())
        setMoney(row, Price, article->price);
}

/// Takes over what the grid shows in a row; only a change has to be saved.
void OrderSheet::noteRow(int row) {
    std::optional<OrderLine> line = row < grid_.rows() ? lineAt(row) : std::nullopt;
    const auto known = lines_.find(row);
    if (line ? known != lines_.end() && known->second == *line : known == lines_.end())
        return;
    if (line)
        lines_[row] = *line;
    else
        lines_.erase(known);
    unsaved_[row] = std::move(line);
}

std::optional<OrderLine> OrderSheet::lineAt(int row) const {
    const QString code = textAt(row, Code);
    if (code.isEmpty())
        return std::nullopt;
    return OrderLine{code, textAt(row, Description), quantityAt(row), priceAt(row)};
}

bool OrderSheet::save() {
    if (!unsaved_.empty()) {
        try {
            book_.save(unsaved_);
            unsaved_.clear();
            failure_.clear();
        } catch (const OrderBookError &error) {
            failure_ = error.message();
        }
    }
    showUnsaved();
    emit changed();
    return unsaved_.empty();
}

/// The numbers of rows that are not saved are red.
void OrderSheet::showUnsaved() {
    const auto paint = [this](int row, tablio::Colour colour) {
        if (row < grid_.rows())
            grid_.core().setCellForeColor(row, Number, colour);
    };
    for (const int row : std::exchange(redRows_, {}))
        paint(row, grid_.core().ForeColorFixed());
    for (const auto &entry : unsaved_) {
        paint(entry.first, red);
        redRows_.insert(entry.first);
    }
}

QString OrderSheet::problem() const {
    if (unsaved_.empty())
        return {};
    constexpr int mostNamed = 10;
    QStringList rows;
    for (const auto &entry : unsaved_) {
        if (rows.size() == mostNamed) {
            rows += QStringLiteral("…");
            break;
        }
        rows += QString::number(entry.first);
    }
    return tr("Not saved: row %1 (%2).").arg(rows.join(QStringLiteral(", ")), failure_);
}

// ---- cells --------------------------------------------------------------------------------------

QString OrderSheet::textAt(int row, int col) const { return grid_.textMatrix(row, col).trimmed(); }

qint64 OrderSheet::quantityAt(int row) const { return textAt(row, Quantity).toLongLong(); }

Money OrderSheet::priceAt(int row) const {
    return Money::fromText(textAt(row, Price), decimalSign()).value_or(Money());
}

void OrderSheet::setMoney(int row, int col, Money amount) {
    grid_.setTextMatrix(row, col, amount.text(decimalSign()));
}

/// Numbers go into and come out of the control as its user writes them.
QString OrderSheet::decimalSign() const { return grid_.locale().decimalPoint(); }
