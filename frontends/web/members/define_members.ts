/**
 * Makes the control's members on the element's prototype and its events, from the member table.
 * The element says how a member is reached; names and numbers stand nowhere else.
 */

import { eventRows, memberRows } from './member_table.js';

/** How the element reaches the core. A value that is left out arrives as undefined. */
export interface MemberLink {
    get(number: number, indexes: readonly unknown[]): unknown;
    put(number: number, value: unknown, indexes: readonly unknown[]): void;
    call(number: number, values: readonly unknown[]): unknown;
    tag(row: unknown, col: unknown): unknown;
    setTag(row: unknown, col: unknown, value: unknown): void;
}

/** Throws nothing itself; what the link throws comes out of the member. */
export function defineMembers<Element extends object>(
    prototype: Element,
    linkOf: (element: Element) => MemberLink,
): void {
    const define = (name: string, value: (this: Element, ...values: unknown[]) => unknown) =>
        Object.defineProperty(prototype, name, { value, configurable: true, writable: true });
    for (const [name, number, access, indexes] of memberRows) {
        const setter = 'set' + name[0].toUpperCase() + name.slice(1);
        if (access === 'c') {
            define(name, function (...values) {
                return linkOf(this).call(number, values);
            });
        } else if (access === 't') {
            define(name, function (row, col) {
                return linkOf(this).tag(row, col);
            });
            define(setter, function (row, col, value) {
                linkOf(this).setTag(row, col, value);
            });
        } else if (indexes === 0) {
            const set = function (this: Element, value: unknown) {
                linkOf(this).put(number, value, []);
            };
            Object.defineProperty(prototype, name, {
                get(this: Element) {
                    return linkOf(this).get(number, []);
                },
                ...(access.includes('w') ? { set } : {}),
                configurable: true,
                enumerable: true,
            });
        } else {
            if (access.includes('r'))
                define(name, function (...values) {
                    return linkOf(this).get(number, values);
                });
            if (access.includes('w'))
                define(setter, function (...values) {
                    linkOf(this).put(number, values[indexes], values.slice(0, indexes));
                });
        }
    }
}

/**
 * Tells the page of an event by its number and writes into the arguments what comes back. What a
 * handler throws, the browser reports; nothing of it comes out here.
 */
export function raiseEvent(target: EventTarget, number: number, values: unknown[]): void {
    const [name, names, vetoed, veto] = eventRows[number - 1];
    const detail: Record<string, unknown> = {};
    names.forEach((each, place) => (detail[each] = values[place]));
    const event = new CustomEvent(name, { detail, cancelable: vetoed !== undefined });
    target.dispatchEvent(event);
    if (vetoed !== undefined) values[vetoed] = event.defaultPrevented ? veto : detail[names[vetoed]];
}
