#include "editors/native_calendar.h"

#include "widget/guarded.h"
#include "widget/surroundings.h"

#include <QCalendarWidget>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTableView>
#include <QTextCharFormat>

#include <optional>

namespace tablio::qt {

namespace {

QDate toQDate(const Date &date) { return {date.year, date.month, date.day}; }

Date fromQDate(const QDate &date) { return {date.year(), date.month(), date.day()}; }

} // namespace

NativeCalendar::NativeCalendar(Surroundings &around, QWidget *parent)
    : QFrame(parent), around_(around), calendar_(new QCalendarWidget(this)) {
    setObjectName(QStringLiteral("qt_picDate"));
    calendar_->setObjectName(QStringLiteral("qt_mvCalender"));
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setAutoFillBackground(true);
    calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar_->setDateRange(toQDate(firstCellDay), toQDate(lastCellDay));
    calendar_->setFocusPolicy(Qt::NoFocus);
    const QList<QWidget *> inner = calendar_->findChildren<QWidget *>();
    for (QWidget *child : inner)
        child->setFocusPolicy(Qt::NoFocus);
    hide();
    connect(calendar_, &QCalendarWidget::clicked, this, [this](const QDate &day) {
        guardedLater(this, [this, edit = edit_, day] {
            around_.input().calendarPicked(edit, fromQDate(day));
        });
    });
    connect(calendar_, &QCalendarWidget::currentPageChanged, this, &NativeCalendar::turnedTo);
}

void NativeCalendar::mirror() {
    if (mirroring_)
        return;
    const QScopedValueRollback<bool> quiet(mirroring_, true);
    const Screen &screen = around_.screen();
    const std::optional<ScreenEditor> editor = screen.editor();
    ScreenWidget frame = screen.widget(WidgetId::picDate);
    if (!editor || !frame.isVisible) {
        hide();
        return;
    }
    edit_ = editor->edit;
    calendar_->setLocale(around_.owner.locale());
    calendar_->setFirstDayOfWeek(around_.owner.locale().firstDayOfWeek());
    // The style's own header can be white on white in a dark palette.
    QTextCharFormat header;
    header.setBackground(palette().brush(QPalette::Button));
    header.setForeground(palette().brush(QPalette::ButtonText));
    calendar_->setHeaderTextFormat(header);
    calendar_->setSelectedDate(toQDate(screen.calendarDay()));
    const int border = frameWidth();
    const QSize size = calendar_->sizeHint() + QSize(2 * border, 2 * border);
    const QSize twips = size * twipsPerPixel;
    if (twips != QSize(frame.place.width, frame.place.height)) {
        guarded([&] { around_.input().calendarSized(twips.width(), twips.height()); });
        frame = screen.widget(WidgetId::picDate);
    }
    setGeometry({{frame.place.left / twipsPerPixel, frame.place.top / twipsPerPixel}, size});
    calendar_->setGeometry(rect().adjusted(border, border, -border, -border));
    raise();
    show();
}

QRect NativeCalendar::placeOfDay(int index) const {
    constexpr int weeks = 6;
    constexpr int days = 7;
    const auto *view = calendar_->findChild<QTableView *>();
    if (view == nullptr || isHidden())
        return {};
    // Headers are the first row, and might be the first column.
    const QAbstractItemModel *model = view->model();
    const QRect place = view->visualRect(model->index(model->rowCount() - weeks + index / days,
                                                      model->columnCount() - days + index % days));
    return {view->viewport()->mapToGlobal(place.topLeft()), place.size()};
}

/// A turned page takes the chosen day along, as the core's own page keys do.
void NativeCalendar::turnedTo(int year, int month) {
    if (mirroring_)
        return;
    const Date now = around_.screen().calendarDay();
    const Date day = now.addMonths((year - now.year) * 12 + month - now.month);
    const QPointer<NativeCalendar> alive(this);
    guarded([&] { around_.input().calendarMoved(edit_, day); });
    // The year is typed into a box of the calendar's own, which gives the keyboard back here.
    if (alive)
        around_.takeKeyboard();
}

} // namespace tablio::qt
