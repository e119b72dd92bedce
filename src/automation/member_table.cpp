#include <tablio/members.h>

#include "automation/member_access.h"

#include <tablio/errors.h>

#include <algorithm>
#include <array>

namespace tablio {

namespace {

using detail::colour;
using detail::method;
using detail::property;
using detail::readOnly;
using detail::stored;
using detail::writeOnly;
using Type = MemberType;

constexpr Argument byReference(std::string_view name, Type type) {
    return {name, type, false, 0, true};
}

constexpr std::array rowReference{byReference("Row", Type::Integer)};
constexpr std::array row32{Argument{"Row", Type::Long}};
constexpr std::array index16{Argument{"Index", Type::Integer}};
constexpr std::array index32{Argument{"Index", Type::Long}};
constexpr std::array cell16{Argument{"Row", Type::Integer}, Argument{"Col", Type::Integer}};
constexpr std::array cell32{Argument{"Row", Type::Long}, Argument{"Col", Type::Long}};
constexpr std::array cellReference{byReference("Row", Type::Integer),
                                   byReference("Col", Type::Integer)};
constexpr std::array focusCell{byReference("nRow", Type::Integer),
                               byReference("nCol", Type::Integer)};
constexpr std::array newItem{byReference("NewItem", Type::String)};
constexpr std::array checkRow{byReference("Row", Type::Integer),
                              byReference("Checked", Type::Boolean)};
constexpr std::array headerColour{byReference("Col", Type::Integer),
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

constexpr Member byReference(Member row) {
    row.valueByReference = true;
    return row;
}

using Kept = Value::Type;
/// The unsigned reading of the button text colour. No Long equals it, so a colour with this
/// default is always stored.
constexpr double buttonText = 2147483666.0;
constexpr double highlight = SystemColour::Highlight.value;
constexpr double highlightText = SystemColour::HighlightText.value;

// In the interface's own order. The numbers are fixed for ever: compiled hosts hold them.
// clang-format off
constexpr std::array memberTable{
    property<&Tablio::MarkRow, &Tablio::setMarkRow>("MarkRow", 0x40030000, Type::Integer),
    property<&Tablio::CellTag, &Tablio::setCellTag>("CellTag", 0x40030001, Type::Matrix),
    colour<&Tablio::BackColorFixed, &Tablio::setBackColorFixed>("BackColorFixed", 0x6803002D, {1, 1, Kept::Long, 0xC0C0C0}, SystemColour::ButtonFace),
    stored(property<&Tablio::Enabled, &Tablio::setEnabled>("Enabled", 0x6803002C, Type::Boolean), {22, 18, Kept::Boolean, -1}),
    stored(property<&Tablio::Font, &Tablio::setFont>("Font", -512, Type::Font), {4, 4, Kept::Font}),
    colour<&Tablio::ForeColorFixed, &Tablio::setForeColorFixed>("ForeColorFixed", 0x6803002B, {5, 5, Kept::Double, buttonText}, SystemColour::ButtonText),
    stored(property<&Tablio::Cols, &Tablio::setCols>("Cols", 0x6803002A, Type::Long), {6, 6, Kept::Long, 1}),
    stored(property<&Tablio::Rows, &Tablio::setRows>("Rows", 0x68030029, Type::Long), {7, 7, Kept::Long, 2}),
    stored(property<&Tablio::RowMinHeight, &Tablio::setRowMinHeight>("RowMinHeight", 0x68030028, Type::Long), {23, 19, Kept::Long, 64, 285}),
    colour<&Tablio::StripeColor, &Tablio::setStripeColor>("StripeColor", 0x68030027, {24, 24, Kept::Long, 0xFFFFFF}, SystemColour::Window),
    colour<&Tablio::CheckBoxColor, &Tablio::setCheckBoxColor>("CheckBoxColor", 0x68030026, {25, 25, Kept::Long, 0xFF}, Colour{0xFF}),
    property<&Tablio::RowHeight, &Tablio::setRowHeight>("RowHeight", 0x68030025, Type::Long, row32),
    property<&Tablio::CellFont, &Tablio::setCellFont>("CellFont", 0x68030024, Type::String, cell32),
    property<&Tablio::CellFontBold, &Tablio::setCellFontBold>("CellFontBold", 0x68030023, Type::Boolean, cell32),
    property<&Tablio::CellFontItalic, &Tablio::setCellFontItalic>("CellFontItalic", 0x68030022, Type::Boolean, cell32),
    property<&Tablio::CellFontSize, &Tablio::setCellFontSize>("CellFontSize", 0x68030021, Type::Integer, cell32),
    property<&Tablio::SetStatusCell, &Tablio::setSetStatusCell>("SetStatusCell", 0x68030020, Type::Boolean),
    property<&Tablio::CellBackColor, &Tablio::setCellBackColor>("CellBackColor", 0x6803001F, Type::Colour, cell16),
    property<&Tablio::CellForeColor, &Tablio::setCellForeColor>("CellForeColor", 0x6803001E, Type::Colour, cell16),
    stored(property<&Tablio::FixedRows, &Tablio::setFixedRows>("FixedRows", 0x6803001D, Type::Long), {9, 8, Kept::Long, 0}),
    stored(property<&Tablio::FixedCols, &Tablio::setFixedCols>("FixedCols", 0x6803001C, Type::Long), {8, 9, Kept::Long, 0}),
    colour<&Tablio::ForeColorData, &Tablio::setForeColorData>("ForeColorData", 0x6803001B, {13, 13, Kept::Double, buttonText}, SystemColour::WindowText),
    stored(property<&Tablio::WithFixedColumn, &Tablio::setWithFixedColumn>("WithFixedColumn", 0x6803001A, Type::Boolean), {16, 20, Kept::Integer, 0}),
    property<&Tablio::ColDataAlignment, &Tablio::setColDataAlignment>("ColDataAlignment", 0x68030019, Type::ColumnAlignment, index32),
    property<&Tablio::ColHeaderAlignment, &Tablio::setColHeaderAlignment>("ColHeaderAlignment", 0x68030018, Type::ColumnAlignment, index32),
    property<&Tablio::ColWidth, &Tablio::setColWidth>("ColWidth", Number::ColWidth, Type::Long, index32),
    property<&Tablio::ColTextHeader, &Tablio::setColTextHeader>("ColTextHeader", 0x68030016, Type::String, index16),
    stored(property<&Tablio::HeaderRowHeight, &Tablio::setHeaderRowHeight>("HeaderRowHeight", 0x68030015, Type::Long), {17, 16, Kept::Long, 0, 700}),
    stored(property<&Tablio::CheckBoxes, &Tablio::setCheckBoxes>("CheckBoxes", 0x68030014, Type::Integer), {21, 23, Kept::Integer, 0}),
    colour<&Tablio::BackColorData, &Tablio::setBackColorData>("BackColorData", 0x68030013, {10, 10, Kept::Long, 0xFFFFFF}, SystemColour::Window),
    colour<&Tablio::GridColorData, &Tablio::setGridColorData>("GridColorData", 0x68030012, {11, 11, Kept::Long, 0xC0C0C0}, SystemColour::ButtonShadow),
    colour<&Tablio::GridColorFixed, &Tablio::setGridColorFixed>("GridColorFixed", 0x68030011, {12, 12, Kept::Long, 0xC0C0C0}, SystemColour::ButtonShadow),
    colour<&Tablio::BackColorMarkRow, &Tablio::setBackColorMarkRow>("BackColorMarkRow", 0x68030010, {14, 14, Kept::Long, highlight}, SystemColour::Highlight),
    byReference(stored(property<&Tablio::GridPopUpMenu, &Tablio::setGridPopUpMenu>("GridPopUpMenu", 0x6803000F, Type::Boolean), {3, 3, Kept::Boolean, -1})),
    colour<&Tablio::ForeColorMarkRow, &Tablio::setForeColorMarkRow>("ForeColorMarkRow", 0x6803000E, {15, 15, Kept::Long, highlightText}, SystemColour::HighlightText),
    stored(property<&Tablio::PrimaryColumn, &Tablio::setPrimaryColumn>("PrimaryColumn", 0x6803000D, Type::Long), {19, 21, Kept::Long, 0}),
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
    colour<&Tablio::BackColor, &Tablio::setBackColor>("BackColor", 0x68030004, {18, 17, Kept::Long, 0xFFFFFF}, SystemColour::Window),
    stored(property<&Tablio::WordWrap, &Tablio::setWordWrap>("WordWrap", 0x68030003, Type::Boolean), {2, 2, Kept::Boolean, -1}),
    stored(property<&Tablio::HeaderFontBold, &Tablio::setHeaderFontBold>("HeaderFontBold", 0x68030002, Type::Boolean), {20, 22, Kept::Integer, 0}),
    method<&Tablio::SetColProperty>("SetColProperty", 0x60030052, columnSettings),
    method<&Tablio::ResetRow>("ResetRow", 0x6003005B, rowReference),
    method<&Tablio::CellFocus>("CellFocus", 0x6003005C, focusCell),
    method<&Tablio::TableClear>("TableClear", 0x6003005D),
    readOnly<&Tablio::DataCount>("DataCount", 0x68030001, Type::Long),
    method<&Tablio::MarkActiveRow>("MarkActiveRow", 0x60030061),
    readOnly<&Tablio::MarkStatus>("MarkStatus", 0x68030000, Type::Boolean),
    method<&Tablio::FindDuplicatePrimaryColumn>("FindDuplicatePrimaryColumn", 0x60030067, rowReference, Type::Integer),
    method<&Tablio::AddRow>("AddRow", 0x60030068),
    method<&Tablio::RemoveRow>("RemoveRow", 0x60030069, rowReference),
    method<&Tablio::Checked>("Checked", 0x6003006A, rowReference, Type::Boolean),
    method<&Tablio::ListIndex>("ListIndex", 0x6003006B, cellReference, Type::Integer),
    method<&Tablio::Check>("Check", 0x6003006C, checkRow),
    method<&Tablio::InsertRow>("InsertRow", 0x6003006D, rowReference),
    method<&Tablio::SetHeaderBackColor>("SetHeaderBackColor", 0x6003006E, headerColour),
    method<&Tablio::SetHeaderForeColor>("SetHeaderForeColor", 0x6003006F, headerColour),
    // What came later has numbers of its own.
    method<&Tablio::Commit>("Commit", 0x60040000, {}, Type::Boolean),
    method<&Tablio::CancelEdit>("CancelEdit", 0x60040001),
    readOnly<&Tablio::IsEditing>("IsEditing", 0x68040000, Type::Boolean),
    readOnly<&Tablio::CurrentRow>("CurrentRow", 0x68040001, Type::Long),
    readOnly<&Tablio::CurrentCol>("CurrentCol", 0x68040002, Type::Long),
    stored(property<&Tablio::EntryRules, &Tablio::setEntryRules>("EntryRules", 0x68040010, Type::EntryRules), {26, 26, Kept::Long, 0}),
    stored(property<&Tablio::TabWalks, &Tablio::setTabWalks>("TabWalks", 0x68040011, Type::Boolean), {27, 27, Kept::Boolean, -1}),
    method<&Tablio::UndoTableClear>("UndoTableClear", 0x60040010, {}, Type::Boolean),
    method<&Tablio::ResizeColumn>("ResizeColumn", 0x60040020, index32),
    method<&Tablio::ResizeColumns>("ResizeColumns", 0x60040021),
    stored(property<&Tablio::StretchColumn, &Tablio::setStretchColumn>("StretchColumn", 0x68040020, Type::Long), {28, 28, Kept::Long, -1}),
    property<&Tablio::Layout, &Tablio::setLayout>("Layout", 0x68040021, Type::String),
    stored(property<&Tablio::CheckBoxFrame, &Tablio::setCheckBoxFrame>("CheckBoxFrame", 0x68040022, Type::Boolean), {29, 29, Kept::Boolean, 0}),
};
// clang-format on

constexpr std::array matrixTable{
    Member{"Text", 0x68030000, MemberKind::Property, Type::Any, cellReference},
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
constexpr std::array entryRules{named("Classic", TEntryRules::Classic),
                                named("Careful", TEntryRules::Careful)};

constexpr std::array enumerationTable{
    Enumeration{"TColumnStyle", columnStyles},   Enumeration{"TColumnType", columnTypes},
    Enumeration{"TDataType", dataTypes},         Enumeration{"TCalcStyle", calcStyles},
    Enumeration{"TColumnAlignment", alignments}, Enumeration{"TEntryRules", entryRules},
};

Value keptAs(Value::Type type, double number) {
    if (type == Value::Type::Font)
        return Font{};
    // A system colour's unsigned reading is the Long with the same bits.
    return type == Value::Type::Long ? Value(Value(number).toColour())
                                     : Value(number).convertedTo(type);
}

template <typename Row, typename Matches>
const Row &find(std::span<const Row> table, Matches matches, const std::string &unknown) {
    const auto found = std::find_if(table.begin(), table.end(), matches);
    if (found == table.end())
        throw UnknownMember(unknown);
    return *found;
}

} // namespace

std::string_view nameOf(MemberType type) noexcept {
    static constexpr std::array<std::string_view, 15> names{
        "",          "Boolean",    "16-bit integer",   "32-bit integer", "String",
        "OLE_COLOR", "Font",       "TMatrix",          "TColumnStyle",   "TColumnType",
        "TDataType", "TCalcStyle", "TColumnAlignment", "TEntryRules",    "Variant"};
    return names[static_cast<std::size_t>(type)];
}

Value convertedTo(MemberType type, const Value &value) {
    // Enumerations are Longs.
    static constexpr std::array kept{Kept::Empty,  Kept::Boolean, Kept::Integer, Kept::Long,
                                     Kept::String, Kept::Long,    Kept::Font,    Kept::Object};
    const auto place = static_cast<std::size_t>(type);
    if (type == MemberType::None)
        return {};
    if (type == MemberType::Colour)
        return value.toColour();
    if (type == MemberType::Any)
        return value;
    return value.convertedTo(place < kept.size() ? kept[place] : Kept::Long);
}

Value Argument::defaultValue() const {
    return type == MemberType::String ? Value("") : convertedTo(type, defaultNumber);
}

Value Stored::defaultToWrite() const { return keptAs(defaultType, writeDefault); }

Value Stored::defaultToRead() const { return keptAs(defaultType, readDefault); }

std::span<const Member> members() noexcept { return memberTable; }

std::span<const Member> matrixMembers() noexcept { return matrixTable; }

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

} // namespace tablio
