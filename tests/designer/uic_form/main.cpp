/// The checked-in form as a program of its own, by the way of uic. It prints the settings of the
/// widget that runs and checks that they are what an operator works with.

#include "ui_order.h"

#include <QApplication>
#include <QFont>

#include <cstdio>

namespace {

bool works(tablio::qt::TablioWidget &grid) {
    using Widget = tablio::qt::TablioWidget;
    grid.setTextMatrix(1, 2, QStringLiteral("1234.5"));
    return grid.rows() == 25 && grid.colTextHeader(1) == QStringLiteral("Article") &&
           grid.colStyle(1) == Widget::ColumnInputWithLookup &&
           grid.colDataType(1) == Widget::UpperCase &&
           grid.colTextHeader(2) == QStringLiteral("Preis \u20ac") &&
           grid.core().TextMatrix(2, 0) == "2" && grid.textMatrix(1, 2) == QStringLiteral("1234.5");
}

} // namespace

int main(int argc, char **argv) {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication application(argc, argv);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    QApplication::setFont(font);

    QWidget window;
    Ui::Order form;
    form.setupUi(&window);
    window.show();
    const QByteArray settings = form.tablio->settings();
    std::fwrite(settings.constData(), 1, static_cast<std::size_t>(settings.size()), stdout);
    return works(*form.tablio) ? 0 : 1;
}
