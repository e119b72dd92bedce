/** What the program heard from the grid last, for the status line: the last few events of a task. */

/** @typedef {import('/tablio/tablio-grid.js').TablioGrid} TablioGrid */

const mostShown = 3;
const names = [
    'editPreValidation', 'editOnChange', 'editPostValidation', 'editLookup', 'cellFocus',
    'cellKeyPress', 'tableChange', 'tableKeyDown', 'tableRowChange', 'doubleClick',
];

/**
 * @param {TablioGrid} grid
 * @param {(text: string) => void} show
 * @param {number} delay milliseconds that every event takes, as a slow host would
 */
export function logEvents(grid, show, delay = 0) {
    /** @type {string[]} */
    let heard = [];
    const hear = (/** @type {Event} */ event) => {
        for (const end = performance.now() + delay; performance.now() < end; );
        if (heard.length === 0)
            setTimeout(() => {
                show(heard.slice(-mostShown).join(', '));
                heard = [];
            });
        const { detail } = /** @type {CustomEvent<Record<string, unknown>>} */ (event);
        const told = Object.entries(detail).map(([name, value]) => `${name} ${JSON.stringify(value)}`);
        heard.push(`${event.type}(${told.join(', ')})`);
    };
    for (const name of names) grid.addEventListener(name, hear);
}
