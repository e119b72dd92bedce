/** The pop-up menu. Its keys come from the grid's box, which keeps the keyboard. */

import type { NativeGrid } from '../element/native.js';
import { Pane } from './pane.js';

export class Menu {
    readonly pane: Pane;
    private at = -1;

    constructor(
        anchor: HTMLElement,
        private readonly chosen: (entry: number) => void,
    ) {
        this.pane = new Pane(anchor, 'menu', 'menu');
    }

    /** The entry that keys have come to, for screen readers. */
    get active(): string | undefined {
        return this.pane.isOpen && this.at >= 0 ? this.options[this.at].id : undefined;
    }

    open(grid: NativeGrid, left: number, top: number): void {
        const menu = grid.ask('menu');
        const entries: HTMLElement[] = [];
        while (!menu.atEnd) {
            const [entry, isEnabled, isChecked] = [menu.number(), menu.flag(), menu.flag()];
            const caption = menu.text();
            const element = document.createElement(caption === '' ? 'hr' : 'div');
            entries.push(element);
            if (caption === '') continue;
            element.className = 'option';
            element.id = `entry-${entry}`;
            element.role = isChecked ? 'menuitemcheckbox' : 'menuitem';
            element.ariaChecked = isChecked ? 'true' : null;
            element.ariaDisabled = String(!isEnabled);
            element.ariaKeyShortcuts = caption[caption.indexOf('&') + 1];
            element.textContent = caption.replace('&', '');
            element.onclick = () => this.choose(element, entry);
        }
        this.pane.element.replaceChildren(...entries);
        this.at = -1;
        this.pane.open({ left, top, width: 0, height: 0 });
    }

    /** Whether the menu takes the key; all of them, while it is open. */
    takesKey({ key }: KeyboardEvent): boolean {
        const { options } = this;
        if (!this.pane.isOpen) return false;
        const step = key === 'ArrowDown' ? 1 : key === 'ArrowUp' ? -1 : 0;
        if (step !== 0) this.moveTo((this.at + step + options.length) % options.length);
        else if (key === 'Home') this.moveTo(0);
        else if (key === 'End') this.moveTo(options.length - 1);
        else if (key === 'Enter' || key === ' ') options[this.at]?.click();
        else if (key === 'Escape' || key === 'Tab') this.pane.close();
        else
            options
                .find((option) => option.ariaKeyShortcuts === key.toUpperCase())
                ?.click();
        return true;
    }

    private get options(): HTMLElement[] {
        return [...this.pane.element.querySelectorAll<HTMLElement>('.option')];
    }

    private moveTo(index: number): void {
        this.at = index;
        this.options.forEach((option, at) => option.classList.toggle('chosen', at === index));
    }

    private choose(element: HTMLElement, entry: number): void {
        if (element.ariaDisabled === 'true') return;
        this.pane.close();
        this.chosen(entry);
    }
}
