/** The pop-up menu. Its keys come from the grid's box, which keeps the keyboard. */

import { make } from '../element/make.js';
import type { NativeGrid } from '../element/native.js';
import { Pane } from './pane.js';

export class Menu {
    readonly pane: Pane;
    private at = -1;

    constructor(
        anchor: HTMLElement,
        private readonly said: (english: string) => string,
        private readonly chosen: (entry: number) => void,
    ) {
        this.pane = new Pane(anchor, 'menu', 'menu');
    }

    /** The entry that keys have come to, for screen readers. */
    get active(): string | undefined {
        return this.pane.isOpen ? this.pane.options[this.at]?.id : undefined;
    }

    open(grid: NativeGrid, left: number, top: number): void {
        const menu = grid.ask('menu');
        this.pane.element.replaceChildren(...menu.all(() => {
            const [entry, isEnabled, isChecked] = [menu.number(), menu.flag(), menu.flag()];
            const caption = this.said(menu.text());
            if (caption === '') return make('hr');
            const [before, behind = ''] = caption.split('&');
            return make('div', {
                className: 'option', id: `entry-${entry}`, textContent: before + behind,
                role: isChecked ? 'menuitemcheckbox' : 'menuitem',
                ariaChecked: isChecked ? 'true' : null, ariaDisabled: String(!isEnabled),
                ariaKeyShortcuts: behind.slice(0, 1).toUpperCase(),
                onclick: () => {
                    if (!isEnabled) return;
                    this.pane.close();
                    this.chosen(entry);
                },
            });
        }));
        this.moveTo(-1);
        this.pane.open({ left, top, width: 0, height: 0 });
    }

    /** Whether the menu takes the key; all of them, while it is open. */
    takesKey({ key }: KeyboardEvent): boolean {
        if (!this.pane.isOpen) return false;
        const { options } = this.pane;
        const last = options.length - 1;
        if (key === 'ArrowDown') this.moveTo(this.at < last ? this.at + 1 : 0);
        else if (key === 'ArrowUp') this.moveTo(this.at > 0 ? this.at - 1 : last);
        else if (key === 'Home') this.moveTo(0);
        else if (key === 'End') this.moveTo(last);
        else if (key === 'Enter' || key === ' ') options[this.at]?.click();
        else if (key === 'Escape' || key === 'Tab') this.pane.close();
        else options.find((option) => option.ariaKeyShortcuts === key.toUpperCase())?.click();
        return true;
    }

    private moveTo(at: number): void {
        this.at = at;
        this.pane.mark(at);
    }
}
