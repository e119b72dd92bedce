/**
 * What the grid's columns mean, and a row of cells as an order line. It reads and writes cells and
 * decides nothing; what happens on events is `OrderSheet`'s.
 */

import { TColumnAlignment } from '/tablio/tablio-grid.js';

import { checked, moneyOf, moneyText } from './money.js';

/** @typedef {import('/tablio/tablio-grid.js').TablioGrid} TablioGrid */
/** @typedef {import('./order_book.js').OrderLine} OrderLine */

/**
 * The columns as order_columns.js sets them up. An operator goes from the article to the price and
 * on to the next line. What stands behind the total has a default or becomes known later. A tick
 * column is always the last one.
 */
export const Column = {
    Number: 0,
    Code: 1,
    Description: 2,
    Quantity: 3,
    Price: 4,
    Total: 5,
    Unit: 6,
    Delivery: 7,
    Delivered: 8,
};

/** The control takes the same. */
export const language = document.documentElement.lang || navigator.language;

/** What can be chosen in the unit column. */
export const unitChoices = ['piece', 'pack', 'box', 'set', 'kilogram', 'litre', 'metre'];

/**
 * A date cell's own form, dd/mm/yyyy, as 2026-11-30; "" where it holds no day of the calendar.
 * @param {string} text
 */
function isoDate(text) {
    const [, day, month, year] = text.match(/^(\d\d)\/(\d\d)\/(\d{4})$/) ?? [];
    const iso = `${year}-${month}-${day}`;
    const date = new Date(iso + 'T00:00:00Z');
    return !Number.isNaN(date.getTime()) && date.toISOString().startsWith(iso) ? iso : '';
}

/**
 * Whether a text of the delivery column names a day that the calendar does not have.
 * @param {string} text
 */
export function isNoDate(text) {
    // A date that was taken out leaves its slashes.
    return /\d/.test(text) && isoDate(text) === '';
}

export class OrderCells {
    /** @param {TablioGrid} grid */
    constructor(grid) {
        this.grid = grid;
        /** Numbers go into and come out of the control as the page's language writes them. */
        this.decimalSign = (0.5).toLocaleString(language).replace(/\d/g, '') || '.';
    }

    /** The settings have set up all columns but this one, which the grid adds for the ticks. */
    setUpTickColumn() {
        this.grid.setColTextHeader(Column.Delivered, 'Delivered');
        this.grid.setColWidth(Column.Delivered, 1200);
        this.grid.setColDataAlignment(Column.Delivered, TColumnAlignment.ColumnCentre);
        this.grid.setColHeaderAlignment(Column.Delivered, TColumnAlignment.ColumnCentre);
    }

    /**
     * Null for a row without an article.
     * @param {number} row @returns {OrderLine | null}
     */
    line(row) {
        const article = this.text(row, Column.Code);
        if (article === '') return null;
        return {
            article,
            description: this.text(row, Column.Description),
            quantity: this.quantity(row),
            price: this.price(row),
            unit: this.text(row, Column.Unit),
            delivery: isoDate(this.text(row, Column.Delivery)),
            delivered: this.grid.checked(row),
        };
    }

    /**
     * Writes into a blank row; a quantity or a price that is 0 is left blank. A tick moves the
     * cursor there, and the host hears of it.
     * @param {number} row @param {OrderLine} line
     */
    show(row, line) {
        this.grid.setTextMatrix(row, Column.Code, line.article);
        this.grid.setTextMatrix(row, Column.Description, line.description);
        if (line.quantity !== 0) this.grid.setTextMatrix(row, Column.Quantity, line.quantity);
        if (line.price !== 0n) this.setMoney(row, Column.Price, line.price);
        this.setMoney(row, Column.Total, line.price * BigInt(line.quantity));
        this.grid.setTextMatrix(row, Column.Unit, line.unit);
        if (line.delivery !== '')
            this.grid.setTextMatrix(row, Column.Delivery, line.delivery.split('-').reverse().join('/'));
        if (line.delivered) this.grid.check(row, true);
    }

    /** @param {number} row @param {number} col */
    text(row, col) {
        return this.grid.textMatrix(row, col).trim();
    }

    /** @param {number} row */
    quantity(row) {
        return Number(this.text(row, Column.Quantity));
    }

    /** @param {number} row */
    price(row) {
        return moneyOf(this.text(row, Column.Price), this.decimalSign) ?? 0n;
    }

    /**
     * Null when it is too large to be counted.
     * @param {number} row
     */
    total(row) {
        return checked(this.price(row) * BigInt(this.quantity(row)));
    }

    /** @param {number} row @param {number} col @param {bigint} amount */
    setMoney(row, col, amount) {
        this.grid.setTextMatrix(row, col, moneyText(amount, this.decimalSign));
    }
}
