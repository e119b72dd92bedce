/// Runs the widget's tests on an application that looks the same on every machine.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>
#include <QLocale>
#include <QStyleFactory>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    QApplication::setFont(font);
    return RUN_ALL_TESTS();
}
