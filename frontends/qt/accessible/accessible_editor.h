#pragma once

/// The open editor as a screen reader knows it: a text that is called after its cell, in which the
/// caret moves. While no edit is open the native text box, which keeps the keyboard, is nothing to
/// be told of: the current cell is.

#include <tablio/screen.h>

#include <QAccessibleWidget>

#include <optional>

namespace tablio::qt {

class NativeTextBox;
class TablioWidgetPrivate;

class AccessibleEditor final : public QAccessibleWidget,
                               public QAccessibleTextInterface,
                               public QAccessibleEditableTextInterface {
public:
    explicit AccessibleEditor(NativeTextBox &box);

    [[nodiscard]] bool isValid() const override;
    /// The cell that is edited.
    [[nodiscard]] QAccessibleInterface *parent() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    void selection(int index, int *start, int *end) const override;
    [[nodiscard]] int selectionCount() const override;
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    [[nodiscard]] int cursorPosition() const override;
    void setCursorPosition(int position) override;
    [[nodiscard]] QString text(int start, int end) const override;
    [[nodiscard]] int characterCount() const override;
    [[nodiscard]] QRect characterRect(int offset) const override;
    [[nodiscard]] int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int start, int end) override;
    [[nodiscard]] QString attributes(int offset, int *start, int *end) const override;

    // What is put in is typed, by the rules of the column.
    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void insertText(int offset, const QString &text) override { replaceText(offset, offset, text); }
    void replaceText(int start, int end, const QString &text) override;

private:
    /// Null while the widget around is being made or taken apart.
    [[nodiscard]] TablioWidgetPrivate *parts() const noexcept;
    [[nodiscard]] std::optional<ScreenEditor> editor() const;

    NativeTextBox &box_;
};

} // namespace tablio::qt
