/// How the native text box shows what the core's editor holds.

#include "editors/native_text_box.h"

#include "grid/cell_fonts.h"
#include "widget/qt_text.h"
#include "widget/surroundings.h"

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
    const std::optional<ScreenEditor> editor = around_.screen().editor();
    if (!editor) {
        park();
        return;
    }
    edit_ = editor->edit;
    place(*editor);
    setLook(*editor);
    // Setting a text would end a composition.
    if (!isComposing())
        setContent(*editor);
}

void NativeTextBox::place(const ScreenEditor &editor) {
    const EditorPlace where = around_.screen().placeOf(editor, around_.pixels());
    QWidget *frame = parentWidget();
    const QRect inner = toQRect(where.frame);
    const bool moved = frame->geometry() != inner;
    frame->setGeometry(inner);
    setGeometry(0, 0, where.width, inner.height());
    const int side = textMargin - ownMargin;
    const bool rightToLeft = around_.screen().isRightToLeft();
    const int end = side - (editor.alignsRight ? caretRoom : 0);
    const QMargins margins(side + (rightToLeft ? where.covered : 0), 0,
                           end + (rightToLeft ? 0 : where.covered), 0);
    if (textMargins() != margins)
        setTextMargins(margins);
    // Absolutely: else a text that is written to the left would turn it round.
    const Qt::Alignment alignment = (editor.alignsRight ? Qt::AlignRight : Qt::AlignLeft) |
                                    Qt::AlignAbsolute | Qt::AlignVCenter;
    if (this->alignment() != alignment)
        setAlignment(alignment);
    if (moved)
        tellPlace();
}

void NativeTextBox::setLook(const ScreenEditor &editor) {
    const Look look{editor.BackColor, editor.ForeColor, editor.Font};
    if (look_ == look)
        return;
    look_ = look;
    setFont(completedFont(look.font, around_.owner));
    const PaletteColours colours = around_.colours();
    QPalette palette = around_.owner.palette();
    palette.setColor(QPalette::Base, toQColor(colours.of(look.back)));
    palette.setColor(QPalette::Text, toQColor(colours.text(look.fore, look.back)));
    setPalette(palette);
}

void NativeTextBox::setContent(const ScreenEditor &editor) {
    const QString wanted = toQString(editor.text);
    if (const QString shown = text(); shown != wanted) {
        // Only what is another is replaced: screen readers speak what comes and goes. A text that
        // was chosen is all selected, and comes as a whole.
        const bool isChosen = std::abs(editor.caret - editor.anchor) == wanted.size();
        const auto shorter = isChosen ? 0 : std::min(shown.size(), wanted.size());
        qsizetype alike = 0;
        while (alike < shorter && shown[alike] == wanted[alike])
            ++alike;
        qsizetype alikeAtEnd = 0;
        while (alikeAtEnd < shorter - alike &&
               shown[shown.size() - 1 - alikeAtEnd] == wanted[wanted.size() - 1 - alikeAtEnd])
            ++alikeAtEnd;
        setSelection(static_cast<int>(alike), static_cast<int>(shown.size() - alikeAtEnd - alike));
        insert(wanted.mid(alike, wanted.size() - alikeAtEnd - alike));
    }
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
    frame->setGeometry(0, 0, 0, 0);
    tellPlace();
}

} // namespace tablio::qt
