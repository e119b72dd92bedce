#pragma once

/// A window with a grid between two other fields, as the Qt tests use it. Keys and clicks go to the
/// window, so that they take the way that a user's take.

#include "control/inside.h"

#include <tablio/qt/tablio_widget.h>

#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTest>

#include <ostream>

/// For failures.
inline void PrintTo(const QString &text, std::ostream *stream) {
    *stream << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QVariant &value, std::ostream *stream) {
    *stream << value.toString().toStdString();
}
inline void PrintTo(const QStringList &texts, std::ostream *stream) {
    *stream << '"' << texts.join(QStringLiteral("\", \"")).toStdString() << '"';
}

class GridWindow {
public:
    /// Columns: text, integer, decimal with two places, upper-case text. The window is shown and
    /// active, and the grid has the keyboard at (1, 0).
    GridWindow();

    QDialog window;
    QLineEdit *before;
    QPointer<tablio::qt::TablioWidget> grid;
    QLineEdit *after;

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// The keys that type a text; a line end is Enter, a tab the right arrow.
    void type(const QString &text);
    void click(int row, int col, Qt::MouseButton button = Qt::LeftButton);
    void doubleClick(int row, int col);
    void wheel(int notches, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// What an input method sends to what has the keyboard.
    static void compose(const QString &preedit, const QString &commit = {});

    /// The text that the cell shows.
    [[nodiscard]] QString cell(int row, int col) const;
    /// The cursor, such as "1,0", with a "!" behind it while an edit is open.
    [[nodiscard]] QString cursor() const;
    [[nodiscard]] QLineEdit *box() const;
    [[nodiscard]] QWidget *canvas() const;
    /// Where a cell is in the window, in logical pixels.
    [[nodiscard]] QRect place(int row, int col) const;
    [[nodiscard]] tablio::ControlState &state() const {
        return tablio::Inside::of(grid->core()).state;
    }
};
