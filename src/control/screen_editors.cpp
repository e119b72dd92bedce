/// The open editor with its buttons, list and calendar, and the pop-up menu, as a face shows them.

#include <tablio/screen.h>

#include "control/control.h"

#include <algorithm>

namespace tablio {

namespace {

template <typename ToPixels>
EditorPlace placed(const ControlState &state, const ScreenEditor &editor, int width,
                   ToPixels toPixels) {
    const Widgets &widgets = state.widgets;
    const bool rightToLeft = state.grid.view.isRightToLeft();
    const bool hasArrow = widgets.cboEdit.Visible();
    EditorPlace place{toPixels(editor.frame)};
    // A right-aligned text ends where the grid paints it, which the frame's end alone decides.
    place.width =
        editor.alignsRight && !hasArrow ? place.frame.width : std::min(place.frame.width, width);
    for (const PlainWidget *button : {&widgets.cmdLookup, &widgets.cmdCalender}) {
        const PixelRect area = toPixels(button->place());
        if (button->Visible())
            place.covered =
                std::max(place.covered, rightToLeft ? area.right() - place.frame.left
                                                    : place.frame.left + place.width - area.left);
    }
    // Whatever lay over a combo's arrow would take the presses that are meant for it.
    if (hasArrow && rightToLeft)
        place.frame.left += place.frame.width - place.width;
    if (hasArrow)
        place.frame.width = place.width;
    return place;
}

} // namespace

std::optional<WidgetId> Screen::focusOwner() const noexcept { return control_.state.focus.owner(); }

ScreenWidget Screen::widget(WidgetId widget) const {
    const Widgets &all = control_.state.widgets;
    for (const Widget *each : std::initializer_list<const Widget *>{
             &all.picText, &all.txtEdit, &all.picEdit, &all.cboEdit, &all.txtDateEdit,
             &all.cmdLookup, &all.cmdCalender, &all.picDate, &all.mvCalender}) {
        if (each->id() == widget)
            return {each->place(), each->Visible(), each->Tag()};
    }
    const GridView &view = control_.state.grid.view;
    return {{0, 0, view.Width(), view.Height()}, true, {}};
}

std::optional<ScreenEditor> Screen::editor() const {
    const Widgets &widgets = control_.state.widgets;
    const EditSession &session = control_.session;
    const bool rightToLeft = isRightToLeft();
    const auto shown = [&](const TextField &box, const Rect &frame, Twips width) {
        const EditorLook &look = box.look();
        return ScreenEditor{
            session.openEdit(), session.cell(), box.Text(),     box.anchor(), box.caret(), 0,
            rightToLeft,        look.BackColor, look.ForeColor, look.Font,    frame,       width};
    };
    if (!session.isOpen())
        return std::nullopt;
    if (const TextBox &box = widgets.txtEdit; box.Visible()) {
        ScreenEditor editor = shown(box, widgets.picText.place(), box.Width());
        editor.maxLength = box.MaxLength();
        editor.alignsRight = rightToLeft || box.Alignment() == TextAlignment::Right;
        return editor;
    }
    if (widgets.cboEdit.Visible()) {
        const Rect &frame = widgets.picEdit.place();
        return shown(widgets.cboEdit, frame, std::max(0, frame.width - Widgets::buttonWidth));
    }
    if (const MaskedBox &box = widgets.txtDateEdit; box.Visible())
        return shown(box, box.place(), box.Width());
    return std::nullopt;
}

EditorPlace Screen::placeOf(const ScreenEditor &editor, const DevicePixels &pixels) const {
    return placed(control_.state, editor, editor.width / twipsPerPixel,
                  [&](const Rect &area) { return pixels.inside(pixels.withoutLines(area)); });
}

EditorPlace Screen::devicePlaceOf(const ScreenEditor &editor, const DevicePixels &pixels) const {
    return placed(control_.state, editor, pixels.edge(editor.width),
                  [&](const Rect &area) { return pixels.withoutLines(area); });
}

ScreenList Screen::list() const {
    const ComboBox &combo = control_.state.widgets.cboEdit;
    return {combo.items(), combo.ListIndex(), combo.DroppedDown()};
}

Date Screen::calendarDay() const noexcept { return control_.state.widgets.mvCalender.Value(); }

CalendarMonth Screen::calendarMonth(int firstWeekday) const {
    const Date today = control_.state.link.face().today();
    const Date chosen = calendarDay();
    const Date first{chosen.year, chosen.month, 1};
    // A month that begins with the week shows a week of the one before.
    const int before = (first.weekday() - firstWeekday + 6) % 7 + 1;
    CalendarMonth month;
    for (int at = 0; CalendarMonth::Day & day : month.days) {
        day.date = first.addDays(at++ - before);
        day.isToday = day.date == today;
        day.isChosen = day.date == chosen;
        day.isOtherMonth = day.date.month != chosen.month;
        day.isOutOfRange = day.date < firstCellDay || day.date > lastCellDay;
    }
    return month;
}

std::array<ScreenMenuEntry, 7> Screen::menu() const {
    const auto entry = [this](MenuEntry name, std::string_view caption) {
        const MenuState state = control_.menuState(name);
        return ScreenMenuEntry{name, caption, state.enabled, state.checked};
    };
    return {entry(MenuEntry::mnuMarkRow, "&Mark Row"),
            entry(MenuEntry::mnuLine1, {}),
            entry(MenuEntry::mnuAddRow, "&Add Row"),
            entry(MenuEntry::mnuInsertRow, "&Insert Row"),
            entry(MenuEntry::mnuRemoveRow, "&Remove Row"),
            entry(MenuEntry::mnuLine2, {}),
            entry(MenuEntry::mnuTableClear, "Table &Clear")};
}

} // namespace tablio
