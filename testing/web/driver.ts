/**
 * Plays scenarios through an element in this page: the part in the page. It does what a user does by
 * events that it makes itself; `run.mjs` may do it by the browser's own input instead, but for what
 * a handler does in the middle of another event.
 */

import { named } from '../../frontends/web/element/keys.js';
import { TablioModule, type Value } from '../../frontends/web/element/native.js';
import { stateOf } from '../../frontends/web/element/state.js';
import { TablioGrid } from '../../frontends/web/element/tablio_grid.js';
import { eventRows, memberRows } from '../../frontends/web/members/member_table.js';

/** In the order of web_driver.cpp. */
export const enum Act {
    Show, Resize, EnterFocus, LeaveFocus, Strike, Compose, EnterText, Settle, PressMouse, MoveMouse,
    ReleaseMouse, DoubleClick, ScrollTo, PushButton, ChooseMenuEntry, ChooseItem, PickDay, Locale,
    Clipboard, Host,
}
export interface Action {
    act: Act; a: number; b: number; c: number; text: string;
    /** For the browser's own input. */
    key?: NamedKey; at?: [number, number];
}

const twipsPerPixel = 15;
/** Those of them that the browser's own input can do. What is left is the container's or the host's,
 * or, as a box that is set as a whole, nothing that a user could do in one go. */
const inputs = [
    Act.EnterFocus, Act.LeaveFocus, Act.Strike, Act.Compose, Act.EnterText, Act.PressMouse, Act.MoveMouse,
    Act.ReleaseMouse, Act.DoubleClick, Act.ScrollTo, Act.PushButton, Act.ChooseMenuEntry, Act.ChooseItem,
];
const asides = [Act.Strike, Act.Compose, Act.EnterText, Act.PressMouse];
/** Dates with the day first, in each of them. */
const languages = ['en-GB', 'de', 'fr', 'cs', 'fi', 'sv', 'ar-EG', 'fa', 'ckb', 'ur', 'ar'];

let module: TablioModule;
let grid: TablioGrid | undefined;
let isOutside = false;
let pending: Action | undefined;
let failure = '';
let clipboard = '';
export const other = document.createElement('input');
const part = <Part extends HTMLElement>(selector: string) =>
    grid!.shadowRoot!.querySelector(selector) as Part;

addEventListener('error', ({ error, message }) => (failure ||= (error as Error)?.message ?? message));

function create(): number {
    grid = new TablioGrid();
    grid.hidden = true;
    // Without fractions of pixels, and alone.
    grid.style.cssText = 'position: absolute; left: 20px; top: 50px; min-width: 0; min-height: 0; font: 13px sans-serif';
    grid.lang = 'en-GB';
    document.body.append(grid);
    return grid.native.number;
}

function destroy(): void {
    grid?.native.destroy();
    grid?.remove();
    grid = undefined;
    clipboard = '';
}

/** Does it, or leaves it to the browser; what fails is told by its text. */
function act(action: Action): string {
    const inHandler = module.run('driverInHandler') !== 0;
    if (isOutside && !inHandler && inputs.includes(action.act)) {
        pending = action;
        return '';
    }
    failure = '';
    perform(action);
    if (failure === '' && !inHandler) failure = difference();
    return failure;
}

