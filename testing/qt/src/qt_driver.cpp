#include <tablio/testing/qt_driver.h>

#include "native_check.h"
#include "widget_members.h"

#include <tablio/testing/script.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QScopeGuard>
#include <QScopedValueRollback>
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

QString asQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

struct QtKey {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

/// A user puts a warning or a menu aside before going on with the grid.
void putAside(QWidget &window) {
    while (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget()))
        menu->close();
    while (auto *warning = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
        warning->close();
    window.activateWindow();
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

/// Where an input method would send its text.
QObject &keyboardOwner() {
    QObject *const owner = QGuiApplication::focusObject();
    if (owner == nullptr)
        throw ScriptError("no widget has the keyboard; has the form been closed?");
    return *owner;
}

std::unique_ptr<QWidget> makeBareForm() {
    auto window = std::make_unique<QDialog>();
    (new QLineEdit(window.get()))->setGeometry(0, 0, 40, 20);
    makeBare((new qt::TablioWidget(window.get()))->core());
    return window;
}

} // namespace

QtDriver::QtDriver() : makeForm_(makeBareForm), isBare_(true) {}

QtDriver::QtDriver(FormMaker makeForm, QString gridName)
    : makeForm_(std::move(makeForm)), gridName_(std::move(gridName)) {}

QtDriver::~QtDriver() { QtDriver::destroy(); }

template <typename Action> auto QtDriver::outermost(Action action) {
    const QScopedValueRollback<int> deeper(depth_, depth_ + 1);
    const auto check = [&] {
        if (depth_ > 1 || !grid_ || !grid_->isVisible())
            return;
        if (const std::string difference = nativeDifference(*grid_); !difference.empty())
            throw ScriptError(difference);
    };
    if constexpr (std::is_void_v<decltype(action())>) {
        action();
        check();
    } else {
        auto result = action();
        check();
        return result;
    }
}

template <typename Action> void QtDriver::deliver(Action action) {
    outermost([&] {
        failure().clear();
        {
            const QtMessageHandler before = qInstallMessageHandler(rememberFailure);
            const auto restore = qScopeGuard([=] { qInstallMessageHandler(before); });
            action();
            QCoreApplication::processEvents();
        }
        if (!failure().empty())
            throw Error(failure());
    });
}

void QtDriver::create(Twips width, Twips height) {
    destroy();
    window_ = makeForm_().release();
    grid_ = qobject_cast<qt::TablioWidget *>(window_);
    if (!grid_)
        grid_ = window_->findChild<qt::TablioWidget *>(gridName_);
    if (!grid_)
        throw ScriptError("the form has no grid " + gridName_.toStdString());
    ownFace_ = grid_->core().face();
    face.wrap(ownFace_);
    grid_->core().setFace(&face);
    // The widget itself answers and tells.
    face.locale.reset();
    face.clipboard.reset();
    face.writesNotices = false;
    listener_ = std::make_unique<QObject>();
    QObject::connect(grid_, &qt::TablioWidget::propertyChanged, listener_.get(),
                     [this](const QString &name) { face.notices.push_back(name.toStdString()); });
    QGuiApplication::clipboard()->clear();
    if (isBare_) {
        setLocale({});
        resize(width, height);
    }
}

void QtDriver::destroy() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *other : windows) {
        if (qobject_cast<QMessageBox *>(other) != nullptr)
            delete other;
    }
    listener_.reset();
    if (window_ && !isBare_)
        window_->hide();
    face.wrap(nullptr);
    delete window_.data();
}

QWidget *QtDriver::canvas() const {
    return grid_->findChild<QWidget *>(QStringLiteral("qt_picText"))->parentWidget();
}

QPoint QtDriver::inWindow(Twips x, Twips y) const {
    return canvas()->mapTo(window_.data(), QPoint(x / twipsPerPixel, y / twipsPerPixel));
}

