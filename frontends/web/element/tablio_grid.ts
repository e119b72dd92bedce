/**
 * `<tablio-grid>`: a control on a page. It brings the parts together: the canvas, the one box, the
 * choices, what screen readers see, and the members and events, which are made from the table.
 */

import { Calendar } from '../choices/calendar.js';
import { ComboList } from '../choices/combo_list.js';
import { Menu } from '../choices/menu.js';
import { MessageBox } from '../choices/message.js';
import { defineMembers, raiseEvent } from '../members/define_members.js';
import { AccessibleRows } from './accessible_rows.js';
import { paletteOf, tellLocale, tellLook } from './look.js';
import { make, makeButton, put } from './make.js';
import { Tell, type GridPage, type NativeGrid, type TablioModule, type Value } from './native.js';
import { Painter } from './painter.js';
import { Scroller } from './scroller.js';
import { stateOf, twips, type State } from './state.js';
import styles from './style.css';
import { TextBox } from './text_box.js';
import { watchPage } from './watch.js';

const enum Button { Lookup = 6, Calendar = 7 }

const sheet = new CSSStyleSheet();
sheet.replaceSync(styles);

/** What is still alive in the module when an element is not. */
const collected = new FinalizationRegistry<NativeGrid>((grid) => grid.destroy());

export class TablioGrid extends HTMLElement implements GridPage {
    static readonly observedAttributes = ['lang', 'style', 'class', 'dir'];
    /** Set before the first grid is made. */
    static module: TablioModule;

    readonly native = TablioGrid.module.create(this);
    state: State = stateOf(this.native);
    readonly #root = this.attachShadow({ mode: 'open' });
    readonly #probe = make('span', { className: 'probe' });
    readonly #scroller = new Scroller(this);
    readonly #painter = new Painter(this.#scroller.canvas);
    readonly #box = new TextBox(this);
    readonly #said = (english: string) => this.#captions[english] ?? english;
    readonly #tell = (what: Tell, a: number, b: number) => void this.tell(what, a, b);
    readonly #rows = new AccessibleRows(this.native, this.#box.input, this.#said);
    readonly #list = new ComboList(this, this.#tell);
    readonly #calendar = new Calendar(this.#said, this.#tell);
    readonly #menu = new Menu(this, this.#said, (entry) => this.tell(Tell.menuChosen, entry));
    readonly #message = new MessageBox(this.#said);
    readonly #buttons = {
        lookup: makeButton('…', 'Look up', () => this.tell(Tell.buttonPressed, Button.Lookup)),
        calendar: makeButton('▾', 'Calendar', () => this.tell(Tell.buttonPressed, Button.Calendar)),
        list: makeButton('▾', 'List', () => this.#dropList(!this.state.isDropped)),
    };
    readonly #resizes = new ResizeObserver(() => this.#layOut());
    #captions: Readonly<Record<string, string>> = {};
    #stopWatching?: () => void;
    #frame = 0;
    #look = '';
    #scale = 0;
    #hadKeyboard = false;
    /** What a handler has thrown last. */
    #reported: unknown;