function perform({ act, a, b, c, text }: Action): void {
    const native = grid!.native;
    const box = part<HTMLInputElement>('input');
    if (asides.includes(act)) putAside();
    switch (act) {
    case Act.Show:
        grid!.hidden = false;
        grid!.connectedMoveCallback();
        if (!document.activeElement?.matches('input')) other.focus();
        module.run('driverShow', native.number);
        break;
    case Act.Resize:
        grid!.style.width = `${a / twipsPerPixel + 2}px`;
        grid!.style.height = `${b / twipsPerPixel + 2}px`;
        native.run('setRoom', a, b, 0);
        break;
    case Act.EnterFocus:
        grid!.focus();
        break;
    case Act.LeaveFocus:
        other.focus();
        break;
    case Act.Strike:
        strike(keyOf(a, b, c));
        break;
    case Act.Compose:
        box.dispatchEvent(new CompositionEvent('compositionstart', { bubbles: true }));
        box.setRangeText(text, box.selectionStart ?? 0, box.selectionEnd ?? 0, 'end');
        box.dispatchEvent(new CompositionEvent('compositionend', { bubbles: true, data: text }));
        break;
    case Act.EnterText:
        box.dispatchEvent(new InputEvent('beforeinput', {
            inputType: 'insertText', data: text, bubbles: true, cancelable: true,
        }));
        break;
    case Act.Settle:
        box.value = text;
        box.setSelectionRange(a, a);
        box.dispatchEvent(new InputEvent('input', { bubbles: true }));
        break;
    case Act.PressMouse: mouse('mousedown', a, b, c, 1); break;
    case Act.MoveMouse: mouse('mousemove', a, b, c); break;
    case Act.ReleaseMouse: mouse('mouseup', a, b, c); break;
    case Act.DoubleClick: mouse('mousedown', a, b, c, 2); break;
    case Act.ScrollTo:
        scrollBars(a, b);
        for (const bar of ['.rows', '.cols']) part(bar).dispatchEvent(new Event('scroll'));
        break;
    case Act.PushButton: case Act.ChooseMenuEntry: case Act.ChooseItem: case Act.PickDay:
        for (let target = next(act, a); target; target = next(act, a)) {
            target.click();
            if (isLast(target)) break;
        }
        break;
    case Act.Locale:
        grid!.lang = languages.find((language) => {
            const parts = new Intl.NumberFormat(language).formatToParts(12345.5);
            const sign = (type: string) => parts.find((part) => part.type === type)?.value;
            return `${sign('decimal')}\n${sign('group')}` === text;
        }) ?? fail(`no language has the signs ${text}`);
        break;
    case Act.Clipboard:
        clipboard = text;
        break;
    case Act.Host:
        for (const [index, [name, names]] of eventRows.entries())
            grid!.addEventListener(name as keyof HTMLElementEventMap, (event) => {
                const detail = (event as CustomEvent<Record<string, Value>>).detail;
                module.putValues(names.map((each) => detail[each]));
                module.run('driverEvent', native.number, index + 1, names.length);
                const values = module.takeValues(module.run('room', 0), names.length);
                names.forEach((each, place) => (detail[each] = values[place]));
            });
    }
}

export function scrollBars(topRow: number, leftCol: number): void {
    grid!.paintNow();
    const { rowRange, colRange } = grid!.state;
    part('.rows').scrollTop = (topRow - rowRange.first) * 20;
    part('.cols').scrollLeft = (leftCol - colRange.first) * 20;
}

/** What a user presses next on the way to a choice. */
function next(act: Act, a: number): HTMLElement | null {
    if (act === Act.PushButton) return part(`[aria-label="${a === 6 ? 'Look up' : 'Calendar'}"]`);
    if (act === Act.ChooseMenuEntry) {
        if (!part('.menu').classList.contains('open')) grid!.popUpMenu(0, 0);
        return part(`#entry-${a}`);
    }
    if (act === Act.ChooseItem)
        return part('.list').classList.contains('open') ? part(`#option-${a}`) : part('[aria-label=List]');
    const { year, month } = stateOf(grid!.native);
    const months = Math.floor(a / 10000) * 12 + (Math.floor(a / 100) % 100) - year * 12 - month;
    if (months === 0) return part(`[data-date="${a}"]`);
    return part(`[aria-label="${months < 0 ? 'Previous' : 'Next'} month"]`);
}

const isLast = (target: HTMLElement) => !/List|month/.test(target.ariaLabel ?? '');

