#pragma once

/// The widget on which the grid is painted and on which the mouse acts. It covers the control but
/// for the scroll bars and is the parent of the cell editors, so that these are clipped by it.

#include "grid/cell_fonts.h"

#include <tablio/types.h>

#include <QWidget>

namespace tablio::qt {

class TablioWidgetPrivate;

class GridCanvas final : public QWidget {
    Q_OBJECT

public:
    GridCanvas(TablioWidgetPrivate &parts, QWidget *parent);

    /// Paints an area, in twips, anew.
    void showArea(const Rect &area);
    /// The same with the lines around it, which show where an edit is open.
    void showFramed(const Rect &area);
    /// Shows the grid at its scroll position, moving what is painted already where it can.
    void showScrolled();
    /// The keyboard has come or gone: the current cell looks different.
    void showCurrentCell();
    void forgetFonts() { fonts_.clear(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    [[nodiscard]] QPoint wheelSteps(const QWheelEvent &event);

    /// How far the rows that were painted at another scroll position have to move, in pixels; 0
    /// where they cannot simply be moved.
    [[nodiscard]] int rowDistance(CellAddress before) const;

    TablioWidgetPrivate &parts_;
    CellFonts fonts_;
    /// The scroll position that was shown last.
    CellAddress shown_;
    /// What is left of fine wheel movements: in pixels, and in eighths of a degree times the lines
    /// of a notch.
    QPoint pixelRest_;
    QPoint angleRest_;
};

} // namespace tablio::qt
