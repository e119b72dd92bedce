#pragma once

/// A small window of the form that lists the shop's articles, to pick one by a few letters of its
/// code or description. It blocks nothing: the operator may go on in the grid and come back to it.

#include "order_book.h"

#include <QFrame>

#include <vector>

class QLabel;
class QLineEdit;
class QTableWidget;

class ArticleSearch : public QFrame {
    Q_OBJECT

public:
    /// Lies over the other children of its parent.
    explicit ArticleSearch(QWidget *parent);

    /// Shows the articles beside a cell, whose place is in the parent's coordinates. Keys go to the
    /// search from the next one on. The text is what the cell holds: the code of an article, which
    /// is then selected, or what to look for.
    void open(const QString &title, std::vector<Article> articles, const QString &text,
              const QRect &cell);

signals:
    /// The search is closed before either.
    void picked(const QString &code);
    void left();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fill(const QString &text);
    void placeBeside(const QRect &cell);
    void takeKeyboard();
    void pickCurrent();
    void leave();

    std::vector<Article> articles_;
    QLabel *title_;
    QLineEdit *filter_;
    QTableWidget *table_;
    QLabel *nothing_;
    /// The window whose next key is waited for.
    QObject *awaited_ = nullptr;
};