function mouse(type: string, button: number, x: number, y: number, detail = 0): void {
    const corner = part('canvas').getBoundingClientRect();
    const clientX = corner.left + x / twipsPerPixel;
    const clientY = corner.top + y / twipsPerPixel;
    part('canvas').dispatchEvent(new MouseEvent(type, {
        clientX, clientY, button: [0, 0, 2, 0, 1][button], detail, bubbles: true, composed: true,
        cancelable: true,
    }));
}

export interface NamedKey { key: string; code: string; keyCode: number; ctrlKey: boolean; shiftKey: boolean; altKey: boolean }

/** A key as an American keyboard sends it. */
export function keyOf(keyCode: number, shift: number, character: number): NamedKey {
    const letter = String.fromCharCode(keyCode);
    const typed = character > 31 ? String.fromCodePoint(character) : undefined;
    const name = Object.keys(named).find((each) => named[each] === keyCode && each.length > 1);
    const isFunction = keyCode >= 112 && keyCode < 136;
    return {
        key: typed ?? name ?? (isFunction ? `F${keyCode - 111}` : letter.toLowerCase()), keyCode,
        code: keyCode === 110 ? 'NumpadDecimal' : /[A-Z]/.test(letter) && !isFunction ? `Key${letter}`
            : /\d/.test(letter) ? `Digit${letter}` : (name ?? ''),
        shiftKey: (shift & 1) !== 0, ctrlKey: (shift & 2) !== 0, altKey: (shift & 4) !== 0,
    };
}

/** What a user puts aside before going on with the grid: a message or the menu. */
function putAside(): void {
    part('dialog[open] button:last-child')?.click();
    if (part('.menu.open')) strike(keyOf(27, 0, 0));
}

function strike(key: NamedKey): void {
    const box = part('input');
    const target = (grid!.shadowRoot!.activeElement ?? document.activeElement ?? box) as HTMLElement;
    const init = { ...key, bubbles: true, composed: true, cancelable: true };
    if (target.dispatchEvent(new KeyboardEvent('keydown', init))) {
        const type = key.ctrlKey ? { c: 'copy', x: 'cut', v: 'paste' }[key.key] : undefined;
        if (type !== undefined) {
            const clipboardData = new DataTransfer();
            if (type === 'paste') clipboardData.setData('text/plain', clipboard);
            target.dispatchEvent(new ClipboardEvent(type, {
                clipboardData, bubbles: true, cancelable: true,
            }));
            if (type !== 'paste' && clipboardData.types.length > 0)
                keepClipboard(clipboardData.getData('text/plain'));
        } else if (key.key === 'Tab') other.focus();
    }
    target.dispatchEvent(new KeyboardEvent('keyup', init));
}

/** Also what the browser's own has come to hold. */
export function keepClipboard(text: string): void {
    clipboard = text;
    module.run('driverClipboard', module.putText(text));
}

/** What the element shows otherwise than the control holds it. */
function difference(): string {
    if (grid === undefined || grid.hidden || !grid.native.alive) return '';
    const state = stateOf(grid.native);
    const found: string[] = [];
    const compare = (what: string, control: unknown, shown: unknown) => {
        if (control !== shown) found.push(`${what}: the control has ${control}, the page ${shown}`);
    };
    const box = part<HTMLInputElement>('input');
    const { editor } = state;
    compare('an editor', editor !== undefined, !part('.frame').classList.contains('parked'));
    if (editor !== undefined) {
        compare('the text', editor.text, box.value);
        compare('the selection', [editor.anchor, editor.caret].sort((x, y) => x - y).join(),
            `${box.selectionStart},${box.selectionEnd}`);
    }
    compare('the list', editor !== undefined && state.isDropped, part('.list').classList.contains('open'));
    const item = part('.list.open .chosen');
    if (item !== null) compare('the item', `option-${state.chosen}`, item.id);
    compare('the calendar', state.calendar.isVisible, part('.calendar').classList.contains('open'));
    const day = part('.calendar.open .day.chosen');
    if (day !== null)
        compare('the day', String(state.year * 10000 + state.month * 100 + state.day), day.dataset.date);
    compare('a button', state.lookup.isVisible, !part('[aria-label="Look up"]').hidden);
    compare('a button', state.calendarButton.isVisible, !part('[aria-label=Calendar]').hidden);
    compare('the keyboard', state.focusOwner >= 0, document.activeElement === grid);
    return found.join('; ');
}

