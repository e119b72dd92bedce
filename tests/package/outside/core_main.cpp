#include <tablio/tablio.h>

#include <iostream>

int main() {
    tablio::Tablio table;
    table.setCols(3);
    std::cout << table.Cols() << '\n';
}
