/** Draws scenes of cells on the canvas, in device pixels, and measures texts for them. */

import { cssColour } from './make.js';
import type { NativeGrid } from './native.js';

/** In the order of native/scene.cpp. */
const enum Kind { Fill, Text, Tick, Clip, Unclip }

export class Painter {
    private readonly fonts: { css: string; ascent: number }[] = [];
    private readonly brush: CanvasRenderingContext2D;
    /** The font that the brush has. */
    private css = '';

    constructor(private readonly canvas: HTMLCanvasElement) {
        this.brush = canvas.getContext('2d', { alpha: false })!;
    }

    /** Keeps a font under its number, and answers how high a line of it is. */
    lineHeight(number: number, css: string): number {
        this.fonts[number] = { css, ascent: 0 };
        this.setFont(number);
        const { fontBoundingBoxAscent, fontBoundingBoxDescent } = this.brush.measureText('');
        const ascent = (this.fonts[number].ascent = Math.round(fontBoundingBoxAscent));
        return ascent + Math.round(fontBoundingBoxDescent);
    }

    textWidth(font: number, text: string): number {
        this.setFont(font);
        return this.brush.measureText(text).width;
    }

    /** Paints what has changed since the last time. */
    paint(grid: NativeGrid): void {
        const { brush, canvas } = this;
        const { width, height } = canvas;
        const scene = grid.ask('paint', width, height);
        const { number } = scene;
        const [top, distance] = [number(), number()];
        if (distance !== 0) {
            const kept = height - top - Math.abs(distance);
            const from = distance > 0 ? top : top - distance;
            brush.drawImage(canvas, 0, from, width, kept, 0, from + distance, width, kept);
        }
        while (!scene.atEnd) {
            const kind: Kind = number();
            if (kind === Kind.Fill) {
                brush.fillStyle = cssColour(number());
                brush.fillRect(number(), number(), number(), number());
            } else if (kind === Kind.Text) {
                brush.fillStyle = cssColour(number());
                const { ascent } = this.setFont(number());
                const [left, line] = [number(), number()];
                brush.fillText(scene.text(), left, line + ascent);
            } else if (kind === Kind.Tick) {
                brush.strokeStyle = cssColour(number());
                brush.lineWidth = number();
                brush.lineCap = brush.lineJoin = 'round';
                brush.beginPath();
                for (let point = 0; point < 3; point++) brush.lineTo(number(), number());
                brush.stroke();
            } else if (kind === Kind.Clip) {
                brush.save();
                brush.beginPath();
                brush.rect(number(), number(), number(), number());
                brush.clip();
            } else {
                brush.restore();
                this.css = '';
            }
        }
    }

    /** A canvas of another size has forgotten all of it. */
    forgetFont(): void {
        this.css = '';
    }

    private setFont(number: number): { css: string; ascent: number } {
        const font = this.fonts[number];
        if (font.css !== this.css) this.brush.font = this.css = font.css;
        return font;
    }
}
