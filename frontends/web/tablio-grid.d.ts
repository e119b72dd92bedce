/**
 * The types of `@tablio/grid`: the element `<tablio-grid>`, its members, events and enumerations.
 * What each of them does is told in docs/web.md and docs/web-members.md.
 *
 * Printed by tools/web_types from the member table. Do not edit.
 */

/** 0xBBGGRR, or 0x80000000 and the number of a system colour, as a signed 32-bit integer. */
export type TColour = number;

/** What a page hangs on a cell; a cell without a tag has "". */
export type TTag = string | number | boolean;

/** What is left out when it is given is the page's own. Size is in points. */
export interface TFont {
    name?: string;
    size?: number;
    bold?: boolean;
    italic?: boolean;
    underline?: boolean;
    strikethrough?: boolean;
    weight?: number;
}

export declare const TColumnStyle: {
    readonly ColumnInput: 0;
    readonly ColumnInputWithLookup: 1;
    readonly ColumnFixed: 2;
    readonly ColumnFixedWithAutoNumber: 3;
};
export type TColumnStyle = (typeof TColumnStyle)[keyof typeof TColumnStyle];

export declare const TColumnType: {
    readonly ColumnString: 0;
    readonly ColumnDecimal: 1;
    readonly ColumnInteger: 2;
    readonly ColumnDate: 3;
    readonly ColumnCombo: 4;
};
export type TColumnType = (typeof TColumnType)[keyof typeof TColumnType];

export declare const TDataType: {
    readonly AllCase: 0;
    readonly UpperCase: 1;
    readonly LowerCase: 2;
    readonly AllValue: 0;
    readonly Positive: 1;
    readonly Negative: 2;
};
export type TDataType = (typeof TDataType)[keyof typeof TDataType];

export declare const TCalcStyle: {
    readonly NoStyle: 0;
    readonly CalcStyle: 1;
};
export type TCalcStyle = (typeof TCalcStyle)[keyof typeof TCalcStyle];

export declare const TColumnAlignment: {
    readonly ColumnLeft: 1;
    readonly ColumnCentre: 4;
    readonly ColumnRight: 7;
};
export type TColumnAlignment = (typeof TColumnAlignment)[keyof typeof TColumnAlignment];

export declare const TEntryRules: {
    readonly Classic: 0;
    readonly Careful: 1;
};
export type TEntryRules = (typeof TEntryRules)[keyof typeof TEntryRules];

/** The control's own members. Rows and columns count from 0, lengths are twips. */
export interface TablioMembers {
    markRow: number;
    cellTag(row: number, col: number): TTag;
    setCellTag(row: number, col: number, value: TTag): void;
    backColorFixed: TColour;
    enabled: boolean;
    font: TFont;
    foreColorFixed: TColour;
    cols: number;
    rows: number;
    rowMinHeight: number;
    stripeColor: TColour;
    checkBoxColor: TColour;
    rowHeight(row: number): number;
    setRowHeight(row: number, value: number): void;
    cellFont(row: number, col: number): string;
    setCellFont(row: number, col: number, value: string | number): void;
    cellFontBold(row: number, col: number): boolean;
    setCellFontBold(row: number, col: number, value: boolean): void;
    cellFontItalic(row: number, col: number): boolean;
    setCellFontItalic(row: number, col: number, value: boolean): void;
    cellFontSize(row: number, col: number): number;
    setCellFontSize(row: number, col: number, value: number): void;
    setStatusCell: boolean;
    cellBackColor(row: number, col: number): TColour;
    setCellBackColor(row: number, col: number, value: TColour): void;
    cellForeColor(row: number, col: number): TColour;
    setCellForeColor(row: number, col: number, value: TColour): void;
    fixedRows: number;
    fixedCols: number;
    foreColorData: TColour;
    withFixedColumn: boolean;
    colDataAlignment(index: number): TColumnAlignment;
    setColDataAlignment(index: number, value: TColumnAlignment): void;
    colHeaderAlignment(index: number): TColumnAlignment;
    setColHeaderAlignment(index: number, value: TColumnAlignment): void;
    colWidth(index: number): number;
    setColWidth(index: number, value: number): void;
    colTextHeader(index: number): string;
    setColTextHeader(index: number, value: string | number): void;
    headerRowHeight: number;
    checkBoxes: number;
    backColorData: TColour;
    gridColorData: TColour;
    gridColorFixed: TColour;
    backColorMarkRow: TColour;
    gridPopUpMenu: boolean;
    foreColorMarkRow: TColour;
    primaryColumn: number;
    colStyle(index: number): TColumnStyle;
    setColStyle(index: number, value: TColumnStyle): void;
    colEditType(index: number): TColumnType;
    setColEditType(index: number, value: TColumnType): void;
    colDataType(index: number): TDataType;
    setColDataType(index: number, value: TDataType): void;
    colCalcStyle(index: number): TCalcStyle;
    setColCalcStyle(index: number, value: TCalcStyle): void;
    colFormat(index: number): string;
    setColFormat(index: number, value: string | number): void;
    colMaxLength(index: number): number;
    setColMaxLength(index: number, value: number): void;
    textMatrix(row: number, col: number): string;
    setTextMatrix(row: number, col: number, value: string | number): void;
    setLookupResult(row: number, col: number, value: string | number): void;
    comboClear(): void;
    comboAddItem(newItem: string | number): void;
    backColor: TColour;
    wordWrap: boolean;
    headerFontBold: boolean;
    setColProperty(colIndex: number, newColTextHeader?: string | number, newColWidth?: number, newColStyle?: TColumnStyle, newColEditType?: TColumnType, newColHeaderAlignment?: TColumnAlignment, newColDataAlignment?: TColumnAlignment, newColMaxlength?: number, newColFormat?: string | number): void;
    resetRow(row: number): void;
    cellFocus(nRow: number, nCol: number): void;
    tableClear(): void;
    readonly dataCount: number;
    markActiveRow(): void;
    readonly markStatus: boolean;
    findDuplicatePrimaryColumn(row: number): number;
    addRow(): void;
    removeRow(row: number): void;
    checked(row: number): boolean;
    listIndex(row: number, col: number): number;
    check(row: number, checked: boolean): void;
    insertRow(row: number): void;
    setHeaderBackColor(col: number, newColor: TColour): void;
    setHeaderForeColor(col: number, newColor: TColour): void;
    commit(): boolean;
    cancelEdit(): void;
    readonly isEditing: boolean;
    readonly currentRow: number;
    readonly currentCol: number;
    entryRules: TEntryRules;
    tabWalks: boolean;
    undoTableClear(): boolean;
    resizeColumn(index: number): void;
    resizeColumns(): void;
    stretchColumn: number;
    layout: string;
    checkBoxFrame: boolean;
}

