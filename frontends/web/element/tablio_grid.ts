/**
 * `<tablio-grid>`: a control on a page. It brings the parts together: the canvas, the one box, the
 * choices, what screen readers see, and the members and events, which are made from the table.
 */

import { Calendar } from '../choices/calendar.js';
import { ComboList } from '../choices/combo_list.js';
import { Menu } from '../choices/menu.js';
import { Message } from '../choices/message.js';
import { defineMembers, raiseEvent } from '../members/define_members.js';
import { AccessibleRows } from './accessible_rows.js';
import { Canvas } from './canvas.js';
import { cssFont, paletteOf, tellLocale, tellLook } from './look.js';
import { Tell, type GridPage, type NativeGrid, type TablioModule, type Value } from './native.js';
import { Painter } from './painter.js';
import { put, stateOf, twips, type Place, type State, type Widget } from './state.js';
import { styles } from './style.js';
import { TextBox } from './text_box.js';

const enum Button { Lookup = 6, Calendar = 7 }

const sheet = new CSSStyleSheet();
sheet.replaceSync(styles);

/** What is still alive in the module when an element is not. */
const collected = new FinalizationRegistry<NativeGrid>((grid) => grid.destroy());

interface Heard {
    hasFailed: boolean;
    error: unknown;
}
/** The events that are being heard, the innermost last: what is thrown now is its handler's. */
const heard: Heard[] = [];
addEventListener('error', ({ error }) => {
    const event = heard.at(-1);
    if (event?.hasFailed === false) Object.assign(event, { hasFailed: true, error });
}, true);

export class TablioGrid extends HTMLElement implements GridPage {
    static readonly observedAttributes = ['lang', 'style', 'class', 'dir'];
    /** Set before the first grid is made. */
    static module: TablioModule;

    readonly #grid: NativeGrid;
    readonly #root = this.attachShadow({ mode: 'open' });
    readonly #probe = document.createElement('span');
    readonly #canvas: Canvas;
    readonly #painter: Painter;
    readonly #box: TextBox;
    readonly #rows: AccessibleRows;
    readonly #list: ComboList;
    readonly #calendar: Calendar;
    readonly #menu: Menu;
    readonly #message = new Message();
    readonly #buttons: Record<'lookup' | 'calendarButton' | 'arrow', HTMLElement>;
    readonly #resizes = new ResizeObserver(() => this.#layOut());
    #stopWatching?: () => void;
    #frame = 0;
    #look = '';
    #scale = 0;
    readonly #cssFonts = new Map<number, string>();
    #hadKeyboard = false;
    /** What a handler has thrown last. */
    #reported: unknown;
    state: State;

    constructor() {
        super();
        this.#grid = TablioGrid.module.create(this);
        collected.register(this, this.#grid);
        this.state = stateOf(this.#grid);
        this.#canvas = new Canvas(this);
        this.#painter = new Painter(this.#canvas.element);
        this.#box = new TextBox(this);
        const tell = (what: Tell, a: number, b: number) => void this.tell(what, a, b);
        this.#list = new ComboList(this, tell);
        this.#calendar = new Calendar(tell);
        this.#menu = new Menu(this, (entry) => this.tell(Tell.menuChosen, entry));
        this.#rows = new AccessibleRows(this.#grid, this.#box.input);
        this.#buttons = {
            lookup: cellButton('…', 'Look up', () => this.tell(Tell.buttonPressed, Button.Lookup)),
            calendarButton: cellButton('▾', 'Calendar', () =>
                this.tell(Tell.buttonPressed, Button.Calendar)),
            arrow: cellButton('▾', 'List', () => {
                const { editor, isDropped } = this.state;
                if (editor) this.tell(Tell.comboDropped, editor.edit, isDropped ? 0 : 1);
            }),
        };
        this.#probe.className = 'probe';
        this.#root.adoptedStyleSheets = [sheet];
        const { row, col } = this.#canvas.bars;
        this.#root.append(
            this.#probe, this.#canvas.element, this.#rows.element, row, col, this.#box.frame,
            ...Object.values(this.#buttons), this.#calendar.element, this.#list.pane.element,
            this.#menu.pane.element, this.#message.element,
        );
        // The keyboard stays with the box, whatever is pressed.
        this.#root.addEventListener('mousedown', (event) => {
            if (event.target !== this.#box.input) event.preventDefault();
        });
    }

