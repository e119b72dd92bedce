/// A laboratory's samples on a TablioWidget: text, date, choice, decimal, whole number and tick,
/// patients by a lookup, in an SQLite table, saved when a row is left.

#include "laboratory_data.h"

#include <tablio/qt/tablio_sql_binding.h>
#include <tablio/qt/tablio_widget.h>

#include <QApplication>
#include <QInputDialog>
#include <QSqlQuery>
#include <QSqlRelationalTableModel>

using tablio::qt::TablioSqlBinding;
using tablio::qt::TablioWidget;

namespace {

enum Column { Number, Code, Patient, Taken, Analyte, Result, Repeats, Checked };

void setUpColumns(TablioWidget &grid) {
    grid.setEntryRules(TablioWidget::Careful);
    grid.setCols(8);
    grid.setWithFixedColumn(true);
    grid.setFixedCols(1);
    grid.setPrimaryColumn(Code);
    grid.setGridPopUpMenu(true);
    const auto right = TablioWidget::ColumnRight;
    const auto left = TablioWidget::ColumnLeft;
    const auto input = TablioWidget::ColumnInput;
    grid.setColProperty(Number, "No.", 700, TablioWidget::ColumnFixedWithAutoNumber);
    grid.setColProperty(Code, "Sample", 1500, input);
    grid.setColDataType(Code, TablioWidget::UpperCase);
    grid.setColProperty(Patient, "Patient", 2400, TablioWidget::ColumnInputWithLookup);
    grid.setColProperty(Taken, "Taken", 1500, input, TablioWidget::ColumnDate, left, left, 10,
                        "##/##/####");
    grid.setColProperty(Analyte, "Analyte", 1800, input, TablioWidget::ColumnCombo);
    grid.setColProperty(Result, "Result", 1400, input, TablioWidget::ColumnDecimal, right, right,
                        12, "###,##0.000");
    grid.setColProperty(Repeats, "Repeats", 1200, input, TablioWidget::ColumnInteger, right, right,
                        3, "##0");
    grid.setCheckBoxes(1);
    grid.setColTextHeader(Checked, "Checked");
}

} // namespace

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    const QSqlDatabase database = openLaboratory(QApplication::arguments().value(1, "samples.db"));
    auto *grid = new TablioWidget;
    auto *problem = new QLabel;
    setUpColumns(*grid);

    QSqlRelationalTableModel samples(nullptr, database);
    samples.setTable("sample");
    samples.setSort(0, Qt::AscendingOrder);
    samples.setRelation(samples.fieldIndex("analyte"), QSqlRelation("analyte", "id", "name"));
    samples.select();

    auto *binding = new TablioSqlBinding(grid, &samples);
    int col = Code;
    for (const char *field :
         {"code", "patient", "taken", "analyte", "result", "repeats", "checked"})
        binding->bindField(col++, field);
    binding->setRowCheck([&](int row) {
        const int other = grid->findDuplicatePrimaryColumn(row);
        return other > 0 && (other < row || binding->isStored(other))
                   ? QString("%1 is in row %2 already").arg(grid->textMatrix(row, Code)).arg(other)
                   : QString();
    });
    QObject::connect(binding, &TablioSqlBinding::changed,
                     [&] { problem->setText(binding->problem()); });
    QObject::connect(grid, &TablioWidget::editLookup, grid, [&](int row, int at) {
        QStringList names;
        for (QSqlQuery query("SELECT DISTINCT patient FROM sample ORDER BY patient", database);
             query.next();)
            names += query.value(0).toString();
        auto *list = new QInputDialog(grid->window());
        list->setComboBoxItems(names);
        list->setLabelText("Patient");
        list->setAttribute(Qt::WA_DeleteOnClose);
        QObject::connect(list, &QInputDialog::textValueSelected, grid,
                         [=](const QString &name) { grid->setLookupResult(row, at, name); });
        list->open();
    });
    binding->load();
    return runLaboratory(grid, problem, [&] {
        return grid->commit() && binding->save() ? QString() : binding->problem();
    });
}
