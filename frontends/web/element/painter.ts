/** Draws scenes of cells on the canvas, in device pixels, and keeps what it has measured. */

import type { NativeGrid, Reply } from './native.js';
import { cssFont } from './look.js';
import { cssColour } from './state.js';

interface CellFont {
    css: string;
    ascent: number;
    height: number;
    underline: boolean;
    strikethrough: boolean;
    widths: Map<string, number>;
}

const enum Kind { Fill, Text, Tick }
const enum Flag { LineEnds = 1, Wraps = 2, Hashes = 4 }
const mostWidths = 20000;

/** In the middle of an odd rest a text stands nearer to the end. */
function aligned(from: number, size: number, length: number, third: number): number {
    return from + [0, Math.ceil((size - length) / 2), size - length][third];
}

export class Painter {
    private readonly fonts = new Map<number, CellFont>();
    private readonly colours = new Map<number, string>();
    private brush: CanvasRenderingContext2D;
    private font?: CellFont;

    constructor(private readonly canvas: HTMLCanvasElement) {
        this.brush = canvas.getContext('2d', { alpha: false })!;
    }

    get context(): CanvasRenderingContext2D {
        return this.brush;
    }

    /** The page has another font or another scale. */
    forgetFonts(): void {
        this.fonts.clear();
    }

    /** Paints what has changed since the last time. */
    paint(grid: NativeGrid, own: CSSStyleDeclaration, scale: number): void {
        const { width, height } = this.canvas;
        const scene = grid.ask('paint', width, height);
        const top = scene.number();
        const distance = scene.number();
        if (distance !== 0) {
            const kept = height - top - Math.abs(distance);
            const from = distance > 0 ? top : top - distance;
            this.brush.drawImage(
                this.canvas, 0, from, width, kept, 0, from + distance, width, kept,
            );
        }
        this.font = undefined;
        this.draw(scene, grid, own, scale);
    }

    private draw(scene: Reply, grid: NativeGrid, own: CSSStyleDeclaration, scale: number): void {
        const { brush } = this;
        const number = scene.number;
        while (!scene.atEnd) {
            const kind: Kind = number();
            if (kind === Kind.Fill) {
                brush.fillStyle = this.colour(number());
                brush.fillRect(number(), number(), number(), number());
            } else if (kind === Kind.Text) {
                brush.fillStyle = this.colour(number());
                this.setFont(number(), grid, own, scale);
                this.text(scene);
            } else {
                brush.strokeStyle = this.colour(number());
                brush.lineWidth = number() / 64;
                brush.lineCap = brush.lineJoin = 'round';
                brush.beginPath();
                for (let point = 0; point < 3; point++) brush.lineTo(number() / 64, number() / 64);
                brush.stroke();
            }
        }
    }

    private text(scene: Reply): void {
        const number = scene.number;
        const roomTop = number();
        const roomHeight = number();
        const left = number();
        const top = number();
        const width = number();
        const height = number();
        const across = number();
        const down = number();
        const flags = number();
        let text = scene.text();
        const font = this.font!;
        const hasLineEnds = (flags & Flag.LineEnds) !== 0;
        const isTooWide = hasLineEnds || this.width(text) > width;
        let lines = [text];
        if (isTooWide && flags & Flag.Wraps && height >= 2 * font.height) {
            lines = this.wrapped(text, width, Math.floor(height / font.height));
        } else if (isTooWide) {
            if (hasLineEnds) text = text.replace(/\s+/g, ' ').trim();
            lines = [
                flags & Flag.Hashes
                    ? '#'.repeat(Math.max(1, Math.floor(width / this.width('#'))))
                    : this.elided(text, width),
            ];
        }
        const isClipped = font.height * lines.length > roomHeight;
        if (isClipped) {
            this.brush.save();
            this.brush.beginPath();
            this.brush.rect(left - width, roomTop, 3 * width, roomHeight);
            this.brush.clip();
        }
        let y = aligned(top, height, font.height * lines.length, down);
        for (const line of lines) {
            this.line(line, aligned(left, width, Math.round(this.width(line)), across), y);
            y += font.height;
        }
        if (isClipped) this.brush.restore();
    }

    private line(text: string, x: number, top: number): void {
        const font = this.font!;
        this.brush.fillText(text, x, top + font.ascent);
        const thickness = Math.max(1, Math.round(font.height / 16));
        const rule = (y: number) =>
            this.brush.fillRect(x, Math.round(y), this.width(text), thickness);
        if (font.underline) rule(top + font.ascent + thickness);
        if (font.strikethrough) rule(top + font.ascent * 0.68);
    }

    /** As much of it as there is room for, with dots in place of the rest. */
    private elided(text: string, width: number): string {
        if (this.width(text) <= width) return text;
        const characters = [...text];
        let most = 0;
        let least = characters.length;
        while (least - most > 1) {
            const middle = (most + least) >> 1;
            const fits = this.width(characters.slice(0, middle).join('') + '…') <= width;
            if (fits) most = middle;
            else least = middle;
        }
        return characters.slice(0, most).join('').trimEnd() + '…';
    }

    /** Broken between words, or in a word that is wider than the room. */
    private wrapped(text: string, width: number, most: number): string[] {
        const lines: string[] = [];
        for (const part of text.split('\n')) {
            let line = '';
            for (const word of part.match(/\S+\s*|\s+/g) ?? ['']) {
                if (line !== '' && this.width((line + word).trimEnd()) > width) {
                    lines.push(line.trimEnd());
                    line = '';
                }
                line += word;
                while (this.width(line.trimEnd()) > width && line.length > 1) {
                    let end = 1;
                    while (this.width(line.slice(0, end + 1)) <= width) end++;
                    lines.push(line.slice(0, end));
                    line = line.slice(end);
                }
            }
            lines.push(line.trimEnd());
        }
        if (lines.length <= most) return lines;
        const rest = lines.slice(most - 1).join(' ');
        return [...lines.slice(0, most - 1), this.elided(rest, width)];
    }

    private width(text: string): number {
        const { widths } = this.font!;
        let width = widths.get(text);
        if (width === undefined) {
            width = this.brush.measureText(text).width;
            if (widths.size > mostWidths) widths.clear();
            widths.set(text, width);
        }
        return width;
    }

    private colour(number: number): string {
        let css = this.colours.get(number);
        if (css === undefined) this.colours.set(number, (css = cssColour(number)));
        return css;
    }

    private setFont(index: number, grid: NativeGrid, own: CSSStyleDeclaration, scale: number): void {
        let font = this.fonts.get(index);
        if (font !== undefined && font === this.font) return;
        if (font === undefined) {
            const asked = grid.font(index);
            const css = cssFont(asked, own, scale);
            this.brush.font = css;
            const { fontBoundingBoxAscent, fontBoundingBoxDescent } = this.brush.measureText('');
            const ascent = Math.round(fontBoundingBoxAscent);
            font = {
                css, ascent, height: ascent + Math.round(fontBoundingBoxDescent),
                underline: asked.underline ?? false, strikethrough: asked.strikethrough ?? false,
                widths: new Map(),
            };
            this.fonts.set(index, font);
        }
        this.brush.font = font.css;
        this.font = font;
    }
}
