#pragma once

/// The grid's pop-up menu as a Qt menu. Which entries are enabled is the core's decision.

#include <QPoint>

namespace tablio::qt {

class TablioWidgetPrivate;

/// Pops the menu up at a point of the screen and returns at once.
void showTableMenu(TablioWidgetPrivate &parts, const QPoint &corner);

} // namespace tablio::qt
