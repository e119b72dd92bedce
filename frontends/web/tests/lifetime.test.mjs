/** Grids that come, go and change their place, and several of them. */

import assert from 'node:assert/strict';
import { after, before, beforeEach, afterEach, describe, test } from 'node:test';

import { assertNoFaults, skip } from './browser.mjs';
import { openGrids } from './grids.mjs';

describe('lifetime', { skip, concurrency: false }, () => {
    let grids, hands;
    before(async () => (grids = await openGrids()));
    after(() => grids?.close());
    beforeEach(async () => (hands = await grids.open()));
    afterEach(async () => {
        assertNoFaults(hands.page);
        await hands.page.close();
    });

    test('an edit goes on in a grid that is put elsewhere in the document', async () => {
        const { page, strike, box, cell } = hands;
        await page.evaluate(() => first.setTextMatrix(5, 0, 'kept'));
        await strike('half');
        await page.evaluate(() => elsewhere.append(first));
        await strike(' done');
        assert.deepEqual(await box(), ['half done', 'open']);
        await page.keyboard.press('Enter');
        assert.deepEqual([await cell(1, 0), await cell(5, 0)], ['half done', 'kept']);
    });

    test('a grid that is taken away enters what is being typed, and comes back as it was', async () => {
        const { page, strike, cell } = hands;
        await strike('typed');
        await page.evaluate(() => {
            window.away = first;
            first.remove();
        });
        assert.equal(await page.evaluate(() => away.textMatrix(1, 0)), 'typed');
        await page.evaluate(() => {
            document.body.append(away);
            away.focus();
            away.cellFocus(2, 0);
        });
        await strike('again\n');
        assert.equal(await cell(2, 0), 'again');
    });

    test('two grids hold their own and take the keyboard from one another', async () => {
        const { page, strike } = hands;
        await strike('one');
        await page.evaluate(() => {
            second.focus();
            second.cellFocus(1, 0);
        });
        await strike('two\n');
        await page.evaluate(() => first.focus());
        await strike('three\n');
        assert.deepEqual(
            await page.evaluate(() => [first, second].map((grid) => grid.texts(1, 0, 1, 2))),
            [['three', '0'], ['two', '0']],
        );
        await page.keyboard.press('Tab');
        assert.equal(await page.evaluate(() => document.activeElement.id), 'first');
        await page.evaluate(() => (first.tabWalks = second.tabWalks = false));
        await page.keyboard.press('Tab');
        assert.equal(await page.evaluate(() => document.activeElement.id), 'second');
    });

    test('a handler may take the grid away, or throw, in any event', async () => {
        const { page, strike } = hands;
        const events = [
            'tableKeyDown', 'editPreValidation', 'cellKeyPress', 'editOnChange', 'tableChange',
            'editPostValidation', 'cellFocus',
        ];
        for (const name of events) {
            await page.evaluate((name) => {
                first.cellFocus(3, 0);
                first.addEventListener(name, () => first.remove(), { once: true });
                window.kept = first;
            }, name);
            await strike('ab\n');
            assert.ok(await page.evaluate(() => !kept.isConnected), name);
            await page.evaluate(() => {
                document.body.append(kept);
                kept.focus();
            });
        }
        await page.evaluate(() => {
            first.cellFocus(4, 0);
            first.addEventListener('editPreValidation', () => { throw new Error('refused'); }, { once: true });
        });
        await strike('x');
        await page.evaluate(() => new Promise((resolve) => setTimeout(resolve, 50)));
        assert.match(page.faults.splice(0).join(), /refused/);
        await strike('on\n');
        assert.equal(await page.evaluate(() => first.textMatrix(4, 0)), 'on');
    });

    test('what a call refuses is thrown, and changes nothing', async () => {
        const thrown = await hands.page.evaluate(async () => {
            const { TablioError } = await import('/tablio/tablio-grid.js');
            const kinds = [];
            for (const wrong of [
                () => first.textMatrix(999, 0), () => first.setTextMatrix(70000, 0, ''),
                () => first.textMatrix('x', 0), () => first.textMatrix(1),
            ])
                try {
                    wrong();
                } catch (error) {
                    kinds.push(error instanceof TablioError && `${error.kind} ${error.argument}`);
                }
            return kinds;
        });
        assert.deepEqual(thrown, ['Grid -1', 'Overflow 0', 'TypeMismatch 0', 'ArgumentCount -1']);
    });

    test('500 grids that were made and taken away leave no memory behind', async () => {
        const { page, input } = hands;
        // The browser collects when it likes; until then what is gone waits for it.
        const grow = async (count) => {
            for (let made = 0; made < count; made += 10) {
                await page.evaluate(async () => {
                    for (let made = 0; made < 10; made++) {
                        const grid = document.createElement('tablio-grid');
                        document.body.append(grid);
                        grid.cols = 10;
                        grid.setTexts(1, 0, 10, Array(4000).fill('a text of some length'));
                        await new Promise(requestAnimationFrame);
                        grid.remove();
                    }
                });
                await input.send('HeapProfiler.collectGarbage');
                await page.evaluate(() => new Promise((resolve) => setTimeout(resolve, 20)));
            }
            const { usedSize } = await input.send('Runtime.getHeapUsage');
            const module = await page.evaluate(
                () => customElements.get('tablio-grid').module.exports.memory.buffer.byteLength,
            );
            return { page: usedSize, module };
        };
        const before = await grow(100);
        const after = await grow(400);
        // All of them would take 80 MB.
        for (const heap of ['module', 'page'])
            assert.ok(after[heap] - before[heap] < 2_000_000, `${heap}: ${before[heap]} bytes, then ${after[heap]}`);
    });

    test("Chromium's accessibility tree tells the current cell", async () => {
        const { page, input, strike } = hands;
        await strike('name\n12');
        const tree = async () => {
            await page.evaluate(() => new Promise((resolve) => setTimeout(resolve, 300)));
            const { nodes } = await input.send('Accessibility.getFullAXTree');
            const named = (node) => `${node.role.value} "${node.name?.value ?? ''}"`;
            const focused = nodes.filter(({ ignored, properties }) =>
                !ignored && properties?.some(({ name, value }) => name === 'focused' && value.value));
            return { nodes: nodes.filter((node) => !node.ignored).map(named), focused };
        };
        const editing = await tree();
        assert.equal(editing.focused.at(-1).name.value, 'Amount');
        await page.keyboard.press('Enter');
        await page.evaluate(() => first.cellFocus(1, 1));
        const { nodes } = await tree();
        for (const wanted of ['columnheader "Amount"', 'gridcell "name"', 'gridcell "12.00"', 'grid "Data entry grid"'])
            assert.ok(nodes.includes(wanted), `${wanted} in ${nodes.slice(0, 40)}`);
        const active = await page.evaluate(() => {
            const { shadowRoot } = first;
            const cell = shadowRoot.getElementById(shadowRoot.activeElement.getAttribute('aria-activedescendant'));
            return [cell.textContent, cell.ariaColIndex, cell.parentElement.ariaRowIndex];
        });
        assert.deepEqual(active, ['12.00', '2', '2']);
    });
});
