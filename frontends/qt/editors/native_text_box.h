#pragma once

/// The one native text box of the control. It holds the keyboard all the time, so that starting an
/// edit moves no native focus and no key can be lost on the way. Keys go to the core; the box shows
/// what the core's editor holds. Only what a platform's box does by itself (composing, mouse
/// selection, word keys) happens here first and is then reported.

#include <tablio/screen.h>

#include <QLineEdit>
#include <QPointer>

#include <functional>

namespace tablio::qt {

class Surroundings;

class NativeTextBox final : public QLineEdit {
    Q_OBJECT

public:
    /// `frame` is the parent that clips the box.
    NativeTextBox(Surroundings &around, QWidget *frame);

    /// Shows the open editor of the core; without one the box is parked: it keeps the keyboard,
    /// is empty and clipped to nothing.
    void mirror();
    /// Font, palette or screen are others: the next mirroring sets all of them.
    void forgetLook() { look_.reset(); }
    /// Takes the native focus for the control.
    void takeFocus();
    /// Ends a composition by putting its text in.
    void commitComposition();
    [[nodiscard]] bool isComposing() const noexcept { return !preedit_.isEmpty(); }

    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    bool event(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    [[nodiscard]] bool isEditing() const;
    [[nodiscard]] bool wantsKey(const QKeyEvent &event) const;
    bool keyPressed(QKeyEvent &event);
    /// What the box does by itself, followed by a report of what came out.
    void natively(const std::function<void()> &action);
    void settle();
    void focusLeft(const QFocusEvent &event);

    void compose(const QInputMethodEvent &event);
    /// Takes what is being composed out of the box.
    void clearPreedit();
    /// Where the box stands now, for the windows of an input method.
    void tellPlace();
    [[nodiscard]] Qt::InputMethodHints cellHints() const;

    void place(const ScreenEditor &editor);
    void setLook(const ScreenEditor &editor);
    void setContent(const ScreenEditor &editor);
    void park();
    void sendKey(KeyCode key, ShiftState shift);
    void typeText(const QString &text);
    void typeAt(const QPointF &place, const QString &text);

    struct Look {
        Colour back;
        Colour fore;
        tablio::Font font;

        friend bool operator==(const Look &, const Look &) = default;
    };

    Surroundings &around_;
    std::optional<Look> look_;
    /// The edit that the box shows.
    EditNumber edit_ = 0;
    QString preedit_;
    /// The box is being set to what the core holds: its changes are no news.
    bool mirroring_ = false;
    /// The box is doing something by itself, which is reported at its end.
    int nativeDepth_ = 0;
};

} // namespace tablio::qt
