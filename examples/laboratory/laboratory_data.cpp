#include "laboratory_data.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDate>
#include <QMessageBox>
#include <QSqlError>
#include <QSqlQuery>
#include <QVBoxLayout>

#include <cstdio>
#include <cstdlib>

namespace {

class Window : public QMainWindow {
public:
    explicit Window(std::function<QString()> obstacle) : obstacle_(std::move(obstacle)) {}

protected:
    void closeEvent(QCloseEvent *event) override {
        const QString reason = obstacle_();
        event->setAccepted(reason.isEmpty() ||
                           QMessageBox::question(this, windowTitle(),
                                                 reason + QStringLiteral("\nLeave it unsaved?")) ==
                               QMessageBox::Yes);
    }

private:
    std::function<QString()> obstacle_;
};

void run(const QSqlDatabase &database, const QString &statement, const QVariantList &values = {}) {
    QSqlQuery query(database);
    query.prepare(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (query.exec())
        return;
    std::fprintf(stderr, "laboratory: %s\n", qUtf8Printable(query.lastError().text()));
    std::exit(1);
}

} // namespace

QSqlDatabase openLaboratory(const QString &file) {
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"));
    database.setDatabaseName(file);
    database.open();
    run(database, QStringLiteral("PRAGMA journal_mode = WAL"));
    database.transaction();
    if (database.tables().contains(QStringLiteral("sample"))) {
        database.rollback();
        return database;
    }
    run(database, QStringLiteral("CREATE TABLE analyte (id INTEGER PRIMARY KEY, name TEXT)"));
    run(database, QStringLiteral("CREATE TABLE sample (id INTEGER PRIMARY KEY, code TEXT UNIQUE,"
                                 " patient TEXT, taken DATE, analyte INTEGER, result NUMERIC,"
                                 " repeats INTEGER, checked INTEGER NOT NULL DEFAULT 0)"));
    const QStringList analytes{QStringLiteral("glucose"), QStringLiteral("potassium"),
                               QStringLiteral("sodium"), QStringLiteral("urea")};
    for (const QString &name : analytes)
        run(database, QStringLiteral("INSERT INTO analyte (name) VALUES (?)"), {name});
    for (int sample = 1; sample <= 500; ++sample)
        run(database,
            QStringLiteral("INSERT INTO sample (code, patient, taken, analyte, result, repeats,"
                           " checked) VALUES (?, ?, ?, ?, ?, ?, ?)"),
            {QStringLiteral("S-%1").arg(sample, 4, 10, QChar(u'0')),
             QStringLiteral("Patient %1").arg(sample * 37 % 211),
             QDate(2026, 1, 1).addDays(sample / 2), 1 + sample % 4,
             // One in seven is still missing.
             sample % 7 == 0 ? QVariant() : QVariant(double(sample * 13 % 997) / 100),
             1 + sample % 3, sample % 5 == 0 ? 1 : 0});
    database.commit();
    return database;
}

int runLaboratory(QWidget *form, QLabel *problem, const std::function<QString()> &obstacle) {
    Window window(obstacle);
    auto *centre = new QWidget;
    auto *column = new QVBoxLayout(centre);
    column->addWidget(form, 1);
    column->addWidget(problem);
    window.setCentralWidget(centre);
    window.setWindowTitle(QStringLiteral("Laboratory"));
    window.resize(900, 500);
    window.show();
    form->setFocus();
    return QApplication::exec();
}
