/** A pane above everything else, at a place of its grid: in the top layer where there is one. */

import type { Place } from '../element/state.js';

export class Pane {
    readonly element = document.createElement('div');

    constructor(
        private readonly anchor: HTMLElement,
        name: string,
        role: string,
    ) {
        this.element.className = `pane ${name}`;
        this.element.role = role;
        this.element.id = name;
        if ('popover' in this.element) this.element.popover = 'manual';
    }

    get isOpen(): boolean {
        return this.element.classList.contains('open');
    }

    /** Below the place, or above it where there is more room. */
    open(place: Place): void {
        const { element } = this;
        if (!this.isOpen) {
            element.classList.add('open');
            if (element.isConnected) element.showPopover?.();
        }
        const grid = this.anchor.getBoundingClientRect();
        const top = grid.top + place.top;
        const below = innerHeight - top - place.height;
        const { style } = element;
        style.minWidth = `${place.width}px`;
        style.maxHeight = `${Math.max(below, place.height === 0 ? 0 : top, 60) - 8}px`;
        const { offsetWidth: width, offsetHeight: height } = element;
        const isAbove = height > below && place.height > 0 && top > below;
        style.left = `${Math.max(0, Math.min(grid.left + place.left, innerWidth - width - 4))}px`;
        style.top = `${isAbove ? top - height : Math.max(0, Math.min(top + place.height, innerHeight - height))}px`;
    }

    close(): void {
        if (!this.isOpen) return;
        this.element.classList.remove('open');
        if (this.element.isConnected) this.element.hidePopover?.();
    }
}
