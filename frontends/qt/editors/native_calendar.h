#pragma once

/// The native month calendar of a date cell, inside the control. It never has the keyboard: keys
/// go through the text box to the core, which moves the day; the mouse picks days and turns pages.

#include <tablio/types.h>

#include <QFrame>

class QCalendarWidget;

namespace tablio::qt {

class Surroundings;

class NativeCalendar final : public QFrame {
    Q_OBJECT

public:
    NativeCalendar(Surroundings &around, QWidget *parent);

    /// Shows the core's calendar and its container.
    void mirror();
    /// Where one of the six weeks' days is on the platform's screen.
    [[nodiscard]] QRect placeOfDay(int index) const;

private:
    void turnedTo(int year, int month);

    Surroundings &around_;
    QCalendarWidget *calendar_;
    /// The edit that is shown.
    EditNumber edit_ = 0;
    bool mirroring_ = false;
};

} // namespace tablio::qt
