/**
 * The page: the grid, its search and its totals on an order in IndexedDB.
 *
 *   ?sample     put some lines into an order without any
 *   ?slow=MS    let every event take so many milliseconds
 */

import '/tablio/tablio-grid.js';

import { ArticleSearch } from './article_search.js';
import { logEvents } from './event_log.js';
import { checked, moneyText } from './money.js';
import { OrderBook } from './order_book.js';
import { language } from './order_cells.js';
import { settings } from './order_columns.js';
import { OrderSheet } from './order_sheet.js';

const options = new URLSearchParams(location.search);
const find = (/** @type {string} */ selector) =>
    /** @type {HTMLElement} */ (document.querySelector(selector));
const grid = /** @type {import('/tablio/tablio-grid.js').TablioGrid} */ (find('tablio-grid'));
const problem = find('#problem');
grid.settings = settings;
logEvents(grid, (text) => (find('#last-event').textContent = text), Number(options.get('slow')));

/** Grouped as the page's language groups. @param {bigint | null} amount */
function shown(amount) {
    if (amount === null) return 'too large';
    const decimalSign = (0.5).toLocaleString(language).replace(/\d/g, '');
    return (amount / 100n).toLocaleString(language) + decimalSign + moneyText(amount).slice(-2);
}

/** @param {OrderSheet} sheet */
function showTotals(sheet) {
    const { lines } = sheet;
    find('#line-count').textContent = lines.size === 1 ? '1 line' : `${lines.size} lines`;
    let sum = 0n;
    for (const line of lines.values()) sum += line.price * BigInt(line.quantity);
    find('#sum').textContent = `Sum ${shown(checked(sum))}`;
    problem.textContent = sheet.problem && `${sheet.problem} The next entry tries again.`;
    document.title = (sheet.problem && '• ') + 'Order entry';
}

/** @param {OrderSheet} sheet */
function connect(sheet) {
    sheet.addEventListener('changed', () => showTotals(sheet));
    sheet.addEventListener('refused', (event) => {
        problem.textContent = /** @type {CustomEvent<string>} */ (event).detail;
    });

    const search = new ArticleSearch(/** @type {HTMLDialogElement} */ (find('dialog')));
    sheet.addEventListener('articleWanted', (event) => {
        const { row, text } = /** @type {CustomEvent<{ row: number, text: string }>} */ (event).detail;
        search.open(`Article of row ${row}: Enter picks, Esc leaves`, sheet.articles, text);
    });
    search.addEventListener('picked', (event) => {
        sheet.articleFound(/** @type {CustomEvent<string>} */ (event).detail);
    });
    search.addEventListener('left', () => grid.focus());

    window.addEventListener('keydown', (event) => {
        if (!(event.ctrlKey || event.metaKey) || event.key.toLowerCase() !== 's') return;
        event.preventDefault();
        if (grid.commit()) void sheet.save();
    });
    // A page in the background may be thrown away without another word.
    document.addEventListener('visibilitychange', () => {
        if (document.hidden && grid.commit()) void sheet.save();
    });
    // What is still being typed is entered first. What is refused, and what is not on the disk yet,
    // keeps the page if the operator wants it kept.
    window.addEventListener('beforeunload', (event) => {
        const isEntered = grid.commit();
        void sheet.save();
        if (!isEntered || !sheet.isSaved) event.preventDefault();
    });
}

/** Two tabs would write over each other's lines: the second waits until the first is closed. */
async function onlyHere() {
    await new Promise((resolve) => {
        void navigator.locks.request('tablio-order', { ifAvailable: true }, (lock) => {
            if (lock) {
                resolve(undefined);
                return new Promise(() => {});
            }
            problem.textContent = 'The order is open in another tab. This one goes on when it is closed.';
            grid.enabled = false;
            void navigator.locks.request('tablio-order', () => {
                resolve(undefined);
                return new Promise(() => {});
            });
        });
    });
    grid.enabled = true;
}

try {
    await onlyHere();
    const book = await OrderBook.open();
    if (options.has('sample')) await book.addSample();
    const sheet = new OrderSheet(grid, book);
    connect(sheet);
    await sheet.load();
    grid.focus();
} catch (error) {
    grid.enabled = false;
    problem.textContent = `The order cannot be used: ${error instanceof Error ? error.message : error}`;
}
