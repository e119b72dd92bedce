#pragma once

/// The native combo that lies under the text box while a combo cell is edited: its arrow and its
/// list. The text itself is typed into the one native text box, which covers the combo's edit
/// field, so that no key is lost on a change of focus. Keys that reach the list go to the core.

#include <tablio/screen.h>

#include <QComboBox>
#include <QWheelEvent>

namespace tablio::qt {

class Surroundings;

class NativeCombo final : public QComboBox {
    Q_OBJECT

public:
    /// `frame` is the parent that clips the combo's border away.
    NativeCombo(Surroundings &around, QWidget *frame);

    /// Shows the core's combo: place, items, chosen item, list open or closed.
    void mirror();

    void showPopup() override;
    void hidePopup() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    /// The wheel scrolls the grid under the combo.
    void wheelEvent(QWheelEvent *event) override { event->ignore(); }

private:
    void mirrorItems(const ScreenList &list);
    [[nodiscard]] bool isDown() const;

    Surroundings &around_;
    /// The edit that is shown.
    EditNumber edit_ = 0;
    /// What the text box leaves free.
    QRect arrow_;
    bool mirroring_ = false;
};

} // namespace tablio::qt
