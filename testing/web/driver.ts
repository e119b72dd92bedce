/**
 * Plays scenarios through an element in this page: the part in the page. It does what a user does by
 * events that it makes itself; `run.mjs` may do it by the browser's own input instead, but for what
 * a handler does in the middle of another event, what is the container's or the host's, and
 * `settle`, a box that is set as a whole, which no user does in one go.
 */

import { TablioModule, type Value } from '../../frontends/web/element/native.js';
import { stateOf } from '../../frontends/web/element/state.js';
import { TablioGrid } from '../../frontends/web/element/tablio_grid.js';
import { eventRows } from '../../frontends/web/members/member_table.js';

const twipsPerPixel = 15;
/** Dates with the day first, in each of them. */
const languages = ['en-GB', 'de', 'fr', 'cs', 'fi', 'sv', 'ar-EG', 'fa', 'ckb', 'ur', 'ar'];
const keyNames: Record<number, string> = {
    8: 'Backspace', 9: 'Tab', 13: 'Enter', 27: 'Escape', 33: 'PageUp', 34: 'PageDown', 35: 'End', 36: 'Home',
    37: 'ArrowLeft', 38: 'ArrowUp', 39: 'ArrowRight', 40: 'ArrowDown', 45: 'Insert', 46: 'Delete', 93: 'ContextMenu',
};

let module: TablioModule;
let grid: TablioGrid;
/** What the browser's own input does. */
let outside: readonly string[] = [];
let pending: { name: string; values: Value[] } | undefined;
let failure = '';
let clipboard = '';
export const other = document.createElement('input');
const part = <Part extends HTMLElement>(selector: string) => grid.shadowRoot!.querySelector(selector) as Part;
const box = () => part<HTMLInputElement>('input');
const bubbles = { bubbles: true, composed: true, cancelable: true };

addEventListener('error', ({ error, message }) => (failure ||= (error as Error)?.message ?? message));

/** By the names that web_driver.cpp has for them. */
const hands = {
    create() {
        grid = new TablioGrid();
        grid.hidden = true;
        // Without fractions of pixels, and alone.
        grid.style.cssText = 'position: absolute; left: 20px; top: 50px; min-width: 0; min-height: 0; font: 13px sans-serif';
        grid.lang = 'en-GB';
        document.body.append(grid);
        return grid.native.number;
    },
    destroy() {
        grid.native.destroy();
        grid.remove();
        clipboard = '';
    },
    show() {
        grid.hidden = false;
        grid.connectedMoveCallback();
        if (!document.activeElement?.matches('input')) other.focus();
    },
    resize(width: number, height: number) {
        grid.style.width = `${width / twipsPerPixel + 2}px`;
        grid.style.height = `${height / twipsPerPixel + 2}px`;
        grid.native.run('setRoom', width, height, 0);
    },
    enterFocus: () => grid.focus(),
    leaveFocus: () => other.focus(),
    listen() {
        for (const [index, [name, names]] of eventRows.entries())
            grid.addEventListener(name as keyof HTMLElementEventMap, (event) => {
                const { detail } = event as unknown as CustomEvent<Record<string, Value>>;
                module.giveValues(names.map((each) => detail[each]));
                const answer = grid.native.ask('driverEvent', index + 1, names.length);
                for (const each of names) detail[each] = answer.value();
            });
    },
    /** By the element's own property or method. */
    member(how: string, name: string, ...values: Value[]) {
        const element = grid as unknown as Record<string, unknown>;
        const own = name[0].toLowerCase() + name.slice(1);
        const used = how === 'write' && `set${name}` in grid ? element[`set${name}`] : element[own];
        if (typeof used === 'function') return used.apply(grid, values);
        return how === 'write' ? void (element[own] = values[0]) : used;
    },
    /** The language that writes numbers with these signs. */
    speak(decimal: string, group: string) {
        const lang = languages.find((language) => {
            const parts = new Intl.NumberFormat(language).formatToParts(12345.5);
            const sign = (type: string) => parts.find((part) => part.type === type)?.value;
            return sign('decimal') === decimal && sign('group') === group;
        });
        if (lang === undefined) throw new Error(`no language has the signs ${decimal} and ${group}`);
        grid.lang = lang;
    },
    setClipboard: (text: string) => void (clipboard = text),
    strike(code: number, shift: number, character: number) {
        putAside();
        const target = (grid.shadowRoot!.activeElement ?? document.activeElement ?? box()) as HTMLElement;
        const key = keyOf(code, shift, character);
        if (target.dispatchEvent(new KeyboardEvent('keydown', { ...key, ...bubbles }))) byDefault(key, target);
        target.dispatchEvent(new KeyboardEvent('keyup', { ...key, ...bubbles }));
    },
    compose(data: string) {
        putAside();
        const input = box();
        input.dispatchEvent(new CompositionEvent('compositionstart', bubbles));
        input.setRangeText(data, input.selectionStart ?? 0, input.selectionEnd ?? 0, 'end');
        input.dispatchEvent(new CompositionEvent('compositionend', { ...bubbles, data }));
    },
    enterText(data: string) {
        putAside();
        box().dispatchEvent(new InputEvent('beforeinput', { ...bubbles, inputType: 'insertText', data }));
    },
    settle(text: string, caret: number) {
        box().value = text;
        box().setSelectionRange(caret, caret);
        box().dispatchEvent(new InputEvent('input', bubbles));
    },
    mouse(type: string, button: number, x: number, y: number, detail: number) {
        if (type === 'mousedown' && detail === 1) putAside();
        const [clientX, clientY] = pointOf(null, x, y);
        const init = { ...bubbles, clientX, clientY, button: [0, 0, 2, 0, 1][button], detail };
        part('canvas').dispatchEvent(new MouseEvent(type, init));
    },
    scrollTo(topRow: number, leftCol: number) {
        scroll(topRow, leftCol);
        part('.scroller').dispatchEvent(new Event('scroll'));
    },
    press(...selectors: string[]) {
        for (const selector of selectors) part(selector)?.click();
    },
};

