/// The widget as Qt's own tools see it: properties, enumerations, invokable methods, size hints.

#include "grid_window.h"

#include <gtest/gtest.h>

#include <QDate>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QScrollBar>

using tablio::qt::TablioWidget;

TEST(Properties, AllAreWrittenAndReadByName) {
    TablioWidget grid;
    QStringList changed;
    QObject::connect(&grid, &TablioWidget::propertyChanged,
                     [&](const QString &name) { changed << name; });
    const std::pair<const char *, QVariant> values[] = {
        {"cols", 7},
        {"rows", 12},
        {"fixedRows", 2},
        {"fixedCols", 1},
        {"primaryColumn", 3},
        {"withFixedColumn", true},
        {"checkBoxes", -1},
        {"wordWrap", false},
        {"gridPopUpMenu", false},
        {"rowMinHeight", 500},
        {"headerRowHeight", 700},
        {"setStatusCell", false},
    };
    for (const auto &[name, value] : values) {
        EXPECT_NE(grid.property(name), value) << name << " is its default";
        EXPECT_TRUE(grid.setProperty(name, value)) << name;
        EXPECT_EQ(grid.property(name), value) << name;
    }
    EXPECT_EQ(changed.size(), std::size(values) - 1) << "all but SetStatusCell tell";
    EXPECT_EQ(changed.last(), "HeaderRowHeight");
}

TEST(Properties, ColoursFollowThePaletteUntilTheyAreSet) {
    TablioWidget grid;
    QPalette palette = grid.palette();
    palette.setColor(QPalette::Base, QColor(1, 2, 3));
    grid.setPalette(palette);
    EXPECT_EQ(grid.property("backColorData"), QColor(1, 2, 3));
    const QMetaObject &meta = TablioWidget::staticMetaObject;
    int colours = 0;
    for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index) {
        const QMetaProperty property = meta.property(index);
        if (property.typeId() != QMetaType::QColor)
            continue;
        const QColor colour(10, 20 + index, 30);
        EXPECT_TRUE(property.write(&grid, colour)) << property.name();
        EXPECT_EQ(property.read(&grid), colour) << property.name();
        ++colours;
    }
    EXPECT_EQ(colours, 11);
}

TEST(Properties, EveryTextIsReadAsItWasWritten) {
    TablioWidget grid;
    const QString astral = QString::fromUcs4(U"\U0001F600\U00020000");
    const QString letters = QStringLiteral("Ägäis 5 µg/€ 日本") + astral;
    for (const QString &text : {QString(), QStringLiteral("A"), letters, QString(119, u'x') + u'é',
                                QString(120, u'é'), QString(5000, u'漢'), QString(u'\0') + u'b'}) {
        grid.setTextMatrix(1, 0, text);
        EXPECT_EQ(grid.textMatrix(1, 0), text);
    }
    grid.setTextMatrix(1, 0, QString(QChar(0xD800)) + u'x');
    EXPECT_TRUE(grid.textMatrix(1, 0).endsWith(u'x')) << "half a character harms no other";
}

TEST(Properties, MethodsReachTheRightCellsAndRows) {
    TablioWidget grid;
    grid.setCols(3);
    grid.setRows(6);
    grid.setCheckBoxes(1);
    grid.setTextMatrix(2, 0, "Bolt");
    grid.setTextMatrix(4, 0, " bolt ");
    EXPECT_EQ(grid.findDuplicatePrimaryColumn(2), 4);
    EXPECT_EQ(grid.dataCount(), 4);
    grid.check(4, true);
    EXPECT_TRUE(grid.checked(4));
    EXPECT_FALSE(grid.checked(2));
    grid.setColEditType(1, TablioWidget::ColumnCombo);
    grid.setTextMatrix(2, 1, "kg");
    grid.comboAddItem("m");
    grid.comboAddItem("kg");
    EXPECT_EQ(grid.listIndex(2, 1), 1);
    grid.setCellForeColor(3, 1, QColor(200, 0, 0));
    grid.setCellFontBold(3, 1, true);
    grid.setCellFontSize(3, 1, 14);
    EXPECT_EQ(grid.cellForeColor(3, 1), QColor(200, 0, 0));
    EXPECT_TRUE(grid.cellFontBold(3, 1));
    EXPECT_EQ(grid.cellFontSize(3, 1), 14);
    EXPECT_FALSE(grid.cellFontItalic(3, 1));
    grid.focusCell(2, 0);
    grid.markActiveRow();
    EXPECT_EQ(grid.markRow(), 2);
    grid.removeRow(2);
    EXPECT_FALSE(grid.markStatus());
    EXPECT_EQ(grid.textMatrix(3, 0), " bolt ");
    grid.resetRow(3);
    EXPECT_EQ(grid.dataCount(), 0);
}

