/// The module `tablio.wasm`: how it is loaded, what it is given, and one control in it as an object.
///
/// The generated members call `get`, `put` and `call` of a `NativeGrid` with a member's number, as
/// members.h has it; what the control refuses is thrown as a `TablioError`. Values are strings,
/// numbers (a colour, too), booleans, `Font` and `TMatrix`; `undefined` leaves an argument out. The
/// control raises an event by `GridPage.event(number, values)`: what stands in `values` afterwards
/// is what the control goes on with, and what is thrown there ends the control's call.

export interface Font {
    name: string;
    size: number;
    bold: boolean;
    italic: boolean;
    underline: boolean;
    strikethrough: boolean;
    weight: number;
}

export type Value = string | number | boolean | null | undefined | Font | TMatrix;

export type ErrorKind =
    'Other' | 'Grid' | 'Overflow' | 'UnknownMember' | 'ArgumentCount' | 'TypeMismatch';

const errorKinds: ErrorKind[] =
    ['Other', 'Grid', 'Overflow', 'UnknownMember', 'ArgumentCount', 'TypeMismatch'];

/// What the control refuses. `argument` says which of a call's is wrong, from 0; -1 if unknown.
export class TablioError extends Error {
    override readonly name = 'TablioError';

    constructor(message: string, readonly kind: ErrorKind, readonly argument = -1) {
        super(message);
    }
}

/// What a control asks of the page that shows it. Only `event` may throw.
export interface GridPage {
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

/// The calls of `Input`, in the order of native/input.cpp.
export const enum Tell {
    keyDown, keyPress, typeText, beginComposition, mouseDown, mouseMove, mouseUp, doubleClick,
    isColumnEdge, scrollTo, wheelTurned, focusEntered, focusLeft, endEdit, hasKeyboard, wantsKey,
    paste, copy, cut, buttonPressed, textSettled, comboDropped, comboItemChosen, calendarMoved,
    calendarPicked, calendarSized, menuChosen, questionAnswered, appeared,
}

type Exports = Record<string, (...numbers: number[]) => number> & { memory: WebAssembly.Memory };

const enum Tag { Empty, Boolean, Integer, Long, Double, String, Font, Object, Missing, Page }

const slotSize = 24;
const utf8 = new TextEncoder();
const text8 = new TextDecoder();

/// Whole numbers, and texts behind one another: each text's length is among the numbers. Read it
/// before anything else is called.
export class Reply {
    private at = 0;
    private textAt = 0;

    constructor(private readonly numbers: Int32Array, private readonly texts: string) {}

    get atEnd(): boolean { return this.at === this.numbers.length; }
    number(): number { return this.numbers[this.at++]!; }
    flag(): boolean { return this.number() !== 0; }
    text(): string {
        const from = this.textAt;
        this.textAt += this.number();
        return this.texts.slice(from, this.textAt);
    }
}

export class TablioModule {
    private readonly exports: Exports;
    private readonly pages = new Map<number, GridPage>();
    private bytes = new DataView(new ArrayBuffer(0));
    /// What a handler has thrown, on its way through the control.
    private thrown: unknown;
    /// Objects of the page's own that hang on cells.
    private readonly objects = new Map<number, object>();
    private lastObject = 0;
    private readonly forgotten = new FinalizationRegistry<number>(
        (matrix) => this.run('forgetMatrix', matrix));

    private constructor(instance: WebAssembly.Instance) {
        this.exports = instance.exports as Exports;
    }

    /// The bytes of the module, or what a fetch of them answers.
    static async load(source: BufferSource | Response | PromiseLike<Response>,
                      more: WebAssembly.ModuleImports = {}): Promise<TablioModule> {
        let module!: TablioModule;
        const nothing = (): number => 0;
        const imports = {
            env: { ...TablioModule.imports(() => module), ...more,
                   emscripten_notify_memory_growth: nothing },
            // The standard library's ways to a console, which nothing here takes.
            wasi_snapshot_preview1: new Proxy({}, { get: () => nothing }) as
                WebAssembly.ModuleImports,
        };
        const isBytes = source instanceof ArrayBuffer || ArrayBuffer.isView(source);
        const { instance } = isBytes
            ? await WebAssembly.instantiate(source as BufferSource, imports)
            : await WebAssembly.instantiateStreaming(source as PromiseLike<Response>, imports);
        module = new TablioModule(instance);
        module.exports['_initialize']!();
        return module;
    }

