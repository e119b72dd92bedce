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
    showMessage(title: string, text: string, isQuestion: boolean): void;
    propertyChanged(member: number): void;
    keyPreview(preview: boolean): void;
}

/** The calls of `Input`, in the order of native/input.cpp. */
export const enum Tell {
    keyDown, keyPress, typeText, beginComposition, mouseDown, mouseMove, mouseUp, doubleClick,
    isColumnEdge, scrollTo, wheelTurned, focusEntered, focusLeft, endEdit, hasKeyboard, wantsKey,
    paste, copy, cut, buttonPressed, textSettled, comboDropped, comboItemChosen, calendarMoved,
    calendarPicked, calendarSized, menuChosen, questionAnswered, appeared,
}

type Exports = Record<string, (...numbers: number[]) => number> & { memory: WebAssembly.Memory };

const enum Tag { Empty, Boolean, Integer, Long, Double, String, Font, Object, Missing }

const slotSize = 24;
const encoder = new TextEncoder();
const decoder = new TextDecoder();

/**
 * Whole numbers, and texts behind one another, whose lengths are among the numbers. It is read
 * before the module is called again.
 */
export class Reply {
    private at = 0;
    private textAt = 0;

    constructor(
        private readonly numbers: Int32Array,
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
}

/** What came of an event, as native/page.h has it. */
const enum Heard { Threw, Changed, Unchanged }

export class TablioModule {
    private readonly exports: Exports;
    private readonly pages = new Map<number, WeakRef<GridPage>>();
    /** What a handler has thrown, on its way through the control. */
    private thrown: unknown;

    private constructor(instance: WebAssembly.Instance) {
        this.exports = instance.exports as Exports;
    }

