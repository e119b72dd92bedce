#pragma once

/// The order form, which is drawn in Qt Designer (order_window.ui): the grid, a line with the
/// totals, and a status bar. It shows what the sheet and the event log tell and lets nobody leave
/// with unsaved lines unasked.

#include "article_search.h"
#include "event_log.h"
#include "order_sheet.h"

#include <QMainWindow>

#include <memory>

namespace Ui {
class OrderWindow;
}

class OrderWindow : public QMainWindow {
    Q_OBJECT

public:
    /// The book must outlive the window. Throws OrderBookError.
    explicit OrderWindow(OrderBook &book);
    ~OrderWindow() override;

    [[nodiscard]] EventLog &eventLog() { return *log_; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void showTotals();
    void showRefusal(const QString &reason);
    void searchArticle(int row, const QString &text);
    bool mayClose();

    /// What order_window.ui says: the labels, and the grid with its columns.
    std::unique_ptr<Ui::OrderWindow> ui_;
    OrderBook &book_;
    /// What was not taken of what was entered last.
    QStringList refusals_;
    // Qt's ownership: all of them are children of the window.
    OrderSheet *sheet_;
    ArticleSearch *search_;
    EventLog *log_;
};