    private static imports(module: () => TablioModule): WebAssembly.ModuleImports {
        const page = (grid: number): GridPage | undefined => module().pages.get(grid);
        return {
            tablio_fail(kind: number, argument: number, at: number, length: number): never {
                if (kind < 0)
                    throw module().thrown;
                throw new TablioError(module().textAt(at, length), errorKinds[kind]!, argument);
            },
            tablio_event: (grid: number, number: number, count: number) =>
                Number(module().raise(grid, number, count)),
            tablio_release: (object: number) => void module().objects.delete(object),
            tablio_shown: (grid: number) => page(grid)?.shown(),
            tablio_changed: (grid: number) => page(grid)?.changed(),
            tablio_can_take_focus: (grid: number) => Number(page(grid)?.canTakeFocus() ?? false),
            tablio_take_focus: (grid: number) => page(grid)?.takeFocus(),
            tablio_pop_up_menu: (grid: number, x: number, y: number) => page(grid)?.popUpMenu(x, y),
            tablio_message(grid: number, isQuestion: number, at: number, length: number): void {
                const text = module().textAt(at, length);
                const end = text.indexOf('\n');
                page(grid)?.showMessage(text.slice(0, end), text.slice(end + 1), isQuestion !== 0);
            },
            tablio_property_changed: (grid: number, number: number) =>
                page(grid)?.propertyChanged(number),
            tablio_key_preview: (grid: number, preview: number) =>
                page(grid)?.keyPreview(preview !== 0),
            tablio_case(character: number, upper: number): number {
                const one = String.fromCodePoint(character);
                const other = upper !== 0 ? one.toUpperCase() : one.toLowerCase();
                const code = other.codePointAt(0)!;
                return other.length === String.fromCodePoint(code).length ? code : character;
            },
            tablio_today(): number {
                const now = new Date();
                return now.getFullYear() * 10000 + (now.getMonth() + 1) * 100 + now.getDate();
            },
        };
    }

    create(page: GridPage): NativeGrid {
        const number = this.run('create');
        this.pages.set(number, page);
        return new NativeGrid(this, number);
    }

    destroy(grid: number): void {
        this.pages.delete(grid);
        this.run('destroy', grid);
    }

    run(name: string, ...numbers: number[]): number { return this.exports[name]!(...numbers); }

    reply(at: number): Reply {
        const view = this.view();
        const [numbers, count, text, length] =
            [0, 4, 8, 12].map((offset) => view.getUint32(at + offset, true)) as
                [number, number, number, number];
        return new Reply(new Int32Array(view.buffer, numbers, count).slice(),
                         this.textAt(text, length));
    }

    /// How many bytes of the room the text takes.
    putText(text: string): number {
        // At most three bytes a UTF-16 unit.
        const at = this.run('room', text.length * 3);
        const room = new Uint8Array(this.exports.memory.buffer, at, text.length * 3);
        return utf8.encodeInto(text, room).written;
    }

    putValues(values: readonly Value[]): void {
        const texts = values.map((value) =>
            typeof value === 'string' ? utf8.encode(value)
            : isFont(value)           ? utf8.encode(value.name)
                                      : undefined);
        let size = values.length * slotSize;
        const at = this.run('room', texts.reduce((sum, text) => sum + (text?.length ?? 0), size));
        const view = this.view();
        values.forEach((value, index) => {
            const slot = at + index * slotSize;
            const set = (tag: Tag, integer = 0, number = 0): void => {
                view.setInt32(slot, tag, true);
                view.setInt32(slot + 4, integer, true);
                view.setFloat64(slot + 8, number, true);
            };
            if (value === undefined)
                set(Tag.Missing);
            else if (value === null)
                set(Tag.Empty);
            else if (typeof value === 'boolean')
                set(Tag.Boolean, Number(value));
            else if (typeof value === 'number')
                (value | 0) === value ? set(Tag.Long, value) : set(Tag.Double, 0, value);
            else if (typeof value === 'string')
                set(Tag.String);
            else if (value instanceof TMatrix)
                set(Tag.Object, value.number);
            else if (isFont(value))
                set(Tag.Font, styleOf(value), value.size);
            else
                set(Tag.Page, this.numberOf(value));
            const text = texts[index];
            view.setUint32(slot + 16, at + size, true);
            view.setUint32(slot + 20, text?.length ?? 0, true);
            if (text !== undefined)
                new Uint8Array(view.buffer, at + size).set(text);
            size += text?.length ?? 0;
        });
    }

