/**
 * The order as a grid: what the page does when the control reports an event. This is the part of a
 * program that a developer who hosts the control writes. What the operator commits is saved at
 * once; what cannot be saved is kept, reported and tried again.
 */

import { TColumnStyle } from '/tablio/tablio-grid.js';

import { sameLine } from './order_book.js';
import { Column, OrderCells, isNoDate, unitChoices } from './order_cells.js';

/** @typedef {import('/tablio/tablio-grid.js').TablioGrid} TablioGrid */
/** @typedef {import('/tablio/tablio-grid.js').TablioEvents} TablioEvents */
/** @typedef {import('./order_book.js').Article} Article */
/** @typedef {import('./order_book.js').OrderBook} OrderBook */
/** @typedef {import('./order_book.js').OrderLine} OrderLine */

/** Blank rows that wait for the operator below the last line. */
const spareRows = 12;
/** The most rows that the control counts, its header included. */
const mostRows = 32768;
/** An operator who stops typing for so many milliseconds has seen what the form says. */
const pauseOfTyping = 400;
const enter = 13;
const red = 0x2020d0;
/** The tag of the cell for which an article is looked up: tags move with their rows. */
const wanted = 'wanted';

/**
 * Tells `changed` when lines have changed or the problem is another, `refused` with the reason when
 * what was entered cannot be taken, and `articleWanted` with row, text and cell when the operator
 * asks which articles there are.
 */
export class OrderSheet extends EventTarget {
    /** By row. @type {import('./order_book.js').OrderLines} */
    lines = new Map();
    /**
     * By row: the line that has to be written, null where one has to go.
     * @type {Map<number, OrderLine | null>}
     */
    #unsaved = new Map();
    /** @type {Map<string, Article>} */
    #articles = new Map();
    /** What is being written, or was last. */
    #writing = Promise.resolve();
    #isWriting = false;
    #failure = '';
    /** @type {Set<number>} */
    #redRows = new Set();
    /** What the editor shows. */
    #typed = '';
    #typing = false;
    #showing = false;
    /** When a key was last dropped that was typed before the operator saw a refusal. */
    #refusedAt = -Infinity;

