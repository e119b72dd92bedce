#pragma once

/// The widget on which the grid is painted and on which the mouse acts. It covers the control but
/// for the scroll bars and is the parent of the cell editors, so that these are clipped by it.

#include "grid/cell_fonts.h"

#include <tablio/types.h>

#include <QWidget>

namespace tablio::qt {

class Surroundings;

class GridCanvas final : public QWidget {
    Q_OBJECT

public:
    GridCanvas(Surroundings &around, QWidget *parent);

    /// Paints an area, in twips, anew.
    void showArea(const Rect &area);
    /// Shows the grid at its scroll position, moving what is painted already where it can.
    void showScrolled();
    void forgetFonts() { fonts_.clear(); }

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    Surroundings &around_;
    CellFonts fonts_;
    /// The scroll position that was shown last.
    int topRow_ = 0;
    int leftCol_ = 0;
};

} // namespace tablio::qt
