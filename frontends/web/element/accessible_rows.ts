/**
 * What screen readers see: a grid of the rows in sight, filled from the core's facts about cells.
 * The keyboard stays in the box; while no edit is open, the box points at the current cell.
 */

import { make } from './make.js';
import type { NativeGrid } from './native.js';
import { stateOf, type State } from './state.js';

const enum Fact { Fixed = 1, ReadOnly = 2, CheckBox = 4, Ticked = 8, Marked = 16, Refused = 32 }
/** By the type of a column: a keyboard on the screen. */
const inputModes = [undefined, 'decimal', 'numeric'];
/** Milliseconds without a new picture before it is told: scrolling does not wait. */
const quiet = 120;

export class AccessibleRows {
    readonly element = make('div', { className: 'unseen', role: 'grid', id: 'grid' });
    private timer = 0;

    constructor(
        private readonly grid: NativeGrid,
        private readonly box: HTMLInputElement,
        private readonly said: (english: string) => string,
    ) {}

    /** Shows the rows of this picture when it has stayed for a while. */
    show(): void {
        clearTimeout(this.timer);
        this.timer = setTimeout(() => this.fill(), quiet) as unknown as number;
    }

    /** The cell, the editor or the choice that the keyboard is at. */
    setActive(state: State, menuEntry?: string): void {
        const { editor, row, col, isCombo } = state;
        const isList = isCombo && state.isDropped;
        if (editor === undefined && row >= 0) this.fillRow(row, state);
        const choice = isList && state.chosen >= 0 ? `option-${state.chosen}`
            : state.calendar.isVisible ? 'chosen-day' : undefined;
        this.set('aria-activedescendant', menuEntry ?? (editor ? choice : row >= 0 ? idOf(row, col) : undefined));
        this.set('role', isCombo ? 'combobox' : undefined);
        this.set('aria-expanded', isCombo ? String(isList) : undefined);
        this.set('aria-controls', isCombo ? 'list' : 'grid');
        if (row < 0) return;
        const { number, text } = this.grid.ask('facts', editor?.row ?? row, editor?.col ?? col, 1);
        const [type, flags] = [number(), number()];
        this.set('aria-label', text() || this.label);
        this.set('inputmode', inputModes[type]);
        this.set('aria-invalid', flags & Fact.Refused ? 'true' : undefined);
        this.set('aria-readonly', !editor && flags & Fact.ReadOnly ? 'true' : undefined);
    }

    private set(name: string, value: string | undefined): void {
        if (value === undefined) this.box.removeAttribute(name);
        else if (this.box.getAttribute(name) !== value) this.box.setAttribute(name, value);
    }

    /** What the page calls its grid. */
    private get label(): string {
        const { host } = this.element.getRootNode() as ShadowRoot;
        return host.getAttribute('aria-label') ?? this.said('Data entry grid');
    }

    private fill(): void {
        if (!this.grid.alive) return;
        const state = stateOf(this.grid);
        const { first, position, page } = state.rowRange;
        Object.assign(this.element, {
            ariaLabel: this.label, ariaRowCount: String(state.rows), ariaColCount: String(state.cols),
            ariaDisabled: state.isEnabled ? null : 'true', ariaMultiSelectable: 'false',
        });
        const isShown = (row: number) =>
            row < first || row === state.row || (row >= position && row <= position + page);
        for (const row of [...this.element.children])
            if (!isShown(rowOf(row)) || rowOf(row) >= state.rows) row.remove();
        for (let row = 0; row < first; row++) this.fillRow(row, state);
        for (let row = position; row <= Math.min(position + page, state.rows - 1); row++) this.fillRow(row, state);
        if (state.row >= 0) this.fillRow(state.row, state);
    }

    private fillRow(row: number, { cols, rowRange }: State): void {
        const next = [...this.element.children].find((other) => rowOf(other) >= row);
        let element = next as HTMLElement | undefined;
        if (element === undefined || rowOf(element) !== row) {
            element = make('div', { role: 'row', ariaRowIndex: String(row + 1) });
            this.element.insertBefore(element, next ?? null);
        }
        while (element.childElementCount > cols) element.lastElementChild!.remove();
        const { number, text } = this.grid.ask('facts', row, 0, cols);
        for (let col = 0; col < cols; col++) {
            number();
            const flags = number();
            text();
            const words = text();
            const cell = (element.children[col] ?? element.appendChild(
                make('div', { id: idOf(row, col), ariaColIndex: String(col + 1) }),
            )) as HTMLElement;
            if (cell.textContent !== words) cell.textContent = words;
            if (cell.dataset.flags === String(flags)) continue;
            cell.dataset.flags = String(flags);
            const isFixed = (flags & Fact.Fixed) !== 0;
            const header = row < rowRange.first ? 'columnheader' : 'rowheader';
            cell.setAttribute('aria-invalid', String((flags & Fact.Refused) !== 0));
            Object.assign(cell, {
                role: isFixed ? header : 'gridcell',
                ariaReadOnly: isFixed ? null : String((flags & Fact.ReadOnly) !== 0),
                // Cells that nobody can select would be read out as "not selected" one by one.
                ariaSelected: !isFixed && flags & Fact.Marked ? 'true' : null,
                ariaLabel: !(flags & Fact.CheckBox) ? null
                    : this.said(flags & Fact.Ticked ? 'checked' : 'not checked'),
            });
        }
    }
}

function rowOf(element: Element): number {
    return Number(element.ariaRowIndex) - 1;
}

function idOf(row: number, col: number): string {
    return `cell-${row}-${col}`;
}
