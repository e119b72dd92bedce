/// What the page shows besides the cells, worked out when it asks. Places are logical pixels from
/// the canvas' corner.

#include "grid.h"

#include <algorithm>

namespace tablio::web {

namespace {

/// Which of them are true, a bit each.
template <typename... Truths> int bits(Truths... truths) {
    int all = 0;
    int bit = 1;
    ((all |= truths ? bit : 0, bit *= 2), ...);
    return all;
}

/// How far a page scrolls for each row or column, so that what is in sight moves as far.
int step(Twips all, int count) { return std::max(1, all / twipsPerPixel / std::max(1, count)); }

} // namespace

/// In the order in which `element/state.ts` reads it.
[[clang::export_name("state")]] const void *state(int number) {
    return replied(number, [](Grid &grid, Message &message) {
        const Tablio &table = grid.table();
        const Screen &screen = table.screen();
        const DevicePixels pixels(grid.look.scale);
        const CellAddress cell = screen.currentCell().value_or(CellAddress{-1, -1});
        const PixelRect place =
            cell.row < 0 ? PixelRect{} : pixels.around(pixels.rect(screen.cellRect(cell)));
        message.add(screen.focusOwner().has_value(), cell.row, cell.col, place, table.Rows(),
                    table.Cols(), grid.isEnabled());
        const Arrangement room = grid.arranged();
        message.add(room.width / twipsPerPixel, room.height / twipsPerPixel, room.hasRowBar,
                    room.hasColBar);
        const Rect all = screen.wholeTable();
        for (const auto &[range, size] :
             {std::pair(screen.rowRange(), step(all.height, table.Rows())),
              std::pair(screen.colRange(), step(all.width, table.Cols()))})
            message.add(range.first, range.last, range.page, range.position, size);
        for (const WidgetId id : {WidgetId::cmdLookup, WidgetId::cmdCalender, WidgetId::picEdit}) {
            const ScreenWidget widget = screen.widget(id);
            message.add(widget.isVisible, pixels.inside(pixels.withoutLines(widget.place)));
        }
        const ScreenWidget calendar = screen.widget(WidgetId::picDate);
        const Date day = screen.calendarDay();
        message.add(calendar.isVisible, DevicePixels(1).rect(calendar.place),
                    day.year * 10000 + day.month * 100 + day.day);
        const ScreenList list = screen.list();
        const auto editor = screen.editor();
        message.add(screen.widget(WidgetId::cboEdit).isVisible, list.isDropped, list.chosen,
                    editor.has_value());
        if (!editor)
            return;
        const PaletteColours colours(grid.look.palette, true);
        const EditorPlace frame = screen.placeOf(*editor, pixels);
        message.add(editor->edit, editor->cell.row, editor->cell.col, editor->anchor, editor->caret,
                    editor->alignsRight, colours.of(editor->BackColor),
                    colours.text(editor->ForeColor, editor->BackColor), frame.frame, frame.width,
                    frame.covered, grid.painter.css(editor->Font, 1), editor->text);
    });
}

[[clang::export_name("list")]] const void *list(int number) {
    return replied(number, [](Grid &grid, Message &message) {
        for (const std::string &item : grid.table().screen().list().items)
            message.add(item);
    });
}

[[clang::export_name("month")]] const void *month(int number, int firstWeekday) {
    return replied(number, [&](Grid &grid, Message &message) {
        for (const auto &day : grid.table().screen().calendarMonth(firstWeekday).days)
            message.add(day.date.year * 10000 + day.date.month * 100 + day.date.day,
                        bits(day.isToday, day.isChosen, day.isOtherMonth, day.isOutOfRange));
    });
}

[[clang::export_name("menu")]] const void *menu(int number) {
    return replied(number, [](Grid &grid, Message &message) {
        for (const ScreenMenuEntry &entry : grid.table().screen().menu())
            message.add(entry.entry, entry.isEnabled, entry.isChecked, entry.caption);
    });
}

/// The cells of one row, from a column on.
[[clang::export_name("facts")]] const void *facts(int number, int row, int col, int count) {
    return replied(number, [&](Grid &grid, Message &message) {
        for (const int end = col + count; col < end; ++col) {
            const CellFacts cell = grid.table().screen().facts({row, col});
            message.add(cell.type,
                        bits(cell.isFixed, cell.isReadOnly, cell.isCheckBox, cell.isTicked,
                             cell.isMarked, cell.isRefused),
                        cell.header, cell.text);
        }
    });
}

[[clang::export_name("setRoom")]] void setRoom(int number, int width, int height, int bar) {
    with(number, [&](Grid &grid) { grid.setRoom(width, height, bar); });
}

} // namespace tablio::web
