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
export type State = ReturnType<typeof stateOf>;
export type Range = State['rowRange'];

/** In the order of native/state.cpp. */
export function stateOf(grid: NativeGrid) {
    const { number, flag, text } = grid.ask('state');
    const place = (): Place => ({ left: number(), top: number(), width: number(), height: number() });
    const widget = () => ({ isVisible: flag(), ...place() });
    /** A step is how far a page scrolls for a row or a column. */
    const range = () => ({
        first: number(), last: number(), page: number(), position: number(), step: number(),
    });
    return {
        hasKeyboard: flag(), row: number(), col: number(), cell: place(), rows: number(),
        cols: number(), isEnabled: flag(), width: number(), height: number(), hasRowBar: flag(),
        hasColBar: flag(), rowRange: range(), colRange: range(), lookup: widget(),
        calendarButton: widget(), comboFrame: widget(), calendar: widget(), day: number(),
        isCombo: flag(), isDropped: flag(), chosen: number(),
        editor: !flag() ? undefined : {
            /** Each report of it carries this number. */
            edit: number(), row: number(), col: number(), anchor: number(), caret: number(),
            alignsRight: flag(), backColor: number(), foreColor: number(), frame: place(),
            width: number(), covered: number(), font: text(), text: text(),
        },
    };
}

const twipsPerPixel = 15;
export const twips = (pixels: number) => Math.round(pixels * twipsPerPixel);
