/// The same form with QTableWidget and delegates, kept to be compared with laboratory_tablio.cpp:
/// what a host writes itself then. It has no menu for rows, no undo, no paste of blocks, and does
/// not see what another program changes.

#include "laboratory_data.h"

#include <QApplication>
#include <QComboBox>
#include <QDate>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QLocale>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QTimer>

namespace {

enum Column { Code, Patient, Taken, Analyte, Result, Repeats, Checked, ColumnCount };

const QStringList fields{"code", "patient", "taken", "analyte", "result", "repeats", "checked"};

/// Numbers and dates as this user writes them, and back.
class ValueDelegate : public QStyledItemDelegate {
public:
    ValueDelegate(int column, QObject *parent) : QStyledItemDelegate(parent), column_(column) {}

    QString displayText(const QVariant &value, const QLocale &locale) const override {
        if (value.isNull())
            return {};
        if (column_ == Taken)
            return value.toDate().toString("dd/MM/yyyy");
        return column_ == Result ? locale.toString(value.toDouble(), 'f', 3)
                                 : locale.toString(value.toInt());
    }
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                          const QModelIndex & /*index*/) const override {
        auto *box = new QLineEdit(parent);
        if (column_ != Taken)
            box->setAlignment(Qt::AlignRight);
        return box;
    }
    void setEditorData(QWidget *editor, const QModelIndex &index) const override {
        static_cast<QLineEdit *>(editor)->setText(displayText(index.data(Qt::EditRole), QLocale()));
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override {
        const QString text = static_cast<QLineEdit *>(editor)->text().trimmed();
        const QLocale locale;
        bool isRead = true;
        QVariant value;
        if (text.isEmpty())
            value = {};
        else if (column_ == Taken)
            value = QDate::fromString(text, "dd/MM/yyyy");
        else if (column_ == Result)
            value = locale.toDouble(text, &isRead);
        else
            value = locale.toInt(text, &isRead);
        // What cannot be read is dropped, and the operator has to see it.
        if (isRead && (column_ != Taken || text.isEmpty() || value.toDate().isValid()))
            model->setData(index, value);
        else
            QApplication::beep();
    }

private:
    int column_;
};

class ChoiceDelegate : public QStyledItemDelegate {
public:
    ChoiceDelegate(QStringList texts, QObject *parent)
        : QStyledItemDelegate(parent), texts_(std::move(texts)) {}

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                          const QModelIndex & /*index*/) const override {
        auto *box = new QComboBox(parent);
        box->addItems(texts_);
        return box;
    }
    void setEditorData(QWidget *editor, const QModelIndex &index) const override {
        static_cast<QComboBox *>(editor)->setCurrentText(index.data().toString());
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override {
        model->setData(index, static_cast<QComboBox *>(editor)->currentText());
    }

private:
    QStringList texts_;
};

/// The rows, their keys, and which of them are not saved.
class Samples : public QTableWidget {
public:
    Samples(const QSqlDatabase &database, QLabel *problem)
        : QTableWidget(0, ColumnCount), database_(database), problem_(problem) {
        setHorizontalHeaderLabels(
            {"Sample", "Patient", "Taken", "Analyte", "Result", "Repeats", "Checked"});
        readAnalytes();
        for (const Column column : {Taken, Result, Repeats})
            setItemDelegateForColumn(column, new ValueDelegate(column, this));
        setItemDelegateForColumn(Analyte, new ChoiceDelegate(analytes_.values(), this));
        load();
        connect(this, &QTableWidget::cellChanged, this, &Samples::noteChange);
        connect(this, &QTableWidget::currentCellChanged, this,
                [this](int row, int, int before, int) {
                    if (row != before)
                        save();
                });
        connect(this, &QTableWidget::cellDoubleClicked, this, &Samples::lookUp);
        connect(&retry_, &QTimer::timeout, this, &Samples::save);
        retry_.setInterval(1000);
        QSqlQuery("PRAGMA busy_timeout = 150", database_);
    }

