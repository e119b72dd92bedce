/// An order-entry form on an SQLite file: a program such as a user of the control writes first.

#include "order_book.h"
#include "order_window.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPixmap>
#include <QStandardPaths>

#include <cstdio>
#include <memory>
#include <optional>

namespace {

int fail(const QString &message) {
    std::fprintf(stderr, "tablio_demo: %s\n", qUtf8Printable(message));
    return 1;
}

/// Writes down, a line each, what a label shows once it is painted: what an operator could read.
class TellingFilter : public QObject {
public:
    TellingFilter(const QString &file, QLabel &label) : file_(file), label_(label) {
        file_.open(QIODevice::Append);
        label.installEventFilter(this);
    }

    bool eventFilter(QObject * /*label*/, QEvent *event) override {
        if (event->type() == QEvent::Paint && label_.text() != told_) {
            told_ = label_.text();
            file_.write(told_.toUtf8() + '\n');
            file_.flush();
        }
        return false;
    }

private:
    QFile file_;
    QLabel &label_;
    QString told_;
};

QString defaultFile() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
        .filePath(QStringLiteral("order.sqlite"));
}

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tablio_demo"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Order entry, the demo of Tablio. Lines are saved as they are entered."));
    parser.addHelpOption();
    const QCommandLineOption database(QStringLiteral("database"),
                                      QStringLiteral("The order's SQLite file, created if needed."),
                                      QStringLiteral("FILE"), defaultFile());
    const QCommandLineOption sample(QStringLiteral("sample"),
                                    QStringLiteral("Put some lines into an order without any."));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"), QStringLiteral("Draw the window into a PNG file and leave."),
        QStringLiteral("FILE"));
    QCommandLineOption slowHost(QStringLiteral("slow-host"),
                                QStringLiteral("Let every event take so many milliseconds."),
                                QStringLiteral("MS"), QStringLiteral("0"));
    QCommandLineOption told(QStringLiteral("told"),
                            QStringLiteral("Write down what the form says of its problems."),
                            QStringLiteral("FILE"));
    for (QCommandLineOption *forTests : {&slowHost, &told})
        forTests->setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({database, sample, screenshot, slowHost, told});
    parser.process(application);

    const bool interactive = !parser.isSet(screenshot);
    try {
        OrderBook book(parser.value(database));
        if (parser.isSet(sample))
            book.addSample();
        OrderWindow window(book);
        window.eventLog().setDelay(std::chrono::milliseconds(parser.value(slowHost).toInt()));
        std::optional<TellingFilter> telling;
        if (auto *problem = window.findChild<QLabel *>(QStringLiteral("problem"));
            problem != nullptr && parser.isSet(told))
            telling.emplace(parser.value(told), *problem);
        window.show();
        if (interactive)
            return QApplication::exec();
        QCoreApplication::processEvents();
        if (!window.grab().save(parser.value(screenshot)))
            return fail(QStringLiteral("cannot write %1").arg(parser.value(screenshot)));
        return 0;
    } catch (const OrderBookError &error) {
        const QString message =
            QStringLiteral("cannot use %1: %2").arg(parser.value(database), error.message());
        if (interactive)
            QMessageBox::critical(nullptr, {}, message);
        return fail(message);
    }
}
