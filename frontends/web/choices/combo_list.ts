/** The list of the open combo. The control drops it, moves in it and closes it. */

import { Tell, type NativeGrid } from '../element/native.js';
import type { State } from '../element/state.js';
import { Pane } from './pane.js';

export class ComboList {
    readonly pane: Pane;
    private texts = '';

    constructor(
        anchor: HTMLElement,
        private readonly tell: (what: Tell, a: number, b: number) => void,
    ) {
        this.pane = new Pane(anchor, 'list', 'listbox');
    }

    mirror(grid: NativeGrid, state: State): void {
        const { element } = this.pane;
        const { editor, comboFrame } = state;
        if (editor === undefined || !state.combo.isVisible || !state.isDropped) {
            this.pane.close();
            return;
        }
        const list = grid.ask('list');
        const items: string[] = [];
        while (!list.atEnd) items.push(list.text());
        // The items may be others while the list is down.
        const texts = items.join('\0');
        if (this.texts !== texts || element.childElementCount !== items.length) {
            this.texts = texts;
            element.replaceChildren(...items.map((text, index) => this.option(text, index)));
        }
        this.pane.open(comboFrame);
        [...element.children].forEach((option, index) => {
            const isChosen = index === state.chosen;
            option.classList.toggle('chosen', isChosen);
            option.ariaSelected = String(isChosen);
            if (isChosen) option.scrollIntoView({ block: 'nearest' });
        });
        element.onclick = (event) => {
            const index = [...element.children].indexOf(event.target as Element);
            if (index >= 0) this.tell(Tell.comboItemChosen, editor.edit, index);
        };
    }

    private option(text: string, index: number): HTMLElement {
        const option = document.createElement('div');
        option.className = 'option';
        option.role = 'option';
        option.id = `option-${index}`;
        option.textContent = text;
        return option;
    }
}
