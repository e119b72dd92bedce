/**
 * The one native box of a grid. It holds the keyboard all the time, so that starting an edit moves
 * no focus and no key is lost on the way. Keys go to the control, the box shows what its editor
 * holds; only what a box does by itself (composing, the mouse, word keys) happens here first and is
 * then reported.
 */

import { strokeOf } from './keys.js';
import { cssColour, make, put, setStyle } from './make.js';
import { Tell } from './native.js';
import type { State } from './state.js';

/** What the box knows of the grid that it is part of. */
export interface Around {
    state: State;
    isAlive: boolean;
    /** Tells the control; 0 where it throws or is no more. */
    tell(what: Tell, a?: number, b?: number, c?: number, text?: string): number;
    copied(what: Tell.copy | Tell.cut): string | undefined;
    /** A menu or a message takes some keys first. */
    takesKey(event: KeyboardEvent): boolean;
    keyboardMoved(): void;
}

const backspace = 8;
const enter = 13;
const control = 2;
const clipboardKeys = [67, 86, 88];

export class TextBox {
    readonly input = make('input', { type: 'text', autocomplete: 'off', spellcheck: false, autocapitalize: 'off' });
    readonly frame = make('div', { className: 'frame' }, this.input);
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
        input.onkeydown = (event) => this.keyDown(event);
        input.onbeforeinput = (event) => this.beforeInput(event);
        input.oninput = input.onselect = input.onmouseup = input.onkeyup = () => this.settle();
        input.addEventListener('compositionstart', () => this.compositionStart());
        input.addEventListener('compositionend', ({ data }) => this.compositionEnd(data));
        // A browser offers to copy only what is selected, unless it is told that there is something.
        for (const name of ['beforecopy', 'beforecut'])
            input.addEventListener(name, (event) => event.preventDefault());
        input.oncopy = (event) => this.copy(event, Tell.copy);
        input.oncut = (event) => this.copy(event, Tell.cut);
        input.onpaste = (event) => {
            event.preventDefault();
            around.tell(Tell.paste, 0, 0, 0, event.clipboardData?.getData('text/plain'));
        };
        input.onfocus = () => this.focusMoved(() => this.enter());
        // Another window ends nothing. Who takes an element out of the document is told apart only
        // when it has been done.
        input.onblur = ({ relatedTarget }) => this.focusMoved(() =>
            relatedTarget ? this.leave() : queueMicrotask(() => this.leave()));
    }

    get hasFocus(): boolean {
        return (this.input.getRootNode() as ShadowRoot).activeElement === this.input;
    }

    focus(options: FocusOptions = { preventScroll: true }): void {
        this.input.focus(options);
    }

    /** The native focus has come: tells the control, unless it knows. */
    enter(): void {
        if (this.hasFocus && this.around.tell(Tell.hasKeyboard) === 0) this.around.tell(Tell.focusEntered);
    }

    /** Ends the edit, too, when the keyboard is somewhere else in the document. */
    leave(): void {
        const isElsewhere = !this.hasFocus && this.input.isConnected && document.hasFocus();
        if (isElsewhere && this.around.tell(Tell.hasKeyboard) !== 0) this.around.tell(Tell.focusLeft);
    }

    /** What is being composed belongs to the cell that it was composed in. */
    endComposition(): void {
        if (this.isComposing) this.refocus();
    }

    /** Shows the open editor; without one the box lies unseen over the current cell. */
    mirror(): void {
        const { editor, row, cell } = this.around.state;
        const { input, frame } = this;
        frame.classList.toggle('parked', editor === undefined);
        this.edit = editor?.edit ?? 0;
        if (editor === undefined) {
            if (row >= 0) put(frame, cell);
            if (this.isComposing) this.dropComposition();
            else if (input.value !== '') input.value = '';
            return;
        }
        put(frame, editor.frame);
        setStyle(input, {
            width: `${editor.width}px`, 'padding-right': `${3 + editor.covered}px`, font: editor.font,
            'text-align': editor.alignsRight ? 'right' : 'left', color: cssColour(editor.foreColor),
            'background-color': cssColour(editor.backColor),
        });
        // Setting a text would end a composition.
        if (this.isComposing) return;
        if (input.value !== editor.text) input.value = editor.text;
        const { anchor, caret } = editor;
        const [from, to, shown] = this.selection();
        const isBackward = caret < anchor;
        if (from === Math.min(anchor, caret) && to === Math.max(anchor, caret) && shown === isBackward) return;
        input.setSelectionRange(
            Math.min(anchor, caret), Math.max(anchor, caret), isBackward ? 'backward' : 'forward',
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

    private selection(): [number, number, boolean] {
        const { selectionStart, selectionEnd, selectionDirection } = this.input;
        return [selectionStart ?? 0, selectionEnd ?? 0, selectionDirection === 'backward'];
    }

    private keyDown(event: KeyboardEvent): void {
        // These keys belong to the input method; 229 is one that has only just ended.
        if (event.isComposing || this.isComposing || event.keyCode === 229) return;
        if (event.key === 'Dead' || event.key === 'Process') return;
        const { around } = this;
        if (around.takesKey(event)) return event.preventDefault();
        const { code, shift, character } = strokeOf(event);
        if (shift === control && clipboardKeys.includes(code)) return;
        this.enter();
        // The host's shortcuts do not see a key that is the grid's.
        if (around.tell(Tell.wantsKey, code, shift, character === 0 ? 0 : 1) !== 0) event.stopPropagation();
        let isDealt = code !== 0 && around.tell(Tell.keyDown, code, shift) !== 0;
        if (!isDealt && character !== 0 && around.isAlive)
            isDealt = around.tell(Tell.keyPress, character) !== 0;
        // Ctrl+arrow, Ctrl+Backspace and the like are the box's: every platform has its own.
        const isBoxKey = around.state.editor !== undefined || (character === 0 && code !== backspace);
        if (isDealt || !isBoxKey || !around.isAlive) event.preventDefault();
    }

    private beforeInput(event: InputEvent): void {
        if (this.isComposing || event.isComposing) return;
        const { around } = this;
        const { inputType } = event;
        this.enter();
        const isBack = inputType === 'deleteContentBackward' && event.isTrusted;
        const isTyped = inputType === 'insertText' || inputType === 'insertFromDrop';
        if (isBack || isTyped || inputType === 'insertLineBreak' || !around.state.editor) event.preventDefault();
        if (isBack && around.tell(Tell.keyDown, backspace) === 0) around.tell(Tell.keyPress, backspace);
        else if (inputType === 'insertLineBreak') around.tell(Tell.keyDown, enter);
        else if (isTyped)
            around.tell(Tell.typeText, 0, 0, 0, event.data ?? event.dataTransfer?.getData('text/plain'));
    }

    /** Reports what the box has come to by itself. */
    private settle(): void {
        const { editor } = this.around.state;
        const { value } = this.input;
        if (this.isComposing || editor === undefined || this.edit !== editor.edit) return;
        const [from, to, isBackward] = this.selection();
        const [anchor, caret] = isBackward ? [to, from] : [from, to];
        if (value !== editor.text || anchor !== editor.anchor || caret !== editor.caret)
            this.around.tell(Tell.textSettled, this.edit, anchor, caret, value);
    }

    private compositionStart(): void {
        const { value } = this.input;
        const [from, to] = this.selection();
        this.beside = [value.slice(0, from), value.slice(to)];
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
        this.refocus();
        input.value = '';
        setTimeout(() => {
            input.readOnly = false;
            this.mirror();
        });
    }

    private compositionEnd(data: string): void {
        if (!this.isComposing) return;
        this.isComposing = false;
        const { around } = this;
        const { editor } = around.state;
        if (editor === undefined) return;
        const { value } = this.input;
        const [caret] = this.selection();
        // An input method may also have replaced what stood beside it.
        if (value === this.beside.join(data)) around.tell(Tell.typeText, 0, 0, 0, data);
        else around.tell(Tell.textSettled, editor.edit, caret, caret, value);
        if (around.isAlive) this.mirror();
    }

    private copy(event: ClipboardEvent, what: Tell.copy | Tell.cut): void {
        event.preventDefault();
        const text = this.around.copied(what);
        if (text !== undefined) event.clipboardData?.setData('text/plain', text);
    }

    private focusMoved(then: () => void): void {
        if (this.isQuiet) return;
        this.around.keyboardMoved();
        then();
    }

    /** Only a box that is left ends a composition. */
    private refocus(): void {
        const before = this.isQuiet;
        this.isQuiet = true;
        this.input.blur();
        this.focus();
        this.isQuiet = before;
    }
}
