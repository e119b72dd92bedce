/**
 * The order as it is kept: articles and order lines in IndexedDB. It knows nothing of the grid; the
 * form asks it for everything at the start and hands it the rows that changed.
 */

import { sampleLines, shopArticles } from './order_samples.js';

/** @typedef {{ code: string, description: string, unit: string, price: bigint }} Article */
/**
 * The delivery is a date such as 2026-11-30, "" while nobody knows it.
 * @typedef {{ article: string, description: string, quantity: number, price: bigint, unit: string,
 *     delivery: string, delivered: boolean }} OrderLine
 */
/**
 * By its row in the form, from 1. A row without an article has no line.
 * @typedef {Map<number, OrderLine>} OrderLines
 */

/** @param {OrderLine | null | undefined} one @param {OrderLine | null | undefined} other */
export function sameLine(one, other) {
    if (!one || !other) return !one === !other;
    return /** @type {(keyof OrderLine)[]} */ (Object.keys(one)).every((key) => one[key] === other[key]);
}

/**
 * @template Result
 * @param {IDBRequest<Result>} request
 * @returns {Promise<Result>}
 */
function answer(request) {
    return new Promise((resolve, reject) => {
        request.onsuccess = () => resolve(request.result);
        request.onerror = () => reject(request.error);
    });
}

/** Every function rejects when the database refuses; nothing has changed then. */
export class OrderBook {
    /** @param {IDBDatabase} database */
    constructor(database) {
        this.database = database;
        // Another tab has a later form of the program: it must not wait for this one.
        database.onversionchange = () => database.close();
    }

    /** Opens the order, or creates it with the articles that the shop sells. */
    static async open(name = 'order') {
        const request = indexedDB.open(name, 1);
        request.onupgradeneeded = () => {
            const articles = request.result.createObjectStore('articles', { keyPath: 'code' });
            for (const article of shopArticles) articles.add(article);
            request.result.createObjectStore('lines', { keyPath: 'row' });
        };
        return new OrderBook(await answer(request));
    }

    async lines() {
        const stored = await answer(this.database.transaction('lines').objectStore('lines').getAll());
        /** @type {OrderLines} */
        const lines = new Map();
        for (const { row, ...line } of stored) lines.set(row, line);
        return lines;
    }

    /**
     * All of them, by their codes.
     * @returns {Promise<Article[]>}
     */
    articles() {
        return answer(this.database.transaction('articles').objectStore('articles').getAll());
    }

    /**
     * Writes all of them or, on a failure, none. A row without a line loses the one that it had.
     * @param {ReadonlyMap<number, OrderLine | null>} rows
     * @returns {Promise<void>} as soon as they are on the disk
     */
    save(rows) {
        return new Promise((resolve, reject) => {
            const transaction = this.database.transaction('lines', 'readwrite', {
                durability: 'strict',
            });
            transaction.oncomplete = () => resolve();
            transaction.onabort = () => reject(transaction.error);
            const lines = transaction.objectStore('lines');
            for (const [row, line] of rows) {
                if (line) lines.put({ row, ...line });
                else lines.delete(row);
            }
            // A page that is closed now does not wait for the requests' answers.
            transaction.commit();
        });
    }

    /** A few lines to look at; an order that has lines already is left alone. */
    async addSample() {
        if ((await this.lines()).size === 0) await this.save(sampleLines());
    }
}
