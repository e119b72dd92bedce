/** Choices in the page's own words, and where they and the editor lie at scales between whole ones. */

import assert from 'node:assert/strict';
import { after, before, describe, test } from 'node:test';

import { assertNoFaults, skip } from './browser.mjs';
import { openGrids } from './grids.mjs';

describe('choices', { skip, concurrency: false }, () => {
    let grids;
    before(async () => (grids = await openGrids()));
    after(() => grids?.close());

    test("speak the page's words and its language", async () => {
        const { page, strike, goTo } = await grids.open();
        const shown = (selector) =>
            page.evaluate((selector) => first.shadowRoot.querySelector(selector)?.textContent, selector);
        await page.evaluate(() => {
            first.captions = {
                '&Mark Row': 'Zeile m&arkieren', OK: 'Gut', Warning: 'Achtung', 'Next month': 'Weiter',
                'Data entry grid': 'Liste', checked: 'ja',
            };
            first.lang = 'de';
            first.gridPopUpMenu = true;
            first.setColEditType(2, 3);
            first.setColFormat(2, '##/##/####');
            first.cellFocus(2, 0);
            first.popUpMenu(300, 300);
        });
        assert.deepEqual([await shown('#entry-0'), await shown('#entry-2')], ['Zeile markieren', 'Add Row']);
        // By the letter of its own.
        await page.keyboard.press('a');
        assert.deepEqual(await page.evaluate(() => [first.markStatus, first.markRow]), [true, 2]);
        await goTo(3, 2);
        await strike('17052026\n');
        await goTo(3, 2);
        await page.keyboard.press('F2');
        await page.keyboard.press('F4');
        await page.waitForFunction(() => first.shadowRoot.querySelector('.calendar.open'));
        const [title, weekday, day, next] = await page.evaluate(() => {
            const { shadowRoot } = first;
            return [
                shadowRoot.querySelector('.calendar span').textContent,
                shadowRoot.querySelector('.weekday').textContent,
                shadowRoot.querySelector('#chosen-day').ariaLabel,
                shadowRoot.querySelector('.calendar button:nth-of-type(3)').ariaLabel,
            ];
        });
        assert.deepEqual([title, weekday, day, next], ['Mai 2026', 'Mo', 'Sonntag, 17. Mai 2026', 'Weiter']);
        await page.keyboard.press('Escape');
        await page.keyboard.press('Escape');
        await goTo(4, 2);
        await strike('99\n');
        assert.deepEqual([await shown('dialog h1'), await shown('dialog button')], ['Achtung', 'Gut']);
        assertNoFaults(page);
        await page.close();
    });

    for (const scale of [1, 1.25, 1.5])
        test(`an editor lies in its cell at a scale of ${scale}`, async () => {
            const { page, strike, goTo } = await grids.open();
            await page.setViewport({ width: 1000, height: 600, deviceScaleFactor: scale });
            await page.evaluate(() => first.style.setProperty('--tablio-highlight', 'rgb(255, 0, 128)'));
            // The first column's frame is cut off at the left.
            for (const cell of [[1, 1], [4, 2], [7, 1], [11, 2]]) {
                await goTo(...cell);
                await strike('1');
                const { painted, shown } = await page.evaluate(async () => {
                    await new Promise((done) => requestAnimationFrame(() => setTimeout(done)));
                    const canvas = first.shadowRoot.querySelector('canvas');
                    const { data } = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height);
                    // The frame that the cells paint around the open editor has this colour alone.
                    const painted = { left: Infinity, top: Infinity, right: 0, bottom: 0 };
                    for (let at = 0; at < data.length; at += 4) {
                        if (data[at] !== 255 || data[at + 1] !== 0 || data[at + 2] !== 128) continue;
                        const [x, y] = [(at / 4) % canvas.width, Math.floor(at / 4 / canvas.width)];
                        painted.left = Math.min(painted.left, x);
                        painted.top = Math.min(painted.top, y);
                        painted.right = Math.max(painted.right, x + 1);
                        painted.bottom = Math.max(painted.bottom, y + 1);
                    }
                    const corner = canvas.getBoundingClientRect();
                    const frame = first.shadowRoot.querySelector('.frame').getBoundingClientRect();
                    const shown = {};
                    for (const [side, from] of [['left', 'left'], ['right', 'left'], ['top', 'top'], ['bottom', 'top']])
                        shown[side] = (frame[side] - corner[from]) * devicePixelRatio;
                    return { painted, shown };
                });
                // Inside the painted frame, and nowhere farther from it than a logical pixel.
                const line = Math.round(scale);
                for (const [side, gap] of [
                    ['left', shown.left - painted.left - line], ['top', shown.top - painted.top - line],
                    ['right', painted.right - line - shown.right], ['bottom', painted.bottom - line - shown.bottom],
                ])
                    assert.ok(gap > -0.01 && gap < scale, `${side} of ${cell}: ${gap} device pixels`);
                await page.keyboard.press('Escape');
            }
            assertNoFaults(page);
            await page.close();
        });
});
