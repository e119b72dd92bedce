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
        view_.verticalHeader()->setVisible(kind == Kind::Full);
        resize(size);
        view_.setAlternatingRowColors(kind == Kind::Full);
        view_.resize(windowWidth, windowHeight);
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
    /// Filled by whole rows, each appended when it is complete: an item that is put into a model
    /// one by one is searched for among all others.
    void bulk(bool on) {
        view_.setUpdatesEnabled(!on);
        if (on)
            model_.setRowCount(0);
        else
            finishRow();
        filling_ = on;
    }
    void set(int row, int col, std::string_view text) {
        setString(row, col, QString::fromLatin1(text.data(), text.size()));
    }
    void setString(int row, int col, const QString &text) { itemAt(row, col).setText(text); }
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
    }
    void removeRow(int row) {
        model_.removeRow(row);
        model_.insertRow(model_.rowCount());
    }
    void appendRow() { model_.insertRow(model_.rowCount()); }
    int placeOf(int row, int col) {
        return view_.rowViewportPosition(row) + view_.columnViewportPosition(col);
    }
    void clear() {
        const Size size{model_.rowCount(), model_.columnCount()};
        model_.clear();
        resize(size);
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
    void edit(int row, int col) { view_.setCurrentIndex(model_.index(row, col)); }

private:
    QStandardItem &itemAt(int row, int col) {
        if (filling_)
            return itemOfNewRow(row, col);
        QStandardItem *item = model_.item(row, col);
        if (item == nullptr)
            model_.setItem(row, col, item = new QStandardItem);
        return *item;
    }
    QStandardItem &itemOfNewRow(int row, int col) {
        if (row > model_.rowCount())
            finishRow();
        while (newRow_.size() < model_.columnCount())
            newRow_.append(new QStandardItem);
        return *newRow_[col];
    }
    void finishRow() {
        if (!newRow_.isEmpty())
            model_.appendRow(newRow_);
        newRow_.clear();
    }
    QString keyOf(int row) const {
        const QStandardItem *item = model_.item(row, keyCol);
        return item != nullptr ? item->text().trimmed() : QString();
    }

    Kind kind_;
    QLocale locale_{QLocale::English};
    QStandardItemModel model_;
    QTableView view_;
    QList<QStandardItem *> newRow_;
    bool filling_ = false;
};

} // namespace

int main(int count, char **arguments) { return runQtProgram<TableView>(count, arguments); }
