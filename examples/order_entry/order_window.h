#pragma once

/// The order form: the grid, a line with the totals, and a status bar. It shows what the sheet and
/// the event log tell and lets nobody leave with unsaved lines unasked.

#include "article_search.h"
#include "event_log.h"
#include "order_sheet.h"

#include <QMainWindow>

class QLabel;

class OrderWindow : public QMainWindow {
    Q_OBJECT

public:
    /// The book must outlive the window. Throws OrderBookError.
    explicit OrderWindow(OrderBook &book);

    [[nodiscard]] EventLog &eventLog() { return *log_; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void showTotals();
    void searchArticle(int row, const QString &text);
    bool mayClose();

    OrderBook &book_;
    // Qt's ownership: all of them are children of the window.
    tablio::qt::TablioWidget *grid_;
    OrderSheet *sheet_;
    ArticleSearch *search_;
    EventLog *log_;
    QLabel *lineCount_;
    QLabel *problem_;
    QLabel *sum_;
};
