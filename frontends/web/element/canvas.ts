/** The canvas of the cells with its scroll bars: the mouse, the wheel and touch go in here. */

import { Tell } from './native.js';
import { twips, type Range, type State } from './state.js';

/** What the canvas tells the grid that it is part of. */
export interface Told {
    state: State;
    tell(what: Tell, a?: number, b?: number, c?: number): number;
    /** Comes before the press: what is being composed ends, and the keyboard comes here. */
    pressed(): void;
    offersMenu(): boolean;
}

const button = [1, 4, 2];
/** Of a row or a column on a scroll bar, in pixels. */
const unit = 20;
/** A finger that moves this far scrolls. */
const slop = 8;
const longPress = 600;

export class Canvas {
    readonly element = document.createElement('canvas');
    readonly bars = { row: bar('rows'), col: bar('cols') };
    private isPressed = false;
    private touch?: { id: number; x: number; y: number; isScroll: boolean; timer: number | undefined };

    constructor(private readonly told: Told) {
        const { element, bars } = this;
        const twipsOf = (event: MouseEvent) => [twips(event.offsetX), twips(event.offsetY)] as const;
        element.addEventListener('pointerdown', (event) => {
            if (event.pointerType === 'touch')
                this.touchBegan(event);
            // A border or a selection is dragged out of the canvas, too.
            else if (event.isTrusted) element.setPointerCapture(event.pointerId);
        });
        element.addEventListener('pointermove', (event) => this.touchMoved(event));
        for (const end of ['pointerup', 'pointercancel'])
            element.addEventListener(end, () => this.touchEnded());
        element.addEventListener('mousedown', (event) => {
            told.pressed();
            this.isPressed = true;
            const [x, y] = twipsOf(event);
            if (event.detail === 2 && event.button === 0) told.tell(Tell.doubleClick, x, y);
            else if (event.button < 3) told.tell(Tell.mouseDown, button[event.button], x, y);
        });
        element.addEventListener('mousemove', (event) => {
            const [x, y] = twipsOf(event);
            if (this.isPressed) told.tell(Tell.mouseMove, x, y);
            else element.classList.toggle('edge', told.tell(Tell.isColumnEdge, x, y) !== 0);
        });
        element.addEventListener('mouseup', (event) => {
            this.isPressed = false;
            if (event.button < 3) told.tell(Tell.mouseUp, button[event.button], ...twipsOf(event));
        });
        element.addEventListener('contextmenu', (event) => {
            if (told.offersMenu()) event.preventDefault();
        });
        element.addEventListener('wheel', (event) => this.wheelTurned(event), { passive: false });
        bars.row.addEventListener('scroll', () => {
            const { rowRange, colRange } = told.state;
            const row = rowRange.first + Math.round(bars.row.scrollTop / unit);
            if (row !== rowRange.position) told.tell(Tell.scrollTo, row, colRange.position);
        });
        bars.col.addEventListener('scroll', () => {
            const { rowRange, colRange } = told.state;
            const col = colRange.first + Math.round(bars.col.scrollLeft / unit);
            if (col !== colRange.position) told.tell(Tell.scrollTo, rowRange.position, col);
        });
    }

    /** How thick bars are here, in pixels; 0 where they lie over the cells. */
    barWidth(): number {
        const { row } = this.bars;
        const wasShown = row.style.display;
        row.style.display = 'block';
        const width = row.offsetWidth - row.clientWidth;
        row.style.display = wasShown;
        return width;
    }

    /** Shows the canvas and its bars in their sizes; true when its pixels are others. */
    mirror(state: State, scale: number): boolean {
        const { element, bars } = this;
        const { row, col } = bars;
        const show = (shown: HTMLElement, isShown: boolean, edge: 'height' | 'width') => {
            shown.style.display = isShown ? 'block' : 'none';
            shown.style[edge] = `${state[edge]}px`;
        };
        show(row, state.hasRowBar, 'height');
        show(col, state.hasColBar, 'width');
        setRange(row, 'height', 'scrollTop', state.rowRange, state.height);
        setRange(col, 'width', 'scrollLeft', state.colRange, state.width);
        const width = Math.round(state.width * scale);
        const height = Math.round(state.height * scale);
        if (element.width === width && element.height === height) return false;
        element.width = width;
        element.height = height;
        element.style.width = `${width / scale}px`;
        element.style.height = `${height / scale}px`;
        return true;
    }

    private wheelTurned(event: WheelEvent): void {
        if (event.ctrlKey) return;
        const isSideways = event.shiftKey && event.deltaX === 0;
        const [x, y] = isSideways ? [event.deltaY, 0] : [event.deltaX, event.deltaY];
        const part = event.deltaMode === WheelEvent.DOM_DELTA_PIXEL ? 0 : 1;
        const size = part === 0 ? 1 : 120;
        const dealt = this.told.tell(Tell.wheelTurned, part, -Math.round(x * size), -Math.round(y * size));
        // A grid that has nothing to scroll leaves the wheel to what it stands in.
        if (dealt !== 0) event.preventDefault();
    }

    /** A finger that stays where it is is a right button; not all browsers tell. */
    private touchBegan(event: PointerEvent): void {
        const [x, y] = [twips(event.offsetX), twips(event.offsetY)];
        const timer = setTimeout(() => {
            this.touch = undefined;
            this.told.pressed();
            this.told.tell(Tell.mouseDown, button[2], x, y);
            this.told.tell(Tell.mouseUp, button[2], x, y);
        }, longPress);
        this.touch = { id: event.pointerId, x: event.x, y: event.y, isScroll: false, timer };
    }

    private touchEnded(): void {
        clearTimeout(this.touch?.timer);
        this.touch = undefined;
    }

    private touchMoved(event: PointerEvent): void {
        const { touch } = this;
        if (touch?.id !== event.pointerId) return;
        const x = Math.round(event.x - touch.x);
        const y = Math.round(event.y - touch.y);
        touch.isScroll ||= Math.hypot(x, y) > slop;
        if (!touch.isScroll) return;
        clearTimeout(touch.timer);
        touch.x += x;
        touch.y += y;
        this.told.tell(Tell.wheelTurned, 0, x, y);
    }
}

/** A native scroll bar is that of a box with something larger in it. */
function bar(name: string): HTMLElement {
    const element = document.createElement('div');
    element.className = `bar ${name}`;
    element.tabIndex = -1;
    element.append(document.createElement('div'));
    return element;
}

function setRange(
    shown: HTMLElement, size: 'height' | 'width', side: 'scrollTop' | 'scrollLeft', range: Range,
    room: number,
): void {
    const inner = shown.firstElementChild as HTMLElement;
    const length = `${room + (range.last - range.first) * unit}px`;
    if (inner.style[size] !== length) inner.style[size] = length;
    const position = (range.position - range.first) * unit;
    if (Math.round(shown[side] / unit) !== position / unit) shown[side] = position;
}
