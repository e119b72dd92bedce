/**
 * The works that every grid does, in one place, so that all do the same. A peer is a module:
 *
 *   needs                           scripts and style sheets that it is loaded from
 *   create(host, size, cell)        resolves with a grid that is filled and shown in the host
 *   its result: focus(row, col)     puts the cursor there, so that typing edits the cell
 *               text(row, col)      what the cell reads
 *
 * Rows and columns are data rows only, from 0. Half of the columns hold texts of nine bytes, the
 * other half numbers that are shown as 123,456.78; each peer does a work as is cheapest for it.
 */

export const rowPixels = 24;
export const colPixels = 80;

export function isNumberCol(col, cols) {
    return col >= cols / 2;
}

/** A text such as A03-01234, or a number with two decimals. */
export function cellOf(cols) {
    return (row, col) =>
        isNumberCol(col, cols)
            ? ((row * 7919 + col * 104729) % 100000000) / 100
            : 'ABCDEFGHIJ'[col % 10] +
              String(row % 100).padStart(2, '0') +
              '-' +
              String((row * 31 + col) % 100000).padStart(5, '0');
}

/** An object a row, as the other grids are given their rows. */
export function rowObjects({ rows, cols }, cell) {
    const all = new Array(rows);
    for (let row = 0; row < rows; ++row) {
        const object = {};
        for (let col = 0; col < cols; ++col) object['c' + col] = cell(row, col);
        all[row] = object;
    }
    return all;
}

/** Resolves when the next frame has been painted. */
export function painted() {
    return new Promise((resolve) =>
        requestAnimationFrame(() => {
            const { port1, port2 } = new MessageChannel();
            port1.onmessage = () => resolve();
            port2.postMessage(0);
        }),
    );
}
