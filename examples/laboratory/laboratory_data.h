#pragma once

/// The laboratory's table and what a program of any kind does around its form: it opens the file,
/// fills it once, and has a window with a label. Neither form counts it as its own code.

#include <QLabel>
#include <QMainWindow>
#include <QSqlDatabase>

#include <functional>

/// Opens, and where needed makes, a file with 500 samples and a few analytes. Ends the program with
/// a word where it cannot.
QSqlDatabase openLaboratory(const QString &file);

/// Shows a form in a window with a line for what is wrong below it, and asks before it closes what
/// stands in its way; nothing closes it. Answers what the program ends with.
int runLaboratory(QWidget *form, QLabel *problem, const std::function<QString()> &obstacle);
