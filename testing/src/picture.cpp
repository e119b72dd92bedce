#include "picture.h"

#include "model/text/utf16.h"
#include "values.h"

namespace tablio::scenario {

std::vector<std::vector<std::string>> pictureOfTable(const ControlState &state) {
    const GridTable &table = state.grid.table;
    std::vector<std::vector<std::string>> rows;
    for (int row = 0; row < table.Rows(); ++row) {
        rows.emplace_back();
        for (int col = 0; col < table.Cols(); ++col) {
            const std::string text(table.TextMatrix(row, col));
            const bool isCurrent = CellAddress{row, col} == state.grid.current();
            rows.back().push_back(isCurrent ? "[" + text + "]" : text);
        }
    }
    return rows;
}

std::string drawn(const std::vector<std::vector<std::string>> &rows) {
    std::string result;
    for (const std::vector<std::string> &row : rows) {
        result += "\n      |";
        for (const std::string &cell : row)
            result += " " + cell + " |";
    }
    return result;
}

EditorView editorOf(const ControlState &state) {
    const Widgets &widgets = state.widgets;
    if (const TextBox &box = widgets.txtEdit; box.Visible())
        return {&box,
                &widgets.picText,
                box.Text(),
                box.SelStart(),
                box.SelLength(),
                box.MaxLength(),
                box.Alignment() == TextAlignment::Right};
    if (const ComboBox &box = widgets.cboEdit; box.Visible())
        return {&box, &widgets.picEdit, box.Text(), box.SelStart(), box.SelLength()};
    if (const MaskedBox &box = widgets.txtDateEdit; box.Visible())
        return {&box, &box, box.Text(), box.SelStart(), box.SelLength()};
    return {};
}

std::string pictureOf(const EditorView &editor) {
    std::string text = editor.text;
    const std::size_t from = utf16::byteOffset(text, editor.selStart);
    const std::size_t to = utf16::byteOffset(text, editor.selStart + editor.selLength);
    if (from == to)
        return text.insert(from, "|");
    return text.insert(to, "]").insert(from, "[");
}

const Widget &widgetOf(const ControlState &state, WidgetId id) {
    const Widgets &widgets = state.widgets;
    const Widget *const all[] = {&widgets.picText,     &widgets.txtEdit,     &widgets.picEdit,
                                 &widgets.cboEdit,     &widgets.txtDateEdit, &widgets.cmdLookup,
                                 &widgets.cmdCalender, &widgets.picDate,     &widgets.mvCalender};
    for (const Widget *widget : all) {
        if (widget->id() == id)
            return *widget;
    }
    throw ScriptError(shown(id) + " has no model here");
}

} // namespace tablio::scenario
