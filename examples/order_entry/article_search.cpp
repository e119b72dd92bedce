#include "article_search.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace {

enum Field { Code, Description, Unit, Price, FieldCount };

constexpr int margin = 4;

/// Each word stands somewhere in the code or the description.
bool matches(const Article &article, const QStringList &words) {
    return std::ranges::all_of(words, [&article](const QString &word) {
        return article.code.contains(word, Qt::CaseInsensitive) ||
               article.description.contains(word, Qt::CaseInsensitive);
    });
}

} // namespace

ArticleSearch::ArticleSearch(QWidget *parent) : QFrame(parent) {
    setObjectName(QStringLiteral("articleSearch"));
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAutoFillBackground(true);
    hide();

    title_ = new QLabel(this);
    auto *close = new QToolButton(this);
    close->setText(QStringLiteral("×"));
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::NoFocus);
    close->setAccessibleName(tr("Close"));
    filter_ = new QLineEdit(this);
    filter_->setAccessibleName(tr("Look for"));
    table_ = new QTableWidget(0, FieldCount, this);
    table_->setHorizontalHeaderLabels({tr("Article"), tr("Description"), tr("Unit"), tr("Price")});
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + margin);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->horizontalHeader()->setSectionResizeMode(Description, QHeaderView::Stretch);
    table_->horizontalHeader()->setHighlightSections(false);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setShowGrid(false);
    table_->setWordWrap(false);
    // The keyboard stays in the line, which leads the list's selection too.
    table_->setFocusPolicy(Qt::NoFocus);
    nothing_ = new QLabel(tr("No such article"), table_->viewport());
    nothing_->move(margin, margin);

    auto *top = new QHBoxLayout;
    top->addWidget(title_, 1);
    top->addWidget(close);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(margin);
    column->addLayout(top);
    column->addWidget(filter_);
    column->addWidget(table_, 1);

    filter_->installEventFilter(this);
    connect(filter_, &QLineEdit::textChanged, this, &ArticleSearch::fill);
    connect(close, &QToolButton::clicked, this, &ArticleSearch::leave);
    connect(table_, &QTableWidget::cellDoubleClicked, this, &ArticleSearch::pickCurrent);
}

void ArticleSearch::open(const QString &title, std::vector<Article> articles, const QString &text,
                         const QRect &cell) {
    articles_ = std::move(articles);
    title_->setText(title);
    const auto known = std::ranges::find(articles_, text, &Article::code);
    filter_->setText(known == articles_.end() ? text : QString());
    filter_->selectAll();
    fill(filter_->text());
    if (known != articles_.end())
        table_->selectRow(static_cast<int>(known - articles_.begin()));
    placeBeside(cell);
    show();
    raise();
    // The grid takes the keyboard once more when it has asked, so the search takes it afterwards:
    // at once when all is told, or before the next key if that is there already.
    if (awaited_ == nullptr) {
        awaited_ = window()->windowHandle();
        awaited_->installEventFilter(this);
    }
    QTimer::singleShot(0, this, &ArticleSearch::takeKeyboard);
}

void ArticleSearch::fill(const QString &text) {
    const QStringList words = text.simplified().split(u' ', Qt::SkipEmptyParts);
    table_->setRowCount(0);
    int best = 0;
    bool isBestFound = false;
    for (const Article &article : articles_) {
        if (!matches(article, words))
            continue;
        const int row = table_->rowCount();
        table_->insertRow(row);
        const QString texts[] = {article.code, article.description, article.unit,
                                 shown(article.price, locale())};
        for (int field = 0; field < FieldCount; ++field) {
            auto *item = new QTableWidgetItem(texts[field]);
            if (field == Price)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            table_->setItem(row, field, item);
        }
        if (!isBestFound && article.code.startsWith(text.trimmed(), Qt::CaseInsensitive)) {
            isBestFound = true;
            best = row;
        }
    }
    table_->selectRow(best);
    nothing_->setVisible(table_->rowCount() == 0);
    nothing_->adjustSize();
}

/// Below the cell, above it where there is more room, and inside the form.
void ArticleSearch::placeBeside(const QRect &cell) {
    const QRect room = parentWidget()->rect().adjusted(margin, margin, -margin, -margin);
    const int below = room.bottom() - cell.bottom();
    const int above = cell.top() - room.top();
    const QSize wanted(70 * fontMetrics().averageCharWidth(), 16 * fontMetrics().height());
    const bool isBelow = below >= wanted.height() || below >= above;
    const int height = std::min(wanted.height(), std::max(isBelow ? below : above, 0));
    const int width = std::min(wanted.width(), room.width());
    const int left = std::clamp(cell.left(), room.left(), room.right() - width + 1);
    setGeometry(left, isBelow ? cell.bottom() + 1 : cell.top() - height, width, height);
}

void ArticleSearch::takeKeyboard() {
    if (awaited_ == nullptr)
        return;
    std::exchange(awaited_, nullptr)->removeEventFilter(this);
    filter_->setFocus();
}

bool ArticleSearch::eventFilter(QObject *watched, QEvent *event) {
    if (watched == awaited_) {
        if (event->type() == QEvent::KeyPress)
            takeKeyboard();
        return false;
    }
    if (event->type() != QEvent::KeyPress)
        return QFrame::eventFilter(watched, event);
    const int last = table_->rowCount() - 1;
    const int height = std::max(1, table_->verticalHeader()->defaultSectionSize());
    const int page = std::max(1, table_->viewport()->height() / height - 1);
    const auto step = [this, last](int by) {
        table_->selectRow(std::clamp(table_->currentRow() + by, 0, std::max(0, last)));
    };
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Up:
        step(-1);
        return true;
    case Qt::Key_Down:
        step(1);
        return true;
    case Qt::Key_PageUp:
        step(-page);
        return true;
    case Qt::Key_PageDown:
        step(page);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        pickCurrent();
        return true;
    case Qt::Key_Escape:
        leave();
        return true;
    default:
        return QFrame::eventFilter(watched, event);
    }
}

void ArticleSearch::pickCurrent() {
    const QTableWidgetItem *code = table_->item(table_->currentRow(), Code);
    if (code == nullptr)
        return;
    const QString text = code->text();
    hide();
    emit picked(text);
}

void ArticleSearch::leave() {
    hide();
    emit left();
}
