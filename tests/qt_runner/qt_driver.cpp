#include "qt_runner/qt_driver.h"

#include "control/inside.h"
#include <tablio/testing/script.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QWindow>

#include <array>
#include <stdexcept>
#include <string>
#include <utility>

namespace tablio::scenario {

namespace {

constexpr int twipsPerPixel = 15;

/// The text of the handler that failed last, which the widget reports instead of throwing it
/// through Qt.
std::string &failure() {
    static std::string text;
    return text;
}

void rememberFailure(QtMsgType type, const QMessageLogContext &, const QString &message) {
    const QString start = QStringLiteral("Tablio: a handler failed: ");
    if (type == QtCriticalMsg && message.startsWith(start))
        failure() = message.mid(start.size()).toStdString();
    else
        fprintf(stderr, "%s\n", qPrintable(message));
}

/// Throws what handlers threw while this object lived.
template <typename Action> void delivering(Action action) {
    failure().clear();
    const QtMessageHandler before = qInstallMessageHandler(rememberFailure);
    action();
    QCoreApplication::processEvents();
    qInstallMessageHandler(before);
    if (!failure().empty())
        throw Error(failure());
}

QString asQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

struct QtKey {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

/// A user puts a warning or a menu aside before going on with the grid.
void putAside() {
    while (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget()))
        menu->close();
    while (auto *warning = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
        warning->close();
    QCoreApplication::processEvents();
}

QtKey qtKeyOf(const KeyStroke &stroke) {
    static constexpr std::array<std::pair<KeyCode, Qt::Key>, 16> named{{
        {Key::Back, Qt::Key_Backspace},
        {Key::Tab, Qt::Key_Tab},
        {Key::Enter, Qt::Key_Return},
        {Key::Escape, Qt::Key_Escape},
        {Key::PageUp, Qt::Key_PageUp},
        {Key::PageDown, Qt::Key_PageDown},
        {Key::End, Qt::Key_End},
        {Key::Home, Qt::Key_Home},
        {Key::Left, Qt::Key_Left},
        {Key::Up, Qt::Key_Up},
        {Key::Right, Qt::Key_Right},
        {Key::Down, Qt::Key_Down},
        {Key::Insert, Qt::Key_Insert},
        {Key::Delete, Qt::Key_Delete},
        {Key::Menu, Qt::Key_Menu},
        {Key::Decimal, Qt::Key_Period},
    }};
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, (stroke.shift & Shift::Shift) != 0);
    modifiers.setFlag(Qt::ControlModifier, (stroke.shift & Shift::Ctrl) != 0);
    modifiers.setFlag(Qt::AltModifier, (stroke.shift & Shift::Alt) != 0);
    modifiers.setFlag(Qt::KeypadModifier, stroke.key == Key::Decimal);
    for (const auto &[code, key] : named) {
        if (code == stroke.key)
            return {key, modifiers};
    }
    if (stroke.key >= Key::F2 - 1 && stroke.key < Key::F2 + 11)
        return {static_cast<Qt::Key>(Qt::Key_F1 + (stroke.key - (Key::F2 - 1))), modifiers};
    if ((stroke.key >= '0' && stroke.key <= '9') || (stroke.key >= 'A' && stroke.key <= 'Z'))
        return {static_cast<Qt::Key>(stroke.key), modifiers};
    // A sign's key is named by what it types.
    return {stroke.character < 0x80 ? static_cast<Qt::Key>(stroke.character) : Qt::Key_unknown,
            modifiers};
}

Qt::MouseButton qtButtonOf(MouseButton button) {
    return button == MouseButton::Left    ? Qt::LeftButton
           : button == MouseButton::Right ? Qt::RightButton
                                          : Qt::MiddleButton;
}

} // namespace

void QtDriver::create(Twips width, Twips height) {
    destroy();
    window_ = std::make_unique<QDialog>();
    elsewhere_ = new QLineEdit(window_.get());
    grid_ = new qt::TablioWidget(window_.get());
    ControlState &state = Inside::of(grid_->core()).state;
    qtFace_ = &state.link.face();
    face.wrap(qtFace_);
    // A scenario starts from the control's own defaults, not from a theme's.
    grid_->core().setHost(nullptr);
    state.grid.table.setLook({});
    state.grid.table.setRowHeightMin(0);
    grid_->core().InitProperties();
    grid_->core().TableClear();
    state.SetStatusCell = false;
    state.grid.setCurrentQuietly({1, 0});
    state.current = {1, 0};
    state.grid.setFocusRect(0);
    grid_->core().setFace(&face);
    elsewhere_->setGeometry(0, 0, 40, 20);
    resize(width, height);
}

void QtDriver::destroy() {
    face.wrap(nullptr);
    delete grid_.data();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *other : windows) {
        if (qobject_cast<QMessageBox *>(other) != nullptr)
            delete other;
    }
}

QWidget *QtDriver::canvas() const {
    return grid_->findChild<QWidget *>(QStringLiteral("qt_picText"))->parentWidget();
}

QPoint QtDriver::inWindow(Twips x, Twips y) const {
    return canvas()->mapTo(window_.get(), QPoint(x / twipsPerPixel, y / twipsPerPixel));
}

void QtDriver::show() {
    delivering([this] {
        window_->show();
        window_->activateWindow();
        static_cast<void>(QTest::qWaitForWindowExposed(window_.get()));
        static_cast<void>(QTest::qWaitForWindowActive(window_.get()));
        // The last scenario may have ended in the middle of a click.
        if (held_ != Qt::NoButton)
            QTest::mouseRelease(window_->windowHandle(), std::exchange(held_, Qt::NoButton), {},
                                QPoint(1, 1));
        if (QApplication::focusWidget() != elsewhere_)
            elsewhere_->setFocus();
        grid_->core().Show();
    });
}

