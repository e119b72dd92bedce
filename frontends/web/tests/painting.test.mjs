/** What is painted after a scroll: rows that stay in sight are moved, and nothing is left behind. */

import assert from 'node:assert/strict';
import { after, before, describe, test } from 'node:test';

import { assertNoFaults, skip } from './browser.mjs';
import { openGrids } from './grids.mjs';

describe('painting', { skip, concurrency: false }, () => {
    let grids;
    before(async () => (grids = await openGrids()));
    after(() => grids?.close());

    for (const scale of [1, 1.5, 2])
        test(`scrolling paints what has come into sight, at a scale of ${scale}`, async () => {
            const { page } = await grids.open();
            await page.setViewport({ width: 1000, height: 600, deviceScaleFactor: scale });
            const picture = () =>
                page.evaluate(async () => {
                    await new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve)));
                    return first.shadowRoot.querySelector('canvas').toDataURL();
                });
            await page.evaluate(() => {
                first.setTexts(1, 0, 3, Array.from({ length: 354 }, (_, at) => `${at}`));
                const { fillText } = CanvasRenderingContext2D.prototype;
                CanvasRenderingContext2D.prototype.fillText = function (...all) {
                    window.texts++;
                    fillText.apply(this, all);
                };
            });
            await picture();
            const { x, y } = await page.evaluate(() => first.getBoundingClientRect().toJSON());
            await page.mouse.move(x + 50, y + 60);
            const painted = {};
            /** The browser scrolls when it likes. */
            const wheel = async (rows) => {
                const { position, last, step } = await page.evaluate(() => first.state.rowRange);
                await page.mouse.wheel({ deltaY: rows * step });
                const isThere = (wanted) => first.state.rowRange.position === wanted;
                await page.waitForFunction(isThere, {}, Math.min(last, position + rows));
            };
            const steps = {
                down: () => wheel(3),
                up: () => wheel(-1),
                both: async () => {
                    await page.evaluate(() => {
                        first.setTextMatrix(6, 1, '77');
                        first.cellFocus(40, 0);
                        first.setTextMatrix(38, 2, 'here');
                    });
                },
                far: () => wheel(40),
            };
            for (const [name, step] of Object.entries(steps)) {
                await page.evaluate(() => (window.texts = 0));
                await step();
                const shown = await picture();
                painted[name] = await page.evaluate(() => window.texts);
                // Another size and back paints all of it.
                for (const width of ['90%', ''])
                    await page.evaluate((width) => (first.style.width = width), width).then(picture);
                assert.ok(shown === (await picture()), `what is shown after ${name}`);
            }
            // Nothing moves by parts of a pixel.
            if (scale === 1.5) assert.ok(painted.down > 30);
            else assert.ok(painted.down <= 15 && painted.up <= 8, JSON.stringify(painted));
            assertNoFaults(page);
            await page.close();
        });
});