    takeValues(at: number, count: number): Value[] {
        const view = this.view();
        return Array.from({ length: count }, (_, index) => {
            const slot = at + index * slotSize;
            const integer = view.getInt32(slot + 4, true);
            const number = view.getFloat64(slot + 8, true);
            const text = (): string =>
                this.textAt(view.getUint32(slot + 16, true), view.getUint32(slot + 20, true));
            switch (view.getInt32(slot, true) as Tag) {
            case Tag.Empty:
            case Tag.Missing:
                return undefined;
            case Tag.Boolean:
                return integer !== 0;
            case Tag.Double:
                return number;
            case Tag.String:
                return text();
            case Tag.Font:
                return fontOf(text(), number, integer);
            case Tag.Object:
                return this.matrix(integer);
            case Tag.Page:
                return this.objects.get(integer) as Value;
            default:
                return integer;
            }
        });
    }

    private matrix(number: number): TMatrix {
        const matrix = new TMatrix(this, number);
        this.forgotten.register(matrix, number);
        return matrix;
    }

    makeMatrix(): TMatrix { return this.matrix(this.run('makeMatrix')); }

    private numberOf(object: object): number {
        this.objects.set(++this.lastObject, object);
        return this.lastObject;
    }

    private raise(grid: number, number: number, count: number): boolean {
        const values = this.takeValues(this.run('room', 0), count);
        try {
            this.pages.get(grid)?.event(number, values);
        } catch (error) {
            this.thrown = error;
            return false;
        }
        this.putValues(values);
        return true;
    }

    private textAt(at: number, length: number): string {
        return length === 0 ? '' : text8.decode(new Uint8Array(this.exports.memory.buffer, at, length));
    }

    /// The memory moves when it grows.
    private view(): DataView {
        if (this.bytes.buffer !== this.exports.memory.buffer)
            this.bytes = new DataView(this.exports.memory.buffer);
        return this.bytes;
    }
}

/// One control. It lives until it is destroyed.
export class NativeGrid {
    private isAlive = true;

    constructor(readonly module: TablioModule, readonly number: number) {}

    /// False once it is destroyed, as any handler may do.
    get alive(): boolean { return this.isAlive; }

    destroy(): void {
        this.isAlive = false;
        this.module.destroy(this.number);
    }

    call(member: number, ...values: Value[]): Value { return this.access(member, 0, values); }
    get(member: number, ...index: Value[]): Value { return this.access(member, 1, index); }
    put(member: number, value: Value, ...index: Value[]): void {
        this.access(member, 2, [...index, value]);
    }

    tell(what: Tell, a = 0, b = 0, c = 0, text = ''): number {
        return this.run('tell', what, a, b, c, text === '' ? 0 : this.module.putText(text));
    }

    /// The text for the clipboard, if there is one.
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

    /// Writes a block of cells as `TextMatrix` does, so many a row, from this one to the right and
    /// down; rows that are missing are appended.
    setTexts(row: number, col: number, cols: number, texts: readonly string[]): void {
        const length = this.module.putText(texts.join('\0') + '\0');
        this.run('setTexts', row, col, cols, texts.length === 0 ? 0 : length);
    }

    /// What the cells of a block read.
    cells(row: number, col: number, rows: number, cols: number): string[][] {
        const texts = this.ask('cells', row, col, rows, cols).text().split('\0');
        return Array.from({ length: rows }, (_, at) => texts.slice(at * cols, (at + 1) * cols));
    }

    saveSettings(): string { return this.ask('saveSettings').text(); }
    loadSettings(text: string): void { this.run('loadSettings', this.module.putText(text)); }

    private access(member: number, how: number, values: Value[]): Value {
        this.module.putValues(values);
        return this.module.takeValues(this.run('access', member, how, values.length), 1)[0];
    }
}

/// A sparse matrix of values by row and column, which the control keeps in step with its rows.
export class TMatrix {
    constructor(private readonly module: TablioModule, readonly number: number) {}

    /// Nothing written reads as "".
    text(row: number, col: number): Value | object {
        return this.module.takeValues(this.module.run('matrixText', this.number, row, col), 1)[0];
    }
    setText(row: number, col: number, value: Value | object): void {
        this.module.putValues([value as Value]);
        this.module.run('setMatrixText', this.number, row, col);
    }
}

function isFont(value: Value): value is Font {
    return typeof value === 'object' && value !== null && 'strikethrough' in value;
}

function styleOf(font: Font): number {
    return Number(font.bold) + 2 * Number(font.italic) + 4 * Number(font.underline) +
        8 * Number(font.strikethrough) + 16 * font.weight;
}

function fontOf(name: string, size: number, style: number): Font {
    return { name, size, bold: (style & 1) !== 0, italic: (style & 2) !== 0,
             underline: (style & 4) !== 0, strikethrough: (style & 8) !== 0, weight: style >> 4 };
}