    connectedCallback(): void {
        this.#resizes.observe(this);
        this.#watch();
        this.#lookAgain();
        this.#layOut();
        if (this.#hadKeyboard) this.focus({ preventScroll: true });
    }

    /** An element that only changes its place in the document goes on as it was. */
    disconnectedCallback(): void {
        this.#resizes.disconnect();
        this.#stopWatching?.();
        this.#hadKeyboard = this.tell(Tell.hasKeyboard) !== 0;
        queueMicrotask(() => {
            if (this.isConnected) return;
            this.#hadKeyboard = false;
            // Who takes a form away looks at what was entered next.
            this.tell(this.tell(Tell.hasKeyboard) !== 0 ? Tell.focusLeft : Tell.endEdit);
        });
    }

    connectedMoveCallback(): void {
        this.#layOut();
    }

    attributeChangedCallback(): void {
        if (this.isConnected) this.#lookAgain();
    }

    override focus(options?: FocusOptions): void {
        this.#box.focus(options);
    }

    override blur(): void {
        this.#box.input.blur();
        this.#box.leave();
    }

    get settings(): string {
        return this.#grid.settings;
    }
    set settings(text: string) {
        this.#grid.settings = text;
    }

    /** Writes texts into a block of cells, so many a row; rows that are missing are appended. */
    setTexts(row: number, col: number, cols: number, texts: readonly string[]): void {
        this.#grid.setTexts(row, col, cols, texts);
    }

    /** What a block of cells reads, row by row. */
    texts(row: number, col: number, rows: number, cols: number): string[] {
        return this.#grid.texts(row, col, rows, cols);
    }

    get native(): NativeGrid {
        return this.#grid;
    }

    // What the control asks of its page.

    event(number: number, values: Value[]): void {
        const event: Heard = { hasFailed: false, error: undefined };
        heard.push(event);
        try {
            raiseEvent(this, number, values);
        } finally {
            heard.pop();
        }
        if (!event.hasFailed) return;
        this.#reported = event.error;
        throw event.error;
    }

    shown(): void {
        this.#guarded(() => this.#mirror());
    }

    changed(): void {
        if (this.#frame === 0 && this.isConnected)
            this.#frame = requestAnimationFrame(() => this.paintNow());
    }

    canTakeFocus(): boolean {
        // What has the focus is seen; asking how it is laid out takes time.
        return this.#box.hasFocus || (this.isConnected && this.getClientRects().length > 0);
    }

    takeFocus(): void {
        if (!this.#box.hasFocus) this.#box.focus();
    }

    popUpMenu(x: number, y: number): void {
        this.#menu.open(this.#grid, x / 15, y / 15);
    }

    showMessage(title: string, text: string, isQuestion: boolean): void {
        const answered = (yes: boolean) => void this.tell(Tell.questionAnswered, Number(yes));
        this.#message.show(title, text, isQuestion ? answered : undefined);
    }

    propertyChanged(): void {}

    keyPreview(): void {}

    // What the parts ask of the grid.

    tell(what: Tell, a = 0, b = 0, c = 0, text = ''): number {
        return this.#guarded(() => this.#grid.tell(what, a, b, c, text)) ?? 0;
    }

    copied(what: Tell.copy | Tell.cut): string | undefined {
        return this.#guarded(() => this.#grid.clipped(what));
    }

    takesKey(event: KeyboardEvent): boolean {
        const isTaken = this.#message.takesKey(event) || this.#menu.takesKey(event);
        if (isTaken) this.#rows.setActive(stateOf(this.#grid), this.#menu.active);
        return isTaken;
    }

    isAlive(): boolean {
        return this.#grid.alive;
    }

    cssFont(index: number): string {
        let css = this.#cssFonts.get(index);
        if (css === undefined) {
            css = cssFont(this.#grid.font(index), getComputedStyle(this), 1);
            this.#cssFonts.set(index, css);
        }
        return css;
    }

    cellPlace(): Place | undefined {
        const { row, col } = this.state;
        if (row < 0) return undefined;
        const rect = this.#grid.ask('cellRect', row, col).number;
        return { left: rect(), top: rect(), width: rect(), height: rect() };
    }

    pressed(): void {
        this.#menu.pane.close();
        this.#box.endComposition();
        if (!this.#box.hasFocus) this.#box.focus();
        this.#box.enter();
    }

    offersMenu(): boolean {
        return (this as unknown as { gridPopUpMenu: boolean }).gridPopUpMenu;
    }

    keyboardMoved(): void {
        this.#lookAgain();
    }

    /** What the next frame would paint. */
    paintNow(): void {
        cancelAnimationFrame(this.#frame);
        this.#frame = 0;
        if (!this.isConnected || !this.#grid.alive) return;
        this.state = stateOf(this.#grid);
        const scale = devicePixelRatio;
        if (scale !== this.#scale) this.#lookAgain();
        if (this.#canvas.mirror(this.state, scale)) this.#tellLook(scale);
        this.#painter.paint(this.#grid, getComputedStyle(this), scale);
        this.#rows.show();
        this.#rows.setActive(this.state, this.#menu.active);
        this.#box.followCaret();
    }

    #mirror(): void {
        const state = (this.state = stateOf(this.#grid));
        const { editor, comboFrame } = state;
        showButton(this.#buttons.lookup, state.lookup);
        showButton(this.#buttons.calendarButton, state.calendarButton);
        const left = editor ? editor.frame.left + editor.width : 0;
        const width = comboFrame.left + comboFrame.width - left;
        showButton(this.#buttons.arrow, {
            ...comboFrame, left, width, isVisible: state.combo.isVisible && editor !== undefined,
        });
        this.#box.mirror();
        this.#list.mirror(this.#grid, state);
        this.#calendar.mirror(this.#grid, state, this.#language);
        this.changed();
    }

    /** The element has another size, or has come into sight. */
    #layOut(): void {
        const { clientWidth, clientHeight } = this;
        if (!this.isConnected || clientWidth === 0 || !this.#grid.alive) return;
        this.#guarded(() => {
            const bar = twips(this.#canvas.barWidth());
            this.#grid.run('setRoom', twips(clientWidth), twips(clientHeight), bar);
            this.#grid.tell(Tell.appeared);
        });
        this.#mirror();
        this.changed();
    }

    get #language(): string {
        return this.closest<HTMLElement>('[lang]')?.lang || navigator.language;
    }

    /** Colours, font, locale or scale may be others. */
    #lookAgain(): void {
        if (!this.isConnected || !this.#grid.alive) return;
        const own = getComputedStyle(this);
        const palette = paletteOf(this.#probe);
        const scale = devicePixelRatio;
        const look = [palette, scale, this.#box.hasFocus, own.font, this.#language].join();
        if (look === this.#look) return;
        this.#look = look;
        this.#scale = scale;
        this.#painter.forgetFonts();
        this.#cssFonts.clear();
        this.#guarded(() => tellLocale(this.#grid, this.#language, own, this.#painter.context));
        this.#tellLook(scale, palette);
        this.#mirror();
    }

    #tellLook(scale: number, palette = paletteOf(this.#probe)): void {
        this.#guarded(() =>
            tellLook(this.#grid, palette, scale, this.#box.hasFocus, this.#painter.context),
        );
    }

    /** What nothing in the element tells of: the page's scheme and classes, the screen, clicks. */
    #watch(): void {
        const stop = new AbortController();
        const { signal } = stop;
        const again = () => this.#lookAgain();
        for (const query of ['(prefers-color-scheme: dark)', '(forced-colors: active)'])
            matchMedia(query).addEventListener('change', again, { signal });
        addEventListener('resize', () => (again(), this.#layOut()), { signal });
        addEventListener('focus', again, { signal });
        const watchScale = () =>
            matchMedia(`(resolution: ${devicePixelRatio}dppx)`).addEventListener(
                'change', () => (again(), watchScale()), { signal, once: true },
            );
        watchScale();
        const classes = new MutationObserver(again);
        classes.observe(document.documentElement, { attributes: true });
        signal.addEventListener('abort', () => classes.disconnect());
        const isInside = (event: Event) => event.composedPath().includes(this);
        addEventListener('pointerdown', (event) => {
            const path = event.composedPath();
            if (!path.includes(this.#menu.pane.element)) this.#menu.pane.close();
            const { editor, isDropped } = this.state;
            const isKept = path.includes(this.#list.pane.element) || path.includes(this.#buttons.arrow);
            if (editor && isDropped && !isKept) this.tell(Tell.comboDropped, editor.edit, 0);
        }, { signal, capture: true });
        addEventListener('scroll', (event) => {
            if (!isInside(event) && this.state.isDropped) this.#list.mirror(this.#grid, this.state);
        }, { signal, capture: true });
        this.#stopWatching = () => stop.abort();
    }

    /** What a handler has thrown, the browser has reported already. */
    #guarded<Result>(action: () => Result): Result | undefined {
        if (!this.#grid.alive) return undefined;
        try {
            return action();
        } catch (error) {
            if (error !== this.#reported) reportError(error);
            return undefined;
        }
    }
}

defineMembers(TablioGrid.prototype, ({ native }) => ({
    get: (number, indexes) => native.get(number, indexes as Value[]),
    put: (number, value, indexes) => native.put(number, value as Value, indexes as Value[]),
    call: (number, values) => native.call(number, values as Value[]),
    tag: (row, col) => native.tag(row as number, col as number),
    setTag: (row, col, value) => native.setTag(row as number, col as number, value as Value),
}));

function cellButton(text: string, label: string, pressed: () => void): HTMLElement {
    const button = document.createElement('button');
    button.className = 'cell-button';
    button.tabIndex = -1;
    button.textContent = text;
    button.ariaLabel = label;
    button.hidden = true;
    button.addEventListener('click', pressed);
    return button;
}

function showButton(button: HTMLElement, place: Widget): void {
    button.hidden = !place.isVisible;
    if (place.isVisible) put(button, place);
}
