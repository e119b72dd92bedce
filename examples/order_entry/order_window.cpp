#include "order_window.h"

#include "ui_order_window.h"

#include <tablio/qt/tablio_widget.h>

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>

namespace {

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

OrderWindow::OrderWindow(OrderBook &book) : ui_(std::make_unique<Ui::OrderWindow>()), book_(book) {
    ui_->setupUi(this);
    const QFileInfo file(book.file());
    setWindowTitle(tr("%1 - %2").arg(windowTitle(), file.fileName()));
    // Designer puts nothing into a status bar. This label gives way instead of widening the window.
    auto *lastEvent = new QLabel(this);
    lastEvent->setTextFormat(Qt::PlainText);
    lastEvent->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *fileName = new QLabel(file.fileName(), this);
    fileName->setToolTip(file.absoluteFilePath());
    ui_->statusBar->addWidget(lastEvent, 1);
    ui_->statusBar->addPermanentWidget(fileName);

    log_ = new EventLog(*ui_->grid, this);
    connect(log_, &EventLog::heard, lastEvent, &QLabel::setText);
    sheet_ = new OrderSheet(*ui_->grid, book, this);
    connect(sheet_, &OrderSheet::changed, this, &OrderWindow::showTotals);
    connect(sheet_, &OrderSheet::refused, ui_->problem, &QLabel::setText);
    auto *save = new QShortcut(QKeySequence::Save, this);
    connect(save, &QShortcut::activated, this, [this] {
        if (ui_->grid->commit())
            sheet_->save();
    });
    search_ = new ArticleSearch(ui_->centre);
    connect(sheet_, &OrderSheet::articleWanted, this, &OrderWindow::searchArticle);
    connect(search_, &ArticleSearch::picked, sheet_, &OrderSheet::articleFound);
    connect(search_, &ArticleSearch::left, ui_->grid, [this] { ui_->grid->setFocus(); });
    sheet_->load();

    resize(size().boundedTo(screen()->availableSize()));
    ui_->grid->setFocus();
}

OrderWindow::~OrderWindow() = default;

void OrderWindow::showTotals() {
    const OrderLines &lines = sheet_->lines();
    ui_->lineCount->setText(lines.size() == 1 ? tr("1 line") : tr("%1 lines").arg(lines.size()));
    const std::optional<Money> sum = sumOf(lines);
    ui_->sum->setText(tr("Sum %1").arg(sum ? shown(*sum, locale()) : tr("too large")));
    const QString problem = sheet_->problem();
    ui_->problem->setText(problem.isEmpty() ? QString()
                                            : problem + tr(" The next entry tries again."));
    setWindowModified(!problem.isEmpty());
}

/// The list opens beside the cell's editor, or where the operator has pressed its button.
void OrderWindow::searchArticle(int row, const QString &text) {
    const QWidget *editor = QApplication::focusWidget();
    QRect cell(search_->parentWidget()->mapFromGlobal(QCursor::pos()), QSize(1, 1));
    if (editor != nullptr && ui_->grid->isAncestorOf(editor) && !editor->visibleRegion().isEmpty())
        cell = QRect(editor->mapTo(search_->parentWidget(), QPoint()), editor->size());
    try {
        search_->open(tr("Article of row %1: Enter picks, Esc leaves").arg(row), book_.articles(),
                      text, cell);
    } catch (const OrderBookError &error) {
        ui_->problem->setText(tr("The articles cannot be read: %1").arg(error.message()));
    }
}

void OrderWindow::closeEvent(QCloseEvent *event) {
    // What is still being typed is entered first; what is refused is said and keeps the window.
    event->setAccepted(ui_->grid->commit() && mayClose());
    if (!event->isAccepted())
        ui_->grid->setFocus();
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
