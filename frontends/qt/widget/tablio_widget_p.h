#pragma once

/// What a `TablioWidget` is made of: the core, the two partners that the core talks to, and the
/// native child widgets. The parts know each other through it; it holds no rule of its own.

#include "widget/host_signals.h"
#include "widget/qt_face.h"

#include "control/control.h"

#include <tablio/palette.h>
#include <tablio/pixels.h>
#include <tablio/qt/tablio_widget.h>

#include <QEvent>
#include <QPointer>

class QScrollBar;
class QToolButton;

namespace tablio::qt {

class GridCanvas;
class NativeCalendar;
class NativeCombo;
class NativeTextBox;

/// A host's slot may delete the widget, and all of this, during any call into the core. Whoever
/// makes such a call looks at a QPointer before touching a member again.
class TablioWidgetPrivate {
public:
    explicit TablioWidgetPrivate(TablioWidget &owner);
    ~TablioWidgetPrivate();
    TablioWidgetPrivate(const TablioWidgetPrivate &) = delete;
    TablioWidgetPrivate &operator=(const TablioWidgetPrivate &) = delete;

    TablioWidget &widget;
    QtFace face;
    HostSignals host;
    /// After its partners, so that it is closed before they go.
    Tablio core;
    Control &control;

    // Children of the widget.
    GridCanvas *canvas = nullptr;
    NativeTextBox *textBox = nullptr;
    NativeCombo *combo = nullptr;
    NativeCalendar *calendar = nullptr;
    QToolButton *lookupButton = nullptr;
    QToolButton *calendarButton = nullptr;
    QScrollBar *vertical = nullptr;
    QScrollBar *horizontal = nullptr;
    QWidget *corner = nullptr;

    [[nodiscard]] Input &input() noexcept { return core.input(); }
    /// The number of the open edit, 0 for none.
    [[nodiscard]] EditNumber openEdit() const noexcept;
    [[nodiscard]] ControlState &state() const noexcept { return control.state; }

    /// The screen's pixels, for placing native children.
    [[nodiscard]] DevicePixels pixels() const;
    /// The palette as the widget shows it now: disabled, inactive or active.
    [[nodiscard]] Palette palette() const;
    [[nodiscard]] PaletteColours colours() const { return {palette(), widget.isEnabled()}; }
    [[nodiscard]] QColor colour(Colour colour) const;
    [[nodiscard]] bool hasKeyboard() const;

    /// The native focus has come: tells the core, unless it knows.
    void enter();
    /// The same when Qt has finished with the focus, which it goes on handling after the focus
    /// event, with a widget that a slot might have deleted. Whoever delivers a key or a press
    /// before that calls enter() first, so that nothing depends on when this happens.
    void enterLater();
    /// The event that enterLater() posts to the widget.
    [[nodiscard]] static QEvent::Type enterEvent();

    /// Lays out grid and scroll bars and tells the core how much room the grid has.
    void arrange();
    /// Shows the grid's scroll position and range.
    void showScrollPosition();
    /// Shows the open editor, its buttons, list and calendar; little work when they are the same.
    void mirror();
    /// How far the buttons over the cell reach into a text that ends here, in pixels.
    [[nodiscard]] int coveredByButtons(int right) const;
    /// Font, palette or screen are others: shows everything anew.
    void showAnew();
    /// Tells the core how high the widget's font is.
    void fitRowsToFont();

private:
    void makeChildren();
    void showButtons();
    [[nodiscard]] QToolButton *makeButton(WidgetId id, const char *name, const QString &tip);
    [[nodiscard]] bool rowsFit(Twips height) const;
    [[nodiscard]] bool colsFit(Twips width) const;

    bool arranging_ = false;
};

/// The font of a cell that the widget's own font completes, in logical size.
[[nodiscard]] QFont completedFont(const tablio::Font &font, const QWidget &widget);

} // namespace tablio::qt
