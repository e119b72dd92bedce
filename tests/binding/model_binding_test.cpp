/// A grid on a model that keeps what it is given, and the grid itself as a model.

#include "qt/grid_window.h"

#include <tablio/qt/tablio_item_model.h>
#include <tablio/qt/tablio_model_binding.h>

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>

using tablio::qt::TablioItemModel;
using tablio::qt::TablioModelBinding;
using tablio::qt::TablioWidget;
using tablio::qt::TablioWriteTrouble;

namespace {

using Tester = QAbstractItemModelTester;

class ModelBinding : public testing::Test {
protected:
    ModelBinding() {
        for (const char *name : {"bolt", "nut", "washer"})
            model.appendRow({new QStandardItem(name), new QStandardItem(), new QStandardItem()});
        model.setData(model.index(0, 1), 1250);
        model.setData(model.index(1, 2), 10);
        binding = new TablioModelBinding(form.grid, &model);
        binding->bind({.gridColumn = 0, .modelColumn = 0});
        binding->bind({.gridColumn = 2, .modelColumn = 1, .empty = 0, .places = 2});
        binding->bind({.gridColumn = 3, .modelColumn = 2, .list = &units});
        units.appendRow({new QStandardItem("10"), new QStandardItem("BOX")});
        units.appendRow({new QStandardItem("20"), new QStandardItem("PIECE")});
        binding->load();
        QCoreApplication::processEvents();
    }

    GridWindow form;
    QStandardItemModel units;
    QStandardItemModel model;
    TablioModelBinding *binding = nullptr;

    void enter(const QString &keys) {
        form.type(keys);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QVariant held(int row, int col) const { return model.index(row, col).data(); }
};

TEST_F(ModelBinding, CountsInHundredthsAndKeepsKeys) {
    EXPECT_EQ(form.cell(1, 2), "12.50");
    EXPECT_EQ(form.cell(2, 2), "") << "0 stands for nothing here";
    EXPECT_EQ(form.cell(2, 3), "BOX");
    enter("screw\n\t0.07\npiece\n");
    EXPECT_EQ(held(0, 0), "screw");
    EXPECT_EQ(held(0, 1), 7);
    EXPECT_EQ(held(0, 2), "20");
    form.grid->clearCell(1, 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(held(0, 1), 0);
}

TEST_F(ModelBinding, FollowsTheModel) {
    enter("mine\n");
    model.setData(model.index(0, 1), 99);
    EXPECT_EQ(form.cell(1, 2), "0.99");
    model.setData(model.index(0, 0), "theirs");
    EXPECT_EQ(binding->trouble(1).kind, TablioWriteTrouble::Conflict);
    EXPECT_EQ(form.cell(1, 0), "mine");

    model.sort(0, Qt::DescendingOrder);
    form.grid->setValue(2, 0, "nail");
    QCoreApplication::processEvents();
    EXPECT_EQ(model.findItems("nail").size(), 1);
    EXPECT_EQ(model.findItems("nut").size(), 0) << "the row of the nut, wherever it is now";

    model.removeRow(model.findItems("washer").front()->row());
    EXPECT_EQ(form.cell(3, 0), "");
    model.appendRow(new QStandardItem("pin"));
    EXPECT_EQ(form.cell(3, 0), "pin");
    model.removeRow(model.findItems("theirs").front()->row());
    EXPECT_TRUE(binding->save());
    EXPECT_EQ(model.findItems("mine").size(), 1) << "what was entered is a row again";
}

TEST_F(ModelBinding, AsksTheHostBeforeItWrites) {
    binding->setRowCheck([this](int row) {
        return form.cell(row, 0) == "bad" ? QStringLiteral("no such name") : QString();
    });
    enter("bad\n");
    form.grid->focusCell(2, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(binding->problem(), "Not saved: row 1 (no such name).");
    EXPECT_EQ(held(0, 0), "bolt");
    EXPECT_FALSE(binding->save());
    form.grid->setValue(1, 0, "bolt");
    QCoreApplication::processEvents();
    EXPECT_TRUE(binding->isSaved()) << "it is what it was";
    EXPECT_EQ(binding->problem(), "");
}

/// Whoever changes the table, the model tells it as Qt's own models do.
TEST(ItemModel, IsAModel) {
    GridWindow form;
    TablioItemModel model(form.grid);
    const Tester tester(&model, Tester::FailureReportingMode::Fatal);
    QSortFilterProxyModel proxy;
    const Tester proxied(&proxy, Tester::FailureReportingMode::Fatal);
    proxy.setSourceModel(&model);
    proxy.setFilterRegularExpression("^n");
    form.grid->setEntryRules(TablioWidget::Careful);
    form.type("nut\n12\n1.5\nx\nbolt\n7\n\ty\nnail\n");
    EXPECT_EQ(model.rowCount(), 30);
    EXPECT_EQ(model.index(0, 2).data(), "1.50");
    EXPECT_EQ(model.index(0, 2).data(Qt::EditRole), 1.5);
    EXPECT_EQ(model.index(1, 2).data(Qt::EditRole), QVariant());
    EXPECT_EQ(model.headerData(1, Qt::Horizontal), "Count");
    EXPECT_EQ(proxy.rowCount(), 2);
    EXPECT_EQ(proxy.index(1, 0).data(), "nail");

    const auto marked = [&](int row, void (TablioWidget::*how)(int)) {
        form.grid->focusCell(row, 0);
        form.grid->markActiveRow();
        (form.grid->*how)(row);
    };
    marked(1, &TablioWidget::insertRow);
    EXPECT_EQ(model.index(1, 0).data(), "nut");
    marked(3, &TablioWidget::removeRow);
    EXPECT_EQ(model.index(2, 0).data(), "nail");
    form.grid->addRow();
    form.grid->setRows(40);
    form.grid->setRows(10);
    form.grid->setCheckBoxes(1);
    const int ticks = form.grid->cols() - 1;
    form.grid->check(2, true);
    EXPECT_EQ(model.index(1, ticks).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_TRUE(model.setData(model.index(2, ticks), Qt::Checked, Qt::CheckStateRole));
    EXPECT_TRUE(form.grid->checked(3));
    form.grid->tableClear();
    EXPECT_EQ(proxy.rowCount(), 0);
    form.grid->undoTableClear();
    EXPECT_EQ(proxy.rowCount(), 2);

    EXPECT_TRUE(proxy.setData(proxy.index(0, 1), 5));
    EXPECT_EQ(form.cell(2, 1), "5");
    EXPECT_FALSE(model.setData(model.index(0, 1), "many"));
    delete form.grid;
    EXPECT_EQ(model.rowCount(), 0);
}

} // namespace