    constructor() {
        super();
        collected.register(this, this.native);
        this.#root.adoptedStyleSheets = [sheet];
        this.#root.append(
            this.#probe, this.#scroller.element, this.#rows.element, this.#box.frame,
            ...Object.values(this.#buttons), this.#calendar.element, this.#list.pane.element,
            this.#menu.pane.element, this.#message.element,
        );
        // What a page has set before the element was defined hides what it was meant for.
        const set = this as unknown as Record<string, unknown>;
        for (const name of Object.keys(set)) {
            if (!(name in TablioGrid.prototype)) continue;
            const value = set[name];
            delete set[name];
            set[name] = value;
        }
        // The keyboard stays with the box, whatever is pressed.
        this.#root.addEventListener('mousedown', (event) => {
            if (event.target !== this.#box.input) event.preventDefault();
        });
    }

    connectedCallback(): void {
        this.#resizes.observe(this);
        this.#stopWatching = watchPage({
            looked: () => this.#lookAgain(),
            resized: () => this.#layOut(),
            pressed: (path) => {
                if (!path.includes(this.#menu.pane.element)) this.#menu.pane.close();
                const parts = [this.#list.pane.element, this.#buttons.list];
                if (this.state.isDropped && !parts.some((part) => path.includes(part))) this.#dropList(false);
            },
            scrolled: (path) => {
                if (!path.includes(this) && this.state.isDropped) this.#list.mirror(this.native, this.state);
            },
        });
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
        return this.native.settings;
    }
    set settings(text: string) {
        this.native.settings = text;
    }

    /** The page's own words by the English ones. */
    get captions(): Readonly<Record<string, string>> {
        return this.#captions;
    }
    set captions(captions: Readonly<Record<string, string>>) {
        this.#captions = { ...captions };
        const { lookup, calendar, list } = this.#buttons;
        for (const [button, name] of [[lookup, 'Look up'], [calendar, 'Calendar'], [list, 'List']] as const)
            button.ariaLabel = this.#said(name);
        this.shown();
    }

    /** Writes texts into a block of cells, so many a row; rows that are missing are appended. */
    setTexts(row: number, col: number, cols: number, texts: readonly string[]): void {
        this.native.setTexts(row, col, cols, texts);
    }

    /** What a block of cells reads, row by row. */
    texts(row: number, col: number, rows: number, cols: number): string[] {
        return this.native.texts(row, col, rows, cols);
    }

    // What the control asks of its page.

    event(number: number, values: Value[]): void {
        const thrown = raiseEvent(this, number, values);
        if (thrown === undefined) return;
        this.#reported = thrown.error;
        throw thrown.error;
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
        this.#menu.open(this.native, x / 15, y / 15);
    }

    showMessage(isQuestion: number, _: number, titleAndText: string): void {
        const [title, ...lines] = titleAndText.split('\n');
        const answered = (yes: boolean) => void this.tell(Tell.questionAnswered, Number(yes));
        this.#message.show(
            this.#said(title), this.#said(lines.join('\n')), isQuestion ? answered : undefined,
        );
    }

    propertyChanged(): void {}

    keyPreview(): void {}

    inCase(character: number, upper: number): number {
        const one = String.fromCodePoint(character);
        const [other, ...more] = upper ? one.toUpperCase() : one.toLowerCase();
        return more.length > 0 ? character : other.codePointAt(0)!;
    }

    today(): number {
        const now = new Date();
        return now.getFullYear() * 10000 + (now.getMonth() + 1) * 100 + now.getDate();
    }

    lineHeight(font: number, _: number, css: string): number {
        return this.#painter.lineHeight(font, css);
    }

    textWidth(font: number, _: number, text: string): number {
        return this.#painter.textWidth(font, text);
    }

    // What the parts ask of the grid.

    tell(what: Tell, a = 0, b = 0, c = 0, text = ''): number {
        return this.#guarded(() => this.native.tell(what, a, b, c, text)) ?? 0;
    }

    copied(what: Tell.copy | Tell.cut): string | undefined {
        return this.#guarded(() => this.native.clipped(what));
    }

    takesKey(event: KeyboardEvent): boolean {
        const isTaken = this.#message.takesKey(event) || this.#menu.takesKey(event);
        if (isTaken) this.#rows.setActive(stateOf(this.native), this.#menu.active);
        return isTaken;
    }

    get isAlive(): boolean {
        return this.native.alive;
    }

    pressed(): void {
        this.#menu.pane.close();
        this.#box.endComposition();
        this.takeFocus();
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
        if (!this.isConnected || !this.isAlive) return;
        this.state = stateOf(this.native);
        if (devicePixelRatio !== this.#scale) this.#lookAgain();
        if (this.#scroller.mirror(this.state, devicePixelRatio)) {
            this.#painter.forgetFont();
            this.#tellLook();
        }
        this.#painter.paint(this.native);
        this.#rows.show();
        this.#rows.setActive(this.state, this.#menu.active);
        this.#box.followCaret();
    }

    #mirror(): void {
        const state = (this.state = stateOf(this.native));
        const { editor, comboFrame } = state;
        const left = editor ? editor.frame.left + editor.width : 0;
        const places = {
            lookup: state.lookup, calendar: state.calendarButton,
            list: {
                ...comboFrame, left, width: comboFrame.left + comboFrame.width - left,
                isVisible: state.isCombo && editor !== undefined,
            },
        };
        for (const name of ['lookup', 'calendar', 'list'] as const) {
            this.#buttons[name].hidden = !places[name].isVisible;
            if (places[name].isVisible) put(this.#buttons[name], places[name]);
        }
        this.#box.mirror();
        this.#list.mirror(this.native, state);
        this.#calendar.mirror(this.native, state, this.#language);
        this.changed();
    }

    #dropList(isDropped: boolean): void {
        const { editor } = this.state;
        if (editor) this.tell(Tell.comboDropped, editor.edit, Number(isDropped));
    }

    /** The element has another size, or has come into sight. */
    #layOut(): void {
        const { clientWidth, clientHeight } = this;
        if (!this.isConnected || clientWidth === 0) return;
        this.#guarded(() => {
            const bar = twips(this.#scroller.barWidth());
            this.native.run('setRoom', twips(clientWidth), twips(clientHeight), bar);
            this.native.tell(Tell.appeared);
        });
        this.shown();
    }

    get #language(): string {
        return this.closest<HTMLElement>('[lang]')?.lang || navigator.language;
    }

    /** Colours, font, locale or scale may be others. */
    #lookAgain(): void {
        if (!this.isConnected || !this.isAlive) return;
        const own = getComputedStyle(this);
        const { fontStyle, fontWeight, fontSize, fontFamily } = own;
        const parts = [paletteOf(this.#probe), devicePixelRatio, this.#box.hasFocus, this.#language];
        const look = [...parts, fontStyle, fontWeight, fontSize, fontFamily].join();
        if (look === this.#look) return;
        this.#look = look;
        this.#scale = devicePixelRatio;
        this.#guarded(() => tellLocale(this.native, this.#language, own, this.#painter));
        this.#tellLook();
        this.shown();
    }

    #tellLook(): void {
        this.#guarded(() =>
            tellLook(this.native, paletteOf(this.#probe), devicePixelRatio, this.#box.hasFocus));
    }

    /** What a handler has thrown, the browser has reported already. */
    #guarded<Result>(action: () => Result): Result | undefined {
        if (!this.isAlive) return undefined;
        try {
            return action();
        } catch (error) {
            if (error !== this.#reported) reportError(error);
            return undefined;
        }
    }
}

defineMembers(TablioGrid.prototype, ({ native }) => native);
