#include "persistence/stored_keys.h"

#include "model/text/number_text.h"

#include <array>

namespace tablio {

namespace {

constexpr std::int16_t zero = 0;
/// The grid's "general" alignment, which files do not know.
constexpr int generalAlignment = 9;
constexpr int leftAlignment = 1;

double numberOf(const std::string &text) {
    std::string number = NormalizeNumberText(text);
    return TextToNumber(number, NumberFormat{});
}

void readIntoList(ControlState &state, ColumnSettings::List list, int col, const Value &value) {
    state.columns.setText(list, col, value.toText());
}

template <ColumnSettings::List list>
ColumnKey listNumber(std::string_view name, const Value &readDefault) {
    return {name,
            readDefault,
            name,
            readDefault,
            [](const ControlState &state, int col) -> Value {
                return numberOf(state.columns.text(list, col));
            },
            [](ControlState &state, int col, const Value &value) {
                readIntoList(state, list, col, value);
            }};
}

template <ColumnSettings::List list>
ColumnKey listText(std::string_view writeName, std::string_view readName,
                   const Value &defaultValue) {
    return {
        writeName,
        defaultValue,
        readName,
        defaultValue,
        [](const ControlState &state, int col) -> Value { return state.columns.text(list, col); },
        [](ControlState &state, int col, const Value &value) {
            readIntoList(state, list, col, value);
        }};
}

template <int (GridTable::*get)(int) const, void (GridTable::*set)(int, int)>
ColumnKey alignment(std::string_view name) {
    return {name,
            zero,
            name,
            zero,
            [](const ControlState &state, int col) -> Value {
                const int stored = (state.grid.table.*get)(col);
                return static_cast<std::int16_t>(stored == generalAlignment ? leftAlignment
                                                                            : stored);
            },
            [](ControlState &state, int col, const Value &value) {
                const int stored = value.toInteger();
                (state.grid.table.*set)(col, stored == generalAlignment ? leftAlignment : stored);
            }};
}

} // namespace

std::span<const ColumnKey> columnKeys() {
    static const std::array<ColumnKey, 10> keys{
        listNumber<ColumnSettings::Style>("ColStyle", std::int16_t{2}),
        listNumber<ColumnSettings::EditType>("ColEditType", zero),
        listNumber<ColumnSettings::DataType>("ColDataType", 0),
        listNumber<ColumnSettings::CalcStyle>("ColCalcStyle", 0),
        listText<ColumnSettings::Format>("ColFormat", "ColFormat", ""),
        // Two spellings: a store that minds the case would lose the lengths of old files.
        listText<ColumnSettings::MaxLength>("ColMaxLength", "ColMaxlength", std::int16_t{64}),
        ColumnKey{"ColTextHeader", "", "ColTextHeader", "",
                  [](const ControlState &state, int col) -> Value {
                      return state.grid.table.TextMatrix(0, col);
                  },
                  [](ControlState &state, int col, const Value &value) {
                      state.grid.table.setTextMatrix(0, col, value.toText());
                  }},
        alignment<&GridTable::ColAlignment, &GridTable::setColAlignment>("ColDataAlignment"),
        alignment<&GridTable::FixedAlignment, &GridTable::setFixedAlignment>("ColHeaderAlignment"),
        ColumnKey{"ColWidth", 0, "ColWidth", 0,
                  [](const ControlState &state, int col) -> Value {
                      return state.grid.table.ColWidth(col);
                  },
                  [](ControlState &state, int col, const Value &value) {
                      state.grid.table.setColWidth(col, value.toLong());
                  }},
    };
    return keys;
}

} // namespace tablio
