/** The list of the open combo. The control drops it, moves in it and closes it. */

import { make } from '../element/make.js';
import { Tell, type NativeGrid } from '../element/native.js';
import type { State } from '../element/state.js';
import { Pane } from './pane.js';

export class ComboList {
    readonly pane: Pane;
    private texts = '';

    constructor(anchor: HTMLElement, private readonly tell: (what: Tell, a: number, b: number) => void) {
        this.pane = new Pane(anchor, 'list', 'listbox');
    }

    mirror(grid: NativeGrid, { editor, isCombo, isDropped, chosen, comboFrame }: State): void {
        const { pane } = this;
        if (editor === undefined || !isCombo || !isDropped) return pane.close();
        const list = grid.ask('list');
        const items = list.all(list.text);
        const texts = items.join('\0');
        // The items may be others while the list is down.
        if (this.texts !== texts) {
            this.texts = texts;
            pane.element.replaceChildren(...items.map((textContent, at) =>
                make('div', { className: 'option', role: 'option', id: `option-${at}`, textContent })));
        }
        pane.options.forEach((option, at) => {
            option.ariaSelected = String(at === chosen);
            option.onclick = () => this.tell(Tell.comboItemChosen, editor.edit, at);
        });
        pane.open(comboFrame);
        pane.mark(chosen);
    }
}
