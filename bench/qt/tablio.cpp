/// The Qt widget, filled by a host that has its texts as QStrings.

#include "qt_program.h"
#include "tablio_table.h"

#include <tablio/qt/tablio_widget.h>

namespace {

using namespace tablio::bench;

struct OwnedWidget {
    tablio::qt::TablioWidget widget;
};

class TablioQt : private OwnedWidget, public TablioTable {
public:
    TablioQt(Size size, Kind kind) : TablioTable(widget.core(), size, kind) {
        widget.resize(windowWidth, windowHeight);
    }

    void show() {
        widget.show();
        widget.activateWindow();
        widget.setFocus();
        handleEvents();
    }
    void set(int row, int col, std::string_view text) {
        widget.setTextMatrix(row + 1, col, QString::fromLatin1(text.data(), text.size()));
    }
    void setNumber(int row, int col, std::string_view text) { set(row, col, text); }

    QWidget &window() { return widget; }
    void edit(int row, int col) { widget.focusCell(row + 1, col); }
};

} // namespace

int main(int count, char **arguments) { return runQtProgram<TablioQt>(count, arguments); }