    /**
     * The grid's columns are set up already.
     * @param {TablioGrid} grid @param {OrderBook} book
     */
    constructor(grid, book) {
        super();
        this.grid = grid;
        this.cells = new OrderCells(grid);
        this.book = book;
        this.cells.setUpTickColumn();
        grid.addEventListener('editPreValidation', ({ detail }) => this.#editBegins(detail));
        grid.addEventListener('editOnChange', ({ detail }) => {
            this.#typed = detail.onEdit;
            this.#typing = true;
        });
        grid.addEventListener('editPostValidation', (event) => this.#cellEdited(event));
        grid.addEventListener('editLookup', ({ detail }) => this.#lookUp(detail.row));
        grid.addEventListener('tableKeyDown', (event) => this.#keyDown(event));
        grid.addEventListener('tableChange', () => this.#tableChanged());
        // No event tells of a tick: it is taken over when the operator leaves its cell.
        grid.addEventListener('cellFocus', ({ detail }) => {
            if (this.#noteTick(detail.row)) this.#write();
        });
        grid.addEventListener('tableRowChange', ({ detail }) => {
            if (this.#noteTick(detail.oldRow)) this.#write();
        });
        grid.addEventListener('focusout', () => this.#takeTicks());
    }

    /** Fills the grid with what the book holds. Rejects when it cannot be read. */
    async load() {
        for (const article of await this.book.articles()) this.#articles.set(article.code, article);
        this.lines = await this.book.lines();
        this.#unsaved.clear();
        this.#setRowCount(Math.max(0, ...this.lines.keys()) + 1 + spareRows);
        this.#showLines();
        this.#tell('changed');
    }

    /** Saves what is not saved yet; whether nothing is left. */
    async save() {
        this.#takeTicks();
        this.#write();
        await this.#writing;
        return this.isSaved;
    }

    get isSaved() {
        return this.#unsaved.size === 0;
    }

    /** What is not saved and why, for the operator; empty when all is well. */
    get problem() {
        if (this.#failure === '') return '';
        const rows = [...this.#unsaved.keys()].sort((one, other) => one - other);
        const named = rows.slice(0, 10).join(', ') + (rows.length > 10 ? ', …' : '');
        return `Not saved: row ${named} (${this.#failure}).`;
    }

    get articles() {
        return [...this.#articles.values()];
    }

    /**
     * The answer to articleWanted, at once or after the operator has gone on.
     * @param {string} code
     */
    articleFound(code) {
        this.grid.focus();
        for (let row = 1; row < this.grid.rows; ++row) {
            if (this.grid.cellTag(row, Column.Code) !== wanted) continue;
            this.grid.setCellTag(row, Column.Code, '');
            this.grid.setLookupResult(row, Column.Code, code);
            return;
        }
    }

    // ---- what the page does on events -----------------------------------------------------------

    /**
     * The control has one list of choices, which is filled for the column.
     * @param {TablioEvents['editPreValidation']['detail']} detail
     */
    #editBegins({ row, col }) {
        this.#typed = this.cells.text(row, col);
        if (col !== Column.Unit) return;
        this.grid.comboClear();
        for (const unit of unitChoices) this.grid.comboAddItem(unit);
    }

    /**
     * The cell already holds what was entered.
     * @param {TablioEvents['editPostValidation']} event
     */
    #cellEdited(event) {
        const { row, col, valid, oldData, newData, lastKey } = event.detail;
        this.#typing = false;
        const reason = newData === oldData ? '' : this.#objection(row, col, newData);
        if (reason !== '') {
            // What the control calls valid it puts back itself when the page does not.
            event.preventDefault();
            if (!valid) this.grid.setTextMatrix(row, col, oldData);
            const duplicate = col === Column.Code ? this.#duplicateOf(row) : -1;
            if (duplicate > 0) {
                this.grid.cellFocus(duplicate, Column.Code);
                this.#refusedAt = performance.now();
            }
            this.#tell('refused', reason);
            return;
        }
        if (col === Column.Code) this.#fillFromArticle(row, oldData);
        const total = this.cells.total(row);
        if (total === null) {
            event.preventDefault();
            this.#tell('refused', `The total of row ${row} would be too large.`);
            return;
        }
        const isLine = this.cells.line(row) !== null;
        if (isLine || total !== 0n) this.cells.setMoney(row, Column.Total, total);
        this.#noteRow(row);
        this.#write();

        if (col === Column.Code && row === this.grid.rows - 1 && isLine)
            this.#setRowCount(this.grid.rows + spareRows);
        // The control moves on to the next cell by itself unless the page has moved the cursor.
        if (lastKey === enter && (col === Column.Price || col === Column.Delivery))
            this.#goDown(row, col === Column.Price ? Column.Code : Column.Delivery);
    }

    /**
     * Why a new text cannot be taken; empty if it can.
     * @param {number} row @param {number} col @param {string} text
     */
    #objection(row, col, text) {
        const other = col === Column.Code ? this.#duplicateOf(row) : -1;
        if (other > 0) return `${text.trim()} is in row ${other} already.`;
        if (col === Column.Unit && text !== '' && !unitChoices.includes(text))
            return `There is no unit “${text}”.`;
        // The control takes a February 29 every fourth year.
        if (col === Column.Delivery && isNoDate(text)) return `${text} is no date.`;
        return '';
    }

    /** @param {number} row */
    #duplicateOf(row) {
        return this.cells.text(row, Column.Code) === ''
            ? -1
            : this.grid.findDuplicatePrimaryColumn(row);
    }

    /**
     * The answer may come at any time, so the cell is marked and not its row remembered.
     * @param {number} row
     */
    #lookUp(row) {
        for (let each = 1; each < this.grid.rows; ++each) {
            if (this.grid.cellTag(each, Column.Code) === wanted)
                this.grid.setCellTag(each, Column.Code, '');
        }
        this.grid.setCellTag(row, Column.Code, wanted);
        this.#tell('articleWanted', { row, text: this.#typed });
    }

    /**
     * Enter on a price that is there already ends the line like one that is typed. Dates and ticks
     * are entered one below the other, so Enter goes down there.
     * @param {TablioEvents['tableKeyDown']} event
     */
    #keyDown(event) {
        const { keyCode, shift, row, col } = event.detail;
        if (performance.now() - this.#refusedAt < pauseOfTyping) {
            // Typed ahead for the refused line, this key must not reach the one found instead.
            this.#refusedAt = performance.now();
            event.preventDefault();
            return;
        }
        if (keyCode !== enter || shift !== 0) return;
        const endsLine =
            col === Column.Total || (col === Column.Price && this.cells.price(row) !== 0n);
        if (endsLine || col === Column.Delivery || col === Column.Delivered) {
            event.preventDefault();
            this.#goDown(row, endsLine ? Column.Code : col);
        }
    }

    /**
     * To that cell of the next line; below the last line the next article is entered.
     * @param {number} row @param {number} col
     */
    #goDown(row, col) {
        if (row + 1 < this.grid.rows)
            this.grid.cellFocus(row + 1, this.lines.has(row + 1) ? col : Column.Code);
    }

    /**
     * Something has changed, but not what. What is typed has been reported by editOnChange just
     * before; otherwise rows have come, gone or moved.
     */
    #tableChanged() {
        if (this.#typing) {
            this.#typing = false;
            return;
        }
        const last = Math.max(this.grid.rows - 1, ...this.lines.keys());
        for (let row = 1; row <= last; ++row) this.#noteRow(row);
        this.#write();
    }

    // ---- rows -----------------------------------------------------------------------------------

    /**
     * Unlike the control's addRow this leaves the cursor where it is.
     * @param {number} rows
     */
    #setRowCount(rows) {
        this.grid.rows = Math.min(rows, mostRows);
        // Giving a column this style numbers its rows.
        this.grid.setColStyle(Column.Number, TColumnStyle.ColumnFixedWithAutoNumber);
    }

    /** The cursor goes to the first article afterwards: ticks have led it about. */
    #showLines() {
        this.#showing = true;
        this.grid.setStatusCell = false;
        try {
            for (const [row, line] of this.lines) this.cells.show(row, line);
        } finally {
            this.grid.setStatusCell = true;
            this.#showing = false;
        }
        this.grid.cellFocus(1, Column.Code);
    }

    /**
     * What is blank, or still the old article's, becomes what the book knows of the new one.
     * @param {number} row @param {string} oldCode
     */
    #fillFromArticle(row, oldCode) {
        const article = this.#articles.get(this.cells.text(row, Column.Code));
        if (!article) return;
        const old = this.#articles.get(oldCode.trim());
        for (const [col, text, before] of /** @type {[number, string, string?][]} */ ([
            [Column.Description, article.description, old?.description],
            [Column.Unit, article.unit, old?.unit],
        ])) {
            if (['', before].includes(this.cells.text(row, col)))
                this.grid.setTextMatrix(row, col, text);
        }
        if ([0n, old?.price].includes(this.cells.price(row)))
            this.cells.setMoney(row, Column.Price, article.price);
    }

