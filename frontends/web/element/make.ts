/** Small hands for elements and styles. */

import type { Place } from './state.js';

export function make<Tag extends keyof HTMLElementTagNameMap>(
    tag: Tag, properties: Partial<HTMLElementTagNameMap[Tag]> = {}, ...children: (Node | string)[]
): HTMLElementTagNameMap[Tag] {
    const element = Object.assign(document.createElement(tag), properties);
    element.append(...children);
    return element;
}

/** A button that leaves the keyboard where it is. */
export function makeButton(text: string, label: string, onclick: () => void): HTMLButtonElement {
    return make('button', { textContent: text, ariaLabel: label, tabIndex: -1, onclick });
}

/** Sets what is another one: a style that is only written costs a layout. */
export function setStyle(element: HTMLElement, wanted: Record<string, string>): void {
    for (const [name, value] of Object.entries(wanted))
        if (element.style.getPropertyValue(name) !== value) element.style.setProperty(name, value);
}

export function put(element: HTMLElement, { left, top, width, height }: Place): void {
    setStyle(element, { left: `${left}px`, top: `${top}px`, width: `${width}px`, height: `${height}px` });
}

/** 0xBBGGRR as CSS has it. */
export function cssColour(colour: number): string {
    return `rgb(${colour & 255},${(colour >> 8) & 255},${(colour >> 16) & 255})`;
}
