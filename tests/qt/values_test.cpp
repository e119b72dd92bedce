/// Cells as QVariants, and what the widget tells of changes.

#include <tablio/errors.h>
#include <tablio/qt/cell_variant.h>
#include <tablio/qt/tablio_widget.h>

#include <QDate>
#include <QDateTime>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace tablio::qt {
namespace {

class ValuesTest : public testing::Test {
protected:
    ValuesTest() {
        grid.setLocale(QLocale(QLocale::German));
        grid.setRows(3);
        grid.setCols(5);
        grid.setPrimaryColumn(0);
        const auto column = [this](int col, TablioWidget::ColumnType type, const QString &format) {
            grid.setColProperty(col, {}, 1000, TablioWidget::ColumnInput, type,
                                TablioWidget::ColumnLeft, TablioWidget::ColumnLeft, 64, format);
        };
        column(0, TablioWidget::ColumnString, {});
        column(1, TablioWidget::ColumnDecimal, QStringLiteral("#,##0.00"));
        column(2, TablioWidget::ColumnInteger, {});
        column(3, TablioWidget::ColumnDate, QStringLiteral("##/##/####"));
        grid.setCheckBoxes(1);
    }
    TablioWidget grid;
};

TEST_F(ValuesTest, CellsTakeAndGiveQtsOwnTypes) {
    const QVariantList row{QStringLiteral("Bolt"), 1234.5, 7LL, QDate(2004, 3, 5), true};
    grid.setRowValues(1, row);
    EXPECT_EQ(grid.rowValues(1), row);
    EXPECT_EQ(grid.textMatrix(1, 1), QStringLiteral("1234,5"));
    // More digits than a double has: the text means the same number in any locale.
    grid.setValue(1, 1, QStringLiteral("123456789012345678.05"));
    EXPECT_EQ(grid.value(1, 1), QVariant(QStringLiteral("123456789012345678.05")));
    grid.setValue(1, 1, 0.75F);
    EXPECT_EQ(grid.value(1, 1), QVariant(0.75));
    grid.setValue(1, 2, 18446744073709551615ULL);
    EXPECT_EQ(grid.value(1, 2).toString(), QStringLiteral("18446744073709551615"));
    grid.setValue(1, 3, QDateTime(QDate(2004, 12, 31), QTime(23, 59)));
    EXPECT_EQ(grid.value(1, 3), QVariant(QDate(2004, 12, 31)));
    for (int col = 0; col < 4; ++col) {
        EXPECT_FALSE(grid.isEmpty(1, col));
        grid.setValue(1, col, col == 0 ? QVariant(QString()) : QVariant());
        EXPECT_TRUE(grid.isEmpty(1, col));
        EXPECT_TRUE(grid.value(1, col).isNull());
    }
    EXPECT_THROW(grid.setValue(1, 2, QStringLiteral("0,75")), TypeMismatch);
    EXPECT_THROW(grid.setValue(1, 0, QVariant::fromValue<QObject *>(&grid)), TypeMismatch);
    EXPECT_EQ(grid.appendRows({{QStringLiteral("A"), 1}, {}, {QStringLiteral("B"), 2, 3}}), 1);
    EXPECT_EQ(grid.rows(), 4);
    EXPECT_EQ(grid.value(3, 2), QVariant(3LL));
    EXPECT_TRUE(grid.value(1, 2).isNull());
}

TEST_F(ValuesTest, EveryChangeIsASignal) {
    QSignalSpy cells(&grid, &TablioWidget::cellChanged);
    QSignalSpy inserted(&grid, &TablioWidget::rowsInserted);
    QSignalSpy cleared(&grid, &TablioWidget::tableCleared);
    grid.setValue(1, 1, 2);
    grid.check(2, true);
    EXPECT_EQ(cells, (QList<QVariantList>{{1, 1}, {2, 4}}));
    grid.addRow();
    EXPECT_EQ(inserted, (QList<QVariantList>{{3, 1}}));
    grid.tableClear();
    EXPECT_EQ(cleared.count(), 1);
    // A slot may delete the widget, and what it throws stops here.
    auto *other = new TablioWidget;
    other->setRows(3);
    QObject::connect(other, &TablioWidget::cellChanged, [other](int row, int) {
        if (row == 2)
            delete other;
        else
            throw std::runtime_error("a slot failed");
    });
    other->setValue(1, 0, QStringLiteral("x"));
    EXPECT_EQ(other->value(1, 0), QVariant(QStringLiteral("x")));
    other->setValue(2, 0, QStringLiteral("x"));
}

} // namespace
} // namespace tablio::qt
