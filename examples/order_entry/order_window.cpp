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
    connect(sheet_, &OrderSheet::refused, this, &OrderWindow::showRefusal);
    auto *save = new QShortcut(QKeySequence::Save, this);
    connect(save, &QShortcut::activated, this, [this] {
        if (ui_->grid->commit())
            sheet_->save();
    });
    search_ = new ArticleSearch(ui_->centre);
    connect(sheet_, &OrderSheet::articleWanted, this, &OrderWindow::searchArticle);
    connect(search_, &ArticleSearch::picked, sheet_, &OrderSheet::articleFound);
    connect(search_, &ArticleSearch::left, ui_->grid, [this] { ui_->grid->setFocus(); });
    showTotals();

    resize(size().boundedTo(screen()->availableSize()));
    ui_->grid->setFocus();
}

OrderWindow::~OrderWindow() = default;

void OrderWindow::showTotals() {
    const int count = sheet_->lineCount();
    ui_->lineCount->setText(count == 1 ? tr("1 line") : tr("%1 lines").arg(count));
    const std::optional<Hundredths> all = sheet_->sumOfLines();
    ui_->sum->setText(tr("Sum %1").arg(all ? shown(*all, locale()) : tr("too large")));
    QStringList said = refusals_;
    if (!sheet_->problem().isEmpty())
        said += sheet_->problem();
    ui_->problem->setText(said.join(u' '));
    ui_->problem->setToolTip(ui_->problem->text());
    setWindowModified(!sheet_->problem().isEmpty());
}

/// Stays until the operator enters something else; of a pasted block all are said.
void OrderWindow::showRefusal(const QString &reason) {
    if (refusals_.isEmpty())
        connect(
            ui_->grid, &tablio::qt::TablioWidget::tableKeyDown, this,
            [this] {
                refusals_.clear();
                showTotals();
            },
            Qt::SingleShotConnection);
    refusals_ += reason;
    showTotals();
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
    // A file that has gone is a problem, too, when all is saved.
    while (!sheet_->save() || !sheet_->problem().isEmpty()) {
        const auto answer = QMessageBox::warning(
            this, tr("Order entry"), sheet_->problem(),
            QMessageBox::Retry | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Retry);
        if (answer != QMessageBox::Retry)
            return answer == QMessageBox::Discard;
    }
    return true;
}
