#include "order_window.h"

#include <tablio/qt/tablio_widget.h>

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

/// A label that gives way instead of widening the window.
QLabel *yieldingLabel(QWidget *parent) {
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

std::optional<Money> sumOf(const OrderLines &lines) {
    std::optional<Money> sum = Money();
    for (const auto &entry : lines) {
        const std::optional<Money> total = entry.second.total();
        sum = sum && total ? sum->plus(*total) : std::nullopt;
    }
    return sum;
}

/// Grouped as this user groups. Orders hold no negative amounts.
QString shown(Money amount, const QLocale &locale) {
    const QString hundredths = amount.text(u".").section(u'.', 1);
    return locale.toString(amount.hundredths() / 100) + locale.decimalPoint() + hundredths;
}

} // namespace

OrderWindow::OrderWindow(OrderBook &book) : book_(book) {
    const QFileInfo file(book.file());
    setWindowTitle(tr("[*]Order entry - %1").arg(file.fileName()));

    auto *centre = new QWidget(this);
    grid_ = new tablio::qt::TablioWidget(centre);
    lineCount_ = new QLabel(centre);
    problem_ = yieldingLabel(centre);
    problem_->setAlignment(Qt::AlignCenter);
    QFont bold = problem_->font();
    bold.setBold(true);
    problem_->setFont(bold);
    sum_ = new QLabel(centre);

    auto *totals = new QHBoxLayout;
    totals->setContentsMargins(9, 3, 9, 3);
    totals->addWidget(lineCount_);
    totals->addWidget(problem_, 1);
    totals->addWidget(sum_);
    auto *column = new QVBoxLayout(centre);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(grid_, 1);
    column->addLayout(totals);
    setCentralWidget(centre);

    auto *lastEvent = yieldingLabel(this);
    auto *fileName = new QLabel(file.fileName(), this);
    fileName->setToolTip(file.absoluteFilePath());
    statusBar()->addWidget(lastEvent, 1);
    statusBar()->addPermanentWidget(fileName);

    log_ = new EventLog(*grid_, this);
    connect(log_, &EventLog::heard, lastEvent, &QLabel::setText);
    sheet_ = new OrderSheet(*grid_, book, this);
    connect(sheet_, &OrderSheet::changed, this, &OrderWindow::showTotals);
    connect(sheet_, &OrderSheet::refused, problem_, &QLabel::setText);
    connect(sheet_, &OrderSheet::cleared, this, [this](bool &keep) {
        keep = QMessageBox::question(this, tr("Order entry"),
                                     tr("Remove all %1 lines?").arg(sheet_->lines().size())) !=
               QMessageBox::Yes;
    });
    search_ = new ArticleSearch(centre);
    connect(sheet_, &OrderSheet::articleWanted, this, &OrderWindow::searchArticle);
    connect(search_, &ArticleSearch::picked, sheet_, &OrderSheet::articleFound);
    connect(search_, &ArticleSearch::left, grid_, [this] { grid_->setFocus(); });
    sheet_->load();

    resize(QSize(1000, 480).boundedTo(screen()->availableSize()));
    grid_->setFocus();
}

void OrderWindow::showTotals() {
    const OrderLines &lines = sheet_->lines();
    lineCount_->setText(lines.size() == 1 ? tr("1 line") : tr("%1 lines").arg(lines.size()));
    const std::optional<Money> sum = sumOf(lines);
    sum_->setText(tr("Sum %1").arg(sum ? shown(*sum, locale()) : tr("too large")));
    const QString problem = sheet_->problem();
    problem_->setText(problem.isEmpty() ? QString() : problem + tr(" The next entry tries again."));
    setWindowModified(!problem.isEmpty());
}

/// The list opens beside the cell's editor, or where the operator has pressed its button.
void OrderWindow::searchArticle(int row, const QString &text) {
    const QWidget *editor = QApplication::focusWidget();
    QRect cell(search_->parentWidget()->mapFromGlobal(QCursor::pos()), QSize(1, 1));
    if (editor != nullptr && grid_->isAncestorOf(editor) && !editor->visibleRegion().isEmpty())
        cell = QRect(editor->mapTo(search_->parentWidget(), QPoint()), editor->size());
    try {
        search_->open(tr("Article of row %1: Enter picks, Esc leaves").arg(row), book_.articles(),
                      text, cell);
    } catch (const OrderBookError &error) {
        problem_->setText(tr("The articles cannot be read: %1").arg(error.message()));
    }
}

void OrderWindow::closeEvent(QCloseEvent *event) {
    // What is still being typed is entered first: an edit ends when the grid loses the focus.
    setFocus();
    event->setAccepted(mayClose());
    if (!event->isAccepted())
        grid_->setFocus();
}

bool OrderWindow::mayClose() {
    while (!sheet_->save()) {
        const auto answer = QMessageBox::warning(
            this, tr("Order entry"), sheet_->problem(),
            QMessageBox::Retry | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Retry);
        if (answer != QMessageBox::Retry)
            return answer == QMessageBox::Discard;
    }
    return true;
}