TEST(Properties, EnumerationsHaveTheCoresValues) {
    const QMetaObject &meta = TablioWidget::staticMetaObject;
    const auto value = [&](const char *enumeration, const char *key) {
        return meta.enumerator(meta.indexOfEnumerator(enumeration)).keyToValue(key);
    };
    EXPECT_EQ(value("ColumnStyle", "ColumnFixedWithAutoNumber"),
              static_cast<int>(tablio::TColumnStyle::ColumnFixedWithAutoNumber));
    EXPECT_EQ(value("ColumnType", "ColumnCombo"),
              static_cast<int>(tablio::TColumnType::ColumnCombo));
    EXPECT_EQ(value("DataType", "LowerCase"), static_cast<int>(tablio::TDataType::LowerCase));
    EXPECT_EQ(value("DataType", "Negative"), static_cast<int>(tablio::TDataType::Negative));
    EXPECT_EQ(value("CalculationStyle", "CalcStyle"),
              static_cast<int>(tablio::TCalcStyle::CalcStyle));
    EXPECT_EQ(value("ColumnAlignment", "ColumnCentre"),
              static_cast<int>(tablio::TColumnAlignment::ColumnCentre));
}

TEST(Properties, MethodsAreInvokedByName) {
    TablioWidget grid;
    grid.setCols(3);
    EXPECT_TRUE(QMetaObject::invokeMethod(
        &grid, "setColEditType", Q_ARG(int, 1),
        Q_ARG(tablio::qt::TablioWidget::ColumnType, TablioWidget::ColumnDecimal)));
    EXPECT_EQ(grid.colEditType(1), TablioWidget::ColumnDecimal);
    EXPECT_TRUE(QMetaObject::invokeMethod(&grid, "setTextMatrix", Q_ARG(int, 1), Q_ARG(int, 1),
                                          Q_ARG(QString, "1.5")));
    QString text;
    EXPECT_TRUE(QMetaObject::invokeMethod(&grid, "textMatrix", Q_RETURN_ARG(QString, text),
                                          Q_ARG(int, 1), Q_ARG(int, 1)));
    EXPECT_EQ(text, "1.5");
}

TEST(Properties, TagsKeepWhateverAHostPutsIn) {
    TablioWidget grid;
    const QVariant tags[] = {QString("text"), 7, 2.5, true, QDate(2024, 2, 29), QSize(3, 4)};
    for (const QVariant &tag : tags) {
        grid.setCellTag(1, 1, tag);
        EXPECT_EQ(grid.cellTag(1, 1), tag);
        EXPECT_EQ(grid.cellTag(1, 1).typeId(), tag.typeId());
    }
    EXPECT_EQ(grid.cellTag(2, 2).toString(), "");
}

TEST(Layout, ScrollBarsComeWhenTheyAreNeeded) {
    TablioWidget grid;
    grid.setCols(2);
    grid.resize(400, 200);
    grid.show();
    const auto shown = [&] {
        QString bars;
        for (const QScrollBar *bar : grid.findChildren<QScrollBar *>()) {
            if (bar->isVisible())
                bars += bar->orientation() == Qt::Vertical ? "v" : "h";
        }
        return bars;
    };
    EXPECT_EQ(shown(), "");
    grid.setRows(50);
    EXPECT_EQ(shown(), "v");
    grid.setColWidth(0, 9000);
    EXPECT_EQ(shown(), "vh");
    for (QScrollBar *bar : grid.findChildren<QScrollBar *>()) {
        if (bar->orientation() == Qt::Vertical)
            bar->setValue(bar->maximum());
    }
    const tablio::FlexGrid &surface = grid.core().control().state.grid;
    EXPECT_EQ(surface.view.TopRow(), surface.view.maxTopRow());
    EXPECT_LE(surface.view.cellRect(49, 1).bottom(), surface.view.Height());
    grid.setRows(3);
    grid.setColWidth(0, 900);
    EXPECT_EQ(shown(), "");
}

TEST(Layout, RowsFitTheFontUnlessTheHostSaysOtherwise) {
    TablioWidget grid;
    QFont large = grid.font();
    large.setPixelSize(40);
    grid.setFont(large);
    EXPECT_GE(grid.rowHeight(1), grid.fontMetrics().height() * 15);
    EXPECT_GE(grid.minimumSizeHint().height(), 3 * grid.fontMetrics().height());
    grid.setRowMinHeight(250);
    large.setPixelSize(50);
    grid.setFont(large);
    EXPECT_EQ(grid.rowMinHeight(), 250);
}
