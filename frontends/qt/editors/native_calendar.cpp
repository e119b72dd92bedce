#include "editors/native_calendar.h"

#include "editors/native_text_box.h"
#include "widget/guarded.h"
#include "widget/tablio_widget_p.h"

#include <QCalendarWidget>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTextCharFormat>

#include <algorithm>

namespace tablio::qt {

namespace {

QDate toQDate(const Date &date) { return {date.year, date.month, date.day}; }

Date fromQDate(const QDate &date) { return {date.year(), date.month(), date.day()}; }

} // namespace

NativeCalendar::NativeCalendar(TablioWidgetPrivate &parts, QWidget *parent)
    : QFrame(parent), parts_(parts), calendar_(new QCalendarWidget(this)) {
    setObjectName(QStringLiteral("qt_picDate"));
    calendar_->setObjectName(QStringLiteral("qt_mvCalender"));
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAutoFillBackground(true);
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar_->setDateRange(toQDate(Calendar::firstDay), toQDate(Calendar::lastDay));
    calendar_->setFocusPolicy(Qt::NoFocus);
    const QList<QWidget *> inner = calendar_->findChildren<QWidget *>();
    for (QWidget *child : inner)
        child->setFocusPolicy(Qt::NoFocus);
    hide();
    // Qt goes on with the calendar after this signal, and a host's handler may delete it.
    connect(calendar_, &QCalendarWidget::clicked, this, [this](const QDate &day) {
        QMetaObject::invokeMethod(
            this,
            [this, edit = edit_, day] {
                guarded([&] { parts_.input().calendarPicked(edit, fromQDate(day)); });
            },
            Qt::QueuedConnection);
    });
    connect(calendar_, &QCalendarWidget::currentPageChanged, this, &NativeCalendar::turnedTo);
}

void NativeCalendar::mirror() {
    const Widgets &widgets = parts_.state().widgets;
    if (mirroring_)
        return;
    const QScopedValueRollback<bool> quiet(mirroring_, true);
    if (!widgets.picDate.Visible()) {
        hide();
        return;
    }
    edit_ = parts_.openEdit();
    calendar_->setLocale(parts_.widget.locale());
    calendar_->setFirstDayOfWeek(parts_.widget.locale().firstDayOfWeek());
    // The style's own header can be white on white in a dark palette.
    QTextCharFormat header;
    header.setBackground(palette().brush(QPalette::Button));
    header.setForeground(palette().brush(QPalette::ButtonText));
    calendar_->setHeaderTextFormat(header);
    calendar_->setSelectedDate(toQDate(widgets.mvCalender.Value()));
    const int border = frameWidth();
    const QSize size = calendar_->sizeHint() + QSize(2 * border, 2 * border);
    const QSize twips = size * twipsPerPixel;
    if (twips != QSize(widgets.picDate.Width(), widgets.picDate.Height()))
        guarded([&] { parts_.input().calendarSized(twips.width(), twips.height()); });
    setGeometry(
        QRect(QPoint(widgets.picDate.Left() / twipsPerPixel, widgets.picDate.Top() / twipsPerPixel),
              size));
    calendar_->setGeometry(rect().adjusted(border, border, -border, -border));
    raise();
    show();
}

/// A turned page takes the chosen day along, as the core's own page keys do.
void NativeCalendar::turnedTo(int year, int month) {
    if (mirroring_)
        return;
    const Date now = parts_.state().widgets.mvCalender.Value();
    const Date day{year, month, std::min(now.day, daysInMonth(year, month))};
    const QPointer<NativeCalendar> alive(this);
    guarded([&] { parts_.input().calendarMoved(edit_, day); });
    // The year is typed into a box of the calendar's own, which gives the keyboard back here.
    if (alive)
        parts_.textBox->takeFocus();
}

} // namespace tablio::qt
