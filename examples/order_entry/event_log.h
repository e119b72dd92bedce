#pragma once

/// Says which events the control raises, and with which arguments. Only the demo's status bar needs
/// it: a host hears the events that it cares about (see order_sheet.cpp).

#include <QObject>
#include <QString>
#include <QStringList>

#include <chrono>

namespace tablio::qt {
class TablioWidget;
}

class EventLog : public QObject {
    Q_OBJECT

public:
    explicit EventLog(tablio::qt::TablioWidget &grid, QObject *parent = nullptr);

    /// Makes each event take so much longer, as a host with much to do would.
    void setDelay(std::chrono::milliseconds delay) { delay_ = delay; }

signals:
    /// The last of what one action of the operator has raised, in its order.
    void heard(const QString &events);

private:
    void hear(const QString &event, const QStringList &arguments);
    [[nodiscard]] QString cell(int row, int col) const;

    tablio::qt::TablioWidget &grid_;
    std::chrono::milliseconds delay_{0};
    QStringList events_;
};
