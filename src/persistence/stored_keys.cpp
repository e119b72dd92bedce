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

template <ColumnSettings::List list>
void readIntoList(ControlState &state, int col, const Value &value) {
    state.columns.setText(list, col, value.toText());
}

template <ColumnSettings::List list>
ColumnKey listNumber(std::string_view name, const Value &defaultValue) {
    return {name, defaultValue,
            [](const ControlState &state, int col) -> Value {
                return numberOf(state.columns.text(list, col));
            },
            readIntoList<list>};
}

template <ColumnSettings::List list>
ColumnKey listText(std::string_view name, const Value &defaultValue) {
    return {
        name, defaultValue,
        [](const ControlState &state, int col) -> Value { return state.columns.text(list, col); },
        readIntoList<list>};
}

int withoutGeneral(int alignment) {
    return alignment == generalAlignment ? leftAlignment : alignment;
}

template <int (GridTable::*get)(int) const, void (GridTable::*set)(int, int)>
ColumnKey alignment(std::string_view name) {
    return {name, zero,
            [](const ControlState &state, int col) -> Value {
                return static_cast<std::int16_t>(withoutGeneral((state.grid.table.*get)(col)));
            },
            [](ControlState &state, int col, const Value &value) {
                (state.grid.table.*set)(col, withoutGeneral(value.toInteger()));
            }};
}

ColumnKey readAs(std::string_view name, ColumnKey key) {
    key.readName = name;
    return key;
}

} // namespace

std::span<const ColumnKey> columnKeys() {
    static const std::array<ColumnKey, 10> keys{
        listNumber<ColumnSettings::Style>("ColStyle", std::int16_t{2}),
        listNumber<ColumnSettings::EditType>("ColEditType", zero),
        listNumber<ColumnSettings::DataType>("ColDataType", 0),
        listNumber<ColumnSettings::CalcStyle>("ColCalcStyle", 0),
        listText<ColumnSettings::Format>("ColFormat", ""),
        // Two spellings: a store that minds the case would lose the lengths of old files.
        readAs("ColMaxlength",
               listText<ColumnSettings::MaxLength>("ColMaxLength", std::int16_t{64})),
        ColumnKey{"ColTextHeader", "",
                  [](const ControlState &state, int col) -> Value {
                      return state.grid.table.TextMatrix(0, col);
                  },
                  [](ControlState &state, int col, const Value &value) {
                      state.grid.table.setTextMatrix(0, col, value.toText());
                  }},
        alignment<&GridTable::ColAlignment, &GridTable::setColAlignment>("ColDataAlignment"),
        alignment<&GridTable::FixedAlignment, &GridTable::setFixedAlignment>("ColHeaderAlignment"),
        ColumnKey{"ColWidth", 0,
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
