/** AG Grid Community, its minified bundle as its makers publish it. */

import { colPixels, isNumberCol, rowObjects, rowPixels } from '../works.js';

export const needs = ['/node_modules/ag-grid-community/dist/ag-grid-community.min.js'];

const picture = new Intl.NumberFormat('en-US', { minimumFractionDigits: 2, maximumFractionDigits: 2 });

export function create(host, size, cell) {
    const rowData = rowObjects(size, cell);
    const columnDefs = Array.from({ length: size.cols }, (_, col) => ({
        field: 'c' + col,
        headerName: 'Column ' + col,
        width: colPixels,
        editable: true,
        ...(isNumberCol(col, size.cols)
            ? {
                  cellDataType: 'number',
                  cellEditor: 'agTextCellEditor',
                  valueFormatter: ({ value }) => picture.format(value),
                  valueParser: ({ newValue }) => Number(newValue),
              }
            : { cellDataType: 'text' }),
    }));
    return new Promise((resolve) => {
        const api = agGrid.createGrid(host, {
            columnDefs,
            rowData,
            rowHeight: rowPixels,
            headerHeight: rowPixels,
            animateRows: false,
            suppressColumnMoveAnimation: true,
            enterNavigatesVertically: true,
            enterNavigatesVerticallyAfterEdit: true,
            onFirstDataRendered: () =>
                resolve({
                    focus: (row, col) => api.setFocusedCell(row, 'c' + col),
                    text: (row, col) => String(api.getDisplayedRowAtIndex(row).data['c' + col]),
                }),
        });
    });
}
