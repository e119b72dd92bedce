/**
 * What screen readers see: a grid of the rows in sight, filled from the core's facts about cells.
 * The keyboard stays in the box; while no edit is open, the box points at the current cell.
 */

import type { NativeGrid } from './native.js';
import { stateOf, type State } from './state.js';

const enum Fact { Fixed = 1, ReadOnly = 2, CheckBox = 4, Ticked = 8, Marked = 16, Edited = 32, Refused = 64 }
const enum Type { String, Decimal, Integer, Date, Combo }

/** Milliseconds without a new picture before it is told. */
const quiet = 120;

export class AccessibleRows {
    readonly element = document.createElement('div');
    private readonly rows = new Map<number, HTMLElement>();
    private timer = 0;
    private state?: State;

    constructor(
        private readonly grid: NativeGrid,
        private readonly box: HTMLInputElement,
    ) {
        this.element.className = 'unseen';
        this.element.role = 'grid';
        this.element.id = 'grid';
        box.setAttribute('aria-controls', 'grid');
    }

    /** Shows the rows of this picture when it has stayed for a while: scrolling does not wait. */
    show(): void {
        clearTimeout(this.timer);
        this.timer = setTimeout(() => this.fill(), quiet) as unknown as number;
    }

    /** The cell, the editor or the choice that the keyboard is at. */
    setActive(state: State, menuEntry?: string): void {
        const { editor, row, col } = state;
        const { box } = this;
        const set = (name: string, value: string | undefined) => {
            if (value === undefined) box.removeAttribute(name);
            else if (box.getAttribute(name) !== value) box.setAttribute(name, value);
        };
        const hasList = editor !== undefined && state.combo.isVisible;
        if (editor === undefined && row >= 0) this.fillRow(row, state.cols);
        const active = menuEntry ?? (editor === undefined
            ? row >= 0 ? idOf(row, col) : undefined
            : hasList && state.isDropped && state.chosen >= 0 ? `option-${state.chosen}`
            : state.calendar.isVisible ? 'chosen-day' : undefined);
        set('aria-activedescendant', active);
        set('role', hasList ? 'combobox' : undefined);
        set('aria-expanded', hasList ? String(state.isDropped) : undefined);
        set('aria-controls', hasList ? 'list' : 'grid');
        if (row < 0) return;
        const facts = this.grid.ask('facts', editor?.row ?? row, editor?.col ?? col, 1);
        const type: Type = facts.number();
        facts.number();
        const flags = facts.number();
        set('aria-label', facts.text() || this.label);
        set('inputmode', type === Type.Decimal ? 'decimal' : type === Type.Integer ? 'numeric' : undefined);
        set('aria-invalid', flags & Fact.Refused ? 'true' : undefined);
        set('aria-readonly', editor === undefined && flags & Fact.ReadOnly ? 'true' : undefined);
    }

    /** What the page calls its grid. */
    private get label(): string {
        const { host } = this.element.getRootNode() as ShadowRoot;
        return host.getAttribute('aria-label') ?? 'Data entry grid';
    }

    private fill(): void {
        if (!this.grid.alive) return;
        const state = (this.state = stateOf(this.grid));
        this.element.ariaLabel = this.label;
        this.element.ariaRowCount = String(state.rows);
        this.element.ariaColCount = String(state.cols);
        this.element.setAttribute('aria-multiselectable', 'false');
        const { first, position, page } = state.rowRange;
        const wanted = new Set<number>([state.row]);
        for (let row = 0; row < first; row++) wanted.add(row);
        for (let row = position; row <= Math.min(position + page, state.rows - 1); row++) wanted.add(row);
        for (const [row, element] of this.rows)
            if (!wanted.has(row)) {
                element.remove();
                this.rows.delete(row);
            }
        for (const row of wanted) if (row >= 0) this.fillRow(row, state.cols);
    }

    private fillRow(row: number, cols: number): void {
        let element = this.rows.get(row);
        if (element === undefined) {
            element = document.createElement('div');
            element.role = 'row';
            element.ariaRowIndex = String(row + 1);
            const next = [...this.rows.keys()].filter((other) => other > row);
            const before = next.length === 0 ? null : this.rows.get(Math.min(...next))!;
            this.element.insertBefore(element, before);
            this.rows.set(row, element);
        }
        while (element.childElementCount > cols) element.lastElementChild!.remove();
        const facts = this.grid.ask('facts', row, 0, cols);
        for (let col = 0; col < cols; col++) {
            facts.number();
            facts.number();
            const flags = facts.number();
            facts.text();
            const text = facts.text();
            const cell = (element.children[col] ?? element.appendChild(this.cell(row, col))) as HTMLElement;
            if (cell.textContent !== text) cell.textContent = text;
            if (cell.dataset.flags === String(flags)) continue;
            cell.dataset.flags = String(flags);
            const isFixed = (flags & Fact.Fixed) !== 0;
            const isHeader = row < (this.state?.rowRange.first ?? 1);
            cell.role = !isFixed ? 'gridcell' : isHeader ? 'columnheader' : 'rowheader';
            cell.ariaReadOnly = isFixed ? null : String((flags & Fact.ReadOnly) !== 0);
            // Cells that nobody can select would be read out as "not selected" one by one.
            cell.ariaSelected = !isFixed && flags & Fact.Marked ? 'true' : null;
            cell.setAttribute('aria-invalid', String((flags & Fact.Refused) !== 0));
            const isTick = (flags & Fact.CheckBox) !== 0;
            if (isTick) cell.ariaLabel = flags & Fact.Ticked ? 'checked' : 'not checked';
        }
    }

    private cell(row: number, col: number): HTMLElement {
        const cell = document.createElement('div');
        cell.id = idOf(row, col);
        cell.ariaColIndex = String(col + 1);
        return cell;
    }
}

function idOf(row: number, col: number): string {
    return `cell-${row}-${col}`;
}
