/** Tabulator, its minified bundle as its makers publish it. */

import { colPixels, isNumberCol, rowObjects, rowPixels } from '../works.js';

export const needs = [
    '/node_modules/tabulator-tables/dist/css/tabulator.min.css',
    '/node_modules/tabulator-tables/dist/js/tabulator.min.js',
];

export function create(host, size, cell) {
    const data = rowObjects(size, cell);
    const columns = Array.from({ length: size.cols }, (_, col) => ({
        field: 'c' + col,
        title: 'Column ' + col,
        width: colPixels,
        ...(isNumberCol(col, size.cols)
            ? { editor: 'number', formatter: 'money', hozAlign: 'right' }
            : { editor: 'input' }),
    }));
    return new Promise((resolve) => {
        const table = new Tabulator(host, {
            data,
            columns,
            height: '800px',
            rowHeight: rowPixels,
            renderHorizontal: 'virtual',
        });
        table.on('tableBuilt', () =>
            resolve({
                // Typing does not open its editors, so keys are not measured.
                focus: null,
                text: (row, col) => String(table.getRowFromPosition(row + 1).getData()['c' + col]),
            }),
        );
    });
}
