/**
 * The module `tablio.wasm`: how it is loaded, what it is given, and one control in it as an object.
 * It knows no document. What the control refuses is thrown as a `TablioError`; what a handler has
 * thrown ends the control's call and comes out of it as it is.
 */

import type { TFont } from '../tablio-grid.js';

export type Value = string | number | boolean | TFont | undefined;

const errorKinds = [
    'Other', 'Grid', 'Overflow', 'UnknownMember', 'ArgumentCount', 'TypeMismatch',
] as const;

export class TablioError extends Error {
    override readonly name = 'TablioError';

    constructor(
        message: string,
        readonly kind: (typeof errorKinds)[number],
        readonly argument = -1,
    ) {
        super(message);
    }
}

/** What a control asks of the page that shows it. Nothing but `event` may throw. */
export interface GridPage {
    /** What stands in the values afterwards is what the control goes on with. */
    event(number: number, values: Value[]): void;
    shown(): void;
    changed(): void;
    canTakeFocus(): boolean;
    takeFocus(): void;
    popUpMenu(x: number, y: number): void;
    showMessage(isQuestion: number, unused: number, titleAndText: string): void;
    propertyChanged(member: number): void;
    keyPreview(preview: number): void;
    inCase(character: number, upper: number): number;
    today(): number;
    lineHeight(font: number, unused: number, css: string): number;
    textWidth(font: number, unused: number, text: string): number;
}

/** In the order of native/page.h, behind `event`. */
const asked = [
    'shown', 'changed', 'canTakeFocus', 'takeFocus', 'popUpMenu', 'showMessage', 'propertyChanged',
    'keyPreview', 'inCase', 'today', 'lineHeight', 'textWidth',
] as const;
const enum Heard { Unchanged, Changed, Threw }

/** The calls of `Input`, in the order of native/input.cpp. */
export const enum Tell {
    keyDown, keyPress, typeText, beginComposition, mouseDown, mouseMove, mouseUp, doubleClick,
    isColumnEdge, scrollTo, focusEntered, focusLeft, endEdit, hasKeyboard, wantsKey, paste, copy, cut,
    buttonPressed, textSettled, comboDropped, comboItemChosen, calendarTurned, calendarPicked,
    calendarSized, menuChosen, questionAnswered, appeared,
}
/** How a member is used, as native/calls.cpp has it. */
export const enum How { Call, Read, Write }

type Exports = Record<string, (...numbers: number[]) => number> & { memory: WebAssembly.Memory };

const enum Tag { Empty, Boolean, Integer, Long, Double, String, Font, Object, Missing }
const fontStyles = ['bold', 'italic', 'underline', 'strikethrough'] as const;

const encoder = new TextEncoder();
const decoder = new TextDecoder();

/** From the module: numbers, and texts behind one another, whose lengths are among the numbers. */
export class Message {
    private at = 0;
    private textAt = 0;

    constructor(
        private readonly numbers: Float64Array,
        private readonly texts: string,
    ) {}

    get atEnd(): boolean {
        return this.at === this.numbers.length;
    }
    number = (): number => this.numbers[this.at++];
    flag = (): boolean => this.number() !== 0;
    text = (): string => {
        const from = this.textAt;
        this.textAt += this.number();
        return this.texts.slice(from, this.textAt);
    };
    /** All of it, each by the same function. */
    all<Thing>(one: () => Thing): Thing[] {
        const things: Thing[] = [];
        while (!this.atEnd) things.push(one());
        return things;
    }
    value = (): Value => {
        const tag = this.number();
        const [number, text] = [this.number(), this.text()];
        const type: Tag = tag & 15;
        if (type === Tag.Empty || type === Tag.Missing) return undefined;
        if (type === Tag.String) return text;
        if (type === Tag.Boolean) return number !== 0;
        if (type !== Tag.Font) return number;
        const styles = fontStyles.map((name, bit) => [name, (tag & (16 << bit)) !== 0]);
        return { name: text, size: number, ...Object.fromEntries(styles), weight: tag >> 8 };
    };
}

/** To the module: a value as it stands in a message. */
function thingsOf(value: Value): (number | string)[] {
    if (value === undefined) return [Tag.Missing, 0, ''];
    if (value === null) return [Tag.Empty, 0, ''];
    if (typeof value === 'string') return [Tag.String, 0, value];
    if (typeof value === 'boolean') return [Tag.Boolean, Number(value), ''];
    if (typeof value === 'number') return [(value | 0) === value ? Tag.Long : Tag.Double, value, ''];
    const style = fontStyles.reduce((sum, name, bit) => sum | (value[name] ? 16 << bit : 0), 0);
    return [Tag.Font + style + 256 * (value.weight ?? 0), value.size ?? 0, value.name ?? ''];
}

export class TablioModule {
    private exports!: Exports;
    private readonly pages = new Map<number, WeakRef<GridPage>>();
    /** What a handler has thrown, on its way through the control. */
    private thrown: unknown;