QWidget *QtDriver::elsewhere() const {
    for (QWidget *other = grid_->nextInFocusChain(); other != grid_;
         other = other->nextInFocusChain()) {
        if ((other->focusPolicy() & Qt::TabFocus) != 0 && other->isVisibleTo(window_) &&
            other->isEnabled() && !grid_->isAncestorOf(other))
            return other;
    }
    throw ScriptError("the form has no other widget that takes the keyboard");
}

void QtDriver::show() {
    deliver([this] {
        window_->show();
        window_->activateWindow();
        static_cast<void>(QTest::qWaitForWindowExposed(window_.data()));
        static_cast<void>(QTest::qWaitForWindowActive(window_.data()));
        // The last scenario may have ended in the middle of a click.
        if (held_ != Qt::NoButton)
            QTest::mouseRelease(window_->windowHandle(), std::exchange(held_, Qt::NoButton), {},
                                QPoint(1, 1));
        if (!isBare_)
            return;
        if (QApplication::focusWidget() != elsewhere())
            elsewhere()->setFocus();
        grid_->core().Show();
    });
}

void QtDriver::resize(Twips width, Twips height) {
    const QSize inner(width / twipsPerPixel, height / twipsPerPixel);
    const QMargins margins = grid_->contentsMargins();
    const QSize outer = inner.grownBy(margins);
    if (!isBare_)
        return deliver([&] { window_->resize(window_->size() + outer - grid_->size()); });
    window_->resize(std::max(60, outer.width()), outer.height() + 30);
    grid_->setGeometry(QRect(QPoint(0, 30), outer));
    // Also before the window is shown and tells its children.
    grid_->core().input().resized(inner.width() * twipsPerPixel, inner.height() * twipsPerPixel);
}

void QtDriver::enterFocus() {
    deliver([this] { grid_->setFocus(Qt::TabFocusReason); });
}

void QtDriver::leaveFocus() {
    deliver([this] { elsewhere()->setFocus(Qt::TabFocusReason); });
}

void QtDriver::setHost(HostEvents *host) { connectHost(*grid_, *listener_, *host); }

Value QtDriver::callMember(std::string_view name, const Values &arguments) {
    return outermost([&] {
        const std::optional<Value> result = callOfWidget(*grid_, name, arguments);
        return result ? *result : Driver::callMember(name, arguments);
    });
}

void QtDriver::setMember(std::string_view name, const Values &index, const Value &value) {
    outermost([&] {
        if (!setOfWidget(*grid_, name, index, value))
            Driver::setMember(name, index, value);
    });
}

Value QtDriver::readMember(std::string_view name, const Values &index) {
    const std::optional<Value> result = readOfWidget(*grid_, name, index);
    return result ? *result : Driver::readMember(name, index);
}

void QtDriver::setLocale(const NumberFormat &locale) {
    const QList<QLocale> all =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    for (const QLocale &each : all) {
        if (each.decimalPoint() != asQString(locale.decimalSign) ||
            each.groupSeparator() != asQString(locale.groupSign) ||
            each.numberOptions().testFlag(QLocale::OmitGroupSeparator))
            continue;
        // Scenarios paste dates with the day first.
        const QString date = each.dateFormat(QLocale::ShortFormat);
        if (date.indexOf(u'M') < date.indexOf(u'd') || date.indexOf(u'y') < date.indexOf(u'd'))
            continue;
        grid_->setLocale(each);
        return;
    }
    throw Error("no locale has these signs");
}

void QtDriver::setRightToLeft(bool rightToLeft) {
    grid_->setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
}

void QtDriver::setClipboard(std::string_view text) {
    QGuiApplication::clipboard()->setText(asQString(text));
}

void QtDriver::strike(const KeyStroke &stroke) {
    putAside(*window_);
    deliver([&] {
        const QtKey key = qtKeyOf(stroke);
        const QString text =
            stroke.character == 0 ? QString() : QString::fromUcs4(&stroke.character, 1);
        // The list of a combo has the keyboard while it is down.
        QWidget *popup = QApplication::activePopupWidget();
        QWindow *target = popup != nullptr ? popup->windowHandle() : window_->windowHandle();
        QTest::simulateEvent(target, true, key.key, key.modifiers, text, false);
        if (window_)
            QTest::simulateEvent(window_->windowHandle(), false, key.key, key.modifiers, text,
                                 false);
    });
}

