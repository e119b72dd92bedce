/// Runs the tests of the Designer plug-in on an application that looks the same on every machine
/// and keeps no settings of the user's.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>
#include <QLocale>
#include <QStandardPaths>
#include <QStyleFactory>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication application(argc, argv);
    QApplication::addLibraryPath(QStringLiteral(TABLIO_PLUGINS));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    QApplication::setFont(font);
    return RUN_ALL_TESTS();
}
