#pragma once

/// What the native children of a grid know of what they stand in: the control to read and to tell,
/// the widget whose font, palette and language they follow, and its keyboard, which the one text
/// box holds for all of them.

#include "widget/qt_look.h"

#include <tablio/tablio.h>

#include <QPointer>
#include <QWidget>

namespace tablio::qt {

/// A host's slot may delete the widget, its children and this object during any call into the
/// control. Whoever makes such a call looks at a QPointer before touching a member again.
class Surroundings {
public:
    Surroundings(QWidget &widget, Tablio &control) : owner(widget), control_(control) {}

    QWidget &owner;

    [[nodiscard]] const Screen &screen() const noexcept { return control_.screen(); }
    [[nodiscard]] Input &input() const noexcept { return control_.input(); }
    /// The screen's pixels, for placing native children.
    [[nodiscard]] DevicePixels pixels() const {
        return DevicePixels(owner.devicePixelRatioF(), screen().isRightToLeft());
    }
    /// The owner's colours as they are shown now: disabled, inactive or active.
    [[nodiscard]] Palette palette() const {
        return toPalette(owner.palette(), !owner.isEnabled()       ? QPalette::Disabled
                                          : owner.isActiveWindow() ? QPalette::Active
                                                                   : QPalette::Inactive);
    }
    [[nodiscard]] PaletteColours colours() const { return {palette(), owner.isEnabled()}; }

    [[nodiscard]] virtual bool hasKeyboard() const = 0;
    /// Takes the native focus for the control.
    virtual void takeKeyboard() = 0;
    /// The native focus has come: tells the control, unless it knows.
    virtual void enter() = 0;
    /// The same when Qt has finished with the focus, which it goes on handling after the focus
    /// event, with a widget that a slot might have deleted. Whoever delivers a key or a press
    /// before that calls enter() first, so that nothing depends on when this happens.
    virtual void enterLater() = 0;
    /// Ends a composition by putting its text in.
    virtual void commitComposition() = 0;
    /// The keyboard has come or gone: the current cell looks different.
    virtual void showCurrentCell() = 0;

protected:
    ~Surroundings() = default;

private:
    Tablio &control_;
};

} // namespace tablio::qt