/** Members by the element's own properties and methods. */
function member(how: number, name: string, values: Value[]): Value {
    const own = name[0].toLowerCase() + name.slice(1);
    const [, , access, indexes] = memberRows.find(([each]) => each === own)!;
    const element = grid as unknown as Record<string, Value> & Record<string, (...all: Value[]) => Value>;
    if (access === 'c') return element[own](...values);
    if (indexes > 0) return element[how === 2 ? `set${name}` : own](...values);
    return how === 2 ? (element[own] = values[0] as never) : element[own];
}

const failing = (action: () => string): number => {
    let text: string;
    try {
        text = action();
    } catch (error) {
        text = (error as Error).message;
    }
    return text === '' ? 0 : module.putText(text);
};

function fail(text: string): never {
    throw new Error(text);
}

export async function load(source: string): Promise<void> {
    document.body.append(other);
    const text = (at: number, length: number) => module.textAt(at, length);
    module = TablioGrid.module = await TablioModule.load(fetch(source), {
        driver_create: create,
        driver_destroy: destroy,
        driver_act: (act: Act, a: number, b: number, c: number, at: number, length: number) => {
            const words = text(at, length);
            return failing(() => Act.Show <= act ? actOf({ act, a, b, c, text: words }) : '');
        },
        driver_member: (how: number, at: number, length: number, count: number) => {
            const name = text(at, length);
            const values = module.takeValues(module.run('room', 0), count);
            return failing(() => {
                module.putValues([member(how, name, values)]);
                return '';
            });
        },
    });
    customElements.define('tablio-grid', TablioGrid);
}

const actOf = act;

/** The names of the scenarios in a file's text. */
export function open(text: string, outside: boolean): string[] {
    isOutside = outside;
    const reply = module.reply(module.run('driverLoad', module.putText(text), Number(outside)));
    const names: string[] = [];
    while (!reply.atEnd) names.push(reply.text());
    return names;
}

export const play = (scenario: number) => module.reply(module.run('driverPlay', scenario)).text();
export const begin = (scenario: number) => void module.run('driverBegin', scenario);
export const finish = () => module.reply(module.run('driverFinish')).text();

/** Goes on to the next thing that the browser is to do; undefined at the end. */
export function advance(): Action | undefined {
    let told = failure || difference();
    pending = undefined;
    while (module.run('driverAdvance', told === '' ? 0 : module.putText(told)) !== 0) {
        failure = told = '';
        const action = pending as Action | undefined;
        if (action === undefined) continue;
        if (asides.includes(action.act)) putAside();
        const { a, b, c } = action;
        return { ...action, key: keyOf(a, b, c), at: pointOf(null, b, c) };
    }
    failure = '';
    return undefined;
}

export const clipboardText = () => clipboard;
export const isComposing = () => grid !== undefined && stateOf(grid.native).editor !== undefined;
/** After a frame: scroll events and what has been put off come before it. */
export const settled = () => new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve)));

export function nextPoint(act: Act, a: number): { at: [number, number]; isLast: boolean } | null {
    const target = grid && next(act, a);
    return target ? { at: pointOf(target), isLast: isLast(target) } : null;
}

/** Where an element or a place of the canvas is in the page. */
export function pointOf(target: HTMLElement | null, x = 0, y = 0): [number, number] {
    const place = (target ?? part('canvas')).getBoundingClientRect();
    return target === null ? [place.left + x / twipsPerPixel, place.top + y / twipsPerPixel]
        : [place.left + place.width / 2, place.top + place.height / 2];
}
