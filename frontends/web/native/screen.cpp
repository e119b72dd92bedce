/// What the page shows, worked out when it asks. Places are logical pixels from the canvas' corner,
/// but in a scene, which is device pixels.

#include "grid.h"

#include <cmath>

namespace tablio::web {

namespace {

/// A scene as numbers: 0 and a filled area, 1 and a text, 2 and a tick in 64ths of a pixel.
class SceneWriter final : public ScenePainter {
public:
    SceneWriter(Grid &grid, Reply &reply) : grid_(grid), reply_(reply) {}

    void fill(const PixelRect &area, Colour colour) override {
        reply_.add(0, colour.value, area.left, area.top, area.width, area.height);
    }
    void text(const SceneText &text) override {
        const PixelRect &inner = text.inner;
        reply_.add(1, text.colour.value, grid_.numberOf(text.font), text.room.top, text.room.height,
                   inner.left, inner.top, inner.width, inner.height, text.across, text.down,
                   (text.hasLineEnds ? 1 : 0) + (text.mayWrap ? 2 : 0) +
                       (text.tooWide == TooWide::Hashes ? 4 : 0));
        reply_.addText(text.text);
    }
    void tick(const SceneTick &tick) override {
        const auto fine = [](double pixels) { return std::lround(pixels * 64); };
        reply_.add(2, tick.colour.value, fine(tick.penWidth));
        for (const SceneTick::Point &point : tick.points)
            reply_.add(fine(point.x), fine(point.y));
    }

private:
    Grid &grid_;
    Reply &reply_;
};

void addRect(Reply &reply, const PixelRect &rect) {
    reply.add(rect.left, rect.top, rect.width, rect.height);
}

void addWidget(Reply &reply, const ScreenWidget &widget, const DevicePixels &pixels) {
    reply.add(widget.isVisible);
    addRect(reply, pixels.inside(pixels.withoutLines(widget.place)));
}

void addEditor(Reply &reply, Grid &grid, const ScreenEditor &editor, const DevicePixels &pixels) {
    const PaletteColours colours(grid.look.palette, grid.look.isEnabled);
    const EditorPlace place = grid.table().screen().placeOf(editor, pixels);
    reply.add(editor.edit, editor.cell.row, editor.cell.col, editor.anchor, editor.caret,
              editor.maxLength, editor.alignsRight, colours.of(editor.BackColor).value,
              colours.text(editor.ForeColor, editor.BackColor).value, grid.numberOf(editor.Font));
    addRect(reply, place.frame);
    reply.add(place.width, place.covered).addText(editor.text);
}

/// Also while the calendar keeps the grid from taking anything.
bool isEnabled(const Tablio &table) {
    return table.Enabled() || table.screen().widget(WidgetId::mvCalender).isVisible;
}

} // namespace

/// In the order in which `element/state.ts` reads it.
[[clang::export_name("state")]] const void *state(int number) {
    return replied(number, [](Grid &grid, Reply &reply) {
        const Screen &screen = grid.table().screen();
        const DevicePixels pixels(grid.look.scale);
        const auto editor = screen.editor();
        const auto owner = screen.focusOwner();
        const auto cell = screen.currentCell().value_or(CellAddress{-1, -1});
        const Date day = screen.calendarDay();
        const ScreenList list = screen.list();
        reply.add(owner ? static_cast<int>(*owner) : -1, cell.row, cell.col, grid.table().Rows(),
                  grid.table().Cols(), isEnabled(grid.table()));
        const Arrangement room = grid.arranged();
        reply.add(room.width / twipsPerPixel, room.height / twipsPerPixel, room.hasRowBar,
                  room.hasColBar);
        for (const ScrollRange &range : {screen.rowRange(), screen.colRange()})
            reply.add(range.first, range.last, range.page, range.position);
        for (const WidgetId id : {WidgetId::cmdLookup, WidgetId::cmdCalender, WidgetId::mvCalender,
                                  WidgetId::picEdit, WidgetId::cboEdit})
            addWidget(reply, screen.widget(id), pixels);
        const ScreenWidget calendar = screen.widget(WidgetId::picDate);
        reply.add(calendar.isVisible);
        addRect(reply, DevicePixels(1).rect(calendar.place));
        reply.add(day.year, day.month, day.day, list.items.size(), list.chosen, list.isDropped,
                  editor.has_value());
        if (editor)
            addEditor(reply, grid, *editor, pixels);
    });
}

[[clang::export_name("list")]] const void *list(int number) {
    return replied(number, [](Grid &grid, Reply &reply) {
        for (const std::string &item : grid.table().screen().list().items)
            reply.addText(item);
    });
}

[[clang::export_name("month")]] const void *month(int number, int firstWeekday) {
    return replied(number, [&](Grid &grid, Reply &reply) {
        for (const auto &day : grid.table().screen().calendarMonth(firstWeekday).days)
            reply.add(day.date.year * 10000 + day.date.month * 100 + day.date.day,
                      (day.isToday ? 1 : 0) + (day.isChosen ? 2 : 0) + (day.isOtherMonth ? 4 : 0) +
                          (day.isOutOfRange ? 8 : 0));
    });
}

[[clang::export_name("menu")]] const void *menu(int number) {
    return replied(number, [](Grid &grid, Reply &reply) {
        for (const ScreenMenuEntry &entry : grid.table().screen().menu())
            reply.add(entry.entry, entry.isEnabled, entry.isChecked).addText(entry.caption);
    });
}

/// The cells of one row, from a column on.
[[clang::export_name("facts")]] const void *facts(int number, int row, int col, int count) {
    return replied(number, [&](Grid &grid, Reply &reply) {
        for (const int end = col + count; col < end; ++col) {
            const CellFacts cell = grid.table().screen().facts({row, col});
            reply.add(cell.type, cell.dataType,
                      (cell.isFixed ? 1 : 0) + (cell.isReadOnly ? 2 : 0) +
                          (cell.isCheckBox ? 4 : 0) + (cell.isTicked ? 8 : 0) +
                          (cell.isMarked ? 16 : 0) + (cell.isEdited ? 32 : 0) +
                          (cell.isRefused ? 64 : 0));
            reply.addText(cell.header).addText(cell.text);
        }
    });
}

[[clang::export_name("cellRect")]] const void *cellRect(int number, int row, int col) {
    return replied(number, [&](Grid &grid, Reply &reply) {
        const DevicePixels pixels(grid.look.scale);
        addRect(reply, pixels.around(pixels.rect(grid.table().screen().cellRect({row, col}))));
    });
}

/// What is to be moved (its top, and how far down), then the scene of what has changed.
[[clang::export_name("paint")]] const void *paint(int number, int width, int height) {
    return replied(number, [&](Grid &grid, Reply &reply) {
        const Grid::Repaint repaint = grid.takeRepaint({0, 0, width, height});
        reply.add(repaint.move.top, repaint.move.distance);
        SceneWriter writer(grid, reply);
        grid.table().screen().paint(repaint.areas, grid.look, writer);
    });
}

/// The room holds the palette's twelve colours, and behind them what the desktop has by index.
[[clang::export_name("setLook")]] void setLook(int number, double scale, bool hasKeyboard,
                                               int count) {
    with(number, [&](Grid &grid) {
        const Values colours = takeValues(count);
        const auto at = [&](std::size_t place) { return colours.at(place).toColour(); };
        grid.systemColours.clear();
        for (std::size_t place = 12; place < colours.size(); ++place)
            grid.systemColours.push_back(at(place));
        grid.look = {{at(0), at(1), at(2), at(3), at(4), at(5), at(6), at(7), at(8), at(9), at(10),
                      at(11), grid.systemColours},
                     scale,
                     hasKeyboard,
                     isEnabled(grid.table())};
        grid.repaintAll();
    });
}

[[clang::export_name("setRoom")]] void setRoom(int number, int width, int height, int bar) {
    with(number, [&](Grid &grid) { grid.setRoom(width, height, bar); });
}

/// The room holds the signs of numbers, the sizes of their groups, the order of dates, the font,
/// and how high a line of it is.
[[clang::export_name("setLocale")]] void setLocale(int number) {
    with(number, [](Grid &grid) {
        const Values values = takeValues(7);
        grid.numbers = {values[0].toText(), values[1].toText(), values[2].toLong(),
                        values[3].toLong()};
        grid.dates = static_cast<DateOrder>(values[4].toLong());
        grid.font = values[5].toFont();
        grid.table().input().textHeight(values[6].toLong());
    });
}

[[clang::export_name("font")]] const void *font(int number, std::size_t index) {
    return with(number, [&](Grid &grid) {
        const Value value(grid.fontAt(index));
        return putValues({&value, 1});
    });
}

} // namespace tablio::web
