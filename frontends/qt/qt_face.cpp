#include "qt_face.h"

#include "grid_canvas.h"
#include "native_calendar.h"
#include "native_combo.h"
#include "native_text_box.h"
#include "qt_text.h"
#include "table_menu.h"
#include "tablio_widget_p.h"

#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QLocale>
#include <QMessageBox>

namespace tablio::qt {

namespace {

/// Events run this seldom during a scan, and calls this far apart belong to different scans.
constexpr qint64 eventInterval = 50;
constexpr qint64 scanGap = 10;

} // namespace

void QtFace::widgetChanged(WidgetId widget) {
    switch (widget) {
    case WidgetId::picText:
    case WidgetId::txtEdit:
        parts_.textBox->mirror();
        break;
    case WidgetId::picEdit:
    case WidgetId::cboEdit:
        parts_.combo->mirror();
        parts_.textBox->mirror();
        break;
    case WidgetId::txtDateEdit:
        parts_.textBox->mirror();
        break;
    case WidgetId::cmdLookup:
    case WidgetId::cmdCalender:
        parts_.showButtons();
        break;
    case WidgetId::picDate:
    case WidgetId::mvCalender:
        parts_.calendar->mirror();
        break;
    case WidgetId::Grid:
        break;
    }
}

void QtFace::focusChanged(WidgetId /*owner*/) { parts_.textBox->takeFocus(); }

void QtFace::areaChanged(const Rect &area) { parts_.canvas->showArea(area); }

void QtFace::scrolled() {
    parts_.arrange();
    parts_.showScrollPosition();
    parts_.canvas->update();
}

void QtFace::popUpMenu(Twips x, Twips y) {
    const QPoint corner(x / twipsPerPixel, y / twipsPerPixel);
    showTableMenu(parts_, parts_.canvas->mapToGlobal(corner));
}

void QtFace::showWarning(std::string_view title, std::string_view text) {
    auto *box = new QMessageBox(QMessageBox::Warning, toQString(title), toQString(text),
                                QMessageBox::Ok, &parts_.widget);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

std::string QtFace::clipboardText() { return fromQString(QGuiApplication::clipboard()->text()); }

void QtFace::setClipboardText(std::string_view text) {
    QGuiApplication::clipboard()->setText(toQString(text));
}

NumberFormat QtFace::numberFormat() const {
    const QLocale locale = parts_.widget.locale();
    const bool groups = !locale.numberOptions().testFlag(QLocale::OmitGroupSeparator);
    return {fromQString(locale.decimalPoint()), fromQString(locale.groupSeparator()),
            groups ? 3 : 0};
}

char32_t QtFace::toUpper(char32_t character) const { return QChar::toUpper(character); }

char32_t QtFace::toLower(char32_t character) const { return QChar::toLower(character); }

Date QtFace::today() const {
    const QDate today = QDate::currentDate();
    return {today.year(), today.month(), today.day()};
}

void QtFace::letPendingEventsRun() {
    const bool isNewScan = !sinceCall_.isValid() || sinceCall_.elapsed() > scanGap;
    sinceCall_.start();
    if (isNewScan) {
        sinceEvents_.start();
        return;
    }
    if (sinceEvents_.elapsed() < eventInterval)
        return;
    sinceEvents_.start();
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtFace::propertyChanged(std::string_view name) {
    Q_EMIT parts_.widget.propertyChanged(toQString(name));
}

} // namespace tablio::qt
