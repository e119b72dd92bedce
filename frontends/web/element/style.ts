/** How the parts of a grid look. A page changes it by `--tablio-…` and the element's own style. */

export const styles = `
:host {
    display: block; position: relative; box-sizing: border-box; inline-size: 100%;
    block-size: 20rem; min-inline-size: 60px; min-block-size: 60px;
    border: 1px solid var(--tablio-border, GrayText); background: var(--tablio-window, Canvas);
    font: 13px/1.2 system-ui, sans-serif; direction: ltr; text-align: left;
    user-select: none; -webkit-user-select: none;
}
:host([hidden]) { display: none; }
:host(:focus-within) { border-color: var(--tablio-highlight, Highlight); }
.scroller { position: absolute; inset: 0; outline: none; overflow-anchor: none; }
canvas { position: sticky; left: 0; top: 0; display: block; cursor: default; }
canvas.edge { cursor: col-resize; }
.frame { position: absolute; overflow: hidden; }
.parked { opacity: 0; pointer-events: none; }
input {
    all: unset; box-sizing: border-box; display: block; position: absolute; left: 0; top: 0;
    block-size: 100%; inline-size: 100%; padding: 0 3px; cursor: text; line-height: normal;
    user-select: text; -webkit-user-select: text; white-space: pre; forced-color-adjust: none;
}
.probe { position: absolute; visibility: hidden; inline-size: 0; block-size: 0; }
.unseen { position: absolute; inset: 0; overflow: hidden; clip-path: inset(50%); pointer-events: none; }
button {
    font: inherit; color: var(--tablio-button-text, ButtonText); padding: 0; margin: 0;
    background: var(--tablio-button, ButtonFace); border: 1px solid var(--tablio-dark, ButtonBorder);
    border-radius: 2px; cursor: pointer;
}
:host > button { position: absolute; line-height: 1; overflow: hidden; }
.pane {
    position: fixed; inset: auto; margin: 0; padding: 2px; box-sizing: border-box; overflow: auto;
    color: var(--tablio-text, FieldText); background: var(--tablio-base, Field);
    border: 1px solid var(--tablio-dark, ButtonBorder); box-shadow: 0 2px 8px rgb(0 0 0 / 30%);
    z-index: 2147483647; font: inherit; cursor: default;
}
.pane:not([popover]):not(.open) { display: none; }
.option { padding: 3px 6px; white-space: pre; min-block-size: 1.2em; }
.option.chosen, .option:not([aria-disabled=true]):hover {
    color: var(--tablio-highlighted-text, HighlightText);
    background: var(--tablio-highlight, Highlight); forced-color-adjust: none;
}
.option[aria-disabled=true] { color: var(--tablio-disabled-text, GrayText); }
.menu .option { padding-inline: 24px 16px; position: relative; }
.option[aria-checked=true]::before { content: '\\2713'; position: absolute; left: 7px; }
hr { border: 0; border-top: 1px solid var(--tablio-disabled-text, GrayText); margin: 3px; }
.calendar {
    position: absolute; display: none; z-index: 1; padding: 4px; box-sizing: border-box;
    color: var(--tablio-text, FieldText); background: var(--tablio-base, Field);
    border: 1px solid var(--tablio-dark, ButtonBorder); box-shadow: 0 2px 8px rgb(0 0 0 / 30%);
}
.calendar.open { display: block; }
.calendar header { display: flex; align-items: center; gap: 2px; margin-block-end: 4px; }
.calendar header span { flex: 1; text-align: center; font-weight: 600; }
.calendar header button { inline-size: 24px; block-size: 24px; }
.month { display: grid; grid-template-columns: repeat(7, 32px); text-align: center; }
.month > * { line-height: 24px; border: 1px solid transparent; }
.weekday, .other { color: var(--tablio-disabled-text, GrayText); }
.day { cursor: pointer; border-radius: 2px; }
.today { border-color: currentcolor; }
#chosen-day {
    color: var(--tablio-highlighted-text, HighlightText);
    background: var(--tablio-highlight, Highlight); forced-color-adjust: none;
}
.day[aria-disabled=true] { visibility: hidden; }
dialog {
    position: absolute; inset: 0; margin: auto; block-size: fit-content; max-inline-size: 90%;
    padding: 12px 16px; z-index: 2; color: var(--tablio-window-text, CanvasText);
    background: var(--tablio-window, Canvas); border: 1px solid var(--tablio-dark, ButtonBorder);
    box-shadow: 0 2px 12px rgb(0 0 0 / 35%); white-space: pre-line;
}
dialog h1 { font: inherit; font-weight: 600; margin: 0 0 8px; }
dialog p { margin: 0 0 12px; }
dialog button { min-inline-size: 72px; padding: 4px 12px; margin-inline-end: 8px; }
dialog button.default { outline: 2px solid var(--tablio-highlight, Highlight); outline-offset: 1px; }
`;
