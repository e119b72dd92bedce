/** A warning, or a question: a dialog that does not keep the user from going on. */

export class Message {
    readonly element = document.createElement('dialog');
    private answer?: (yes: boolean) => void;

    constructor() {
        this.element.role = 'alertdialog';
    }

    /** What a question is answered goes to `answered`; a warning has none to ask. */
    show(title: string, text: string, answered?: (yes: boolean) => void): void {
        this.answer = answered;
        const heading = document.createElement('h1');
        heading.textContent = title;
        const words = document.createElement('p');
        words.textContent = text;
        const button = (caption: string, yes: boolean) => {
            const element = document.createElement('button');
            element.tabIndex = -1;
            element.textContent = caption;
            element.className = yes ? '' : 'default';
            element.onclick = () => this.close(yes);
            return element;
        };
        const buttons = answered ? [button('Yes', true), button('No', false)] : [button('OK', false)];
        this.element.ariaLabel = title;
        this.element.replaceChildren(heading, words, ...buttons);
        this.element.setAttribute('open', '');
    }

    /** Enter, Esc and what answers a question end it and do nothing else; other keys go on. */
    takesKey({ key }: KeyboardEvent): boolean {
        if (!this.element.open) return false;
        const isYes = this.answer !== undefined && key.toLowerCase() === 'y';
        const isAnswer = isYes || key === 'Enter' || key === 'Escape' ||
            (this.answer !== undefined && key.toLowerCase() === 'n');
        if (isAnswer || [...key].length === 1) this.close(isYes);
        return isAnswer;
    }

    close(yes = false): void {
        const answer = this.answer;
        this.answer = undefined;
        this.element.removeAttribute('open');
        answer?.(yes);
    }
}
