// The member table: numbers by the names that a page uses. define_members.ts makes members and
// events of it. Printed by tools/web_types. Do not edit.

/** name, number, what may be done (r reads, w writes, c calls), count of indexes */
export type MemberRow = readonly [string, number, string, number];
/** By number, from 1: name, names of the arguments; which of them a veto writes, and what */
export type EventRow = readonly [string, readonly string[], number?, (boolean | number)?];

export const memberRows: readonly MemberRow[] = [
    ['markRow', 1073938432, 'rw', 0],
    ['cellTag', 1073938433, 'rw', 2],
    ['backColorFixed', 1745027117, 'rw', 0],
    ['enabled', 1745027116, 'rw', 0],
    ['font', -512, 'rw', 0],
    ['foreColorFixed', 1745027115, 'rw', 0],
    ['cols', 1745027114, 'rw', 0],
    ['rows', 1745027113, 'rw', 0],
    ['rowMinHeight', 1745027112, 'rw', 0],
    ['stripeColor', 1745027111, 'rw', 0],
    ['checkBoxColor', 1745027110, 'rw', 0],
    ['rowHeight', 1745027109, 'rw', 1],
    ['cellFont', 1745027108, 'rw', 2],
    ['cellFontBold', 1745027107, 'rw', 2],
    ['cellFontItalic', 1745027106, 'rw', 2],
    ['cellFontSize', 1745027105, 'rw', 2],
    ['setStatusCell', 1745027104, 'rw', 0],
    ['cellBackColor', 1745027103, 'rw', 2],
    ['cellForeColor', 1745027102, 'rw', 2],
    ['fixedRows', 1745027101, 'rw', 0],
    ['fixedCols', 1745027100, 'rw', 0],
    ['foreColorData', 1745027099, 'rw', 0],
    ['withFixedColumn', 1745027098, 'rw', 0],
    ['colDataAlignment', 1745027097, 'rw', 1],
    ['colHeaderAlignment', 1745027096, 'rw', 1],
    ['colWidth', 1745027095, 'rw', 1],
    ['colTextHeader', 1745027094, 'rw', 1],
    ['headerRowHeight', 1745027093, 'rw', 0],
    ['checkBoxes', 1745027092, 'rw', 0],
    ['backColorData', 1745027091, 'rw', 0],
    ['gridColorData', 1745027090, 'rw', 0],
    ['gridColorFixed', 1745027089, 'rw', 0],
    ['backColorMarkRow', 1745027088, 'rw', 0],
    ['gridPopUpMenu', 1745027087, 'rw', 0],
    ['foreColorMarkRow', 1745027086, 'rw', 0],
    ['primaryColumn', 1745027085, 'rw', 0],
    ['colStyle', 1745027084, 'rw', 1],
    ['colEditType', 1745027083, 'rw', 1],
    ['colDataType', 1745027082, 'rw', 1],
    ['colCalcStyle', 1745027081, 'rw', 1],
    ['colFormat', 1745027080, 'rw', 1],
    ['colMaxLength', 1745027079, 'rw', 1],
    ['textMatrix', 1745027078, 'rw', 2],
    ['lookupResult', 1745027077, 'w', 2],
    ['comboClear', 1610809424, 'c', 0],
    ['comboAddItem', 1610809425, 'c', 0],
    ['backColor', 1745027076, 'rw', 0],
    ['wordWrap', 1745027075, 'rw', 0],
    ['headerFontBold', 1745027074, 'rw', 0],
    ['setColProperty', 1610809426, 'c', 0],
    ['resetRow', 1610809435, 'c', 0],
    ['cellFocus', 1610809436, 'c', 0],
    ['tableClear', 1610809437, 'c', 0],
    ['dataCount', 1745027073, 'r', 0],
    ['markActiveRow', 1610809441, 'c', 0],
    ['markStatus', 1745027072, 'r', 0],
    ['findDuplicatePrimaryColumn', 1610809447, 'c', 0],
    ['addRow', 1610809448, 'c', 0],
    ['removeRow', 1610809449, 'c', 0],
    ['checked', 1610809450, 'c', 0],
    ['listIndex', 1610809451, 'c', 0],
    ['check', 1610809452, 'c', 0],
    ['insertRow', 1610809453, 'c', 0],
    ['setHeaderBackColor', 1610809454, 'c', 0],
    ['setHeaderForeColor', 1610809455, 'c', 0],
    ['commit', 1610874880, 'c', 0],
    ['cancelEdit', 1610874881, 'c', 0],
    ['isEditing', 1745092608, 'r', 0],
    ['currentRow', 1745092609, 'r', 0],
    ['currentCol', 1745092610, 'r', 0],
    ['entryRules', 1745092624, 'rw', 0],
    ['tabWalks', 1745092625, 'rw', 0],
    ['undoTableClear', 1610874896, 'c', 0],
    ['resizeColumn', 1610874912, 'c', 0],
    ['resizeColumns', 1610874913, 'c', 0],
    ['stretchColumn', 1745092640, 'rw', 0],
    ['layout', 1745092641, 'rw', 0],
    ['checkBoxFrame', 1745092642, 'rw', 0],
];

export const eventRows: readonly EventRow[] = [
    ['editPreValidation', ['row', 'col', 'cancel'], 2, true],
    ['editOnChange', ['row', 'col', 'onEdit']],
    ['editPostValidation', ['row', 'col', 'valid', 'oldData', 'newData', 'lastKey'], 2, false],
    ['editLookup', ['row', 'col']],
    ['cellFocus', ['row', 'col']],
    ['cellKeyPress', ['row', 'col', 'keyAscii'], 2, 0],
    ['tableChange', []],
    ['tableKeyDown', ['keyCode', 'shift', 'row', 'col'], 0, 0],
    ['tableRowChange', ['oldRow', 'newRow']],
    ['doubleClick', ['row', 'col']],
];

export const TColumnStyle = {
    ColumnInput: 0,
    ColumnInputWithLookup: 1,
    ColumnFixed: 2,
    ColumnFixedWithAutoNumber: 3,
} as const;

export const TColumnType = {
    ColumnString: 0,
    ColumnDecimal: 1,
    ColumnInteger: 2,
    ColumnDate: 3,
    ColumnCombo: 4,
} as const;

export const TDataType = {
    AllCase: 0,
    UpperCase: 1,
    LowerCase: 2,
    AllValue: 0,
    Positive: 1,
    Negative: 2,
} as const;

export const TCalcStyle = {
    NoStyle: 0,
    CalcStyle: 1,
} as const;

export const TColumnAlignment = {
    ColumnLeft: 1,
    ColumnCentre: 4,
    ColumnRight: 7,
} as const;

export const TEntryRules = {
    Classic: 0,
    Careful: 1,
} as const;