    /// Whether nothing is left.
    bool save() {
        problems_.clear();
        for (const int row : QSet<int>(unsaved_)) {
            const QString reason = objection(row).isEmpty() ? write(row) : objection(row);
            if (reason.isEmpty())
                unsaved_.remove(row);
            else
                problems_ += QString("row %1 (%2)").arg(row + 1).arg(reason);
            mark(row, reason);
        }
        if (unsaved_.isEmpty())
            retry_.stop();
        else
            retry_.start();
        problem_->setText(problem());
        return unsaved_.isEmpty();
    }
    QString problem() const {
        return problems_.isEmpty() ? QString() : "Not saved: " + problems_.join("; ");
    }

private:
    void readAnalytes() {
        for (QSqlQuery query("SELECT id, name FROM analyte", database_); query.next();)
            analytes_.insert(query.value(0).toInt(), query.value(1).toString());
    }
    void load() {
        QSqlQuery query("SELECT " + fields.join(',') + ", id FROM sample ORDER BY id", database_);
        while (query.next()) {
            appendBlankRow();
            const int row = rowCount() - 1;
            for (int col = 0; col < ColumnCount; ++col) {
                if (col == Checked)
                    item(row, col)->setCheckState(query.value(col).toBool() ? Qt::Checked
                                                                            : Qt::Unchecked);
                else if (col == Analyte)
                    item(row, col)->setText(analytes_.value(query.value(col).toInt()));
                else
                    item(row, col)->setData(Qt::EditRole, query.value(col));
            }
            item(row, Code)->setData(Qt::UserRole, query.value(ColumnCount));
        }
        appendBlankRow();
    }
    void appendBlankRow() {
        insertRow(rowCount());
        for (int col = 0; col < ColumnCount; ++col) {
            auto *cell = new QTableWidgetItem;
            if (col == Checked) {
                cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
                cell->setCheckState(Qt::Unchecked);
            }
            if (col == Result || col == Repeats)
                cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            setItem(rowCount() - 1, col, cell);
        }
    }
    void noteChange(int row, int col) {
        if (isOurs_)
            return;
        isOurs_ = true;
        if (col == Code)
            item(row, Code)->setText(item(row, Code)->text().toUpper());
        if (row == rowCount() - 1)
            appendBlankRow();
        isOurs_ = false;
        unsaved_.insert(row);
    }
    QString objection(int row) const {
        const QString code = item(row, Code)->text();
        if (code.isEmpty())
            return "Sample is missing";
        for (int other = 0; other < rowCount(); ++other) {
            const bool isStored = !item(other, Code)->data(Qt::UserRole).isNull();
            if (other != row && (other < row || isStored) && item(other, Code)->text() == code)
                return QString("%1 is in row %2 already").arg(code).arg(other + 1);
        }
        return {};
    }
    /// Answers why it was not written.
    QString write(int row) {
        const QVariant id = item(row, Code)->data(Qt::UserRole);
        QSqlQuery query(database_);
        query.prepare(id.isNull()
                          ? "INSERT INTO sample (" + fields.join(',') +
                                ") VALUES (?, ?, ?, ?, ?, ?, ?)"
                          : "UPDATE sample SET " + fields.join(" = ?, ") + " = ? WHERE id = ?");
        for (int col = 0; col < ColumnCount; ++col) {
            const QVariant value = item(row, col)->data(Qt::EditRole);
            if (col == Checked)
                query.addBindValue(item(row, col)->checkState() == Qt::Checked ? 1 : 0);
            else if (col == Analyte)
                query.addBindValue(value.toString().isEmpty() ? QVariant()
                                                              : analytes_.key(value.toString()));
            else
                query.addBindValue(value.toString().isEmpty() ? QVariant() : value);
        }
        if (!id.isNull())
            query.addBindValue(id);
        if (!query.exec())
            return query.lastError().databaseText();
        if (id.isNull()) {
            isOurs_ = true;
            item(row, Code)->setData(Qt::UserRole, query.lastInsertId());
            isOurs_ = false;
        }
        return {};
    }
    void mark(int row, const QString &reason) {
        isOurs_ = true;
        item(row, Code)->setForeground(reason.isEmpty() ? QBrush() : QBrush(Qt::red));
        item(row, Code)->setToolTip(reason);
        isOurs_ = false;
    }
    void lookUp(int row, int col) {
        if (col != Patient)
            return;
        QStringList names;
        for (QSqlQuery query("SELECT DISTINCT patient FROM sample ORDER BY patient", database_);
             query.next();)
            names += query.value(0).toString();
        auto *list = new QInputDialog(window());
        list->setComboBoxItems(names);
        list->setLabelText("Patient");
        list->setAttribute(Qt::WA_DeleteOnClose);
        connect(list, &QInputDialog::textValueSelected, this,
                [this, row](const QString &name) { item(row, Patient)->setText(name); });
        list->open();
    }

    QSqlDatabase database_;
    QLabel *problem_;
    QHash<int, QString> analytes_;
    QSet<int> unsaved_;
    QStringList problems_;
    QTimer retry_;
    bool isOurs_ = false;
};

} // namespace

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    auto *problem = new QLabel;
    auto *samples =
        new Samples(openLaboratory(QApplication::arguments().value(1, "samples.db")), problem);
    return runLaboratory(samples, problem, [samples] {
        samples->setCurrentItem(nullptr);
        return samples->save() ? QString() : samples->problem();
    });
}
