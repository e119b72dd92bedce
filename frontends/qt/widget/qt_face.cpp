#include "widget/qt_face.h"

#include "grid/cell_fonts.h"
#include "grid/grid_canvas.h"
#include "widget/guarded.h"
#include "widget/qt_text.h"
#include "widget/tablio_widget_p.h"

#include <tablio/members.h>

#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>

#include <cmath>
#include <map>
#include <tuple>
#include <utility>

namespace tablio::qt {

namespace {

/// In milliseconds: events run this seldom during a scan, and looks at the clock that are this far
/// apart belong to different scans.
constexpr qint64 eventInterval = 50;
constexpr qint64 scanGap = 10;
/// A look at the clock takes longer than most of what is done between two calls.
constexpr unsigned callsPerLook = 64;

/// Empty where any property may have changed.
QString nameOf(MemberNumber number) {
    return number == Number::All ? QString() : toQString(findMember(number).name);
}

/// Qt tells them by an example only.
std::pair<int, int> groupSizes(const QLocale &locale) {
    const QStringList groups =
        locale.toString(qlonglong{1'234'567'890'123}).split(locale.groupSeparator());
    if (groups.size() < 3)
        return {3, 0};
    return {static_cast<int>(groups.back().size()),
            static_cast<int>(groups[groups.size() - 2].size())};
}

} // namespace

void QtFace::shown() {
    parts_.news.look();
    parts_.mirror();
}

bool QtFace::canTakeFocus() const { return parts_.widget.isVisible(); }

void QtFace::takeFocus() { parts_.takeKeyboard(); }

void QtFace::areaChanged(const Rect &area) {
    parts_.news.look();
    parts_.canvas->showArea(area);
}

void QtFace::scrolled() {
    parts_.news.look();
    parts_.arrange();
    parts_.showScrollPosition();
    parts_.canvas->showScrolled();
}

void QtFace::popUpMenu(Twips x, Twips y) {
    auto *menu = new QMenu(&parts_.widget);
    menu->setObjectName(QStringLiteral("qt_mnuTableMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const ScreenMenuEntry &entry : parts_.screen().menu()) {
        if (entry.caption.empty()) {
            menu->addSeparator();
            continue;
        }
        QAction *action = menu->addAction(TablioWidget::tr(std::string(entry.caption).c_str()));
        action->setEnabled(entry.isEnabled);
        action->setCheckable(entry.isChecked);
        action->setChecked(entry.isChecked);
        QObject::connect(action, &QAction::triggered, &parts_.widget,
                         [&parts = parts_, name = entry.entry] {
                             guarded([&] { parts.input().menuChosen(name); });
                         });
    }
    const bool rightToLeft = parts_.screen().isRightToLeft();
    menu->setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    const int back = rightToLeft ? menu->sizeHint().width() : 0;
    menu->popup(parts_.canvas->mapToGlobal(QPoint(x / twipsPerPixel - back, y / twipsPerPixel)));
}

void QtFace::showWarning(std::string_view title, std::string_view text) {
    auto *box = new QMessageBox(QMessageBox::Warning, toQString(title), toQString(text),
                                QMessageBox::Ok, &parts_.widget);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

bool QtFace::showQuestion(std::string_view title, std::string_view text) {
    auto *box = new QMessageBox(QMessageBox::Question, toQString(title), toQString(text),
                                QMessageBox::Yes | QMessageBox::No, &parts_.widget);
    box->setDefaultButton(QMessageBox::No);
    box->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(box, &QMessageBox::finished, &parts_.widget, [&parts = parts_](int answer) {
        guarded([&] { parts.input().questionAnswered(answer == QMessageBox::Yes); });
    });
    box->open();
    return true;
}

std::string QtFace::clipboardText() { return fromQString(QGuiApplication::clipboard()->text()); }

void QtFace::setClipboardText(std::string_view text) {
    QGuiApplication::clipboard()->setText(toQString(text));
}

NumberFormat QtFace::numberFormat() const {
    if (!numbers_) {
        const QLocale locale = parts_.widget.locale();
        numbers_ = {fromQString(locale.decimalPoint()), fromQString(locale.groupSeparator()), 0, 0};
        if (!locale.numberOptions().testFlag(QLocale::OmitGroupSeparator))
            std::tie(numbers_->groupSize, numbers_->nextGroupSize) = groupSizes(locale);
    }
    return *numbers_;
}

char32_t QtFace::toUpper(char32_t character) const { return QChar::toUpper(character); }

char32_t QtFace::toLower(char32_t character) const { return QChar::toLower(character); }

Date QtFace::today() const {
    const QDate today = QDate::currentDate();
    return {today.year(), today.month(), today.day()};
}

DateOrder QtFace::dateOrder() const {
    const QString picture = parts_.widget.locale().dateFormat(QLocale::ShortFormat);
    const auto day = picture.indexOf(u'd');
    if (picture.indexOf(u'y') < day)
        return DateOrder::YearMonthDay;
    return picture.indexOf(u'M') < day ? DateOrder::MonthDayYear : DateOrder::DayMonthYear;
}

tablio::Font QtFace::defaultFont() const {
    const QFont &font = parts_.widget.font();
    tablio::Font own{fromQString(font.family()), static_cast<float>(font.pointSizeF())};
    own.bold = font.bold();
    own.italic = font.italic();
    return own;
}

Twips QtFace::textWidth(std::string_view text, const tablio::Font &font) const {
    const QFontMetricsF metrics(completedFont(font, parts_.widget), &parts_.widget);
    return static_cast<Twips>(
        std::ceil(metrics.horizontalAdvance(toQString(text)) * twipsPerPixel));
}

void QtFace::letPendingEventsRun() {
    if (++calls_ % callsPerLook != 0)
        return;
    const bool isNewScan = !sinceLook_.isValid() || sinceLook_.elapsed() > scanGap;
    sinceLook_.start();
    if (isNewScan) {
        sinceEvents_.start();
        return;
    }
    if (sinceEvents_.elapsed() < eventInterval)
        return;
    sinceEvents_.start();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtFace::propertyChanged(MemberNumber number) {
    // Filling a table changes the same property for each cell, and mostly nobody listens. The names
    // stay: a slot may change another property while it reads this one's name, or delete all this.
    static std::map<MemberNumber, QString> names;
    static const std::pair<const MemberNumber, QString> *last = nullptr;
    if (last == nullptr || last->first != number)
        last = &*names.try_emplace(number, nameOf(number)).first;
    Q_EMIT parts_.widget.propertyChanged(last->second);
}

} // namespace tablio::qt
