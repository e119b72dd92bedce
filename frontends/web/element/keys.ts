/** Keys of the browser as the control knows them: a code, the modifiers, the character typed. */

/** Codes are the control's own everywhere, but for signs that Firefox has others for. */
const firefox: Record<number, number> = { 59: 186, 61: 187, 171: 187, 173: 189 };
/** A key that types a character but has no code; 0 would mean a key that is swallowed. */
const unnamed = 231;

export function strokeOf(event: KeyboardEvent) {
    const isCharacter = [...event.key].length === 1;
    // AltGr types characters, and is what some platforms call Ctrl and Alt together.
    const isText = event.getModifierState('AltGraph') || event.ctrlKey === event.altKey;
    const isTyped = isCharacter && isText && !event.metaKey;
    const { keyCode } = event;
    return {
        code: (isCharacter && firefox[keyCode]) || keyCode || (isTyped ? unnamed : 0),
        shift: Number(event.shiftKey) + 2 * Number(event.ctrlKey || event.metaKey) +
            4 * Number(event.altKey),
        /** 0 for a key that types nothing. */
        character: event.key === 'Backspace' && isText ? 8 : isTyped ? event.key.codePointAt(0)! : 0,
    };
}
