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
    Value (*read)(ControlState &);
};

constexpr InsideValue insideValues[] = {
    {"Calendar", MemberType::String,
     [](ControlState &s) -> Value { return DateToText(s.widgets.mvCalender.Value()); }},
    {"Col", MemberType::Long, [](ControlState &s) -> Value { return s.grid.Col(); }},
    {"FocusRect", MemberType::Long, [](ControlState &s) -> Value { return s.grid.FocusRect(); }},
    {"GridHeight", MemberType::Long, [](ControlState &s) -> Value { return s.grid.view.Height(); }},
    {"GridWidth", MemberType::Long, [](ControlState &s) -> Value { return s.grid.view.Width(); }},
    {"IsClearing", MemberType::Boolean, [](ControlState &s) -> Value { return s.IsClearing; }},
    {"LastKey", MemberType::Long, [](ControlState &s) -> Value { return s.LastKey; }},
    {"LeftCol", MemberType::Long, [](ControlState &s) -> Value { return s.grid.view.LeftCol(); }},
    {"PageEditing", MemberType::Boolean, [](ControlState &s) -> Value { return s.PageEditing; }},
    {"Redraw", MemberType::Boolean, [](ControlState &s) -> Value { return s.grid.view.Redraw(); }},
    {"Row", MemberType::Long, [](ControlState &s) -> Value { return s.grid.Row(); }},
    {"TopRow", MemberType::Long, [](ControlState &s) -> Value { return s.grid.view.TopRow(); }},
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

EditNumber openEditOf(Tablio &core) {
    const OpenEdit *edit = Inside::of(core).session.open();
    return edit != nullptr ? edit->number : 0;
}

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
    const TableMenu &menu = stateOf(core).menu;
    const std::pair<MenuEntry, const TableMenu::Entry *> entries[] = {
        {MenuEntry::mnuMarkRow, &menu.mnuMarkRow},
        {MenuEntry::mnuAddRow, &menu.mnuAddRow},
        {MenuEntry::mnuInsertRow, &menu.mnuInsertRow},
        {MenuEntry::mnuRemoveRow, &menu.mnuRemoveRow},
        {MenuEntry::mnuTableClear, &menu.mnuTableClear}};
    for (const auto &[id, state] : entries) {
        if (id == entry)
            return {state->enabled, state->checked};
    }
    throw ScriptError("a line of the menu has no state");
}

std::optional<std::pair<MemberType, Value>> insideValue(Tablio &core, std::string_view name) {
    for (const InsideValue &value : insideValues) {
        if (value.name == name)
            return std::pair(value.type, value.read(stateOf(core)));
    }
    return std::nullopt;
}

} // namespace tablio::scenario
