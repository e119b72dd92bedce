/**
 * What there is to be shown besides the cells, read at once after each call into the control.
 * Places are logical pixels from the canvas' corner.
 */

import type { NativeGrid } from './native.js';

export interface Place {
    left: number;
    top: number;
    width: number;
    height: number;
}

export interface Widget extends Place {
    isVisible: boolean;
}

export interface Range {
    first: number;
    last: number;
    page: number;
    position: number;
}

export interface Editor {
    /** The number that each report of it carries. */
    edit: number;
    row: number;
    col: number;
    anchor: number;
    caret: number;
    maxLength: number;
    alignsRight: boolean;
    backColor: number;
    foreColor: number;
    font: number;
    frame: Place;
    width: number;
    covered: number;
    text: string;
}

export type State = ReturnType<typeof stateOf>;

/** In the order of native/screen.cpp. */
export function stateOf(grid: NativeGrid) {
    const { number, flag, text } = grid.ask('state');
    const place = (): Place => ({
        left: number(), top: number(), width: number(), height: number(),
    });
    const widget = (): Widget => ({ isVisible: flag(), ...place() });
    const range = (): Range => ({
        first: number(), last: number(), page: number(), position: number(),
    });
    const state = {
        focusOwner: number(), row: number(), col: number(), rows: number(), cols: number(),
        isEnabled: flag(), width: number(), height: number(), hasRowBar: flag(),
        hasColBar: flag(), rowRange: range(), colRange: range(), lookup: widget(),
        calendarButton: widget(), calendar: widget(), comboFrame: widget(),
        combo: widget(), dateFrame: widget(), year: number(), month: number(), day: number(), items: number(),
        chosen: number(), isDropped: flag(), editor: undefined as Editor | undefined,
    };
    if (flag())
        state.editor = {
            edit: number(), row: number(), col: number(), anchor: number(), caret: number(),
            maxLength: number(), alignsRight: flag(), backColor: number(), foreColor: number(),
            font: number(), frame: place(), width: number(), covered: number(), text: text(),
        };
    return state;
}

/** Moves an element to a place, and only then when it is not there. */
export function put(element: HTMLElement, place: Place): void {
    const { style } = element;
    for (const side of ['left', 'top', 'width', 'height'] as const) {
        const length = `${place[side]}px`;
        if (style[side] !== length) style[side] = length;
    }
}

/** 0xBBGGRR as CSS has it. */
export function cssColour(colour: number): string {
    return `rgb(${colour & 255},${(colour >> 8) & 255},${(colour >> 16) & 255})`;
}

const twipsPerPixel = 15;
export const twips = (pixels: number) => Math.round(pixels * twipsPerPixel);
