/// QTableView on a QStandardItemModel, which is filled before and while it is shown.

#include "qt_program.h"

#include <QHeaderView>
#include <QLocale>
#include <QStandardItemModel>
#include <QTableView>

namespace {

using namespace tablio::bench;

class TableView {
public:
    TableView(Size size, Kind kind) : kind_(kind) {
        view_.setModel(&model_);
        view_.horizontalHeader()->setDefaultSectionSize(colPixels);
        view_.verticalHeader()->setDefaultSectionSize(rowPixels);
        view_.verticalHeader()->hide();
        resize(size);
        view_.setAlternatingRowColors(kind == Kind::Full);
        view_.resize(windowWidth, windowHeight);
        renumber(0);
    }

    void show() {
        view_.show();
        view_.activateWindow();
        view_.setFocus();
        handleEvents();
    }
    void resize(Size size) {
        model_.setColumnCount(size.cols);
        model_.setRowCount(size.rows);
    }
    void bulk(bool on) { view_.setUpdatesEnabled(!on); }
    void set(int row, int col, std::string_view text) {
        const QString shown = QString::fromLatin1(text.data(), text.size());
        if (QStandardItem *item = model_.item(row, col))
            item->setText(shown);
        else
            model_.setItem(row, col, new QStandardItem(shown));
    }
    void formatColumn(int /*col*/) {}
    void setNumber(int row, int col, std::string_view text) {
        QStandardItem &item = itemAt(row, col);
        const QString given = QString::fromLatin1(text.data(), text.size());
        item.setText(locale_.toString(given.toDouble(), 'f', 2));
        item.setData(given, Qt::UserRole);
    }
    void tag(int row, int col) { itemAt(row, col).setData(1, Qt::UserRole + 2); }
    void paintStripes() {
        if (kind_ == Kind::Full)
            return;
        const QBrush stripe(QColor(0xE6, 0xEE, 0xF5));
        for (int row = 1; row < model_.rowCount(); row += 2) {
            for (int col = keyCol; col < model_.columnCount(); ++col)
                itemAt(row, col).setBackground(stripe);
        }
    }
    void insertRow(int row) {
        model_.removeRow(model_.rowCount() - 1);
        model_.insertRow(row);
        renumber(row);
    }
    void removeRow(int row) {
        model_.removeRow(row);
        model_.insertRow(model_.rowCount());
        renumber(row);
    }
    void clear() {
        const Size size{model_.rowCount(), model_.columnCount()};
        model_.clear();
        resize(size);
        renumber(0);
    }
    int duplicateOf(int row) {
        const QString key = keyOf(row).toLower();
        for (int other = 0; other < model_.rowCount(); ++other) {
            if (other != row && keyOf(other).toLower() == key)
                return other;
        }
        return -1;
    }
    int dataCount() {
        for (int row = model_.rowCount() - 1; row >= 0; --row) {
            if (!keyOf(row).isEmpty())
                return row + 1;
        }
        return 0;
    }

    QWidget &window() { return view_; }
    QWidget &canvas() { return *view_.viewport(); }
    void edit(int row, int col) { view_.setCurrentIndex(model_.index(row, col)); }

private:
    QStandardItem &itemAt(int row, int col) {
        QStandardItem *item = model_.item(row, col);
        if (item == nullptr)
            model_.setItem(row, col, item = new QStandardItem);
        return *item;
    }
    QString keyOf(int row) const {
        const QStandardItem *item = model_.item(row, keyCol);
        return item != nullptr ? item->text().trimmed() : QString();
    }
    void renumber(int from) {
        if (kind_ != Kind::Full)
            return;
        bulk(true);
        for (int row = from; row < model_.rowCount(); ++row)
            itemAt(row, 0).setText(QString::number(row + 1));
        bulk(false);
    }

    Kind kind_;
    QLocale locale_{QLocale::English};
    QStandardItemModel model_;
    QTableView view_;
};

} // namespace

int main(int count, char **arguments) { return runQtProgram<TableView>(count, arguments); }
