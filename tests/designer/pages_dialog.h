#pragma once

/// The dialog of the property pages under a user's hands. It reaches all by its name and knows no
/// type of ours, so that it serves a program and the plug-in in Designer alike.

#include <QDialog>
#include <QPointer>

class PagesDialog {
public:
    /// Waits until the dialog has the keyboard.
    explicit PagesDialog(QDialog *dialog);

    /// Plays steps with "; " between them: "txtRows=7" types over what the box holds,
    /// "cboDataType=Positive" goes to that item, "chkWordWrap" and "cmdIndex(1)" are pressed;
    /// "page=1", "apply", "ok" and "Tab" are the dialog's own.
    void play(const QString &steps) const;
    /// What a box or a list shows.
    [[nodiscard]] QString text(const char *name) const;
    /// The settings that the preview shows.
    [[nodiscard]] QByteArray preview() const;
    [[nodiscard]] QDialog *get() const { return dialog_; }

private:
    QPointer<QDialog> dialog_;
};
