/// The Qt widget. A host that has UTF-8 hands it to the widget's core, one that has QStrings to the
/// widget.

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
    void bulk(bool on) {
        widget.blockSignals(on);
        TablioTable::bulk(on);
    }
    void setString(int row, int col, const QString &text) {
        widget.setTextMatrix(row + 1, col, text);
    }

    QWidget &window() { return widget; }
    void edit(int row, int col) { widget.focusCell(row + 1, col); }
};

} // namespace

int main(int count, char **arguments) {
    return runQtProgram<TablioQt>(count, arguments, ownWorks<TablioQt>);
}