/** What the browser itself does with a key that nobody has taken. */
function byDefault({ key, ctrlKey }: ReturnType<typeof keyOf>, target: HTMLElement): void {
    if (key === 'Tab') other.focus();
    const type = ctrlKey ? { c: 'copy', x: 'cut', v: 'paste' }[key] : undefined;
    if (type === undefined) return;
    const clipboardData = new DataTransfer();
    if (type === 'paste') clipboardData.setData('text/plain', clipboard);
    target.dispatchEvent(new ClipboardEvent(type, { ...bubbles, clipboardData }));
    if (type !== 'paste' && clipboardData.types.length > 0) keepClipboard(clipboardData.getData('text/plain'));
}

/** A key as an American keyboard sends it. */
export function keyOf(keyCode: number, shift: number, character: number) {
    const isFunction = keyCode >= 112 && keyCode < 136;
    const name = keyNames[keyCode] ?? (isFunction ? `F${keyCode - 111}` : String.fromCharCode(keyCode).toLowerCase());
    return {
        key: character > 31 ? String.fromCodePoint(character) : name, keyCode,
        shiftKey: (shift & 1) !== 0, ctrlKey: (shift & 2) !== 0, altKey: (shift & 4) !== 0,
    };
}

/** What a user puts aside before going on with the grid: a message or the menu. */
export function putAside(): void {
    part('dialog[open] button:last-child')?.click();
    if (part('.menu.open')) box().dispatchEvent(new KeyboardEvent('keydown', { ...keyOf(27, 0, 0), ...bubbles }));
}

export function scroll(topRow: number, leftCol: number): void {
    grid.paintNow();
    const { rowRange, colRange } = grid.state;
    part('.scroller').scrollTop = (topRow - rowRange.first) * rowRange.step;
    part('.scroller').scrollLeft = (leftCol - colRange.first) * colRange.step;
}

/** Also what the browser's own has come to hold. */
export function keepClipboard(text: string): void {
    clipboard = text;
    module.give(text);
    module.run('driverClipboard');
}

