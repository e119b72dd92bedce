#pragma once

/// The native text box and the pair of arrows of a property page. They hand what the user does to
/// the page and show what its models say; which characters and numbers are right, the page knows.

#include <tablio/pages/property_page.h>

#include <QAbstractSpinBox>
#include <QLineEdit>

namespace tablio::qt {

/// Whether the keyboard went to a pop-up or another program's window for a while only.
[[nodiscard]] bool comesBack(const QFocusEvent &event);

class PageLineEdit final : public QLineEdit {
    Q_OBJECT

public:
    PageLineEdit(PropertyPage &page, PageTextBox &box, QWidget *parent = nullptr);

    void mirror();
    /// The user has done with the box, though the keyboard may stay in it.
    void settle();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    [[nodiscard]] bool takes(char32_t character) const;

    PropertyPage &page_;
    PageTextBox &box_;
};

/// A text box with the arrows that stand beside it.
class PageSpinBox final : public QAbstractSpinBox {
    Q_OBJECT

public:
    PageSpinBox(PropertyPage &page, PageTextBox &box, PageSpinner &spinner,
                QWidget *parent = nullptr);

    [[nodiscard]] PageLineEdit &box() const { return box_; }
    void stepBy(int steps) override;

protected:
    [[nodiscard]] StepEnabled stepEnabled() const override;

private:
    /// What the box holds; the spinner's value when that is no number.
    [[nodiscard]] double number() const;

    PropertyPage &page_;
    PageSpinner &spinner_;
    PageLineEdit &box_;
};

} // namespace tablio::qt
