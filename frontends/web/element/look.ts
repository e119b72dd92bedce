/** What the control has to know of its page: colours, the font and the locale. */

import type { NativeGrid, Value } from './native.js';
import type { TFont } from '../tablio-grid.js';
import { twips } from './state.js';

/** In the order of the core's `Palette`; a page may set its own colours. */
const roles = {
    base: 'Field', text: 'FieldText', 'disabled-text': 'GrayText', button: 'ButtonFace',
    'button-text': 'ButtonText', window: 'Canvas', 'window-text': 'CanvasText',
    highlight: 'Highlight', 'highlighted-text': 'HighlightText', dark: 'ButtonBorder',
    'tip-base': 'Canvas', 'tip-text': 'CanvasText',
};

/** By the number of the system colour, where the user has chosen all of them. */
const forced = [
    'Canvas', 'Canvas', 'Highlight', 'Canvas', 'Canvas', 'Field', 'ButtonBorder', 'CanvasText',
    'FieldText', 'HighlightText', 'ButtonBorder', 'ButtonBorder', 'Canvas', 'Highlight',
    'HighlightText', 'ButtonFace', 'ButtonBorder', 'GrayText', 'ButtonText', 'GrayText',
    'ButtonBorder', 'ButtonBorder', 'ButtonBorder', 'CanvasText', 'Canvas',
];

/** The colours as the page has them at the moment, in words that are alike while they are. */
export function paletteOf(probe: HTMLElement): string[] {
    const seen = (colour: string) => {
        probe.style.color = colour;
        return getComputedStyle(probe).color;
    };
    const isForced = matchMedia('(forced-colors: active)').matches;
    return [
        ...Object.entries(roles).map(([role, system]) => seen(`var(--tablio-${role}, ${system})`)),
        ...(isForced ? forced.map(seen) : []),
    ];
}

/** Any colour of CSS as 0xBBGGRR, on a ground where it is seen through. */
function numberOf(colour: string, brush: CanvasRenderingContext2D, ground = 0xffffff): number {
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

export function tellLook(
    grid: NativeGrid, palette: string[], scale: number, hasKeyboard: boolean,
    brush: CanvasRenderingContext2D,
): void {
    const base = numberOf(palette[0], brush);
    grid.module.putValues(palette.map((colour) => numberOf(colour, brush, base)));
    grid.run('setLook', scale, Number(hasKeyboard), palette.length);
}

/** A font that the control asks for, in device pixels; what it leaves out is the page's. */
export function cssFont(font: TFont, own: CSSStyleDeclaration, scale: number): string {
    const size = font.size ? (font.size * 96) / 72 : parseFloat(own.fontSize);
    const weight = font.weight || (font.bold ? 700 : own.fontWeight);
    const style = font.italic ? 'italic' : own.fontStyle;
    const family = font.name ? `"${font.name}", ${own.fontFamily}` : own.fontFamily;
    return `${style} ${weight} ${size * scale}px ${family}`;
}

/** The signs of numbers, the order of dates, the font and the height of its lines. */
export function tellLocale(
    grid: NativeGrid, language: string, own: CSSStyleDeclaration, brush: CanvasRenderingContext2D,
): void {
    const parts = new Intl.NumberFormat(language).formatToParts(1234567890123.5);
    const valueOf = (type: string) => parts.find((part) => part.type === type)?.value ?? '';
    const groups = parts.filter((part) => part.type === 'integer').map((part) => part.value.length);
    const isGrouped = groups.length > 2;
    const order = new Intl.DateTimeFormat(language)
        .formatToParts()
        .map((part) => part.type[0])
        .filter((type) => 'dmy'.includes(type))
        .join('');
    const size = parseFloat(own.fontSize);
    brush.font = cssFont({}, own, 1);
    const { fontBoundingBoxAscent, fontBoundingBoxDescent } = brush.measureText('');
    const values: Value[] = [
        valueOf('decimal') || '.', valueOf('group'), isGrouped ? groups.at(-1)! : 0,
        isGrouped ? groups.at(-2)! : 0, Math.max(0, ['dmy', 'mdy', 'ymd'].indexOf(order)),
        { name: own.fontFamily.split(',')[0].replaceAll('"', ''), size: (size * 72) / 96,
          bold: Number(own.fontWeight) >= 600, italic: own.fontStyle === 'italic' },
        twips(fontBoundingBoxAscent + fontBoundingBoxDescent),
    ];
    grid.module.putValues(values);
    grid.run('setLocale');
}
