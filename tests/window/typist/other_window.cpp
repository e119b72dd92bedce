/// Another application for the typist: a window that takes the keyboard for a while, and the owner
/// of the clipboard. It does what lines of JSON on its standard input say and answers each.

#include <QApplication>
#include <QClipboard>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLineEdit>
#include <QSocketNotifier>

#include <cstdio>
#include <iostream>
#include <string>
#include <unistd.h>

namespace {

/// ["copy", TEXT] or ["typed"].
QString answer(const QJsonArray &request, QLineEdit &box) {
    if (request.at(0).toString() == QLatin1String("copy"))
        QApplication::clipboard()->setText(request.at(1).toString());
    const QString typed = box.text();
    box.clear();
    return typed;
}

} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QLineEdit box;
    box.setWindowTitle(QStringLiteral("Other window"));
    box.show();
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &box, [&box] {
        std::string line;
        if (!std::getline(std::cin, line))
            return QApplication::quit();
        const QJsonArray request = QJsonDocument::fromJson(QByteArray::fromStdString(line)).array();
        const QJsonArray answers{answer(request, box)};
        std::puts(QJsonDocument(answers).toJson(QJsonDocument::Compact).constData());
        std::fflush(stdout);
    });
    return QApplication::exec();
}
