/// An operator who types as fast as the form takes it, until somebody kills the form: each row of
/// the table "item" whose count is not yet so gets name, count, price and code that belong
/// together. What was saved is printed, a row a line.
///
///   tablio_binding_typist DATABASE COUNT

#include "bound_form.h"

#include <QApplication>
#include <QSqlQuery>

#include <cstdio>

int main(int argc, char **argv) {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    const QApplication application(argc, argv);
    if (argc != 3)
        return 2;
    QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE");
    database.setDatabaseName(QString::fromLocal8Bit(argv[1]));
    if (!database.open())
        return 1;
    const QString count = QString::fromLatin1(argv[2]);
    BoundForm form(database);
    QObject::connect(form.binding, &tablio::qt::TablioModelBinding::rowSaved, form.grid.data(),
                     [](int row) {
                         std::printf("%d\n", row);
                         std::fflush(stdout);
                     });
    for (int row = 1; row < form.grid->rows(); ++row) {
        if (form.grid->isEmpty(row, 0) || form.grid->value(row, 1).toString() == count)
            continue;
        form.grid->focusCell(row, 0);
        form.enter(QStringLiteral("row %1 of %2\n%2\n%3.%2\nc%1-%2\n")
                       .arg(QString::number(row), count, QString::number(row % 900)));
    }
    form.after->setFocus();
    BoundForm::settle();
    return form.binding->save() ? 0 : 1;
}
