#include "widget/tablio_widget_p.h"

#include "editors/native_calendar.h"
#include "editors/native_combo.h"
#include "editors/native_text_box.h"
#include "grid/grid_canvas.h"
#include "widget/guarded.h"
#include "widget/qt_look.h"

#include <QApplication>
#include <QMenuBar>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>

namespace tablio::qt {

TablioWidgetPrivate::TablioWidgetPrivate(TablioWidget &owner)
    : widget(owner), face(*this), host(owner), control(core.control()) {
    makeChildren();
    fitRowsToFont();
    core.startThemed();
    core.setFace(&face);
    core.setHost(&host);
    // A widget that gets the focus while our window is inactive takes it from nobody, natively.
    QObject::connect(qApp, &QApplication::focusChanged, &widget, [this](QWidget *, QWidget *now) {
        const bool isOurs = now == nullptr || now == &widget || widget.isAncestorOf(now);
        if (isOurs || now->window() != widget.window() || qobject_cast<QMenuBar *>(now) != nullptr)
            return;
        if (state().focus.owner())
            guarded([this] { input().focusLeft(); });
    });
}

TablioWidgetPrivate::~TablioWidgetPrivate() {
    core.setFace(nullptr);
    // The children speak to the core until they are gone; the box first, which hears most.
    delete textBox;
    delete canvas;
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
        guarded([&] { input().scrollTo(row, state().grid.view.LeftCol()); });
    });
    QObject::connect(horizontal, &QScrollBar::valueChanged, &widget, [this](int col) {
        guarded([&] { input().scrollTo(state().grid.view.TopRow(), col); });
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

DevicePixels TablioWidgetPrivate::pixels() const {
    return DevicePixels(widget.devicePixelRatioF());
}

Palette TablioWidgetPrivate::palette() const {
    const QPalette::ColorGroup group = !widget.isEnabled()       ? QPalette::Disabled
                                       : widget.isActiveWindow() ? QPalette::Active
                                                                 : QPalette::Inactive;
    return toPalette(widget.palette(), group);
}

QColor TablioWidgetPrivate::colour(Colour colour) const { return toQColor(colours().of(colour)); }

EditNumber TablioWidgetPrivate::openEdit() const noexcept { return control.session.openEdit(); }

bool TablioWidgetPrivate::hasKeyboard() const { return textBox->hasFocus(); }

void TablioWidgetPrivate::enter() {
    if (hasKeyboard() && !state().focus.owner())
        guarded([this] { input().focusEntered(); });
}

void TablioWidgetPrivate::enterLater() {
    // The core has asked for the focus itself, or a window comes back to life.
    if (!state().focus.owner())
        QCoreApplication::postEvent(&widget, new QEvent(enterEvent()));
}

QEvent::Type TablioWidgetPrivate::enterEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

bool TablioWidgetPrivate::rowsFit(Twips height) const {
    const GridTable &table = state().grid.table;
    for (int row = 0; row < table.Rows() && height >= 0; ++row)
        height -= table.RowHeight(row);
    return height >= 0 || table.Rows() - table.FixedRows() < 2;
}

bool TablioWidgetPrivate::colsFit(Twips width) const {
    const GridTable &table = state().grid.table;
    for (int col = 0; col < table.Cols() && width >= 0; ++col)
        width -= table.ColWidth(col);
    return width >= 0 || table.Cols() - table.FixedCols() < 2;
}

void TablioWidgetPrivate::arrange() {
    // Telling the core about a size makes it report its scroll range, which comes back to here.
    if (arranging_)
        return;
    arranging_ = true;
    const QRect room = widget.contentsRect();
    const int breadth = vertical->sizeHint().width();
    const int depth = horizontal->sizeHint().height();
    bool showHorizontal = !colsFit(room.width() * twipsPerPixel);
    const int height = room.height() - (showHorizontal ? depth : 0);
    const bool showVertical = !rowsFit(height * twipsPerPixel);
    if (showVertical && !showHorizontal)
        showHorizontal = !colsFit((room.width() - breadth) * twipsPerPixel);

    const QSize inner(std::max(0, room.width() - (showVertical ? breadth : 0)),
                      std::max(0, room.height() - (showHorizontal ? depth : 0)));
    canvas->setGeometry(QRect(room.topLeft(), inner));
    vertical->setGeometry(room.x() + inner.width(), room.y(), breadth, inner.height());
    horizontal->setGeometry(room.x(), room.y() + inner.height(), inner.width(), depth);
    corner->setGeometry(room.x() + inner.width(), room.y() + inner.height(), breadth, depth);
    vertical->setVisible(showVertical);
    horizontal->setVisible(showHorizontal);
    corner->setVisible(showVertical && showHorizontal);
    input().resized(inner.width() * twipsPerPixel, inner.height() * twipsPerPixel);
    arranging_ = false;
}

void TablioWidgetPrivate::showScrollPosition() {
    const FlexGrid &grid = state().grid;
    const auto show = [](QScrollBar &bar, int from, int to, int page, int value) {
        const QSignalBlocker quiet(bar);
        bar.setRange(from, std::max(from, to));
        bar.setPageStep(std::max(1, page));
        bar.setValue(value);
    };
    show(*vertical, grid.table.FixedRows(), grid.view.maxTopRow(), grid.view.pageRows(),
         grid.view.TopRow());
    const auto cols = static_cast<int>(grid.view.visibleCols().size());
    show(*horizontal, grid.table.FixedCols(), grid.view.maxLeftCol(),
         cols - grid.table.FixedCols() - 1, grid.view.LeftCol());
}

void TablioWidgetPrivate::showButtons() {
    const DevicePixels dots = pixels();
    const auto show = [&](QToolButton &button, const PlainWidget &model) {
        const bool appears = model.Visible() && button.isHidden();
        if (model.Visible())
            button.setGeometry(toQRect(dots.inside(dots.withoutLines(model.place()))));
        button.setVisible(model.Visible());
        if (appears)
            button.raise();
    };
    show(*lookupButton, state().widgets.cmdLookup);
    show(*calendarButton, state().widgets.cmdCalender);
}

int TablioWidgetPrivate::coveredByButtons(int right) const {
    int covered = 0;
    for (const QToolButton *button : {lookupButton, calendarButton}) {
        if (!button->isHidden())
            covered = std::max(covered, right - button->geometry().x());
    }
    return covered;
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

void TablioWidgetPrivate::fitRowsToFont() {
    input().textHeight(widget.fontMetrics().height() * twipsPerPixel);
}

} // namespace tablio::qt
