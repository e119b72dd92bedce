/**
 * A small list of the shop's articles, to pick one by a few letters of its code or description. It
 * blocks nothing: the operator may go on in the grid and come back to it.
 */

import { moneyText } from './money.js';

/** @typedef {import('./order_book.js').Article} Article */

/** Rows that Page Up and Page Down pass over. */
const page = 8;

/** Tells `picked` with the article's code, or `left`; it is closed before either. */
export class ArticleSearch extends EventTarget {
    #articles = /** @type {Article[]} */ ([]);
    #found = /** @type {Article[]} */ ([]);
    #current = 0;
    /** Whether the next key is waited for. */
    #isAwaited = false;

    /** @param {HTMLDialogElement} dialog with a heading, an input, a close button and a list */
    constructor(dialog) {
        super();
        this.dialog = dialog;
        const find = (/** @type {string} */ selector) =>
            /** @type {HTMLElement} */ (dialog.querySelector(selector));
        this.title = find('h2');
        this.filter = /** @type {HTMLInputElement} */ (find('input'));
        this.rows = find('[role=listbox]');
        this.filter.addEventListener('input', () => this.#fill());
        this.filter.addEventListener('keydown', (event) => this.#keyDown(event));
        find('button').addEventListener('click', () => this.#leave());
        this.rows.addEventListener('mousedown', (event) => event.preventDefault());
        this.rows.addEventListener('click', (event) => {
            const row = /** @type {HTMLElement} */ (event.target).closest('[role=option]');
            if (row) this.#pick([...this.rows.children].indexOf(row));
        });
        window.addEventListener('keydown', (event) => this.#keyBeforeFocus(event), true);
    }

    /**
     * Shows the articles at a place of the page. Keys go to the search from the next one on. The
     * text is what the cell holds: the code of an article, which is then selected, or what to look
     * for.
     * @param {string} title @param {Article[]} articles @param {string} text
     */
    open(title, articles, text) {
        this.#articles = articles;
        this.title.textContent = title;
        const known = articles.findIndex((each) => each.code === text);
        this.filter.value = known < 0 ? text : '';
        this.dialog.show();
        this.#fill();
        if (known >= 0) this.#select(known);
        // The grid takes the keyboard once more when it has asked, so the search takes it
        // afterwards: at once when all is told, or before the next key if that is there already.
        this.#isAwaited = true;
        setTimeout(() => this.#takeKeyboard());
    }

    #takeKeyboard() {
        if (!this.#isAwaited) return;
        this.#isAwaited = false;
        this.filter.focus();
        this.filter.select();
    }

    /** @param {KeyboardEvent} event */
    #keyBeforeFocus(event) {
        if (!this.#isAwaited) return;
        // The character itself goes to what has the focus when this returns.
        this.#takeKeyboard();
        event.stopImmediatePropagation();
        this.#keyDown(event);
    }

    /** Each word stands somewhere in the code or the description. */
    #fill() {
        const words = this.filter.value.toLowerCase().split(/\s+/);
        this.#found = this.#articles.filter(({ code, description }) =>
            words.every((word) => `${code}\n${description}`.toLowerCase().includes(word)),
        );
        this.rows.replaceChildren(
            ...this.#found.map(({ code, description, unit, price }, place) => {
                const row = document.createElement('div');
                row.id = `article-${place}`;
                row.setAttribute('role', 'option');
                for (const text of [code, description, unit, moneyText(price)])
                    row.appendChild(document.createElement('span')).textContent = text;
                return row;
            }),
        );
        const typed = this.filter.value.trim().toLowerCase();
        const best = this.#found.findIndex(({ code }) => code.toLowerCase().startsWith(typed));
        this.#select(Math.max(best, 0));
        this.dialog.classList.toggle('nothing', this.#found.length === 0);
    }

    /** @param {number} place */
    #select(place) {
        this.#current = Math.min(Math.max(place, 0), Math.max(this.#found.length - 1, 0));
        for (const [each, row] of [...this.rows.children].entries())
            row.setAttribute('aria-selected', String(each === this.#current));
        this.filter.setAttribute('aria-activedescendant', `article-${this.#current}`);
        this.rows.children[this.#current]?.scrollIntoView({ block: 'nearest' });
    }

    /** @param {KeyboardEvent} event */
    #keyDown(event) {
        const steps = { ArrowUp: -1, ArrowDown: 1, PageUp: -page, PageDown: page };
        if (event.key in steps)
            this.#select(this.#current + steps[/** @type {keyof steps} */ (event.key)]);
        else if (event.key === 'Enter') this.#pick(this.#current);
        else if (event.key === 'Escape') this.#leave();
        else return;
        event.preventDefault();
    }

    /** @param {number} place */
    #pick(place) {
        const article = this.#found[place];
        if (!article) return;
        this.#close();
        this.dispatchEvent(new CustomEvent('picked', { detail: article.code }));
    }

    #leave() {
        this.#close();
        this.dispatchEvent(new Event('left'));
    }

    #close() {
        this.#isAwaited = false;
        this.dialog.close();
    }
}
