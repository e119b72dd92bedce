#include "order_sheet.h"

#include <tablio/qt/tablio_widget.h>

#include <QApplication>
#include <QScopedValueRollback>
#include <QStringList>

#include <algorithm>
#include <utility>

using tablio::qt::TablioWidget;

namespace {

/// Blank rows that wait for the operator below the last line.
constexpr int spareRows = 12;
/// The most rows that the control counts, its header included.
constexpr int mostRows = 32768;
/// An operator who stops typing for so many milliseconds has seen what the form says.
constexpr int pauseOfTyping = 400;

constexpr tablio::Colour red{0x2020D0};

/// The tag of the cell for which an article is looked up: tags move with their rows.
QVariant wanted() { return QStringLiteral("wanted"); }

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
    : QObject(parent), grid_(grid), cells_(grid), book_(book) {
    cells_.setUpTickColumn();
    connect(&grid, &TablioWidget::editPreValidation, this,
            [this](int &row, int &col, bool & /*cancel*/) { editBegins(row, col); });
    connect(&grid, &TablioWidget::editOnChange, this,
            [this](int & /*row*/, int & /*col*/, QString &text) {
                typed_ = text;
                typing_ = true;
            });
    connect(&grid, &TablioWidget::editPostValidation, this,
            [this](int &row, int &col, bool &valid, QString &oldData, QString &newData,
                   int &lastKey) { cellEdited(row, col, valid, oldData, newData, lastKey); });
    connect(&grid, &TablioWidget::editLookup, this,
            [this](int &row, int & /*col*/) { lookUp(row); });
    connect(&grid, &TablioWidget::tableKeyDown, this,
            [this](int &key, int &shift, int &row, int &col) { keyDown(key, shift, row, col); });
    connect(&grid, &TablioWidget::tableChange, this, &OrderSheet::tableChanged);
    // No event tells of a tick: it is taken over when the operator leaves its cell.
    connect(&grid, &TablioWidget::cellFocus, this, [this](int &row, int & /*col*/) {
        if (noteTick(row))
            write();
    });
    connect(&grid, &TablioWidget::tableRowChange, this, [this](int &oldRow, int & /*newRow*/) {
        if (noteTick(oldRow))
            write();
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *old, QWidget *now) {
        if (old != nullptr && grid_.isAncestorOf(old) &&
            (now == nullptr || !grid_.isAncestorOf(now)))
            takeTicks();
    });
}

void OrderSheet::load() {
    lines_ = book_.lines();
    unsaved_.clear();
    setRowCount((lines_.empty() ? 0 : lines_.rbegin()->first) + 1 + spareRows);
    showLines();
    emit changed();
}

// ---- what the host does on events ---------------------------------------------------------------

/// EditPreValidation: the control has one list of choices, which is filled for the column.
void OrderSheet::editBegins(int row, int col) {
    typed_ = cells_.text(row, col);
    if (col != Unit)
        return;
    grid_.comboClear();
    for (const QString &unit : OrderCells::unitChoices())
        grid_.comboAddItem(unit);
}

/// EditPostValidation: the cell already holds what was entered.
void OrderSheet::cellEdited(int row, int col, bool &valid, const QString &oldText,
                            const QString &newText, int lastKey) {
    typing_ = false;
    const QString reason = newText == oldText ? QString() : objection(row, col, newText);
    if (!reason.isEmpty()) {
        // What the control calls valid it puts back itself when the host does not.
        if (!std::exchange(valid, false))
            grid_.setTextMatrix(row, col, oldText);
        const int duplicate = col == Code ? duplicateOf(row) : -1;
        if (duplicate > 0) {
            grid_.focusCell(duplicate, Code);
            sinceRefusal_.start();
        }
        emit refused(reason);
        return;
    }
    if (col == Code)
        fillFromArticle(row, oldText);
    const std::optional<Money> total = cells_.price(row).times(cells_.quantity(row));
    if (!total) {
        valid = false; // The control puts back what the cell held before.
        emit refused(tr("The total of row %1 would be too large.").arg(row));
        return;
    }
    if (cells_.line(row) || *total != Money())
        cells_.setMoney(row, Total, *total);
    noteRow(row);
    write();

    if (col == Code && row == grid_.rows() - 1 && cells_.line(row))
        setRowCount(grid_.rows() + spareRows);
    // The control moves on to the next cell by itself unless the host has moved the cursor.
    if (lastKey == tablio::Key::Enter && (col == Price || col == Delivery))
        goDown(row, col == Price ? Code : Delivery);
}

QString OrderSheet::objection(int row, int col, const QString &newText) const {
    if (const int other = col == Code ? duplicateOf(row) : -1; other > 0)
        return tr("%1 is in row %2 already.").arg(newText.trimmed()).arg(other);
    if (col == Unit && !newText.isEmpty() && !OrderCells::unitChoices().contains(newText))
        return tr("There is no unit “%1”.").arg(newText);
    // The control takes a February 29 every fourth year, and a cell makes a March 1 of the wrong
    // one.
    if (col == Delivery && OrderCells::isNoDate(newText))
        return tr("%1 is no date.").arg(newText);
    return {};
}

int OrderSheet::duplicateOf(int row) const {
    return cells_.text(row, Code).isEmpty() ? -1 : grid_.findDuplicatePrimaryColumn(row);
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
    if (sinceRefusal_.isValid()) {
        if (sinceRefusal_.elapsed() < pauseOfTyping) {
            // Typed ahead for the refused line, this key must not reach the one found instead.
            sinceRefusal_.start();
            key = 0;
            return;
        }
        sinceRefusal_.invalidate();
    }
    if (key != tablio::Key::Enter || shift != 0)
        return;
    const bool endsLine = col == Total || (col == Price && cells_.price(row) != Money());
    if (endsLine || col == Delivery || col == Delivered) {
        key = 0;
        goDown(row, endsLine ? Code : col);
    }
}

/// To that cell of the next line; below the last line the next article is entered.
void OrderSheet::goDown(int row, int col) {
    if (row + 1 < grid_.rows())
        grid_.focusCell(row + 1, lines_.contains(row + 1) ? col : static_cast<int>(Code));
}

/// TableChange says that something has changed, not what. What is typed has been reported by
/// EditOnChange just before; otherwise rows have come, gone or moved.
void OrderSheet::tableChanged() {
    if (std::exchange(typing_, false))
        return;
    const int last = std::max(grid_.rows() - 1, lines_.empty() ? 0 : lines_.rbegin()->first);
    for (int row = 1; row <= last; ++row)
        noteRow(row);
    write();
}

// ---- rows ---------------------------------------------------------------------------------------

/// Unlike the control's AddRow this leaves the cursor where it is.
void OrderSheet::setRowCount(int rows) {
    grid_.setRows(std::min(rows, mostRows));
    // Giving a column this style numbers its rows.
    grid_.setColStyle(Number, TablioWidget::ColumnFixedWithAutoNumber);
}

/// The cursor goes to the first article afterwards: ticks have led it about.
void OrderSheet::showLines() {
    {
        const QScopedValueRollback<bool> showing(showing_, true);
        const PaintingOff paintingOff(grid_);
        for (const auto &[row, line] : lines_)
            cells_.show(row, line);
    }
    grid_.focusCell(1, Code);
}

/// What is blank, or still the old article's, becomes what the book knows of the new one.
void OrderSheet::fillFromArticle(int row, const QString &oldCode) {
    const std::optional<Article> article = articleCalled(cells_.text(row, Code));
    if (!article)
        return;
    const Article old = articleCalled(oldCode.trimmed()).value_or(Article());
    const auto isOpen = [](const auto &held, const auto &blank, const auto &before) {
        return held == blank || held == before;
    };
    if (isOpen(cells_.text(row, Description), QString(), old.description))
        grid_.setTextMatrix(row, Description, article->description);
    if (isOpen(cells_.price(row), Money(), old.price))
        cells_.setMoney(row, Price, article->price);
    if (isOpen(cells_.text(row, Unit), QString(), old.unit))
        grid_.setTextMatrix(row, Unit, article->unit);
}

std::optional<Article> OrderSheet::articleCalled(const QString &code) const {
    try {
        return book_.article(code);
    } catch (const OrderBookError &) {
        // The row is saved next; a database that does not answer is reported there.
        return std::nullopt;
    }
}

/// Takes over what the grid shows in a row; whether that has to be saved.
bool OrderSheet::noteRow(int row) {
    std::optional<OrderLine> line = row < grid_.rows() ? cells_.line(row) : std::nullopt;
    const auto known = lines_.find(row);
    if (line ? known != lines_.end() && known->second == *line : known == lines_.end())
        return false;
    if (line)
        lines_[row] = *line;
    else
        lines_.erase(known);
    unsaved_[row] = std::move(line);
    return true;
}

/// Takes over a row in which nothing but the tick is another. Where more is, rows are moving and
/// TableChange follows.
bool OrderSheet::noteTick(int row) {
    const auto known = lines_.find(row);
    if (showing_ || known == lines_.end() || row >= grid_.rows())
        return false;
    std::optional<OrderLine> line = cells_.line(row);
    if (line)
        line->delivered = known->second.delivered;
    return line == known->second && noteRow(row);
}

void OrderSheet::takeTicks() {
    bool isOther = false;
    for (int row = 1; row < grid_.rows(); ++row)
        isOther = noteTick(row) || isOther;
    if (isOther)
        write();
}

bool OrderSheet::save() {
    takeTicks();
    return write();
}

bool OrderSheet::write() {
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
