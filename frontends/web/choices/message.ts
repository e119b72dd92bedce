/** A warning, or a question: a dialog that does not keep the user from going on. */

import { make, makeButton } from '../element/make.js';

export class MessageBox {
    readonly element = make('dialog', { role: 'alertdialog' });
    private answered?: (yes: boolean) => void;

    constructor(private readonly said: (english: string) => string) {}

    /** What a question is answered goes to `answered`; a warning has none to ask. */
    show(title: string, text: string, answered?: (yes: boolean) => void): void {
        this.answered = answered;
        const button = (caption: string, yes = false) => {
            const words = this.said(caption);
            return makeButton(words, words, () => this.close(yes));
        };
        const buttons = answered ? [button('Yes', true), button('No')] : [button('OK')];
        buttons.at(-1)!.className = 'default';
        this.element.ariaLabel = title;
        this.element.replaceChildren(
            make('h1', { textContent: title }), make('p', { textContent: text }), ...buttons,
        );
        this.element.setAttribute('open', '');
    }

    /** Enter, Esc and what answers a question end it and do nothing else; other keys go on. */
    takesKey({ key }: KeyboardEvent): boolean {
        if (!this.element.open) return false;
        const letters = this.answered ? ['Yes', 'No'].map((word) => this.said(word)[0].toLowerCase()) : [];
        const answer = letters.indexOf(key.toLowerCase());
        const isAnswer = answer >= 0 || key === 'Enter' || key === 'Escape';
        if (isAnswer || [...key].length === 1) this.close(answer === 0);
        return isAnswer;
    }

    private close(yes: boolean): void {
        const { answered } = this;
        this.answered = undefined;
        this.element.removeAttribute('open');
        answered?.(yes);
    }
}
