#include "inside.h"

#include "control/inside.h"
#include "model/text/date_text.h"
#include "values.h"

namespace tablio::scenario {

namespace {

ControlState &stateOf(Tablio &core) { return Inside::of(core).state; }

struct InsideValue {
    std::string_view name;
    MemberType type;
    Value (*read)(Control &);
};

constexpr InsideValue insideValues[] = {
    {"Calendar", MemberType::String,
     [](Control &c) -> Value { return DateToText(c.state.widgets.mvCalender.Value()); }},
    {"Col", MemberType::Long, [](Control &c) -> Value { return c.state.grid.Col(); }},
    {"FocusRect", MemberType::Long, [](Control &c) -> Value { return c.state.grid.FocusRect(); }},
    {"GridHeight", MemberType::Long,
     [](Control &c) -> Value { return c.state.grid.view.Height(); }},
    {"GridWidth", MemberType::Long, [](Control &c) -> Value { return c.state.grid.view.Width(); }},
    {"IsClearing", MemberType::Boolean, [](Control &c) -> Value { return c.rows.IsClearing(); }},
    {"LastKey", MemberType::Long, [](Control &c) -> Value { return c.session.LastKey(); }},
    {"LeftCol", MemberType::Long, [](Control &c) -> Value { return c.state.grid.view.LeftCol(); }},
    {"PageEditing", MemberType::Boolean, [](Control &c) -> Value { return c.state.PageEditing; }},
    {"Redraw", MemberType::Boolean, [](Control &c) -> Value { return c.state.grid.view.Redraw(); }},
    {"Row", MemberType::Long, [](Control &c) -> Value { return c.state.grid.Row(); }},
    {"TopRow", MemberType::Long, [](Control &c) -> Value { return c.state.grid.view.TopRow(); }},
};

} // namespace

std::string shownText(Tablio &core, CellAddress cell) {
    return std::string(stateOf(core).grid.table.TextMatrix(cell.row, cell.col));
}

CellAddress cursorOf(Tablio &core) { return stateOf(core).grid.current(); }

std::optional<WidgetId> focusOf(Tablio &core) { return stateOf(core).focus.owner(); }

Rect placeOf(Tablio &core, CellAddress cell) {
    return stateOf(core).grid.view.cellRect(cell.row, cell.col);
}

std::optional<CellAddress> cellAt(Tablio &core, Twips x, Twips y) {
    if (!areaOf(core).contains(x, y))
        return std::nullopt;
    return stateOf(core).grid.view.hitTest(x, y);
}

Rect areaOf(Tablio &core) {
    const GridView &view = stateOf(core).grid.view;
    return {0, 0, view.Width(), view.Height()};
}

std::optional<OpenEditor> editorOf(Tablio &core) {
    const Widgets &widgets = stateOf(core).widgets;
    if (const TextBox &box = widgets.txtEdit; box.Visible())
        return OpenEditor{widgets.picText.place(),
                          box.Text(),
                          box.SelStart(),
                          box.SelLength(),
                          box.Tag(),
                          box.MaxLength(),
                          box.Alignment() == TextAlignment::Right};
    if (const ComboBox &box = widgets.cboEdit; box.Visible())
        return OpenEditor{widgets.picEdit.place(), box.Text(), box.SelStart(), box.SelLength(),
                          box.Tag()};
    if (const MaskedBox &box = widgets.txtDateEdit; box.Visible())
        return OpenEditor{box.place(), box.Text(), box.SelStart(), box.SelLength(), box.Tag()};
    return std::nullopt;
}

EditNumber openEditOf(Tablio &core) { return Inside::of(core).session.openEdit(); }

WidgetView widgetOf(Tablio &core, WidgetId id) {
    const Widgets &widgets = stateOf(core).widgets;
    const Widget *const all[] = {&widgets.picText,     &widgets.txtEdit,     &widgets.picEdit,
                                 &widgets.cboEdit,     &widgets.txtDateEdit, &widgets.cmdLookup,
                                 &widgets.cmdCalender, &widgets.picDate,     &widgets.mvCalender};
    for (const Widget *widget : all) {
        if (widget->id() == id)
            return {widget->place(), widget->Visible()};
    }
    throw ScriptError(shown(id) + " has no model here");
}

EntryView entryOf(Tablio &core, MenuEntry entry) {
    if (entry == MenuEntry::mnuLine1 || entry == MenuEntry::mnuLine2)
        throw ScriptError("a line of the menu has no state");
    const MenuState state = Inside::of(core).menuState(entry);
    return {state.enabled, state.checked};
}

std::optional<std::pair<MemberType, Value>> insideValue(Tablio &core, std::string_view name) {
    for (const InsideValue &value : insideValues) {
        if (value.name == name)
            return std::make_pair(value.type, value.read(Inside::of(core)));
    }
    return std::nullopt;
}

} // namespace tablio::scenario
