#include "persistence/stored_keys.h"

#include "automation/value_as.h"
#include "model/text/number_text.h"

#include <array>

namespace tablio {

namespace {

constexpr std::int16_t zero = 0;
constexpr Colour white{0x00FFFFFFU};
constexpr Colour grey{0x00C0C0C0U};
/// The unsigned reading of the button text colour. No Long equals it, so a colour with this
/// default is always stored.
constexpr double buttonText = 2147483666.0;
/// The grid's "general" alignment, which files do not know.
constexpr int generalAlignment = 9;
constexpr int leftAlignment = 1;

template <Colour GridLook::*member>
GeneralKey lookColour(std::string_view name, const Value &defaultValue) {
    return {name, defaultValue, defaultValue,
            [](const ControlState &state) -> Value { return state.grid.table.look().*member; },
            [](Control &control, const Value &value) {
                const Colour colour = value.toColour();
                control.appearance.changeLook([&](GridLook &look) { look.*member = colour; });
            }};
}

template <auto member> GeneralKey setting(std::string_view name, const Value &defaultValue) {
    using Type = std::remove_cvref_t<decltype(std::declval<Settings>().*member)>;
    return {name, defaultValue, defaultValue,
            [](const ControlState &state) -> Value { return state.settings.*member; },
            [](Control &control, const Value &value) {
                control.state.settings.*member = valueAs<Type>(value);
            }};
}

template <int (GridTable::*get)() const noexcept, void (GridTable::*set)(int)>
GeneralKey tableSize(std::string_view name, int writeDefault, int readDefault) {
    return {name, writeDefault, readDefault,
            [](const ControlState &state) -> Value { return (state.grid.table.*get)(); },
            [](Control &control, const Value &value) {
                (control.state.grid.table.*set)(value.toLong());
            }};
}

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

std::span<const GeneralKey> generalKeys() {
    static const std::array<GeneralKey, 25> keys{
        lookColour<&GridLook::BackColorFixed>("BackColorFixed", grey),
        GeneralKey{
            "WordWrap", true, true,
            [](const ControlState &state) -> Value { return state.grid.table.look().WordWrap; },
            [](Control &control, const Value &value) {
                const bool wrap = value.toBoolean();
                control.appearance.changeLook([wrap](GridLook &look) { look.WordWrap = wrap; });
            }},
        setting<&Settings::GridPopUpMenu>("GridPopUpMenu", true),
        // The container's ambient font is the face's own, which an empty font stands for.
        GeneralKey{"Font", Font{}, Font{},
                   [](const ControlState &state) -> Value { return state.grid.table.look().Font; },
                   [](Control &control, const Value &value) {
                       const Font font = value.toFont();
                       control.appearance.changeLook([&](GridLook &look) { look.Font = font; });
                   }},
        lookColour<&GridLook::ForeColorFixed>("ForeColorFixed", buttonText),
        GeneralKey{"Cols", 1, 1,
                   [](const ControlState &state) -> Value {
                       return state.grid.table.Cols() - state.settings.CheckBoxes;
                   },
                   nullptr},
        tableSize<&GridTable::Rows, &GridTable::setRows>("Rows", 2, 2),
        tableSize<&GridTable::FixedCols, &GridTable::setFixedCols>("FixedCols", 0, 0),
        tableSize<&GridTable::FixedRows, &GridTable::setFixedRows>("FixedRows", 0, 0),
        lookColour<&GridLook::BackColor>("BackColorData", white),
        lookColour<&GridLook::GridColor>("GridColorData", grey),
        lookColour<&GridLook::GridColorFixed>("GridColorFixed", grey),
        lookColour<&GridLook::ForeColor>("ForeColorData", buttonText),
        lookColour<&GridLook::BackColorSel>("BackColorMarkRow", SystemColour::Highlight),
        lookColour<&GridLook::ForeColorSel>("ForeColorMarkRow", SystemColour::HighlightText),
        setting<&Settings::WithFixedColumn>("WithFixedColumn", zero),
        GeneralKey{"HeaderRowHeight", 0, 700,
                   [](const ControlState &state) -> Value { return state.grid.table.RowHeight(0); },
                   [](Control &control, const Value &value) {
                       control.state.grid.table.setRowHeight(0, value.toLong());
                   }},
        lookColour<&GridLook::BackColorBkg>("BackColor", white),
        setting<&Settings::PrimaryColumn>("PrimaryColumn", 0),
        setting<&Settings::HeaderFontBold>("HeaderFontBold", zero),
        setting<&Settings::CheckBoxes>("CheckBoxes", zero),
        setting<&Settings::Enabled>("Enabled", true),
        tableSize<&GridTable::RowHeightMin, &GridTable::setRowHeightMin>("RowMinHeight", 64, 285),
        setting<&Settings::StripeColor>("StripeColor", white),
        setting<&Settings::CheckBoxColor>("CheckBoxColor", Colour{0x000000FFU}),
    };
    return keys;
}

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
