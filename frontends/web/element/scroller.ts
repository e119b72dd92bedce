/**
 * The canvas of the cells in a box that the browser scrolls: its bars, its wheel, its touch with the
 * fling behind it. The canvas itself stays where it is and shows what the box has come to. The mouse
 * goes in here, too.
 */

import { make, setStyle } from './make.js';
import { Tell } from './native.js';
import { twips, type Range, type State } from './state.js';

/** What the box tells the grid that it is part of. */
export interface Told {
    state: State;
    tell(what: Tell, a?: number, b?: number, c?: number): number;
    /** Comes before the press: what is being composed ends, and the keyboard comes here. */
    pressed(): void;
    offersMenu(): boolean;
}

const button = [1, 4, 2];
const longPress = 600;

export class Scroller {
    readonly canvas = make('canvas');
    readonly element = make('div', { className: 'scroller', tabIndex: -1 });
    private readonly range = make('div', { className: 'range' }, this.canvas);
    private isPressed = false;
    private timer: number | undefined;

    constructor(private readonly told: Told) {
        const { canvas, element } = this;
        element.append(this.range);
        const place = (event: MouseEvent) => [twips(event.offsetX), twips(event.offsetY)] as const;
        canvas.onpointerdown = (event) => {
            if (event.pointerType === 'touch') this.touched(...place(event));
            // A border or a selection is dragged out of the canvas, too.
            else if (event.isTrusted) canvas.setPointerCapture(event.pointerId);
        };
        // The browser takes a finger that scrolls away from here.
        canvas.onpointerup = canvas.onpointercancel = () => clearTimeout(this.timer);
        canvas.onmousedown = (event) => {
            told.pressed();
            this.isPressed = true;
            if (event.detail === 2 && event.button === 0) told.tell(Tell.doubleClick, ...place(event));
            else if (event.button < 3) told.tell(Tell.mouseDown, button[event.button], ...place(event));
        };
        canvas.onmousemove = (event) => {
            if (this.isPressed) told.tell(Tell.mouseMove, ...place(event));
            else canvas.classList.toggle('edge', told.tell(Tell.isColumnEdge, ...place(event)) !== 0);
        };
        canvas.onmouseup = (event) => {
            this.isPressed = false;
            if (event.button < 3) told.tell(Tell.mouseUp, button[event.button], ...place(event));
        };
        canvas.oncontextmenu = (event) => {
            if (told.offersMenu()) event.preventDefault();
        };
        element.onscroll = () => {
            const { rowRange, colRange } = told.state;
            const [row, col] = [positionOf(rowRange, element.scrollTop), positionOf(colRange, element.scrollLeft)];
            if (row !== rowRange.position || col !== colRange.position) told.tell(Tell.scrollTo, row, col);
        };
    }

    /** How thick bars are here, in pixels; 0 where they lie over the cells. */
    barWidth(): number {
        const { element } = this;
        element.style.overflow = 'scroll';
        return element.offsetWidth - element.clientWidth;
    }

    /** Shows canvas and bars in their sizes; true when the canvas has other pixels. */
    mirror(state: State, scale: number): boolean {
        const { canvas, element } = this;
        const { width, height, rowRange, colRange } = state;
        setStyle(element, {
            'overflow-x': state.hasColBar ? 'scroll' : 'hidden',
            'overflow-y': state.hasRowBar ? 'scroll' : 'hidden',
        });
        setStyle(this.range, {
            width: `${width + lengthOf(colRange, colRange.last)}px`,
            height: `${height + lengthOf(rowRange, rowRange.last)}px`,
        });
        // One that is being scrolled stays between two rows.
        if (positionOf(rowRange, element.scrollTop) !== rowRange.position)
            element.scrollTop = lengthOf(rowRange, rowRange.position);
        if (positionOf(colRange, element.scrollLeft) !== colRange.position)
            element.scrollLeft = lengthOf(colRange, colRange.position);
        const [across, down] = [Math.round(width * scale), Math.round(height * scale)];
        if (canvas.width === across && canvas.height === down) return false;
        Object.assign(canvas, { width: across, height: down });
        setStyle(canvas, { width: `${across / scale}px`, height: `${down / scale}px` });
        return true;
    }

    /** A finger that stays where it is is a right button; not all browsers tell. */
    private touched(x: number, y: number): void {
        clearTimeout(this.timer);
        this.timer = setTimeout(() => {
            this.told.pressed();
            this.told.tell(Tell.mouseDown, button[2], x, y);
            this.told.tell(Tell.mouseUp, button[2], x, y);
        }, longPress) as unknown as number;
    }
}

function lengthOf(range: Range, position: number): number {
    return (position - range.first) * range.step;
}

function positionOf(range: Range, length: number): number {
    return Math.min(range.last, range.first + Math.round(length / range.step));
}
