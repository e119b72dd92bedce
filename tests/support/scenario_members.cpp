#include "support/scenario_members.h"

#include "control/control.h"
#include "model/date_text.h"
#include "support/scenario_values.h"

#include <map>
#include <memory>
#include <type_traits>
#include <utility>

namespace tablio::scenario {

namespace {

template <typename Result, typename... Arguments, typename Callable>
Function function(Callable callable) {
    Function result;
    result.arguments = sizeof...(Arguments);
    result.run = [callable](Tablio &core, const Tokens &tokens) -> std::string {
        return [&]<std::size_t... At>(std::index_sequence<At...>)->std::string {
            if constexpr (std::is_void_v<Result>) {
                std::invoke(callable, core, valueOf<std::remove_cvref_t<Arguments>>(tokens[At])...);
                return {};
            } else {
                return shown(std::invoke(callable, core,
                                         valueOf<std::remove_cvref_t<Arguments>>(tokens[At])...));
            }
        }
        (std::index_sequence_for<Arguments...>());
    };
    if constexpr (!std::is_void_v<Result>)
        result.normalised = [](const Token &token) {
            return shown(valueOf<std::remove_cvref_t<Result>>(token));
        };
    return result;
}

template <typename Result, typename... Arguments>
Function of(Result (Tablio::*method)(Arguments...)) {
    return function<Result, Arguments...>(method);
}

template <typename Result, typename... Arguments>
Function of(Result (Tablio::*method)(Arguments...) const) {
    return function<Result, Arguments...>(method);
}

/// A property that cannot be set, or a method with a result.
template <typename Get> Member readOnly(Get get) { return {of(get), {}, of(get)}; }

template <typename Get, typename Set> Member property(Get get, Set set) {
    return {of(get), of(set), {}};
}

template <typename Method> Member method(Method called) { return {{}, {}, of(called)}; }

/// What a scenario sees of the control's inside.
template <typename Result> Member state(Result (*read)(ControlState &)) {
    return {function<Result>([read](Tablio &core) { return read(core.control().state); }), {}, {}};
}

Member stateProperty(int (*read)(ControlState &), void (*write)(ControlState &, int)) {
    Member member = state(read);
    member.set = function<void, int>(
        [write](Tablio &core, int value) { write(core.control().state, value); });
    return member;
}

Member cellTag() {
    return {function<std::string, int, int>([](Tablio &core, int row, int col) {
                const MatrixValue value = core.CellTag()->Text(row, col);
                const std::string *text = std::get_if<std::string>(&value);
                return text != nullptr ? *text : std::string("(no text)");
            }),
            function<void, int, int, std::string_view>(
                [](Tablio &core, int row, int col, std::string_view value) {
                    core.CellTag()->setText(row, col, std::string(value));
                }),
            {}};
}

Member setColProperty() {
    Member member = method(&Tablio::SetColProperty);
    member.call.optional = 8;
    member.call.run = [](Tablio &core, const Tokens &given) -> std::string {
        // The defaults stand in the header; they are left to the compiler as long as they can be.
        const auto col = valueOf<int>(given[0]);
        if (given.size() == 1) {
            core.SetColProperty(col);
        } else if (given.size() == 2) {
            core.SetColProperty(col, valueOf<std::string_view>(given[1]));
        } else if (given.size() == 4) {
            core.SetColProperty(col, valueOf<std::string_view>(given[1]), valueOf<int>(given[2]),
                                valueOf<TColumnStyle>(given[3]));
        } else if (given.size() == 9) {
            core.SetColProperty(col, valueOf<std::string_view>(given[1]), valueOf<int>(given[2]),
                                valueOf<TColumnStyle>(given[3]), valueOf<TColumnType>(given[4]),
                                valueOf<TColumnAlignment>(given[5]),
                                valueOf<TColumnAlignment>(given[6]), valueOf<int>(given[7]),
                                valueOf<std::string_view>(given[8]));
        } else {
            throw ScriptError("SetColProperty is called with 1, 2, 4 or 9 arguments here");
        }
        return {};
    };
    return member;
}

using Members = std::map<std::string_view, Member>;

const Members &members() {
    using T = Tablio;
    static const Members table{
        // The public members.
        {"AddRow", method(&T::AddRow)},
        {"BackColor", property(&T::BackColor, &T::setBackColor)},
        {"BackColorData", property(&T::BackColorData, &T::setBackColorData)},
        {"BackColorFixed", property(&T::BackColorFixed, &T::setBackColorFixed)},
        {"BackColorMarkRow", property(&T::BackColorMarkRow, &T::setBackColorMarkRow)},
        {"CellBackColor", property(&T::CellBackColor, &T::setCellBackColor)},
        {"CellFont", property(&T::CellFont, &T::setCellFont)},
        {"CellFontBold", property(&T::CellFontBold, &T::setCellFontBold)},
        {"CellFontItalic", property(&T::CellFontItalic, &T::setCellFontItalic)},
        {"CellFontSize", property(&T::CellFontSize, &T::setCellFontSize)},
        {"CellForeColor", property(&T::CellForeColor, &T::setCellForeColor)},
        {"CellFocus", method(&T::CellFocus)},
        {"CellTag", cellTag()},
        {"Check", method(&T::Check)},
        {"CheckBoxColor", property(&T::CheckBoxColor, &T::setCheckBoxColor)},
        {"Checked", readOnly(&T::Checked)},
        {"CheckBoxes", property(&T::CheckBoxes, &T::setCheckBoxes)},
        {"ColCalcStyle", property(&T::ColCalcStyle, &T::setColCalcStyle)},
        {"ColDataAlignment", property(&T::ColDataAlignment, &T::setColDataAlignment)},
        {"ColDataType", property(&T::ColDataType, &T::setColDataType)},
        {"ColEditType", property(&T::ColEditType, &T::setColEditType)},
        {"ColFormat", property(&T::ColFormat, &T::setColFormat)},
        {"ColHeaderAlignment", property(&T::ColHeaderAlignment, &T::setColHeaderAlignment)},
        {"ColMaxLength", property(&T::ColMaxLength, &T::setColMaxLength)},
        {"ColStyle", property(&T::ColStyle, &T::setColStyle)},
        {"ColTextHeader", property(&T::ColTextHeader, &T::setColTextHeader)},
        {"ColWidth", property(&T::ColWidth, &T::setColWidth)},
        {"Cols", property(&T::Cols, &T::setCols)},
        {"ComboAddItem", method(&T::ComboAddItem)},
        {"ComboClear", method(&T::ComboClear)},
        {"DataCount", readOnly(&T::DataCount)},
        {"Enabled", property(&T::Enabled, &T::setEnabled)},
        {"FindDuplicatePrimaryColumn", readOnly(&T::FindDuplicatePrimaryColumn)},
        {"FixedCols", property(&T::FixedCols, &T::setFixedCols)},
        {"FixedRows", property(&T::FixedRows, &T::setFixedRows)},
        {"Font", property(&T::Font, &T::setFont)},
        {"ForeColorData", property(&T::ForeColorData, &T::setForeColorData)},
        {"ForeColorFixed", property(&T::ForeColorFixed, &T::setForeColorFixed)},
        {"ForeColorMarkRow", property(&T::ForeColorMarkRow, &T::setForeColorMarkRow)},
        {"GridColorData", property(&T::GridColorData, &T::setGridColorData)},
        {"GridColorFixed", property(&T::GridColorFixed, &T::setGridColorFixed)},
        {"GridPopUpMenu", property(&T::GridPopUpMenu, &T::setGridPopUpMenu)},
        {"HeaderFontBold", property(&T::HeaderFontBold, &T::setHeaderFontBold)},
        {"HeaderRowHeight", property(&T::HeaderRowHeight, &T::setHeaderRowHeight)},
        {"InitProperties", method(&T::InitProperties)},
        {"InsertRow", method(&T::InsertRow)},
        {"ListIndex", readOnly(&T::ListIndex)},
        {"LookupResult", {{}, of(&T::setLookupResult), {}}},
        {"MarkActiveRow", method(&T::MarkActiveRow)},
        {"MarkRow", property(&T::MarkRow, &T::setMarkRow)},
        {"MarkStatus", readOnly(&T::MarkStatus)},
        {"PrimaryColumn", property(&T::PrimaryColumn, &T::setPrimaryColumn)},
        {"RemoveRow", method(&T::RemoveRow)},
        {"ResetRow", method(&T::ResetRow)},
        {"RowHeight", property(&T::RowHeight, &T::setRowHeight)},
        {"RowMinHeight", property(&T::RowMinHeight, &T::setRowMinHeight)},
        {"Rows", property(&T::Rows, &T::setRows)},
        {"SetColProperty", setColProperty()},
        {"SetHeaderBackColor", method(&T::SetHeaderBackColor)},
        {"SetHeaderForeColor", method(&T::SetHeaderForeColor)},
        {"SetStatusCell", property(&T::SetStatusCell, &T::setSetStatusCell)},
        {"Show", method(&T::Show)},
        {"StripeColor", property(&T::StripeColor, &T::setStripeColor)},
        {"TableClear", method(&T::TableClear)},
        {"TextMatrix", property(&T::TextMatrix, &T::setTextMatrix)},
        {"WithFixedColumn", property(&T::WithFixedColumn, &T::setWithFixedColumn)},
        {"WordWrap", property(&T::WordWrap, &T::setWordWrap)},

        // The inside: the grid's own properties and the control's state.
        {"Calendar", state<std::string>(
                         [](ControlState &s) { return DateToText(s.widgets.mvCalender.Value()); })},
        {"CurrentCol", state<int>([](ControlState &s) { return s.current.col; })},
        {"CurrentRow", state<int>([](ControlState &s) { return s.current.row; })},
        {"FocusRect", state<int>([](ControlState &s) { return s.grid.FocusRect(); })},
        {"IsClearing", state<bool>([](ControlState &s) { return s.IsClearing; })},
        {"LastKey", state<int>([](ControlState &s) { return int{s.LastKey}; })},
        {"LeftCol", state<int>([](ControlState &s) { return s.grid.view.LeftCol(); })},
        {"PageEditing", state<bool>([](ControlState &s) { return s.PageEditing; })},
        {"Redraw", state<bool>([](ControlState &s) { return s.grid.view.Redraw(); })},
        {"GridWidth", state<int>([](ControlState &s) { return s.grid.view.Width(); })},
        {"GridHeight", state<int>([](ControlState &s) { return s.grid.view.Height(); })},
        {"TopRow", state<int>([](ControlState &s) { return s.grid.view.TopRow(); })},
        {"Row", stateProperty([](ControlState &s) { return s.grid.Row(); },
                              [](ControlState &s, int row) { s.grid.setRow(row); })},
        {"Col", stateProperty([](ControlState &s) { return s.grid.Col(); },
                              [](ControlState &s, int col) { s.grid.setCol(col); })},
    };
    return table;
}

} // namespace

const Member &memberNamed(std::string_view name) {
    const auto found = members().find(name);
    if (found == members().end())
        throw ScriptError("the control has no member " + std::string(name));
    return found->second;
}

std::string run(const Function &function, std::string_view name, Tablio &core,
                const Tokens &arguments) {
    if (!function.run)
        throw ScriptError(std::string(name) + " cannot be used like this");
    const int given = static_cast<int>(arguments.size());
    if (given > function.arguments || given < function.arguments - function.optional)
        throw ScriptError(std::string(name) + " takes " + std::to_string(function.arguments) +
                          " values here, not " + std::to_string(given));
    return function.run(core, arguments);
}

} // namespace tablio::scenario
