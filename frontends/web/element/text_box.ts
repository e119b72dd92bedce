/**
 * The one native box of a grid. It holds the keyboard all the time, so that starting an edit moves
 * no focus and no key is lost on the way. Keys go to the control, the box shows what its editor
 * holds; only what a box does by itself (composing, the mouse, word keys) happens here first and is
 * then reported.
 */

import { strokeOf } from './keys.js';
import { Tell } from './native.js';
import { cssColour, put, type Place, type State } from './state.js';

/** What the box knows of the grid that it is part of. */
export interface Around {
    state: State;
    /** Tells the control; 0 where it throws or is no more. */
    tell(what: Tell, a?: number, b?: number, c?: number, text?: string): number;
    copied(what: Tell.copy | Tell.cut): string | undefined;
    /** A menu or a message takes some keys first. */
    takesKey(event: KeyboardEvent): boolean;
    isAlive(): boolean;
    cssFont(index: number): string;
    cellPlace(): Place | undefined;
    keyboardMoved(): void;
}

const backspace = 8;
const enter = 13;
const control = 2;
const clipboardKeys = [67, 86, 88];

export class TextBox {
    readonly input = document.createElement('input');
    readonly frame = document.createElement('div');
    private isComposing = false;
    /** What the focus does at the moment is the box's own doing. */
    private isQuiet = false;
    private edit = 0;
    /** Where the caret has been put since it was last looked for; -1 for nowhere. */
    private caretSet = -1;
    /** What stood before and behind a composition when it began. */
    private beside = ['', ''];

    constructor(private readonly around: Around) {
        const { input } = this;
        this.frame.className = 'frame';
        this.frame.append(input);
        input.type = 'text';
        input.autocomplete = 'off';
        input.spellcheck = false;
        input.setAttribute('autocapitalize', 'off');
        const on = <Name extends keyof HTMLElementEventMap>(
            names: string, handle: (event: HTMLElementEventMap[Name]) => void,
        ) => {
            for (const name of names.split(' '))
                input.addEventListener(name, handle as (event: Event) => void);
        };
        on<'keydown'>('keydown', (event) => this.keyDown(event));
        on<'beforeinput'>('beforeinput', (event) => this.beforeInput(event));
        on<'input'>('input select mouseup keyup', () => this.settle());
        on<'compositionstart'>('compositionstart', () => this.compositionStart());
        on<'compositionend'>('compositionend', (event) => this.compositionEnd(event.data));
        // A browser offers to copy only what is selected, unless it is told that there is something.
        on<'copy'>('beforecopy beforecut', (event) => event.preventDefault());
        on<'copy'>('copy', (event) => this.copy(event, Tell.copy));
        on<'cut'>('cut', (event) => this.copy(event, Tell.cut));
        on<'paste'>('paste', (event) => {
            event.preventDefault();
            around.tell(Tell.paste, 0, 0, 0, event.clipboardData?.getData('text/plain'));
        });
        on<'focus'>('focus', () => this.focusCame());
        on<'blur'>('blur', (event) => this.focusWent(event.relatedTarget !== null));
    }

    get hasFocus(): boolean {
        return (this.input.getRootNode() as ShadowRoot).activeElement === this.input;
    }

    focus(options: FocusOptions = { preventScroll: true }): void {
        this.input.focus(options);
    }

    /** The native focus has come: tells the control, unless it knows. */
    enter(): void {
        if (this.hasFocus && this.around.tell(Tell.hasKeyboard) === 0)
            this.around.tell(Tell.focusEntered);
    }

    /** What is being composed belongs to the cell that it was composed in. */
    endComposition(): void {
        if (this.isComposing) this.quietly(() => (this.input.blur(), this.focus()));
    }

    /** Shows the open editor; without one the box lies unseen over the current cell. */
    mirror(): void {
        const { editor } = this.around.state;
        const { input, frame } = this;
        frame.classList.toggle('parked', editor === undefined);
        this.edit = editor?.edit ?? 0;
        if (editor === undefined) {
            const place = this.around.cellPlace();
            if (place !== undefined) put(frame, place);
            if (this.isComposing) this.dropComposition();
            else if (input.value !== '') input.value = '';
            return;
        }
        put(frame, editor.frame);
        const { style } = input;
        style.width = `${editor.width}px`;
        style.paddingRight = `${3 + editor.covered}px`;
        style.textAlign = editor.alignsRight ? 'right' : 'left';
        style.color = cssColour(editor.foreColor);
        style.backgroundColor = cssColour(editor.backColor);
        style.font = this.around.cssFont(editor.font);
        // Setting a text would end a composition.
        if (this.isComposing) return;
        if (input.value !== editor.text) input.value = editor.text;
        const isSame = input.selectionStart === Math.min(editor.anchor, editor.caret) &&
            input.selectionEnd === Math.max(editor.anchor, editor.caret) &&
            (editor.anchor <= editor.caret) === (input.selectionDirection !== 'backward');
        if (!isSame) this.select(editor.anchor, editor.caret);
    }

    private select(anchor: number, caret: number): void {
        this.input.setSelectionRange(
            Math.min(anchor, caret), Math.max(anchor, caret),
            caret < anchor ? 'backward' : 'forward',
        );
        this.caretSet = caret;
    }

