/** What the control has to know of its page: colours, the font and the locale. */

import type { NativeGrid } from './native.js';
import type { Painter } from './painter.js';
import { twips } from './state.js';

/** In the order of the core's `Palette`; a page may set its own colours. */
const roles = {
    base: 'Field', text: 'FieldText', 'disabled-text': 'GrayText', button: 'ButtonFace',
    'button-text': 'ButtonText', window: 'Canvas', 'window-text': 'CanvasText',
    highlight: 'Highlight', 'highlighted-text': 'HighlightText', dark: 'ButtonBorder',
    'tip-base': 'Canvas', 'tip-text': 'CanvasText',
};

/** The colours as the page has them at the moment, in words that are alike while they are. */
export function paletteOf(probe: HTMLElement): string[] {
    return Object.entries(roles).map(([role, system]) => {
        probe.style.color = `var(--tablio-${role}, ${system})`;
        return getComputedStyle(probe).color;
    });
}

const brush = document.createElement('canvas').getContext('2d')!;

/** Any colour of CSS as 0xBBGGRR, on a ground where it is seen through. */
function numberOf(colour: string, ground = 0xffffff): number {
    brush.fillStyle = '#000';
    brush.fillStyle = colour;
    // An opaque colour reads back as #rrggbb.
    const read = String(brush.fillStyle);
    const [red, green, blue, alpha = 1] = read.startsWith('#')
        ? [1, 3, 5].map((at) => parseInt(read.slice(at, at + 2), 16))
        : read.match(/[\d.]+/g)!.map(Number);
    const over = (part: number, shift: number) => {
        const below = (ground >> shift) & 255;
        return Math.round(below + (part - below) * alpha) << shift;
    };
    return over(red, 0) | over(green, 8) | over(blue, 16);
}

export function tellLook(grid: NativeGrid, palette: string[], scale: number, hasKeyboard: boolean): void {
    const base = numberOf(palette[0]);
    grid.module.give(scale, Number(hasKeyboard), ...palette.map((colour) => numberOf(colour, base)));
    grid.run('setLook');
}

/** The signs of numbers, the order of dates, the font and the height of its lines. */
export function tellLocale(
    grid: NativeGrid, language: string, own: CSSStyleDeclaration, painter: Painter,
): void {
    const parts = new Intl.NumberFormat(language).formatToParts(1234567890123.5);
    const valueOf = (type: string) => parts.find((part) => part.type === type)?.value ?? '';
    const groups = parts.filter(({ type }) => type === 'integer').map(({ value }) => value.length);
    const order = new Intl.DateTimeFormat(language)
        .formatToParts()
        .map(({ type }) => type[0])
        .filter((type) => 'dmy'.includes(type))
        .join('');
    const { fontFamily, fontSize, fontStyle, fontWeight } = own;
    const css = `${fontStyle} ${fontWeight} ${fontSize} ${fontFamily}`;
    grid.module.give(
        valueOf('decimal') || '.', valueOf('group'), ...(groups.length > 2 ? groups.slice(-2).reverse() : [0, 0]),
        Math.max(0, ['dmy', 'mdy', 'ymd'].indexOf(order)),
        fontFamily.split(',')[0].replaceAll('"', ''), fontFamily, (parseFloat(fontSize) * 72) / 96,
        Number(fontWeight), Number(fontStyle === 'italic'), twips(painter.lineHeight(0, css)),
    );
    grid.run('setLocale');
}
