/** Keys of the browser as the control knows them: a code, the modifiers, the character typed. */

export interface Stroke {
    code: number;
    shift: number;
    /** 0 for a key that types nothing. */
    character: number;
}

export const named: Record<string, number> = {
    Backspace: 8, Tab: 9, Clear: 12, Enter: 13, Shift: 16, Control: 17, Alt: 18, Pause: 19,
    CapsLock: 20, Escape: 27, ' ': 32, PageUp: 33, PageDown: 34, End: 35, Home: 36, ArrowLeft: 37,
    ArrowUp: 38, ArrowRight: 39, ArrowDown: 40, Insert: 45, Delete: 46, ContextMenu: 93,
    ';': 186, ':': 186, '=': 187, '+': 187, ',': 188, '<': 188, '-': 189, _: 189, '.': 190,
    '>': 190, '/': 191, '?': 191, '`': 192, '~': 192, '[': 219, '{': 219, '\\': 220, '|': 220,
    ']': 221, '}': 221, "'": 222, '"': 222,
};
const keypad: Record<string, number> = {
    NumpadMultiply: 106, NumpadAdd: 107, NumpadSubtract: 109, NumpadDecimal: 110, NumpadDivide: 111,
};
const shifted = ')!@#$%^&*(';

/** A key that types a character but has no code of its own; 0 would mean a key that is swallowed. */
const unnamed = 231;

function codeOf({ key, code }: KeyboardEvent): number {
    const isCharacter = [...key].length === 1;
    if (isCharacter && code.startsWith('Numpad'))
        return keypad[code] ?? 96 + Number(code.slice('Numpad'.length));
    if (named[key] !== undefined) return named[key];
    if (/^F\d+$/.test(key)) return 111 + Number(key.slice(1));
    if (!isCharacter) return 0;
    if (/^[a-z0-9]$/i.test(key)) return key.toUpperCase().charCodeAt(0);
    if (shifted.includes(key) && code.startsWith('Digit')) return code.charCodeAt('Digit'.length);
    return unnamed;
}

export function strokeOf(event: KeyboardEvent): Stroke {
    // AltGr types characters, and is what some platforms call Ctrl and Alt together.
    const isText = event.getModifierState('AltGraph') || event.ctrlKey === event.altKey;
    const isTyped = isText && !event.metaKey && [...event.key].length === 1;
    return {
        code: codeOf(event),
        shift: Number(event.shiftKey) + 2 * Number(event.ctrlKey || event.metaKey) +
            4 * Number(event.altKey),
        character: event.key === 'Backspace' && isText ? 8 : isTyped ? event.key.codePointAt(0)! : 0,
    };
}