    /** Loads the bytes, or what a fetch of them answers. `more` is what else they ask for. */
    static async load(
        source: BufferSource | PromiseLike<Response>,
        more: WebAssembly.ModuleImports = {},
    ): Promise<TablioModule> {
        let module: TablioModule | undefined = undefined;
        const nothing = () => 0;
        const imports = {
            env: { ...importsOf(() => module!), emscripten_notify_memory_growth: nothing, ...more },
            // The standard library's ways to a console, which nothing here takes.
            wasi_snapshot_preview1: new Proxy({}, { get: () => nothing }),
        };
        const { instance } =
            'then' in source
                ? await WebAssembly.instantiateStreaming(source, imports)
                : await WebAssembly.instantiate(source, imports);
        module = new TablioModule(instance);
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

    reply(at: number): Reply {
        const [numbers, count, text, length] = new Uint32Array(this.memory, at, 4);
        return new Reply(new Int32Array(this.memory, numbers, count).slice(), this.textAt(text, length));
    }

    /** Puts a text into the room and answers how many bytes it takes. */
    putText(text: string): number {
        const most = text.length * 3;
        const at = this.run('room', most);
        return encoder.encodeInto(text, new Uint8Array(this.memory, at, most)).written;
    }

    putValues(values: readonly Value[]): void {
        const textOf = (value: Value) => (isFont(value) ? (value.name ?? '') : value);
        const texts = values.map((value) => {
            const text = textOf(value);
            return encoder.encode(typeof text === 'string' ? text : '');
        });
        let end = values.length * slotSize;
        const at = this.run('room', texts.reduce((size, text) => size + text.length, end));
        const view = new DataView(this.memory);
        values.forEach((value, index) => {
            const slot = at + index * slotSize;
            const [tag, number] =
                value === undefined ? [Tag.Missing, 0]
                : value === null ? [Tag.Empty, 0]
                : typeof value === 'string' ? [Tag.String, 0]
                : typeof value === 'boolean' ? [Tag.Boolean, Number(value)]
                : isFont(value) ? [Tag.Font + 16 * styleOf(value), value.size ?? 0]
                : [(value | 0) === value ? Tag.Long : Tag.Double, Number(value)];
            const text = texts[index];
            view.setInt32(slot, tag, true);
            view.setUint32(slot + 4, text.length, true);
            view.setUint32(slot + 8, end, true);
            view.setFloat64(slot + 16, number, true);
            new Uint8Array(this.memory, at + end).set(text);
            end += text.length;
        });
    }

    takeValues(at: number, count: number): Value[] {
        const view = new DataView(this.memory);
        return Array.from({ length: count }, (_, index) => {
            const slot = at + index * slotSize;
            const style = view.getInt32(slot, true) >> 4;
            const tag: Tag = view.getInt32(slot, true) & 15;
            const number = view.getFloat64(slot + 16, true);
            const text = this.textAt(at + view.getUint32(slot + 8, true), view.getUint32(slot + 4, true));
            if (tag === Tag.Empty || tag === Tag.Missing) return undefined;
            if (tag === Tag.String) return text;
            if (tag === Tag.Boolean) return number !== 0;
            return tag === Tag.Font ? fontOf(text, number, style) : number;
        });
    }

    /** False when a handler has thrown. */
    raise(grid: number, number: number, count: number): Heard {
        const values = this.takeValues(this.run('room', 0), count);
        const before = values.slice();
        try {
            this.pageOf(grid)?.event(number, values);
        } catch (error) {
            this.thrown = error;
            return Heard.Threw;
        }
        if (values.every((value, place) => Object.is(value, before[place]))) return Heard.Unchanged;
        this.putValues(values);
        return Heard.Changed;
    }

    fail(kind: number, argument: number, message: string): never {
        if (kind < 0) throw this.thrown;
        throw new TablioError(message, errorKinds[kind], argument);
    }

    pageOf(grid: number): GridPage | undefined {
        return this.pages.get(grid)?.deref();
    }

    textAt(at: number, length: number): string {
        return length === 0 ? '' : decoder.decode(new Uint8Array(this.memory, at, length));
    }

    /** Another one each time that it grows. */
    private get memory(): ArrayBuffer {
        return this.exports.memory.buffer;
    }
}

/** What native/page.h declares. */
function importsOf(module: () => TablioModule): WebAssembly.ModuleImports {
    const page = (grid: number) => module().pageOf(grid);
    return {
        tablio_fail: (kind: number, argument: number, at: number, length: number) =>
            module().fail(kind, argument, module().textAt(at, length)),
        tablio_event: (grid: number, number: number, count: number) =>
            module().raise(grid, number, count),
        tablio_shown: (grid: number) => page(grid)?.shown(),
        tablio_changed: (grid: number) => page(grid)?.changed(),
        tablio_can_take_focus: (grid: number) => Number(page(grid)?.canTakeFocus() ?? false),
        tablio_take_focus: (grid: number) => page(grid)?.takeFocus(),
        tablio_pop_up_menu: (grid: number, x: number, y: number) => page(grid)?.popUpMenu(x, y),
        tablio_message(grid: number, isQuestion: number, at: number, length: number) {
            const [title, ...lines] = module().textAt(at, length).split('\n');
            page(grid)?.showMessage(title, lines.join('\n'), isQuestion !== 0);
        },
        tablio_property_changed: (grid: number, number: number) =>
            page(grid)?.propertyChanged(number),
        tablio_key_preview: (grid: number, preview: number) =>
            page(grid)?.keyPreview(preview !== 0),
        tablio_case(character: number, upper: number) {
            const one = String.fromCodePoint(character);
            const [other, ...more] = upper !== 0 ? one.toUpperCase() : one.toLowerCase();
            return more.length > 0 ? character : other.codePointAt(0);
        },
        tablio_today() {
            const now = new Date();
            return now.getFullYear() * 10000 + (now.getMonth() + 1) * 100 + now.getDate();
        },
    };
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

    call = (member: number, values: readonly Value[]) => this.access(member, 0, values);
    get = (member: number, index: readonly Value[]) => this.access(member, 1, index);
    put = (member: number, value: Value, index: readonly Value[]) =>
        void this.access(member, 2, [...index, value]);
    tag = (row: number, col: number) => this.taken(this.run('tag', row, col));
    setTag(row: number, col: number, value: Value): void {
        this.module.putValues([value]);
        this.run('setTag', row, col);
    }

    tell(what: Tell, a = 0, b = 0, c = 0, text = ''): number {
        return this.run('tell', what, a, b, c, text === '' ? 0 : this.module.putText(text));
    }

    /** The text for the clipboard, if there is one. */
    clipped(what: Tell.copy | Tell.cut): string | undefined {
        const at = this.tell(what);
        return at === 0 ? undefined : this.module.reply(at).text();
    }

    ask(name: string, ...numbers: number[]): Reply {
        return this.module.reply(this.run(name, ...numbers));
    }

    run(name: string, ...numbers: number[]): number {
        return this.module.run(name, this.number, ...numbers);
    }

    font(index: number): TFont {
        return this.taken(this.run('font', index)) as TFont;
    }

    setTexts(row: number, col: number, cols: number, texts: readonly string[]): void {
        const length = texts.length === 0 ? 0 : this.module.putText(texts.join('\0') + '\0');
        this.run('setTexts', row, col, cols, length);
    }

    texts(row: number, col: number, rows: number, cols: number): string[] {
        return this.ask('texts', row, col, rows, cols).text().split('\0').slice(0, -1);
    }

    get settings(): string {
        return this.ask('saveSettings').text();
    }
    set settings(text: string) {
        this.run('loadSettings', this.module.putText(text));
    }

    private access(member: number, how: number, values: readonly Value[]): Value {
        this.module.putValues(values);
        return this.taken(this.run('access', member, how, values.length));
    }

    private taken(at: number): Value {
        return this.module.takeValues(at, 1)[0];
    }
}

function isFont(value: Value): value is TFont {
    return typeof value === 'object' && value !== null;
}

function styleOf(font: TFont): number {
    const bits = [font.bold, font.italic, font.underline, font.strikethrough];
    return bits.reduce((sum, isSet, bit) => sum + (isSet ? 1 << bit : 0), 16 * (font.weight ?? 0));
}

function fontOf(name: string, size: number, style: number): TFont {
    const has = (bit: number) => (style & (1 << bit)) !== 0;
    const [bold, italic, underline, strikethrough] = [0, 1, 2, 3].map(has);
    return { name, size, bold, italic, underline, strikethrough, weight: style >> 4 };
}