void QtDriver::compose(std::string_view text) {
    putAside(*window_);
    deliver([&] {
        QPointer<QObject> box = &keyboardOwner();
        QInputMethodEvent preedit(asQString(text), {});
        QCoreApplication::sendEvent(box, &preedit);
        if (!box || core() == nullptr || !core()->screen().editor())
            return;
        QInputMethodEvent commit;
        commit.setCommitString(asQString(text));
        QCoreApplication::sendEvent(box, &commit);
    });
}

void QtDriver::enterText(std::string_view text) {
    putAside(*window_);
    deliver([&] {
        QInputMethodEvent commit;
        commit.setCommitString(asQString(text));
        QCoreApplication::sendEvent(&keyboardOwner(), &commit);
    });
}

void QtDriver::settle(WidgetId /*editor*/, std::string_view text, int caret) {
    deliver([&] {
        auto *box = grid_->findChild<QLineEdit *>(QStringLiteral("qt_txtEdit"));
        box->setText(asQString(text));
        box->setCursorPosition(caret);
    });
}

void QtDriver::pressMouse(MouseButton button, Twips x, Twips y) {
    putAside(*window_);
    deliver([&] {
        held_ = qtButtonOf(button);
        QTest::mousePress(window_->windowHandle(), held_, {}, inWindow(x, y));
    });
}

void QtDriver::moveMouse(Twips x, Twips y) {
    deliver([&] {
        const QPoint at = inWindow(x, y);
        QMouseEvent move(QEvent::MouseMove, canvas()->mapFrom(window_.data(), at),
                         window_->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(canvas(), &move);
    });
}

void QtDriver::releaseMouse(MouseButton button, Twips x, Twips y) {
    deliver([&] {
        if (!window_)
            return;
        held_ = Qt::NoButton;
        QTest::mouseRelease(window_->windowHandle(), qtButtonOf(button), {}, inWindow(x, y));
    });
}

void QtDriver::doubleClick(Twips x, Twips y) {
    deliver([&] {
        const QPoint at = inWindow(x, y);
        QMouseEvent second(QEvent::MouseButtonDblClick, canvas()->mapFrom(window_.data(), at),
                           window_->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(canvas(), &second);
    });
}

void QtDriver::scrollTo(int topRow, int leftCol) {
    deliver([&] {
        const QList<QScrollBar *> bars =
            grid_->findChildren<QScrollBar *>(QString(), Qt::FindDirectChildrenOnly);
        for (QScrollBar *bar : bars)
            bar->setValue(bar->orientation() == Qt::Vertical ? topRow : leftCol);
    });
}

void QtDriver::pushButton(WidgetId button) {
    deliver([&] {
        const QString name = button == WidgetId::cmdLookup ? QStringLiteral("qt_cmdLookup")
                                                           : QStringLiteral("qt_cmdCalender");
        QTest::mouseClick(grid_->findChild<QToolButton *>(name), Qt::LeftButton);
    });
}

void QtDriver::chooseMenuEntry(MenuEntry entry) {
    deliver([&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu == nullptr) {
            ownFace_->popUpMenu(0, 0);
            menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        }
        const QPointer<QMenu> alive(menu);
        menu->actions().at(static_cast<int>(entry))->trigger();
        if (alive)
            alive->close();
    });
}

void QtDriver::chooseItem(int index) {
    deliver([&] {
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
    deliver([&] {
        auto *calendar = grid_->findChild<QCalendarWidget *>(QStringLiteral("qt_mvCalender"));
        Q_EMIT calendar->clicked(QDate(day.year, day.month, day.day));
    });
}

} // namespace tablio::scenario
