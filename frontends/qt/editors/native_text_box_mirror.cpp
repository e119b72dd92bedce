/// How the native text box shows what the core's editor holds.

#include "editors/native_text_box.h"

#include "grid/grid_canvas.h"
#include "widget/qt_look.h"
#include "widget/qt_text.h"
#include "widget/tablio_widget_p.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QScopedValueRollback>

#include <algorithm>
#include <cstdlib>

namespace tablio::qt {

namespace {

/// What a line edit keeps free at its sides by itself, in pixels.
constexpr int ownMargin = 2;
/// And behind a right-aligned text, for the caret.
constexpr int caretRoom = 2;
/// So that the text does not move when the editor opens over it.
constexpr int textMargin = 3;

} // namespace

void NativeTextBox::mirror() {
    const QScopedValueRollback<bool> quiet(mirroring_, true);
    const std::optional<ShownEditor> editor = shownEditor(parts_.state());
    if (!editor) {
        park();
        return;
    }
    edit_ = parts_.openEdit();
    place(*editor);
    setLook(*editor);
    // Setting a text would end a composition.
    if (!isComposing())
        setContent(*editor);
}

void NativeTextBox::place(const ShownEditor &editor) {
    const DevicePixels pixels = parts_.pixels();
    const QRect inner = toQRect(pixels.inside(pixels.withoutLines(editor.frame)));
    // A right-aligned editor reaches to the cell's end, so that its margin alone decides where the
    // text ends: exactly where the grid paints it.
    const int width = editor.alignsRight
                          ? inner.width()
                          : std::min(inner.width(), editor.place.width / twipsPerPixel);
    QWidget *frame = parentWidget();
    const bool moved = frame->geometry() != inner;
    frame->setGeometry(inner);
    if (moved || framed_ != editor.frame) {
        parts_.canvas->showFramed(framed_);
        parts_.canvas->showFramed(editor.frame);
        framed_ = editor.frame;
    }
    setGeometry(0, 0, width, inner.height());

    const int covered = parts_.coveredByButtons(inner.x() + width);
    const int side = textMargin - ownMargin;
    const QMargins margins(side, 0, side - (editor.alignsRight ? caretRoom : 0) + covered, 0);
    if (textMargins() != margins)
        setTextMargins(margins);
    const Qt::Alignment alignment =
        (editor.alignsRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    if (this->alignment() != alignment)
        setAlignment(alignment);
    if (moved)
        tellPlace();
}

void NativeTextBox::setLook(const ShownEditor &editor) {
    if (look_ == editor.look)
        return;
    look_ = editor.look;
    setFont(completedFont(editor.look.Font, parts_.widget));
    const PaletteColours colours = parts_.colours();
    QPalette palette = parts_.widget.palette();
    palette.setColor(QPalette::Base, toQColor(colours.of(editor.look.BackColor)));
    palette.setColor(QPalette::Text,
                     toQColor(colours.text(editor.look.ForeColor, editor.look.BackColor)));
    setPalette(palette);
}

void NativeTextBox::setContent(const ShownEditor &editor) {
    const QString wanted = toQString(editor.text);
    if (text() != wanted)
        setText(wanted);
    const int length = std::abs(editor.caret - editor.anchor);
    const bool isSelected =
        selectionLength() == length &&
        (length == 0 || selectionStart() == std::min(editor.anchor, editor.caret));
    if (isSelected && cursorPosition() == editor.caret)
        return;
    deselect();
    // The length may be negative, so that the caret stands where the selection does not begin.
    if (length > 0)
        setSelection(editor.anchor, editor.caret - editor.anchor);
    else
        setCursorPosition(editor.caret);
}

void NativeTextBox::park() {
    if (isComposing()) {
        clearPreedit();
        QGuiApplication::inputMethod()->reset();
    }
    if (!text().isEmpty())
        setText({});
    QWidget *frame = parentWidget();
    if (frame->size().isEmpty())
        return;
    parts_.canvas->showFramed(framed_);
    framed_ = {};
    frame->setGeometry(0, 0, 0, 0);
    tellPlace();
}

} // namespace tablio::qt
