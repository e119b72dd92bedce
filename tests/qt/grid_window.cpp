#include "grid_window.h"

#include <QInputMethodEvent>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>

using tablio::qt::TablioWidget;

GridWindow::GridWindow() {
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(before = new QLineEdit);
    layout->addWidget(grid = new TablioWidget);
    layout->addWidget(after = new QLineEdit);
    grid->setCols(4);
    grid->setRows(31);
    grid->setColProperty(0, "Name", 2400, TablioWidget::ColumnInput);
    grid->setColProperty(1, "Count", 1200, TablioWidget::ColumnInput, TablioWidget::ColumnInteger,
                         TablioWidget::ColumnRight, TablioWidget::ColumnRight, 9, "###,##0");
    grid->setColProperty(2, "Price", 1500, TablioWidget::ColumnInput, TablioWidget::ColumnDecimal,
                         TablioWidget::ColumnRight, TablioWidget::ColumnRight, 12, "###,##0.00");
    grid->setColProperty(3, "Code", 1500, TablioWidget::ColumnInput);
    grid->setColDataType(3, TablioWidget::UpperCase);
    window.resize(520, 320);
    window.show();
    window.activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(&window));
    grid->setFocus();
    QCoreApplication::processEvents();
}

void GridWindow::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window.windowHandle(), key, modifiers);
}

void GridWindow::type(const QString &text) {
    for (const QChar character : text) {
        if (character == u'\n')
            key(Qt::Key_Return);
        else if (character == u'\t')
            key(Qt::Key_Right);
        else
            QTest::keyClick(window.windowHandle(), character.toLatin1());
    }
}

void GridWindow::click(int row, int col, Qt::MouseButton button) {
    QTest::mouseClick(window.windowHandle(), button, {}, place(row, col).center());
}

void GridWindow::doubleClick(int row, int col) {
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, place(row, col).center());
}

void GridWindow::wheel(int notches, Qt::KeyboardModifiers modifiers) {
    const QPoint at = canvas()->mapTo(&window, canvas()->rect().center());
    QWheelEvent event(at, window.mapToGlobal(at), {}, {0, notches * 120}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window.windowHandle(), &event);
}

void GridWindow::compose(const QString &preedit, const QString &commit) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QCoreApplication::sendEvent(QGuiApplication::focusObject(), &event);
}

QString GridWindow::cell(int row, int col) const {
    return QString::fromStdString(std::string(state().grid.table.TextMatrix(row, col)));
}

QString GridWindow::cursor() const {
    const tablio::FlexGrid &surface = state().grid;
    const bool isOpen = tablio::Inside::of(grid->core()).session.isOpen();
    return QStringLiteral("%1,%2%3").arg(surface.Row()).arg(surface.Col()).arg(isOpen ? "!" : "");
}

QLineEdit *GridWindow::box() const { return grid->findChild<QLineEdit *>("qt_txtEdit"); }

QWidget *GridWindow::canvas() const { return grid->findChild<QWidget *>("qt_grid"); }

QRect GridWindow::place(int row, int col) const {
    const tablio::Rect rect = state().grid.view.cellRect(row, col);
    return {canvas()->mapTo(&window, QPoint(rect.left / 15, rect.top / 15)),
            QSize(rect.width / 15, rect.height / 15)};
}
