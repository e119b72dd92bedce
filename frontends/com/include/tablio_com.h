#pragma once

/// The identifiers, numbers and enumerations of the registered control Tablio, for hosts in C++.
/// Printed by tools/typelib from the member table. Do not edit.

// clang-format off

#include <guiddef.h>

namespace TablioLib {

inline constexpr GUID LIBID_TablioLib{0x630823B3, 0xBF3F, 0x4174,
    {0xBC, 0x48, 0x45, 0x32, 0x95, 0xD1, 0x4E, 0x08}};
inline constexpr GUID CLSID_Tablio{0xFFD3CEA0, 0x8D78, 0x4E74,
    {0x84, 0xF3, 0xCF, 0x71, 0xA7, 0x74, 0x31, 0x42}};
inline constexpr GUID CLSID_TMatrix{0x7DE24383, 0xF4A2, 0x4EEA,
    {0xAE, 0x43, 0x1D, 0x06, 0x3E, 0x39, 0xC0, 0xD5}};
inline constexpr GUID CLSID_General{0xB463D282, 0xE317, 0x4857,
    {0x81, 0xD6, 0xE5, 0xE9, 0x78, 0x78, 0x7C, 0x6D}};
inline constexpr GUID CLSID_Columns{0xB052A0CE, 0x90A3, 0x4283,
    {0xB2, 0xCD, 0x03, 0x37, 0x69, 0xB0, 0x47, 0x0F}};
inline constexpr GUID CLSID_Entry{0x3124A775, 0xDA0F, 0x42D1,
    {0xB1, 0x3B, 0xC3, 0xED, 0xEE, 0x84, 0x3C, 0x44}};
inline constexpr GUID DIID__Tablio{0x6664D2D5, 0x8BD1, 0x4A9B,
    {0xBD, 0xFD, 0x7F, 0xF2, 0x9B, 0x63, 0xB4, 0x18}};
inline constexpr GUID DIID___Tablio{0x42F36961, 0x4D8E, 0x4336,
    {0xAD, 0x12, 0x82, 0x24, 0xC9, 0x6D, 0xD9, 0xEC}};
inline constexpr GUID DIID__TMatrix{0x795EF3E1, 0x3F8F, 0x4C16,
    {0xAA, 0x76, 0xD2, 0xC0, 0x94, 0xAA, 0x9A, 0x0C}};

enum TColumnStyle : long {
    ColumnInput = 0,
    ColumnInputWithLookup = 1,
    ColumnFixed = 2,
    ColumnFixedWithAutoNumber = 3,
};

enum TColumnType : long {
    ColumnString = 0,
    ColumnDecimal = 1,
    ColumnInteger = 2,
    ColumnDate = 3,
    ColumnCombo = 4,
};

enum TDataType : long {
    AllCase = 0,
    UpperCase = 1,
    LowerCase = 2,
    AllValue = 0,
    Positive = 1,
    Negative = 2,
};

enum TCalcStyle : long {
    NoStyle = 0,
    CalcStyle = 1,
};

enum TColumnAlignment : long {
    ColumnLeft = 1,
    ColumnCentre = 4,
    ColumnRight = 7,
};

enum TEntryRules : long {
    Classic = 0,
    Careful = 1,
};

namespace member {
inline constexpr long MarkRow = 1073938432;
inline constexpr long CellTag = 1073938433;
inline constexpr long BackColorFixed = 1745027117;
inline constexpr long Enabled = 1745027116;
inline constexpr long Font = -512;
inline constexpr long ForeColorFixed = 1745027115;
inline constexpr long Cols = 1745027114;
inline constexpr long Rows = 1745027113;
inline constexpr long RowMinHeight = 1745027112;
inline constexpr long StripeColor = 1745027111;
inline constexpr long CheckBoxColor = 1745027110;
inline constexpr long RowHeight = 1745027109;
inline constexpr long CellFont = 1745027108;
inline constexpr long CellFontBold = 1745027107;
inline constexpr long CellFontItalic = 1745027106;
inline constexpr long CellFontSize = 1745027105;
inline constexpr long SetStatusCell = 1745027104;
inline constexpr long CellBackColor = 1745027103;
inline constexpr long CellForeColor = 1745027102;
inline constexpr long FixedRows = 1745027101;
inline constexpr long FixedCols = 1745027100;
inline constexpr long ForeColorData = 1745027099;
inline constexpr long WithFixedColumn = 1745027098;
inline constexpr long ColDataAlignment = 1745027097;
inline constexpr long ColHeaderAlignment = 1745027096;
inline constexpr long ColWidth = 1745027095;
inline constexpr long ColTextHeader = 1745027094;
inline constexpr long HeaderRowHeight = 1745027093;
inline constexpr long CheckBoxes = 1745027092;
inline constexpr long BackColorData = 1745027091;
inline constexpr long GridColorData = 1745027090;
inline constexpr long GridColorFixed = 1745027089;
inline constexpr long BackColorMarkRow = 1745027088;
inline constexpr long GridPopUpMenu = 1745027087;
inline constexpr long ForeColorMarkRow = 1745027086;
inline constexpr long PrimaryColumn = 1745027085;
inline constexpr long ColStyle = 1745027084;
inline constexpr long ColEditType = 1745027083;
inline constexpr long ColDataType = 1745027082;
inline constexpr long ColCalcStyle = 1745027081;
inline constexpr long ColFormat = 1745027080;
inline constexpr long ColMaxLength = 1745027079;
inline constexpr long TextMatrix = 1745027078;
inline constexpr long LookupResult = 1745027077;
inline constexpr long ComboClear = 1610809424;
inline constexpr long ComboAddItem = 1610809425;
inline constexpr long BackColor = 1745027076;
inline constexpr long WordWrap = 1745027075;
inline constexpr long HeaderFontBold = 1745027074;
inline constexpr long SetColProperty = 1610809426;
inline constexpr long ResetRow = 1610809435;
inline constexpr long CellFocus = 1610809436;
inline constexpr long TableClear = 1610809437;
inline constexpr long DataCount = 1745027073;
inline constexpr long MarkActiveRow = 1610809441;
inline constexpr long MarkStatus = 1745027072;
inline constexpr long FindDuplicatePrimaryColumn = 1610809447;
inline constexpr long AddRow = 1610809448;
inline constexpr long RemoveRow = 1610809449;
inline constexpr long Checked = 1610809450;
inline constexpr long ListIndex = 1610809451;
inline constexpr long Check = 1610809452;
inline constexpr long InsertRow = 1610809453;
inline constexpr long SetHeaderBackColor = 1610809454;
inline constexpr long SetHeaderForeColor = 1610809455;
inline constexpr long Commit = 1610874880;
inline constexpr long CancelEdit = 1610874881;
inline constexpr long IsEditing = 1745092608;
inline constexpr long CurrentRow = 1745092609;
inline constexpr long CurrentCol = 1745092610;
inline constexpr long EntryRules = 1745092624;
inline constexpr long TabWalks = 1745092625;
inline constexpr long UndoTableClear = 1610874896;
inline constexpr long ResizeColumn = 1610874912;
inline constexpr long ResizeColumns = 1610874913;
inline constexpr long StretchColumn = 1745092640;
inline constexpr long Layout = 1745092641;
inline constexpr long CheckBoxFrame = 1745092642;
} // namespace member

namespace matrixMember {
inline constexpr long Text = 1745027072;
} // namespace matrixMember

namespace event {
inline constexpr long EditPreValidation = 1;
inline constexpr long EditOnChange = 2;
inline constexpr long EditPostValidation = 3;
inline constexpr long EditLookup = 4;
inline constexpr long CellFocus = 5;
inline constexpr long CellKeyPress = 6;
inline constexpr long TableChange = 7;
inline constexpr long TableKeyDown = 8;
inline constexpr long TableRowChange = 9;
inline constexpr long DoubleClick = 10;
} // namespace event

} // namespace TablioLib
