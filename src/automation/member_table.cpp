#include <tablio/members.h>

#include "automation/member_access.h"

#include <tablio/errors.h>

#include <algorithm>
#include <array>

namespace tablio {

namespace {

using detail::method;
using detail::property;
using detail::readOnly;
using detail::writeOnly;
using Type = MemberType;

constexpr std::array row16{Argument{"Row", Type::Integer}};
constexpr std::array row32{Argument{"Row", Type::Long}};
constexpr std::array index16{Argument{"Index", Type::Integer}};
constexpr std::array index32{Argument{"Index", Type::Long}};
constexpr std::array cell16{Argument{"Row", Type::Integer}, Argument{"Col", Type::Integer}};
constexpr std::array cell32{Argument{"Row", Type::Long}, Argument{"Col", Type::Long}};
constexpr std::array focusCell{Argument{"nRow", Type::Integer}, Argument{"nCol", Type::Integer}};
constexpr std::array newItem{Argument{"NewItem", Type::String}};
constexpr std::array checkRow{Argument{"Row", Type::Integer}, Argument{"Checked", Type::Boolean}};
constexpr std::array headerColour{Argument{"Col", Type::Integer},
                                  Argument{"NewColor", Type::Colour}};
constexpr std::array columnSettings{
    Argument{"ColIndex", Type::Integer},
    Argument{"NewColTextHeader", Type::String, true},
    Argument{"NewColWidth", Type::Integer, true, 1000},
    Argument{"NewColStyle", Type::ColumnStyle, true, 2},
    Argument{"NewColEditType", Type::ColumnType, true, 0},
    Argument{"NewColHeaderAlignment", Type::ColumnAlignment, true, 1},
    Argument{"NewColDataAlignment", Type::ColumnAlignment, true, 1},
    Argument{"NewColMaxlength", Type::Integer, true, 64},
    Argument{"NewColFormat", Type::String, true},
};

// In the interface's own order. The numbers are fixed for ever: compiled hosts hold them.
// clang-format off
constexpr std::array memberTable{
    property<&Tablio::MarkRow, &Tablio::setMarkRow>("MarkRow", 0x40030000, Type::Integer),
    property<&Tablio::CellTag, &Tablio::setCellTag>("CellTag", 0x40030001, Type::Matrix),
    property<&Tablio::BackColorFixed, &Tablio::setBackColorFixed>("BackColorFixed", 0x6803002D, Type::Colour),
    property<&Tablio::Enabled, &Tablio::setEnabled>("Enabled", 0x6803002C, Type::Boolean),
    property<&Tablio::Font, &Tablio::setFont>("Font", -512, Type::Font),
    property<&Tablio::ForeColorFixed, &Tablio::setForeColorFixed>("ForeColorFixed", 0x6803002B, Type::Colour),
    property<&Tablio::Cols, &Tablio::setCols>("Cols", 0x6803002A, Type::Long),
    property<&Tablio::Rows, &Tablio::setRows>("Rows", 0x68030029, Type::Long),
    property<&Tablio::RowMinHeight, &Tablio::setRowMinHeight>("RowMinHeight", 0x68030028, Type::Long),
    property<&Tablio::StripeColor, &Tablio::setStripeColor>("StripeColor", 0x68030027, Type::Colour),
    property<&Tablio::CheckBoxColor, &Tablio::setCheckBoxColor>("CheckBoxColor", 0x68030026, Type::Colour),
    property<&Tablio::RowHeight, &Tablio::setRowHeight>("RowHeight", 0x68030025, Type::Long, row32),
    property<&Tablio::CellFont, &Tablio::setCellFont>("CellFont", 0x68030024, Type::String, cell32),
    property<&Tablio::CellFontBold, &Tablio::setCellFontBold>("CellFontBold", 0x68030023, Type::Boolean, cell32),
    property<&Tablio::CellFontItalic, &Tablio::setCellFontItalic>("CellFontItalic", 0x68030022, Type::Boolean, cell32),
    property<&Tablio::CellFontSize, &Tablio::setCellFontSize>("CellFontSize", 0x68030021, Type::Integer, cell32),
    property<&Tablio::SetStatusCell, &Tablio::setSetStatusCell>("SetStatusCell", 0x68030020, Type::Boolean),
    property<&Tablio::CellBackColor, &Tablio::setCellBackColor>("CellBackColor", 0x6803001F, Type::Colour, cell16),
    property<&Tablio::CellForeColor, &Tablio::setCellForeColor>("CellForeColor", 0x6803001E, Type::Colour, cell16),
    property<&Tablio::FixedRows, &Tablio::setFixedRows>("FixedRows", 0x6803001D, Type::Long),
    property<&Tablio::FixedCols, &Tablio::setFixedCols>("FixedCols", 0x6803001C, Type::Long),
    property<&Tablio::ForeColorData, &Tablio::setForeColorData>("ForeColorData", 0x6803001B, Type::Colour),
    property<&Tablio::WithFixedColumn, &Tablio::setWithFixedColumn>("WithFixedColumn", 0x6803001A, Type::Boolean),
    property<&Tablio::ColDataAlignment, &Tablio::setColDataAlignment>("ColDataAlignment", 0x68030019, Type::ColumnAlignment, index32),
    property<&Tablio::ColHeaderAlignment, &Tablio::setColHeaderAlignment>("ColHeaderAlignment", 0x68030018, Type::ColumnAlignment, index32),
    property<&Tablio::ColWidth, &Tablio::setColWidth>("ColWidth", Number::ColWidth, Type::Long, index32),
    property<&Tablio::ColTextHeader, &Tablio::setColTextHeader>("ColTextHeader", 0x68030016, Type::String, index16),
    property<&Tablio::HeaderRowHeight, &Tablio::setHeaderRowHeight>("HeaderRowHeight", 0x68030015, Type::Long),
    property<&Tablio::CheckBoxes, &Tablio::setCheckBoxes>("CheckBoxes", 0x68030014, Type::Integer),
    property<&Tablio::BackColorData, &Tablio::setBackColorData>("BackColorData", 0x68030013, Type::Colour),
    property<&Tablio::GridColorData, &Tablio::setGridColorData>("GridColorData", 0x68030012, Type::Colour),
    property<&Tablio::GridColorFixed, &Tablio::setGridColorFixed>("GridColorFixed", 0x68030011, Type::Colour),
    property<&Tablio::BackColorMarkRow, &Tablio::setBackColorMarkRow>("BackColorMarkRow", 0x68030010, Type::Colour),
    property<&Tablio::GridPopUpMenu, &Tablio::setGridPopUpMenu>("GridPopUpMenu", 0x6803000F, Type::Boolean),
    property<&Tablio::ForeColorMarkRow, &Tablio::setForeColorMarkRow>("ForeColorMarkRow", 0x6803000E, Type::Colour),
    property<&Tablio::PrimaryColumn, &Tablio::setPrimaryColumn>("PrimaryColumn", 0x6803000D, Type::Long),
    property<&Tablio::ColStyle, &Tablio::setColStyle>("ColStyle", 0x6803000C, Type::ColumnStyle, index16),
    property<&Tablio::ColEditType, &Tablio::setColEditType>("ColEditType", 0x6803000B, Type::ColumnType, index16),
    property<&Tablio::ColDataType, &Tablio::setColDataType>("ColDataType", 0x6803000A, Type::DataType, index16),
    property<&Tablio::ColCalcStyle, &Tablio::setColCalcStyle>("ColCalcStyle", 0x68030009, Type::CalcStyle, index16),
    property<&Tablio::ColFormat, &Tablio::setColFormat>("ColFormat", 0x68030008, Type::String, index16),
    property<&Tablio::ColMaxLength, &Tablio::setColMaxLength>("ColMaxLength", 0x68030007, Type::Integer, index16),
    property<&Tablio::TextMatrix, &Tablio::setTextMatrix>("TextMatrix", Number::TextMatrix, Type::String, cell16),
    writeOnly<&Tablio::setLookupResult>("LookupResult", 0x68030005, Type::String, cell16),
    method<&Tablio::ComboClear>("ComboClear", 0x60030050),
    method<&Tablio::ComboAddItem>("ComboAddItem", 0x60030051, newItem),
    property<&Tablio::BackColor, &Tablio::setBackColor>("BackColor", 0x68030004, Type::Colour),
    property<&Tablio::WordWrap, &Tablio::setWordWrap>("WordWrap", 0x68030003, Type::Boolean),
    property<&Tablio::HeaderFontBold, &Tablio::setHeaderFontBold>("HeaderFontBold", 0x68030002, Type::Boolean),
    method<&Tablio::SetColProperty>("SetColProperty", 0x60030052, columnSettings),
    method<&Tablio::ResetRow>("ResetRow", 0x6003005B, row16),
    method<&Tablio::CellFocus>("CellFocus", 0x6003005C, focusCell),
    method<&Tablio::TableClear>("TableClear", 0x6003005D),
    readOnly<&Tablio::DataCount>("DataCount", 0x68030001, Type::Long),
    method<&Tablio::MarkActiveRow>("MarkActiveRow", 0x60030061),
    readOnly<&Tablio::MarkStatus>("MarkStatus", 0x68030000, Type::Boolean),
    method<&Tablio::FindDuplicatePrimaryColumn>("FindDuplicatePrimaryColumn", 0x60030067, row16, Type::Integer),
    method<&Tablio::AddRow>("AddRow", 0x60030068),
    method<&Tablio::RemoveRow>("RemoveRow", 0x60030069, row16),
    method<&Tablio::Checked>("Checked", 0x6003006A, row16, Type::Boolean),
    method<&Tablio::ListIndex>("ListIndex", 0x6003006B, cell16, Type::Integer),
    method<&Tablio::Check>("Check", 0x6003006C, checkRow),
    method<&Tablio::InsertRow>("InsertRow", 0x6003006D, row16),
    method<&Tablio::SetHeaderBackColor>("SetHeaderBackColor", 0x6003006E, headerColour),
    method<&Tablio::SetHeaderForeColor>("SetHeaderForeColor", 0x6003006F, headerColour),
};
// clang-format on

constexpr std::array editStart{Argument{"Row", Type::Integer}, Argument{"Col", Type::Integer},
                               Argument{"Cancel", Type::Boolean}};
constexpr std::array editChange{Argument{"Row", Type::Integer}, Argument{"Col", Type::Integer},
                                Argument{"OnEdit", Type::String}};
constexpr std::array editEnd{Argument{"Row", Type::Integer},    Argument{"Col", Type::Integer},
                             Argument{"Valid", Type::Boolean},  Argument{"OldData", Type::String},
                             Argument{"NewData", Type::String}, Argument{"LastKey", Type::Integer}};
constexpr std::array keyPress{Argument{"Row", Type::Integer}, Argument{"Col", Type::Integer},
                              Argument{"KeyAscii", Type::Integer}};
constexpr std::array keyDown{Argument{"KeyCode", Type::Integer}, Argument{"Shift", Type::Integer},
                             Argument{"Row", Type::Integer}, Argument{"Col", Type::Integer}};
constexpr std::array rowChange{Argument{"OldRow", Type::Integer},
                               Argument{"NewRow", Type::Integer}};

constexpr std::array eventTable{
    detail::event<&HostEvents::EditPreValidation>(1, "EditPreValidation", editStart),
    detail::event<&HostEvents::EditOnChange>(2, "EditOnChange", editChange),
    detail::event<&HostEvents::EditPostValidation>(3, "EditPostValidation", editEnd),
    detail::event<&HostEvents::EditLookup>(4, "EditLookup", cell16),
    detail::event<&HostEvents::CellFocus>(5, "CellFocus", cell16),
    detail::event<&HostEvents::CellKeyPress>(6, "CellKeyPress", keyPress),
    detail::event<&HostEvents::TableChange>(7, "TableChange"),
    detail::event<&HostEvents::TableKeyDown>(8, "TableKeyDown", keyDown),
    detail::event<&HostEvents::TableRowChange>(9, "TableRowChange", rowChange),
    detail::event<&HostEvents::DoubleClick>(10, "DoubleClick", cell16),
};

template <typename Value> constexpr EnumerationMember named(std::string_view name, Value value) {
    return {name, static_cast<std::int32_t>(value)};
}

constexpr std::array columnStyles{
    named("ColumnInput", TColumnStyle::ColumnInput),
    named("ColumnInputWithLookup", TColumnStyle::ColumnInputWithLookup),
    named("ColumnFixed", TColumnStyle::ColumnFixed),
    named("ColumnFixedWithAutoNumber", TColumnStyle::ColumnFixedWithAutoNumber),
};
constexpr std::array columnTypes{
    named("ColumnString", TColumnType::ColumnString),
    named("ColumnDecimal", TColumnType::ColumnDecimal),
    named("ColumnInteger", TColumnType::ColumnInteger),
    named("ColumnDate", TColumnType::ColumnDate),
    named("ColumnCombo", TColumnType::ColumnCombo),
};
constexpr std::array dataTypes{
    named("AllCase", TDataType::AllCase),     named("UpperCase", TDataType::UpperCase),
    named("LowerCase", TDataType::LowerCase), named("AllValue", TDataType::AllValue),
    named("Positive", TDataType::Positive),   named("Negative", TDataType::Negative),
};
constexpr std::array calcStyles{named("NoStyle", TCalcStyle::NoStyle),
                                named("CalcStyle", TCalcStyle::CalcStyle)};
constexpr std::array alignments{named("ColumnLeft", TColumnAlignment::ColumnLeft),
                                named("ColumnCentre", TColumnAlignment::ColumnCentre),
                                named("ColumnRight", TColumnAlignment::ColumnRight)};

constexpr std::array enumerationTable{
    Enumeration{"TColumnStyle", columnStyles},   Enumeration{"TColumnType", columnTypes},
    Enumeration{"TDataType", dataTypes},         Enumeration{"TCalcStyle", calcStyles},
    Enumeration{"TColumnAlignment", alignments},
};

template <typename Row, typename Matches>
const Row &find(std::span<const Row> table, Matches matches, const std::string &unknown) {
    const auto found = std::find_if(table.begin(), table.end(), matches);
    if (found == table.end())
        throw UnknownMember(unknown);
    return *found;
}

} // namespace

std::string_view nameOf(MemberType type) noexcept {
    static constexpr std::array<std::string_view, 13> names{
        "",          "Boolean",    "16-bit integer",  "32-bit integer", "String",
        "OLE_COLOR", "Font",       "TMatrix",         "TColumnStyle",   "TColumnType",
        "TDataType", "TCalcStyle", "TColumnAlignment"};
    return names[static_cast<std::size_t>(type)];
}

Value convertedTo(MemberType type, const Value &value) {
    switch (type) {
    case MemberType::None:
        return {};
    case MemberType::Boolean:
        return value.toBoolean();
    case MemberType::Integer:
        return value.toInteger();
    case MemberType::String:
        return value.toText();
    case MemberType::Colour:
        return value.toColour();
    case MemberType::Font:
        return value.toFont();
    case MemberType::Matrix:
        return value.toObject();
    default:
        return value.toLong();
    }
}

Value Argument::defaultValue() const {
    return type == MemberType::String ? Value("") : convertedTo(type, defaultNumber);
}

std::span<const Member> members() noexcept { return memberTable; }

std::span<const Event> events() noexcept { return eventTable; }

std::span<const Enumeration> enumerations() noexcept { return enumerationTable; }

const Member &findMember(std::string_view name) {
    return find(
        members(), [name](const Member &member) { return sameName(member.name, name); },
        "no member has the name " + std::string(name));
}

const Member &findMember(MemberNumber number) {
    return find(
        members(), [number](const Member &member) { return member.number == number; },
        "no member has the number " + std::to_string(number));
}

const Event &findEvent(std::string_view name) {
    return find(
        events(), [name](const Event &event) { return sameName(event.name, name); },
        "no event has the name " + std::string(name));
}

} // namespace tablio