/** A handler may write into what is not readonly; preventDefault() refuses. */
export interface TablioEvents {
    editPreValidation: CustomEvent<{ readonly row: number; readonly col: number; cancel: boolean }>;
    editOnChange: CustomEvent<{ readonly row: number; readonly col: number; readonly onEdit: string }>;
    editPostValidation: CustomEvent<{ readonly row: number; readonly col: number; valid: boolean; readonly oldData: string; readonly newData: string; readonly lastKey: number }>;
    editLookup: CustomEvent<{ readonly row: number; readonly col: number }>;
    cellFocus: CustomEvent<{ readonly row: number; readonly col: number }>;
    cellKeyPress: CustomEvent<{ readonly row: number; readonly col: number; keyAscii: number }>;
    tableChange: CustomEvent<{}>;
    tableKeyDown: CustomEvent<{ keyCode: number; readonly shift: number; readonly row: number; readonly col: number }>;
    tableRowChange: CustomEvent<{ readonly oldRow: number; readonly newRow: number }>;
    doubleClick: CustomEvent<{ readonly row: number; readonly col: number }>;
}

export interface TablioGrid extends TablioMembers {
    addEventListener<Name extends keyof TablioEvents>(
        type: Name,
        listener: (this: TablioGrid, event: TablioEvents[Name]) => unknown,
        options?: boolean | AddEventListenerOptions,
    ): void;
    addEventListener<Name extends keyof HTMLElementEventMap>(
        type: Name,
        listener: (this: TablioGrid, event: HTMLElementEventMap[Name]) => unknown,
        options?: boolean | AddEventListenerOptions,
    ): void;
    addEventListener(
        type: string,
        listener: EventListenerOrEventListenerObject,
        options?: boolean | AddEventListenerOptions,
    ): void;
    removeEventListener<Name extends keyof TablioEvents>(
        type: Name,
        listener: (this: TablioGrid, event: TablioEvents[Name]) => unknown,
        options?: boolean | EventListenerOptions,
    ): void;
    removeEventListener(
        type: string,
        listener: EventListenerOrEventListenerObject,
        options?: boolean | EventListenerOptions,
    ): void;
}

/** The element's class; importing the package defines it as `tablio-grid`. */
export declare class TablioGrid extends HTMLElement {
    /**
     * The settings of the table and its columns as lines of plain text, the same that a form of Qt
     * Designer holds. Writing them keeps the cells.
     */
    settings: string;
    /**
     * The page's own words, by the English ones that the grid says otherwise: { OK: 'Gut' }. They
     * are told in docs/web.md.
     */
    captions: Readonly<Record<string, string>>;
    /** Writes texts into a block of cells, so many a row; rows that are missing are appended. */
    setTexts(row: number, col: number, cols: number, texts: readonly string[]): void;
    /** What a block of cells reads, row by row. */
    texts(row: number, col: number, rows: number, cols: number): string[];
}

/** Nothing has changed when one is thrown. */
export declare class TablioError extends Error {
    /** "Grid": a row, column or count that is not there. "Overflow": beyond 16 bits. */
    readonly kind: 'Other' | 'Grid' | 'Overflow' | 'UnknownMember' | 'ArgumentCount' | 'TypeMismatch';
    /** Which argument is wrong, from 0; the new value comes after the indexes. Else -1. */
    readonly argument: number;
}

declare global {
    interface HTMLElementTagNameMap {
        'tablio-grid': TablioGrid;
    }
}