void QtDriver::resize(Twips width, Twips height) {
    const QSize inner(width / twipsPerPixel, height / twipsPerPixel);
    const QMargins margins = grid_->contentsMargins();
    const QSize outer = inner.grownBy(margins);
    window_->resize(std::max(60, outer.width()), outer.height() + 30);
    grid_->setGeometry(QRect(QPoint(0, 30), outer));
    // Also before the window is shown and tells its children.
    grid_->core().input().resized(inner.width() * twipsPerPixel, inner.height() * twipsPerPixel);
}

void QtDriver::enterFocus() {
    delivering([this] { grid_->setFocus(Qt::TabFocusReason); });
}

void QtDriver::leaveFocus() {
    delivering([this] { elsewhere_->setFocus(Qt::TabFocusReason); });
}

void QtDriver::strike(const KeyStroke &stroke) {
    putAside();
    delivering([&] {
        const QtKey key = qtKeyOf(stroke);
        const QString text =
            stroke.character == 0 ? QString() : QString::fromUcs4(&stroke.character, 1);
        // The list of a combo has the keyboard while it is down.
        QWidget *popup = QApplication::activePopupWidget();
        QWindow *target = popup != nullptr ? popup->windowHandle() : window_->windowHandle();
        QTest::simulateEvent(target, true, key.key, key.modifiers, text, false);
        QTest::simulateEvent(window_->windowHandle(), false, key.key, key.modifiers, text, false);
    });
}

void QtDriver::compose(std::string_view text) {
    delivering([&] {
        QPointer<QObject> box = QGuiApplication::focusObject();
        QInputMethodEvent preedit(asQString(text), {});
        QCoreApplication::sendEvent(box, &preedit);
        if (!box || core() == nullptr || !Inside::of(*core()).session.isOpen())
            return;
        QInputMethodEvent commit;
        commit.setCommitString(asQString(text));
        QCoreApplication::sendEvent(box, &commit);
    });
}

void QtDriver::enterText(std::string_view text) {
    delivering([&] {
        QInputMethodEvent commit;
        commit.setCommitString(asQString(text));
        QCoreApplication::sendEvent(QGuiApplication::focusObject(), &commit);
    });
}

void QtDriver::settle(WidgetId /*editor*/, std::string_view text, int caret) {
    delivering([&] {
        auto *box = grid_->findChild<QLineEdit *>(QStringLiteral("qt_txtEdit"));
        box->setText(asQString(text));
        box->setCursorPosition(caret);
    });
}

void QtDriver::pressMouse(MouseButton button, Twips x, Twips y) {
    putAside();
    delivering([&] {
        pressed_ = inWindow(x, y);
        held_ = qtButtonOf(button);
        QTest::mousePress(window_->windowHandle(), qtButtonOf(button), {}, pressed_);
    });
}

void QtDriver::moveMouse(Twips x, Twips y) {
    delivering([&] {
        const QPoint at = inWindow(x, y);
        QMouseEvent move(QEvent::MouseMove, canvas()->mapFrom(window_.get(), at),
                         window_->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(canvas(), &move);
    });
}

void QtDriver::releaseMouse(MouseButton button, Twips x, Twips y) {
    delivering([&] {
        held_ = Qt::NoButton;
        QTest::mouseRelease(window_->windowHandle(), qtButtonOf(button), {},
                            grid_ ? inWindow(x, y) : pressed_);
    });
}

void QtDriver::doubleClick(Twips x, Twips y) {
    delivering([&] {
        const QPoint at = inWindow(x, y);
        QMouseEvent second(QEvent::MouseButtonDblClick, canvas()->mapFrom(window_.get(), at),
                           window_->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(canvas(), &second);
    });
}

void QtDriver::scrollTo(int topRow, int leftCol) {
    delivering([&] {
        const QList<QScrollBar *> bars =
            grid_->findChildren<QScrollBar *>(QString(), Qt::FindDirectChildrenOnly);
        for (QScrollBar *bar : bars)
            bar->setValue(bar->orientation() == Qt::Vertical ? topRow : leftCol);
    });
}

void QtDriver::pushButton(WidgetId button) {
    delivering([&] {
        const QString name = button == WidgetId::cmdLookup ? QStringLiteral("qt_cmdLookup")
                                                           : QStringLiteral("qt_cmdCalender");
        QTest::mouseClick(grid_->findChild<QToolButton *>(name), Qt::LeftButton);
    });
}

void QtDriver::chooseMenuEntry(MenuEntry entry) {
    delivering([&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu == nullptr) {
            qtFace_->popUpMenu(0, 0);
            menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        }
        const QPointer<QMenu> alive(menu);
        menu->actions().at(static_cast<int>(entry))->trigger();
        if (alive)
            alive->close();
    });
}

void QtDriver::chooseItem(int index) {
    delivering([&] {
        auto *combo = grid_->findChild<QComboBox *>(QStringLiteral("qt_cboEdit"));
        combo->showPopup();
        QAbstractItemView *list = combo->view();
        const QRect place = list->visualRect(combo->model()->index(index, 0));
        QTest::mouseMove(list->viewport(), place.center());
        // A list that has only just opened takes a click for the end of the one that opened it.
        QTest::qWait(QApplication::doubleClickInterval() + 50);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place.center());
    });
}

void QtDriver::pickDay(const Date &day) {
    delivering([&] {
        auto *calendar = grid_->findChild<QCalendarWidget *>(QStringLiteral("qt_mvCalender"));
        Q_EMIT calendar->clicked(QDate(day.year, day.month, day.day));
    });
}

} // namespace tablio::scenario
