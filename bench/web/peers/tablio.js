/** <tablio-grid>, the package as scripts/web builds it. */

import { colPixels, isNumberCol, rowPixels } from '../works.js';

export const needs = ['/tablio/tablio-grid.js?module'];

const twips = 15;
/** Texts that are handed over in one call. */
const block = 4000;

export async function create(host, { rows, cols }, cell) {
    const grid = document.createElement('tablio-grid');
    grid.style.height = '100%';
    host.append(grid);
    grid.cols = cols;
    grid.rows = rows + 1;
    grid.rowMinHeight = rowPixels * twips;
    for (let col = 0; col < cols; ++col) {
        const isNumber = isNumberCol(col, cols);
        grid.setColProperty(
            col, 'Column ' + col, colPixels * twips, 0, isNumber ? 1 : 0, 1, isNumber ? 7 : 1, 14,
            isNumber ? '###,##0.00' : '',
        );
    }
    grid.setStatusCell = false;
    const most = Math.ceil(block / cols);
    for (let row = 0; row < rows; row += most) {
        const texts = [];
        for (let each = row; each < Math.min(rows, row + most); ++each)
            for (let col = 0; col < cols; ++col) texts.push(String(cell(each, col)));
        grid.setTexts(row + 1, 0, cols, texts);
    }
    grid.setStatusCell = true;
    return {
        focus(row, col) {
            grid.focus();
            grid.cellFocus(row + 1, col);
            // Enter goes to the next line in this column.
            grid.addEventListener('editPostValidation', ({ detail }) => {
                grid.cellFocus(detail.row + 1, detail.col);
            });
        },
        text: (row, col) => grid.textMatrix(row + 1, col),
    };
}