/** What the element shows otherwise than the control holds it. */
function difference(): string {
    if (!grid || grid.hidden || !grid.isAlive) return '';
    const { editor, isDropped, chosen, calendar, day, lookup, calendarButton, hasKeyboard } = stateOf(grid.native);
    const isOpen = (selector: string) => part(selector).classList.contains('open');
    const [input, item, shownDay] = [box(), part('.list.open .chosen'), part('.calendar.open #chosen-day')];
    const ends = editor && [editor.anchor, editor.caret].sort((one, another) => one - another);
    const pairs: Record<string, [unknown, unknown]> = {
        'an editor': [editor !== undefined, !part('.frame').classList.contains('parked')],
        'the text': [editor?.text, editor && input.value],
        'the selection': [ends?.join(), editor && `${input.selectionStart},${input.selectionEnd}`],
        'the list': [editor !== undefined && isDropped, isOpen('.list')],
        'the item': [item && `option-${chosen}`, item && item.id],
        'the calendar': [calendar.isVisible, isOpen('.calendar')],
        'the day': [shownDay && String(day), shownDay && shownDay.dataset.date],
        'the look-up button': [lookup.isVisible, !part('[aria-label="Look up"]').hidden],
        'the calendar button': [calendarButton.isVisible, !part('[aria-label=Calendar]').hidden],
        'the keyboard': [hasKeyboard, document.activeElement === grid],
    };
    return Object.entries(pairs)
        .filter(([, [control, shown]]) => control !== shown)
        .map(([what, [control, shown]]) => `${what}: the control has ${control}, the page ${shown}`)
        .join('; ');
}

/** Does what the module asks for, or leaves it to the browser, and answers it. */
function perform(at: number): void {
    const message = module.message(at);
    const [name, ...values] = message.all(message.value) as [keyof typeof hands, ...Value[]];
    const isHost = name === 'member' || name === 'listen';
    try {
        const inHandler = module.run('driverInHandler') !== 0;
        if (!inHandler && outside.includes(name)) {
            pending = { name, values };
            return module.giveValues([true, 0]);
        }
        if (!isHost) failure = '';
        const answer = (hands[name] as (...all: Value[]) => Value)(...values);
        if (!isHost && !inHandler) failure ||= difference();
        if (!isHost && failure !== '') throw new Error(failure);
        module.giveValues([true, answer]);
    } catch (error) {
        module.giveValues([false, (error as Error).message]);
    }
}

export async function load(source: string): Promise<void> {
    document.body.append(other);
    module = TablioGrid.module = await TablioModule.load(fetch(source), { driver_perform: perform });
    customElements.define('tablio-grid', TablioGrid);
}

/** The names of the scenarios in a file's text; what is named here is done by the browser. */
export function open(text: string, byBrowser: readonly string[]): string[] {
    outside = byBrowser;
    module.give(text);
    const message = module.message(module.run('driverLoad', Number(byBrowser.length > 0)));
    return message.all(message.text);
}

/** Plays one that needs nothing of the browser, and answers what was not as expected. */
export function play(scenario: number): string {
    begin(scenario);
    while (advance() !== undefined);
    return finish();
}
export const begin = (scenario: number) => void module.run('driverBegin', scenario);
export const finish = () => module.message(module.run('driverFinish')).text();

/** Goes on to the next thing that the browser is to do; undefined at the end. */
export function advance() {
    let told = failure || difference();
    for (pending = undefined; pending === undefined; told = failure = '') {
        module.give(told);
        if (module.run('driverAdvance') === 0) return undefined;
    }
    failure = '';
    return pending;
}

export const clipboardText = () => clipboard;
export const isEditing = () => stateOf(grid.native).editor !== undefined;
/** After a frame: scroll events and what has been put off come before it. */
export const settled = () => new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve)));

/** Where a part of the element, or a place of the canvas, is in the page. */
export function pointOf(selector: string | null, x = 0, y = 0): [number, number] {
    const place = (part(selector ?? 'canvas') ?? other).getBoundingClientRect();
    return selector === null ? [place.left + x / twipsPerPixel, place.top + y / twipsPerPixel]
        : [place.left + place.width / 2, place.top + place.height / 2];
}
