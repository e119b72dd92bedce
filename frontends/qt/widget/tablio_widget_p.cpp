#include "widget/tablio_widget_p.h"

#include "editors/native_calendar.h"
#include "editors/native_combo.h"
#include "editors/native_text_box.h"
#include "grid/grid_canvas.h"
#include "widget/guarded.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>

namespace tablio::qt {

TablioWidgetPrivate::TablioWidgetPrivate(TablioWidget &itself)
    : Surroundings(itself, core), widget(itself), face(*this), host(makeHostSignals(itself)) {
    makeChildren();
    fitRowsToFont();
    followDirection();
    core.startThemed();
    core.setFace(&face);
    core.setHost(host.get());
    // A widget that gets the focus while our window is inactive takes it from nobody, natively.
    QObject::connect(qApp, &QApplication::focusChanged, &widget, [this](QWidget *, QWidget *now) {
        const bool isOurs = now == nullptr || now == &widget || widget.isAncestorOf(now);
        if (isOurs || now->window() != widget.window() || qobject_cast<QMenuBar *>(now) != nullptr)
            return;
        if (input().hasKeyboard())
            guarded([this] { input().focusLeft(); });
    });
}

TablioWidgetPrivate::~TablioWidgetPrivate() {
    isClosing_ = true;
    core.setFace(nullptr);
    // The children speak to the core until they are gone; the box first, which hears most.
    delete textBox;
    delete canvas;
}

TablioWidgetPrivate *TablioWidgetPrivate::around(QObject *part) noexcept {
    for (QObject *each = part; each != nullptr; each = each->parent()) {
        if (const auto *grid = qobject_cast<TablioWidget *>(each)) {
            TablioWidgetPrivate *parts = grid->d_.get();
            return parts != nullptr && !parts->isClosing_ ? parts : nullptr;
        }
    }
    return nullptr;
}

void TablioWidgetPrivate::makeChildren() {
    canvas = new GridCanvas(*this, &widget);
    auto *frame = new QWidget(canvas);
    frame->setObjectName(QStringLiteral("qt_picText"));
    frame->setGeometry(0, 0, 0, 0);
    textBox = new NativeTextBox(*this, frame);

    auto *comboFrame = new QWidget(canvas);
    comboFrame->setObjectName(QStringLiteral("qt_picEdit"));
    comboFrame->hide();
    combo = new NativeCombo(*this, comboFrame);
    frame->raise();

    lookupButton = makeButton(WidgetId::cmdLookup, "qt_cmdLookup", TablioWidget::tr("Look up"));
    lookupButton->setText(QStringLiteral("\u2026"));
    calendarButton =
        makeButton(WidgetId::cmdCalender, "qt_cmdCalender", TablioWidget::tr("Calendar"));
    calendarButton->setArrowType(Qt::DownArrow);
    calendar = new NativeCalendar(*this, canvas);

    vertical = new QScrollBar(Qt::Vertical, &widget);
    horizontal = new QScrollBar(Qt::Horizontal, &widget);
    corner = new QWidget(&widget);
    for (QWidget *part : std::initializer_list<QWidget *>{vertical, horizontal, corner})
        part->hide();
    corner->setAutoFillBackground(true);
    QObject::connect(vertical, &QScrollBar::valueChanged, &widget, [this](int row) {
        guarded([&] { input().scrollTo(row, screen().colRange().position); });
    });
    QObject::connect(horizontal, &QScrollBar::valueChanged, &widget, [this](int col) {
        guarded([&] { input().scrollTo(screen().rowRange().position, col); });
    });
}

QToolButton *TablioWidgetPrivate::makeButton(WidgetId id, const char *name, const QString &tip) {
    auto *button = new QToolButton(canvas);
    button->setObjectName(QLatin1String(name));
    button->setAccessibleName(tip);
    button->setFocusPolicy(Qt::NoFocus);
    button->hide();
    QObject::connect(button, &QToolButton::clicked, &widget,
                     [this, id] { guarded([this, id] { input().buttonPressed(id); }); });
    return button;
}

bool TablioWidgetPrivate::hasKeyboard() const { return textBox->hasFocus(); }

void TablioWidgetPrivate::takeKeyboard() { textBox->takeFocus(); }

void TablioWidgetPrivate::commitComposition() { textBox->commitComposition(); }

void TablioWidgetPrivate::showCurrentCell() {
    news.keyboardMoved();
    if (const std::optional<CellAddress> cell = screen().currentCell())
        canvas->showArea(screen().cellRect(*cell));
}

void TablioWidgetPrivate::enter() {
    if (hasKeyboard() && !input().hasKeyboard())
        guarded([this] { input().focusEntered(); });
}

void TablioWidgetPrivate::enterLater() {
    // The core has asked for the focus itself, or a window comes back to life.
    if (!input().hasKeyboard())
        QCoreApplication::postEvent(&widget, new QEvent(enterEvent()));
}

QEvent::Type TablioWidgetPrivate::enterEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

void TablioWidgetPrivate::arrange() {
    // Telling the core about a size makes it report its scroll range, which comes back to here.
    if (arranging_)
        return;
    arranging_ = true;
    const QRect room = widget.contentsRect();
    const int breadth = vertical->sizeHint().width();
    const int depth = horizontal->sizeHint().height();
    const Arrangement grid =
        screen().arranged(room.width() * twipsPerPixel, room.height() * twipsPerPixel,
                          breadth * twipsPerPixel, depth * twipsPerPixel);
    const QSize inner(grid.width / twipsPerPixel, grid.height / twipsPerPixel);
    const int left = room.x() + grid.left / twipsPerPixel;
    const int beside = screen().isRightToLeft() ? room.x() : left + inner.width();
    canvas->setGeometry(QRect(QPoint(left, room.y()), inner));
    if (notice != nullptr)
        notice->setGeometry(canvas->rect());
    vertical->setGeometry(beside, room.y(), breadth, inner.height());
    horizontal->setGeometry(left, room.y() + inner.height(), inner.width(), depth);
    corner->setGeometry(beside, room.y() + inner.height(), breadth, depth);
    vertical->setVisible(grid.hasRowBar);
    horizontal->setVisible(grid.hasColBar);
    corner->setVisible(grid.hasRowBar && grid.hasColBar);
    input().resized(grid.width, grid.height);
    arranging_ = false;
}

void TablioWidgetPrivate::showScrollPosition() {
    const auto show = [](QScrollBar &bar, const ScrollRange &range) {
        const QSignalBlocker quiet(bar);
        bar.setRange(range.first, range.last);
        bar.setPageStep(range.page);
        bar.setValue(range.position);
    };
    show(*vertical, screen().rowRange());
    show(*horizontal, screen().colRange());
}

void TablioWidgetPrivate::showButtons() {
    const DevicePixels dots = pixels();
    const auto show = [&](QToolButton &button, WidgetId id) {
        const ScreenWidget model = screen().widget(id);
        const bool appears = model.isVisible && button.isHidden();
        if (model.isVisible)
            button.setGeometry(toQRect(dots.inside(dots.withoutLines(model.place))));
        button.setVisible(model.isVisible);
        if (appears)
            button.raise();
    };
    show(*lookupButton, WidgetId::cmdLookup);
    // Its dots would be cut in a large font.
    QFont font = widget.font();
    constexpr int border = 6;
    const int advance = QFontMetrics(font).horizontalAdvance(lookupButton->text());
    const int room = lookupButton->width() - border;
    if (lookupButton->isVisible() && advance > room && room > 0 && font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * room / advance);
    lookupButton->setFont(font);
    show(*calendarButton, WidgetId::cmdCalender);
}

void TablioWidgetPrivate::mirror() {
    // Hiding a list moves the native focus, and a host that hears of it may delete the widget.
    const QPointer<TablioWidget> alive(&widget);
    showButtons();
    combo->mirror();
    if (alive)
        textBox->mirror();
    if (alive)
        calendar->mirror();
}

void TablioWidgetPrivate::showAnew() {
    canvas->forgetFonts();
    textBox->forgetLook();
    arrange();
    mirror();
    canvas->update();
}

void TablioWidgetPrivate::followDirection() {
    const Qt::LayoutDirection direction = widget.layoutDirection();
    const QPointer<TablioWidget> alive(&widget);
    input().setRightToLeft(direction == Qt::RightToLeft);
    if (!alive)
        return;
    // The canvas, on which positions are counted from the left, keeps the direction from these.
    calendar->setLayoutDirection(direction);
    combo->setLayoutDirection(direction);
    combo->view()->setLayoutDirection(direction);
    showAnew();
}

void TablioWidgetPrivate::fitRowsToFont() {
    input().textHeight(widget.fontMetrics().height() * twipsPerPixel);
}

} // namespace tablio::qt
