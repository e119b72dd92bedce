#include <tablio/qt/tablio_widget.h>

#include <QApplication>

#include <iostream>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    tablio::qt::TablioWidget widget;
    widget.setCols(3);
    widget.show();
    QApplication::processEvents();
    std::cout << widget.cols() << '\n';
}
