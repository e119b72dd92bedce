#pragma once

/// What a `TablioWidget` is made of: the core, the two partners that the core talks to, and the
/// native child widgets. The parts know each other through it; it holds no rule of its own.

#include "accessible/accessible_cells.h"
#include "accessible/accessible_news.h"
#include "widget/change_signals.h"
#include "widget/host_signals.h"
#include "widget/qt_face.h"
#include "widget/surroundings.h"

#include <tablio/qt/tablio_widget.h>
#include <tablio/settings_text.h>

#include <QEvent>
#include <QPointer>

class QLabel;
class QScrollBar;
class QToolButton;

namespace tablio::qt {

class GridCanvas;
class NativeCalendar;
class NativeCombo;
class NativeTextBox;

class TablioWidgetPrivate final : public Surroundings {
public:
    explicit TablioWidgetPrivate(TablioWidget &itself);
    ~TablioWidgetPrivate();
    TablioWidgetPrivate(const TablioWidgetPrivate &) = delete;
    TablioWidgetPrivate &operator=(const TablioWidgetPrivate &) = delete;

    /// Of the widget that this is or stands in; null while that is being made or taken apart.
    [[nodiscard]] static TablioWidgetPrivate *around(QObject *part) noexcept;

    TablioWidget &widget;
    QtFace face;
    std::unique_ptr<HostEvents> host;
    /// Heard since somebody has connected to one of its signals.
    ChangeSignals changes{widget};
    /// After its partners, so that it is closed before they go.
    Tablio core;
    SettingsText settings{core};

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
    // What screen readers know.
    AccessibleCells accessibleCells{*this};
    AccessibleNews news{*this};
    /// Over the table while its settings cannot be read.
    QPointer<QLabel> notice;

    [[nodiscard]] QColor colour(Colour colour) const { return toQColor(colours().of(colour)); }

    [[nodiscard]] bool hasKeyboard() const override;
    void takeKeyboard() override;
    void enter() override;
    void enterLater() override;
    void commitComposition() override;
    void showCurrentCell() override;
    /// The event that enterLater() posts to the widget.
    [[nodiscard]] static QEvent::Type enterEvent();

    /// Lays out grid and scroll bars and tells the core how much room the grid has.
    void arrange();
    /// Shows the grid's scroll position and range.
    void showScrollPosition();
    /// Shows the open editor, its buttons, list and calendar; little work when they are the same.
    void mirror();
    /// Font, palette or screen are others: shows everything anew.
    void showAnew();
    /// Shows or takes away what stands in the table's place when its settings cannot be read.
    void showProblem();
    /// Tells the core from which side the widget is read.
    void followDirection();
    /// Tells the core how high the widget's font is.
    void fitRowsToFont();

private:
    void makeChildren();
    void showButtons();
    [[nodiscard]] QToolButton *makeButton(WidgetId id, const char *name, const QString &tip);

    bool arranging_ = false;
    bool isClosing_ = false;
};

} // namespace tablio::qt
