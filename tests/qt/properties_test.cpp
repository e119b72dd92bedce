/// The widget as Qt's own tools see it: properties, enumerations, size hints. Its methods the
/// scenarios invoke by name.

#include "grid_window.h"

#include <tablio/members.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QScrollBar>

using tablio::qt::TablioWidget;

TEST(Properties, AllAreWrittenReadAndToldByName) {
    TablioWidget grid;
    grid.setCols(4);
    QStringList told;
    QObject::connect(&grid, &TablioWidget::propertyChanged,
                     [&](const QString &name) { told << name; });
    const QMetaObject &meta = TablioWidget::staticMetaObject;
    for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index) {
        const QMetaProperty property = meta.property(index);
        QString name = QString::fromLatin1(property.name());
        if (!property.isWritable() || name == "settings")
            continue;
        QVariant value = property.read(&grid);
        if (property.typeId() == QMetaType::QColor)
            value = QColor(10, 20 + index, 30);
        else
            value = value.typeId() == QMetaType::Bool ? QVariant(!value.toBool())
                                                      : QVariant(value.toInt() + 1);
        told = QStringList();
        EXPECT_TRUE(property.write(&grid, value)) << property.name();
        const QVariant read = property.read(&grid);
        EXPECT_EQ(property.isEnumType() ? QVariant(read.toInt()) : read, value) << property.name();
        name[0] = name[0].toUpper();
        if (name != "SetStatusCell" && name != "MarkRow") {
            EXPECT_TRUE(told.contains(name)) << property.name();
        }
    }
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

TEST(Properties, EnumerationsHaveTheCoresValues) {
    const QMetaObject &meta = TablioWidget::staticMetaObject;
    for (const tablio::Enumeration &enumeration : tablio::enumerations()) {
        for (const tablio::EnumerationMember &member : enumeration.members) {
            int found = -1;
            for (int index = meta.enumeratorOffset(); index < meta.enumeratorCount(); ++index)
                found = std::max(found, meta.enumerator(index).keyToValue(member.name.data()));
            EXPECT_EQ(found, member.value) << member.name;
        }
    }
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
    for (QScrollBar *bar : grid.findChildren<QScrollBar *>())
        bar->setValue(bar->orientation() == Qt::Vertical ? bar->maximum() : bar->value());
    const tablio::FlexGrid &surface = tablio::Inside::of(grid.core()).state.grid;
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

TEST(Properties, NumbersAndDatesFollowTheLocale) {
    GridWindow w;
    w.grid->setColEditType(3, TablioWidget::ColumnDate);
    w.grid->setLocale(QLocale(QStringLiteral("en_IN")));
    w.grid->focusCell(1, 1);
    w.type("1234567\n");
    EXPECT_EQ(w.cell(1, 1), "12,34,567");
    EXPECT_EQ(w.grid->textMatrix(1, 1), "1234567");
    for (const auto &[locale, pasted] :
         {std::pair("en_US", "3/5/24"), {"en_GB", "5/3/24"}, {"hu_HU", "2024. 03. 05."}}) {
        w.grid->setLocale(QLocale(QLatin1String(locale)));
        QGuiApplication::clipboard()->setText(QLatin1String(pasted));
        w.grid->focusCell(1, 3);
        w.key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(w.box()->text(), "05/03/2024") << locale;
        w.key(Qt::Key_Escape);
    }
    // What the grid itself has copied has the grid's own order.
    w.grid->setLocale(QLocale(QStringLiteral("en_US")));
    w.grid->setTextMatrix(1, 3, QStringLiteral("05/03/2004"));
    w.key(Qt::Key_C, Qt::ControlModifier);
    w.grid->focusCell(2, 3);
    w.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(w.box()->text(), "05/03/2004");
}

TEST(Properties, AFontThatNobodySetIsTheWidgets) {
    GridWindow w;
    EXPECT_EQ(w.grid->cellFontSize(1, 0), w.grid->font().pointSize());
    EXPECT_EQ(w.grid->cellFont(1, 0), w.grid->font().family());
}

TEST(Properties, ANumberIsTheSameInEveryLocaleAndByEveryWay) {
    GridWindow w;
    w.grid->setColFormat(2, QString());
    w.grid->setColMaxLength(2, 0);
    for (const char *name :
         {"de_DE", "de_CH", "fr_FR", "pl_PL", "en_IN", "ar_EG", "fa_IR", "hi_IN", "en_US"}) {
        for (const auto rules : {TablioWidget::Classic, TablioWidget::Careful}) {
            SCOPED_TRACE(std::string(name) + (rules == TablioWidget::Careful ? " careful" : ""));
            const QLocale locale{QLatin1String(name)};
            w.grid->setLocale(locale);
            w.grid->setEntryRules(rules);
            const QString expected = QStringLiteral("-1234567") + locale.decimalPoint() + u'5';
            const auto check = [&](int row, const char *way) {
                EXPECT_EQ(w.grid->textMatrix(row, 2), expected) << way;
                w.grid->focusCell(row, 2);
                w.key(Qt::Key_F2);
                w.key(Qt::Key_Return);
                EXPECT_EQ(w.grid->textMatrix(row, 2), expected) << way << ", looked at";
            };
            w.grid->focusCell(1, 2);
            w.type("-1234567");
            w.compose({}, locale.decimalPoint());
            w.type("5\n");
            check(1, "typed");
            w.grid->focusCell(2, 2);
            w.type("-1234567");
            w.key(Qt::Key_Period, Qt::KeypadModifier);
            w.type("5\n");
            check(2, "keypad");
            const bool isPlain = locale.zeroDigit() == QStringLiteral("0");
            if (!isPlain && rules == TablioWidget::Classic)
                continue; // Digits of other scripts are none there.
            QGuiApplication::clipboard()->setText(locale.toString(-1234567.5, 'f', 1));
            w.grid->focusCell(3, 2);
            w.key(Qt::Key_V, Qt::ControlModifier);
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "a warning";
            w.key(Qt::Key_Return);
            check(3, "pasted");
        }
    }
}