    /** A box shows its caret only when the user moves it. Done when the page is laid out anyway. */
    followCaret(): void {
        const { input, caretSet } = this;
        if (this.hasFocus && caretSet === input.value.length) input.scrollLeft = 1e6;
        else if (caretSet === 0) input.scrollLeft = 0;
        this.caretSet = -1;
    }

    private keyDown(event: KeyboardEvent): void {
        // These keys belong to the input method; 229 is one that has only just ended.
        if (event.isComposing || this.isComposing || event.keyCode === 229) return;
        if (event.key === 'Dead' || event.key === 'Process') return;
        const { around } = this;
        if (around.takesKey(event)) {
            event.preventDefault();
            return;
        }
        const { code, shift, character } = strokeOf(event);
        if (shift === control && clipboardKeys.includes(code)) return;
        this.enter();
        const isWanted = around.tell(Tell.wantsKey, code, shift, character === 0 ? 0 : 1) !== 0;
        // The host's shortcuts do not see a key that is the grid's.
        if (isWanted) event.stopPropagation();
        let isDealt = code !== 0 && around.tell(Tell.keyDown, code, shift) !== 0;
        if (!isDealt && character !== 0 && around.isAlive())
            isDealt = around.tell(Tell.keyPress, character) !== 0;
        if (isDealt || !around.isAlive()) event.preventDefault();
        // Ctrl+arrow, Ctrl+Backspace and the like: every platform has its own.
        else if (around.state.editor === undefined && (character !== 0 || code === backspace))
            event.preventDefault();
    }

    private beforeInput(event: InputEvent): void {
        if (this.isComposing || event.isComposing) return;
        const { around } = this;
        const key = (code: number, character = 0) => {
            event.preventDefault();
            if (around.tell(Tell.keyDown, code, 0) === 0 && character !== 0)
                around.tell(Tell.keyPress, character);
        };
        this.enter();
        if (event.inputType === 'deleteContentBackward' && event.isTrusted) key(backspace, backspace);
        else if (event.inputType === 'insertLineBreak') key(enter);
        else if (event.inputType === 'insertText' || event.inputType === 'insertFromDrop') {
            event.preventDefault();
            const text = event.data ?? event.dataTransfer?.getData('text/plain') ?? '';
            around.tell(Tell.typeText, 0, 0, 0, text);
        } else if (around.state.editor === undefined) {
            event.preventDefault();
        }
    }

    /** Reports what the box has come to by itself. */
    private settle(): void {
        const { editor } = this.around.state;
        const { value, selectionStart, selectionEnd, selectionDirection } = this.input;
        if (this.isComposing || editor === undefined || this.edit !== editor.edit) return;
        const ends = [selectionStart ?? 0, selectionEnd ?? 0];
        if (selectionDirection === 'backward') ends.reverse();
        if (value !== editor.text || ends[0] !== editor.anchor || ends[1] !== editor.caret)
            this.around.tell(Tell.textSettled, this.edit, ends[0], ends[1], value);
    }

    private compositionStart(): void {
        const { value, selectionStart, selectionEnd } = this.input;
        this.beside = [value.slice(0, selectionStart ?? 0), value.slice(selectionEnd ?? 0)];
        this.isComposing = true;
        this.enter();
        if (this.around.tell(Tell.beginComposition) === 0 || !this.around.state.editor)
            this.dropComposition();
    }

    /**
     * Takes it out of the box without a trace: only a box that is left and cannot be written gives
     * up a composition, which goes on behind this event. Keys come here all the time.
     */
    private dropComposition(): void {
        const { input } = this;
        this.isComposing = false;
        input.readOnly = true;
        this.quietly(() => (input.blur(), this.focus()));
        input.value = '';
        setTimeout(() => {
            input.readOnly = false;
            this.mirror();
        });
    }

    private compositionEnd(data: string): void {
        if (!this.isComposing) return;
        this.isComposing = false;
        const { editor } = this.around.state;
        if (editor === undefined) return;
        const { value, selectionStart } = this.input;
        const caret = selectionStart ?? 0;
        // An input method may also have replaced what stood beside it.
        if (value === this.beside.join(data)) this.around.tell(Tell.typeText, 0, 0, 0, data);
        else this.around.tell(Tell.textSettled, editor.edit, caret, caret, value);
        if (this.around.isAlive()) this.mirror();
    }

    private copy(event: ClipboardEvent, what: Tell.copy | Tell.cut): void {
        event.preventDefault();
        const text = this.around.copied(what);
        if (text !== undefined) event.clipboardData?.setData('text/plain', text);
    }

    private focusCame(): void {
        if (this.isQuiet) return;
        this.around.keyboardMoved();
        this.enter();
    }

    /** Another window ends nothing, nor does a grid that is on its way to another place. */
    private focusWent(isKnown: boolean): void {
        if (this.isQuiet) return;
        this.around.keyboardMoved();
        // Who takes an element out of the document is told apart only when it has been done.
        if (isKnown) this.leave();
        else queueMicrotask(() => this.leave());
    }

    /** Ends the edit, too, when the keyboard is somewhere else in the document. */
    leave(): void {
        const { input, around } = this;
        if (!this.hasFocus && input.isConnected && document.hasFocus() && around.tell(Tell.hasKeyboard) !== 0)
            around.tell(Tell.focusLeft);
    }

    private quietly(action: () => void): void {
        const before = this.isQuiet;
        this.isQuiet = true;
        action();
        this.isQuiet = before;
    }
}
