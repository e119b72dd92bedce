/// QTableWidget, written the way its documentation shows: an item a cell, made by the host.

#include "qt_program.h"

#include <QHeaderView>
#include <QLocale>
#include <QTableWidget>

namespace {

using namespace tablio::bench;

class TableWidget {
public:
    TableWidget(Size size, Kind kind) : kind_(kind) {
        table_.horizontalHeader()->setDefaultSectionSize(colPixels);
        table_.verticalHeader()->setDefaultSectionSize(rowPixels);
        // Numbers and stripes that the view paints by a row's place cost no cell anything.
        table_.verticalHeader()->setVisible(kind == Kind::Full);
        resize(size);
        table_.setAlternatingRowColors(kind == Kind::Full);
        table_.resize(windowWidth, windowHeight);
    }

    void show() {
        table_.show();
        table_.activateWindow();
        table_.setFocus();
        handleEvents();
    }
    void resize(Size size) {
        table_.setColumnCount(size.cols);
        table_.setRowCount(size.rows);
    }
    void bulk(bool on) {
        table_.blockSignals(on);
        table_.setUpdatesEnabled(!on);
    }
    void set(int row, int col, std::string_view text) {
        setString(row, col, QString::fromLatin1(text.data(), text.size()));
    }
    void setString(int row, int col, const QString &shown) {
        if (QTableWidgetItem *item = table_.item(row, col))
            item->setText(shown);
        else
            table_.setItem(row, col, new QTableWidgetItem(shown));
    }
    void formatColumn(int /*col*/) {}
    void setNumber(int row, int col, std::string_view text) {
        QTableWidgetItem &item = itemAt(row, col);
        const QString given = QString::fromLatin1(text.data(), text.size());
        item.setText(locale_.toString(given.toDouble(), 'f', 2));
        item.setData(Qt::UserRole, given);
    }
    void tag(int row, int col) { itemAt(row, col).setData(Qt::UserRole + 1, 1); }
    void paintStripes() {
        if (kind_ == Kind::Full)
            return;
        const QBrush stripe(QColor(0xE6, 0xEE, 0xF5));
        for (int row = 1; row < table_.rowCount(); row += 2) {
            for (int col = keyCol; col < table_.columnCount(); ++col)
                itemAt(row, col).setBackground(stripe);
        }
    }
    void insertRow(int row) {
        table_.removeRow(table_.rowCount() - 1);
        table_.insertRow(row);
    }
    void removeRow(int row) {
        table_.removeRow(row);
        table_.insertRow(table_.rowCount());
    }
    void appendRow() { table_.insertRow(table_.rowCount()); }
    int placeOf(int row, int col) {
        return table_.rowViewportPosition(row) + table_.columnViewportPosition(col);
    }
    void clear() { table_.clearContents(); }
    int duplicateOf(int row) {
        const QString key = keyOf(row).toLower();
        for (int other = 0; other < table_.rowCount(); ++other) {
            if (other != row && keyOf(other).toLower() == key)
                return other;
        }
        return -1;
    }
    int dataCount() {
        for (int row = table_.rowCount() - 1; row >= 0; --row) {
            if (!keyOf(row).isEmpty())
                return row + 1;
        }
        return 0;
    }

    QWidget &window() { return table_; }
    void edit(int row, int col) { table_.setCurrentCell(row, col); }

private:
    QTableWidgetItem &itemAt(int row, int col) {
        QTableWidgetItem *item = table_.item(row, col);
        if (item == nullptr)
            table_.setItem(row, col, item = new QTableWidgetItem);
        return *item;
    }
    QString keyOf(int row) const {
        const QTableWidgetItem *item = table_.item(row, keyCol);
        return item != nullptr ? item->text().trimmed() : QString();
    }

    Kind kind_;
    QLocale locale_{QLocale::English};
    QTableWidget table_;
};

} // namespace

int main(int count, char **arguments) { return runQtProgram<TableWidget>(count, arguments); }
