/** What comes in by the browser's own input and no scenario can say: compositions, the clipboard, a
 * typist who does not wait. */

import assert from 'node:assert/strict';
import { after, before, beforeEach, afterEach, describe, test } from 'node:test';

import { assertNoFaults, skip } from './browser.mjs';
import { openGrids } from './grids.mjs';

describe('input', { skip, concurrency: false }, () => {
    let grids, hands;
    before(async () => (grids = await openGrids()));
    after(() => grids?.close());
    beforeEach(async () => (hands = await grids.open()));
    afterEach(async () => {
        assertNoFaults(hands.page);
        await hands.page.close();
    });

    test('a composition where nothing may be entered leaves no trace', async () => {
        const { page, goTo, compose, commit, box, strike, cell } = hands;
        await page.evaluate(() =>
            first.addEventListener('editPreValidation', (event) => {
                if (event.detail.row === 2) event.preventDefault();
            }),
        );
        for (const [row, col] of [[2, 0], [1, 3]]) {
            await goTo(row, col);
            await compose('に');
            await compose('にほ');
            await commit('日本');
            assert.deepEqual([await box(), await cell(row, col)], [['', 'parked'], '']);
        }
        // The keyboard has not gone anywhere.
        await goTo(1, 0);
        await strike('next\n');
        assert.equal(await cell(1, 0), 'next');
    });

    test('a composition opens the editor and keeps its first key', async () => {
        const { page, compose, commit, box, cell, goTo } = hands;
        await page.evaluate(() => first.setTextMatrix(1, 0, 'old'));
        await compose('に');
        assert.deepEqual(await box(), ['に', 'open']);
        await compose('にほん');
        await commit('日本');
        assert.deepEqual(await box(), ['日本', 'open']);
        await compose('ご');
        await commit('語');
        await page.keyboard.press('Enter');
        assert.equal(await cell(1, 0), '日本語');
        // What is composed is typed: a number takes no letters.
        await goTo(1, 1);
        await compose('一２');
        await commit('x5');
        await page.keyboard.press('Enter');
        assert.equal(await cell(1, 1), '5');
    });

    test('a composition that is left by a click, or for another field, stays in its cell', async () => {
        const { page, compose, cell, goTo } = hands;
        await compose('にほん');
        const at = await page.evaluate(() => {
            const { left, top } = first.getBoundingClientRect();
            return [left + 50, top + 110];
        });
        await page.mouse.click(...at);
        assert.equal(await cell(1, 0), 'にほん');
        assert.notEqual(await page.evaluate(() => first.currentRow), 1);
        await goTo(8, 0);
        await compose('かな');
        await page.click('#field');
        assert.equal(await cell(8, 0), 'かな');
        assert.equal(await page.evaluate(() => document.activeElement.id), 'field');
    });

    test("copies, cuts and pastes by the browser's own clipboard", async () => {
        const { page, strike, control, cell, goTo } = hands;
        await strike('whole\n');
        await goTo(1, 0);
        await control('c');
        await page.click('#field');
        await control('v');
        assert.equal(await page.$eval('#field', (field) => field.value), 'whole');
        // A part of what is being typed, and a block that another program has copied.
        await goTo(2, 0);
        await strike('cut');
        await control('a');
        await control('x');
        await strike('left\n');
        await goTo(3, 0);
        await control('v');
        await page.keyboard.press('Enter');
        await page.evaluate(() => navigator.clipboard.writeText('a\t1.5\nb\t2'));
        await goTo(4, 0);
        await control('v');
        const texts = await page.evaluate(() => first.texts(2, 0, 4, 2));
        assert.deepEqual(texts, ['left', '0', 'cut', '0', 'a', '1.5', 'b', '2']);
        assert.equal(await cell(6, 0), '');
    });

    test("the box's own word keys and mouse are heard", async () => {
        const { page, strike, box, cell } = hands;
        await strike('one two three');
        await page.keyboard.down('Control');
        await page.keyboard.press('Backspace');
        await page.keyboard.press('ArrowLeft');
        await page.keyboard.up('Control');
        await strike('and ');
        assert.deepEqual(await box(), ['one and two ', 'open']);
        const { x, y } = await page.evaluate(() =>
            first.shadowRoot.querySelector('input').getBoundingClientRect().toJSON(),
        );
        await page.mouse.click(x + 12, y + 8, { count: 2 });
        await strike('1\n');
        assert.match(await cell(1, 0), /^1 ?and two/);
    });

    test('a finger scrolls, ticks and calls the menu', async () => {
        const { page, input } = hands;
        await page.evaluate(() => {
            first.setColStyle(3, 0);
            first.checkBoxes = 1;
            first.gridPopUpMenu = true;
        });
        await input.send('Emulation.setTouchEmulationEnabled', { enabled: true });
        const { x, y } = await page.evaluate(() => first.getBoundingClientRect().toJSON());
        const touch = (type, down) =>
            input.send('Input.dispatchTouchEvent', {
                type, touchPoints: down === undefined ? [] : [{ x: x + 60, y: y + down }],
            });
        const topRow = () => page.evaluate(() => first.state.rowRange.position);
        await touch('touchStart', 200);
        for (let down = 195; down >= 80; down -= 5) await touch('touchMove', down);
        await touch('touchEnd');
        await page.evaluate(() => new Promise(requestAnimationFrame));
        assert.ok((await topRow()) > 3);
        assert.equal(await page.evaluate(() => first.currentRow), 1);
        const tick = await page.evaluate(() => [0, 1, 2].reduce((sum, col) => sum + first.colWidth(col) / 15, 0));
        // So soon after a fling the browser takes a tap for the end of it.
        await new Promise((later) => setTimeout(later, 500));
        await page.touchscreen.tap(x + tick + 20, y + 60);
        const ticked = await page.evaluate(() => [first.currentRow, first.checked(first.currentRow)]);
        assert.deepEqual([ticked[0] > 3, ticked[1]], [true, true]);
        await touch('touchStart', 100);
        await page.waitForFunction(() => first.shadowRoot.querySelector('.menu.open'));
        await touch('touchEnd');
    });

    // The long run is by hand: TABLIO_TYPIST=5000 node --test input.test.mjs
    const keys = Number(process.env.TABLIO_TYPIST ?? 240);
    for (const pause of [0, 2])
        for (const block of [0, 20, 200]) {
            const isLong = keys * block > 20_000 && process.env.TABLIO_TYPIST === undefined;
            test(`every key arrives: ${pause} ms between them, handlers block ${block} ms`, { skip: isLong && 'by hand', timeout: 3_600_000 }, async () => {
                const { page, strike } = hands;
                page.setDefaultTimeout(0);
                await page.evaluate((block) => {
                    for (const name of ['editPreValidation', 'editPostValidation', 'cellKeyPress'])
                        first.addEventListener(name, () => window.block(block));
                }, block);
                const wanted = [];
                let text = '';
                for (let row = 1; text.length < keys; row++) {
                    const line = [`name ${row}`, `${row}.25`, 'x'.repeat((row % 7) + 1)];
                    wanted.push(...line);
                    text += line.join('\n') + '\n';
                }
                const rows = wanted.length / 3;
                await page.evaluate((rows) => (first.rows = rows + 2), rows);
                await strike(text, pause);
                assert.deepEqual(await page.evaluate((rows) => first.texts(1, 0, rows, 3), rows), wanted);
            });
        }
});
