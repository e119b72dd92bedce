#include "inside.h"

#include "control/inside.h"
#include "model/text/date_text.h"
#include "values.h"

namespace tablio::scenario {

namespace {

struct InsideValue {
    std::string_view name;
    MemberType type;
    Value (*read)(const Control &);
};

constexpr InsideValue insideValues[] = {
    {"Calendar", MemberType::String,
     [](const Control &c) -> Value { return DateToText(c.state.widgets.mvCalender.Value()); }},
    {"Col", MemberType::Long, [](const Control &c) -> Value { return c.state.grid.Col(); }},
    {"FocusRect", MemberType::Long,
     [](const Control &c) -> Value { return c.state.grid.FocusRect(); }},
    {"GridHeight", MemberType::Long,
     [](const Control &c) -> Value { return c.state.grid.view.Height(); }},
    {"GridWidth", MemberType::Long,
     [](const Control &c) -> Value { return c.state.grid.view.Width(); }},
    {"IsClearing", MemberType::Boolean,
     [](const Control &c) -> Value { return c.rows.IsClearing(); }},
    {"LastKey", MemberType::Long, [](const Control &c) -> Value { return c.session.LastKey(); }},
    {"LeftCol", MemberType::Long,
     [](const Control &c) -> Value { return c.state.grid.view.LeftCol(); }},
    {"PageEditing", MemberType::Boolean,
     [](const Control &c) -> Value { return c.rows.PageEditing(); }},
    {"Redraw", MemberType::Boolean,
     [](const Control &c) -> Value { return c.state.grid.view.Redraw(); }},
    {"Row", MemberType::Long, [](const Control &c) -> Value { return c.state.grid.Row(); }},
    {"TopRow", MemberType::Long,
     [](const Control &c) -> Value { return c.state.grid.view.TopRow(); }},
};

} // namespace

std::optional<std::pair<MemberType, Value>> insideValue(Tablio &core, std::string_view name) {
    const InsideValue *const value = findBy(insideValues, &InsideValue::name, name);
    if (value == nullptr)
        return std::nullopt;
    return std::make_pair(value->type, value->read(Inside::of(core)));
}

} // namespace tablio::scenario
