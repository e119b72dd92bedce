/**
 * Makes the control's members on the element's prototype and its events, from the member table.
 * Names and numbers stand nowhere else.
 */

import { How, type Value } from '../element/native.js';
import { eventRows, memberRows } from './member_table.js';

/** How a member reaches the core. A value that is left out arrives as undefined. */
export interface MemberLink {
    access(member: number, how: How, values: readonly Value[]): Value;
}

/** Throws nothing itself; what the link throws comes out of the member. */
export function defineMembers<Element extends object>(
    prototype: Element,
    linkOf: (element: Element) => MemberLink,
): void {
    for (const [name, number, access, indexes] of memberRows) {
        const use = (how: How) =>
            function (this: Element, ...values: Value[]) {
                // What is written stands behind the indexes, also when they are left out.
                while (how === How.Write && values.length <= indexes) values.push(undefined);
                return linkOf(this).access(number, how, values);
            };
        const define = (own: string, value: PropertyDescriptor) =>
            Object.defineProperty(prototype, own, { configurable: true, ...value });
        const isPlain = access !== 'c' && indexes === 0;
        const [get, set] = [use(How.Read), use(How.Write)];
        if (isPlain) define(name, { get, ...(access.includes('w') ? { set } : {}), enumerable: true });
        else if (access === 'c') define(name, { value: use(How.Call), writable: true });
        else if (access.includes('r')) define(name, { value: get, writable: true });
        if (!isPlain && access.includes('w'))
            define('set' + name[0].toUpperCase() + name.slice(1), { value: set, writable: true });
    }
}

/** The events that are being heard, the innermost last: what is thrown now is its handler's. */
const heard: { thrown?: { error: unknown } }[] = [];
globalThis.addEventListener?.('error', ({ error }) => {
    const event = heard.at(-1);
    if (event !== undefined) event.thrown ??= { error };
}, true);

/**
 * Tells the page of an event by its number and writes into the arguments what comes back. What a
 * handler throws, the browser reports; it is answered, too.
 */
export function raiseEvent(target: EventTarget, number: number, values: unknown[]): { error: unknown } | undefined {
    const [name, names, vetoed, veto] = eventRows[number - 1];
    const detail = Object.fromEntries(names.map((each, place) => [each, values[place]]));
    const event = new CustomEvent(name, { detail, cancelable: vetoed !== undefined });
    const entry: (typeof heard)[number] = {};
    heard.push(entry);
    target.dispatchEvent(event);
    heard.pop();
    if (vetoed !== undefined) values[vetoed] = event.defaultPrevented ? veto : detail[names[vetoed]];
    return entry.thrown;
}
