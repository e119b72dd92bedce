/** A pane of options above everything else, at a place of its grid: in the top layer where there is one. */

import { make, setStyle } from '../element/make.js';
import type { Place } from '../element/state.js';

export class Pane {
    readonly element: HTMLElement;

    constructor(private readonly anchor: HTMLElement, name: string, role: string) {
        this.element = make('div', { className: `pane ${name}`, role, id: name });
        if ('popover' in this.element) this.element.popover = 'manual';
    }

    get isOpen(): boolean {
        return this.element.classList.contains('open');
    }

    get options(): HTMLElement[] {
        return [...this.element.querySelectorAll<HTMLElement>('.option')];
    }

    /** Below the place, or above it where there is more room. */
    open(place: Place): void {
        const { element } = this;
        element.classList.add('open');
        if (element.isConnected) element.showPopover?.();
        const grid = this.anchor.getBoundingClientRect();
        const top = grid.top + place.top;
        const below = innerHeight - top - place.height;
        const isAtPoint = place.height === 0;
        const most = Math.max(below, isAtPoint ? 0 : top, 60) - 8;
        setStyle(element, { 'min-width': `${place.width}px`, 'max-height': `${most}px` });
        const { offsetWidth: width, offsetHeight: height } = element;
        const isAbove = height > below && !isAtPoint && top > below;
        const under = Math.max(0, Math.min(top + place.height, innerHeight - height));
        setStyle(element, {
            left: `${Math.max(0, Math.min(grid.left + place.left, innerWidth - width - 4))}px`,
            top: `${isAbove ? top - height : under}px`,
        });
    }

    close(): void {
        if (!this.isOpen) return;
        this.element.classList.remove('open');
        if (this.element.isConnected) this.element.hidePopover?.();
    }

    /** Marks the option that keys have come to. */
    mark(at: number): void {
        this.options.forEach((option, index) => option.classList.toggle('chosen', index === at));
        this.options[at]?.scrollIntoView({ block: 'nearest' });
    }
}