    /** Loads the bytes, or what a fetch of them answers. `more` is what else they ask for. */
    static async load(
        source: BufferSource | PromiseLike<Response>,
        more: WebAssembly.ModuleImports = {},
    ): Promise<TablioModule> {
        const module = new TablioModule();
        const nothing = () => 0;
        const imports = {
            env: {
                tablio_fail: module.fail, tablio_page: module.ask,
                tablio_number: (at: number, length: number) => Number(module.textAt(at, length)),
                emscripten_notify_memory_growth: nothing, ...more,
            },
            // The standard library's ways to a console, which nothing here takes.
            wasi_snapshot_preview1: new Proxy({}, { get: () => nothing }),
        };
        const { instance } =
            'then' in source
                ? await WebAssembly.instantiateStreaming(source, imports)
                : await WebAssembly.instantiate(source, imports);
        module.exports = instance.exports as Exports;
        module.run('_initialize');
        return module;
    }

    create(page: GridPage): NativeGrid {
        const number = this.run('create');
        this.pages.set(number, new WeakRef(page));
        return new NativeGrid(this, number);
    }

    destroy(grid: number): void {
        this.pages.delete(grid);
        this.run('destroy', grid);
    }

    run(name: string, ...numbers: number[]): number {
        return this.exports[name](...numbers);
    }

    message(at: number): Message {
        const [numbers, count, text, length] = new Uint32Array(this.memory, at, 4);
        return new Message(new Float64Array(this.memory, numbers, count).slice(), this.textAt(text, length));
    }

    /** Puts numbers and texts into the room, and answers how many numbers they are. */
    give(...things: readonly (number | string)[]): number {
        const room = (thing: number | string) => 8 + (typeof thing === 'string' ? thing.length * 3 : 0);
        const at = this.run('room', things.reduce<number>((sum, thing) => sum + room(thing), 0));
        const numbers = new Float64Array(this.memory, at, things.length);
        let end = at + numbers.byteLength;
        things.forEach((thing, index) => {
            if (typeof thing === 'number') numbers[index] = thing;
            else if (thing !== '')
                end += numbers[index] = encoder.encodeInto(thing, new Uint8Array(this.memory, end)).written;
            else numbers[index] = 0;
        });
        return things.length;
    }

    giveValues(values: readonly Value[]): void {
        this.give(...values.flatMap(thingsOf));
    }

    textAt(at: number, length: number): string {
        return length === 0 ? '' : decoder.decode(new Uint8Array(this.memory, at, length));
    }

    private readonly ask = (grid: number, what: number, a: number, b: number, at: number, length: number) => {
        const page = this.pages.get(grid)?.deref();
        if (page === undefined) return 0;
        if (what === 0) return this.raise(page, a, b);
        return Number(page[asked[what - 1]](a, b, this.textAt(at, length)) ?? 0);
    };

    private raise(page: GridPage, number: number, at: number): Heard {
        const message = this.message(at);
        message.number();
        const values = message.all(message.value);
        const before = values.slice();
        try {
            page.event(number, values);
        } catch (error) {
            this.thrown = error;
            return Heard.Threw;
        }
        if (values.every((value, place) => Object.is(value, before[place]))) return Heard.Unchanged;
        this.giveValues(values);
        return Heard.Changed;
    }

    private readonly fail = (kind: number, argument: number, at: number, length: number): never => {
        if (kind < 0) throw this.thrown;
        throw new TablioError(this.textAt(at, length), errorKinds[kind], argument);
    };

    /** Another one each time that it grows. */
    private get memory(): ArrayBuffer {
        return this.exports.memory.buffer;
    }
}

/** One control; it lives until it is destroyed, as any handler may do. */
export class NativeGrid {
    alive = true;

    constructor(
        readonly module: TablioModule,
        readonly number: number,
    ) {}

    destroy(): void {
        this.alive = false;
        this.module.destroy(this.number);
    }

    run(name: string, ...numbers: number[]): number {
        return this.module.run(name, this.number, ...numbers);
    }

    ask(name: string, ...numbers: number[]): Message {
        return this.module.message(this.run(name, ...numbers));
    }

    /** Uses a member. A value that is written stands behind its indexes. */
    access(member: number, how: How, values: readonly Value[]): Value {
        this.module.giveValues(values);
        return this.ask('access', member, how, values.length).value();
    }

    tell(what: Tell, a = 0, b = 0, c = 0, text = ''): number {
        return this.run('tell', what, a, b, c, text === '' ? 0 : this.module.give(text));
    }

    /** The text for the clipboard, if there is one. */
    clipped(what: Tell.copy | Tell.cut): string | undefined {
        const at = this.tell(what);
        return at === 0 ? undefined : this.module.message(at).text();
    }

    setTexts(row: number, col: number, cols: number, texts: readonly string[]): void {
        this.module.give(texts.length === 0 ? '' : texts.join('\0') + '\0');
        this.run('setTexts', row, col, cols);
    }

    texts(row: number, col: number, rows: number, cols: number): string[] {
        return this.ask('texts', row, col, rows, cols).text().split('\0').slice(0, -1);
    }

    get settings(): string {
        return this.ask('saveSettings').text();
    }
    set settings(text: string) {
        this.module.give(text);
        this.run('loadSettings');
    }
}