    /**
     * Takes over what the grid shows in a row; whether that has to be saved.
     * @param {number} row
     */
    #noteRow(row) {
        const line = row < this.grid.rows ? this.cells.line(row) : null;
        if (sameLine(line, this.lines.get(row))) return false;
        if (line) this.lines.set(row, line);
        else this.lines.delete(row);
        this.#unsaved.set(row, line);
        return true;
    }

    /**
     * Takes over a row in which nothing but the tick is another. Where more is, rows are moving and
     * tableChange follows.
     * @param {number} row
     */
    #noteTick(row) {
        const known = this.lines.get(row);
        if (this.#showing || !known || row >= this.grid.rows) return false;
        const line = this.cells.line(row);
        return (
            line !== null &&
            sameLine({ ...line, delivered: known.delivered }, known) &&
            this.#noteRow(row)
        );
    }

    #takeTicks() {
        let isOther = false;
        for (const row of this.lines.keys()) isOther = this.#noteTick(row) || isOther;
        if (isOther) this.#write();
    }

    /** Writes what is not saved; what is entered meanwhile is written after it. */
    #write() {
        if (!this.#isWriting) this.#writing = this.#writeAll();
        this.#tell('changed');
    }

    async #writeAll() {
        this.#isWriting = true;
        this.#failure = '';
        while (this.#unsaved.size > 0 && this.#failure === '') {
            const rows = new Map(this.#unsaved);
            try {
                await this.book.save(rows);
                for (const [row, line] of rows) {
                    if (this.#unsaved.get(row) === line) this.#unsaved.delete(row);
                }
            } catch (error) {
                this.#failure = error instanceof Error ? error.message : String(error);
            }
        }
        this.#isWriting = false;
        this.#showUnsaved();
        this.#tell('changed');
    }

    /** The numbers of rows that could not be saved are red. */
    #showUnsaved() {
        const paint = (/** @type {number} */ row, /** @type {number} */ colour) => {
            if (row < this.grid.rows) this.grid.setCellForeColor(row, Column.Number, colour);
        };
        for (const row of this.#redRows) paint(row, this.grid.foreColorFixed);
        this.#redRows = new Set(this.#failure === '' ? [] : this.#unsaved.keys());
        for (const row of this.#redRows) paint(row, red);
    }

    /** @param {string} type @param {unknown} [detail] */
    #tell(type, detail) {
        this.dispatchEvent(new CustomEvent(type, { detail }));
    }
}
