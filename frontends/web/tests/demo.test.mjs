/** The order form in a browser: what an operator types is kept, and who cannot see the page hears it. */

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { join } from 'node:path';
import { after, before, describe, test } from 'node:test';

import { assertNoFaults, openBrowser, openPage, root, serveBeside, skip } from './browser.mjs';

const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
const Column = { Code: 1, Description: 2, Quantity: 3, Price: 4, Total: 5, Unit: 6, Delivery: 7 };

describe('the order form', { skip, concurrency: false }, () => {
    let browser, server;
    before(async () => {
        browser = await openBrowser();
        server = await serveBeside({ directories: { '/': join(root, 'examples/web_order_entry') } });
    });
    after(async () => {
        await browser?.close();
        await server?.close();
    });

    /** With a database of its own, as in a profile that is new. */
    const openOrder = async (t, query = '') => {
        const profile = await browser.createBrowserContext();
        t.after(() => profile.close());
        const page = await openPage(profile, `${server.address}/${query}`);
        await isReady(page);
        return page;
    };
    const isReady = (page) =>
        page.waitForFunction(() => document.querySelector('#sum')?.textContent !== '');
    const cell = (page, row, col) =>
        page.$eval('tablio-grid', (grid, ...where) => grid.textMatrix(...where), row, col);
    const typeLine = async (page, ...cells) => {
        for (const text of cells) {
            await page.keyboard.type(text);
            await page.keyboard.press('Enter');
        }
    };
    const problem = (page) => page.$eval('#problem', (each) => each.textContent);
    /** Waits until the database has the article in the row. */
    const isSaved = (page, ...wanted) =>
        page.evaluate(async (row, article) => {
            const answer = (request) => new Promise((resolve) => (request.onsuccess = () => resolve(request.result)));
            const database = await answer(indexedDB.open('order'));
            for (;;) {
                const line = await answer(database.transaction('lines').objectStore('lines').get(row));
                if (line?.article === article) break;
                await new Promise((resolve) => setTimeout(resolve, 20));
            }
            database.close();
        }, ...wanted);

    test('keeps each line as it is entered', async (t) => {
        const page = await openOrder(t);
        // The article fills what it knows, so that Enter passes over it.
        await typeLine(page, 'pen-bl', '', '1200', '');
        await typeLine(page, 'ENV-C5', '', '15', '24.8');
        assert.equal(await page.$eval('#sum', (each) => each.textContent), 'Sum 1,272.00');
        await isSaved(page, 2, 'ENV-C5');
        await page.reload();
        await isReady(page);
        assert.deepEqual(
            [await cell(page, 1, Column.Code), await cell(page, 1, Column.Total), await cell(page, 2, Column.Price)],
            ['PEN-BL', '900', '24.8'],
        );
        assertNoFaults(page);
    });

    test('refuses an article that the order has, and keys typed ahead for it', async (t) => {
        const page = await openOrder(t, '?sample');
        await page.$eval('tablio-grid', (grid) => grid.cellFocus(9, 1));
        await typeLine(page, 'PEN-BL', 'ahead');
        assert.equal(await problem(page), 'PEN-BL is in row 5 already.');
        assert.deepEqual(
            [await cell(page, 9, Column.Code), await cell(page, 5, Column.Code), await cell(page, 5, Column.Description)],
            ['', 'PEN-BL', 'Ballpoint pen, blue'],
        );
        assert.equal(await page.$eval('tablio-grid', (grid) => grid.currentRow), 5);
    });

    test('looks an article up from the first key on', async (t) => {
        const page = await openOrder(t);
        await page.keyboard.press('F10');
        await page.keyboard.type('lamp');
        assert.equal(await page.$$eval('#articles [role=option]', (rows) => rows.length), 1);
        await page.keyboard.press('Enter');
        assert.equal(await cell(page, 1, Column.Code), 'LAMP-LED');
        await page.keyboard.press('F10');
        await page.keyboard.press('Escape');
        await isSaved(page, 1, 'LAMP-LED');
        assertNoFaults(page);
    });

    test('says what is not saved and saves it with the next entry', async (t) => {
        const page = await openOrder(t);
        await page.evaluate(() => {
            const original = IDBDatabase.prototype.transaction;
            IDBDatabase.prototype.transaction = function (...values) {
                if (window.isFull && values[1] === 'readwrite') throw new DOMException('The disk is full');
                return original.apply(this, values);
            };
            window.isFull = true;
        });
        await typeLine(page, 'GLUE-40');
        await page.waitForFunction(() => document.querySelector('#problem').textContent !== '');
        assert.equal(await problem(page), 'Not saved: row 1 (The disk is full). The next entry tries again.');
        await page.evaluate(() => (window.isFull = false));
        await typeLine(page, 'Glue');
        await isSaved(page, 1, 'GLUE-40');
        assert.equal(await problem(page), '');
    });

    test('enters what is being typed when the page goes', async (t) => {
        const page = await openOrder(t);
        page.on('dialog', (dialog) => dialog.dismiss());
        await page.keyboard.type('TAPE-50');
        await page.evaluate(() => setTimeout(() => location.reload()));
        await isSaved(page, 1, 'TAPE-50');
    });

    test('waits for another tab that has the order open', async (t) => {
        const page = await openOrder(t);
        const other = await openPage(page.browserContext(), `${server.address}/`);
        await other.waitForFunction(() => document.querySelector('#problem').textContent !== '');
        assert.match(await problem(other), /another tab/);
        await page.close();
        await isReady(other);
        assert.equal(await problem(other), '');
    });

    test('has nothing that axe finds fault with', async (t) => {
        const page = await openOrder(t, '?sample');
        const findings = async () => {
            // axe is put in by the browser, past the page's policy.
            await page.evaluate(axe);
            const { violations } = await page.evaluate(() => window.axe.run());
            return violations.map(({ id, nodes }) => `${id}: ${nodes.map((each) => each.html)}`);
        };
        assert.deepEqual(await findings(), []);
        await page.keyboard.type('A');
        assert.deepEqual(await findings(), [], 'while a cell is edited');
        await page.keyboard.press('Escape');
        await page.keyboard.press('F10');
        assert.deepEqual(await findings(), [], 'with the search open');
        await page.emulateMediaFeatures([{ name: 'prefers-color-scheme', value: 'dark' }]);
        assert.deepEqual(await findings(), [], 'in the dark');
    });

    test('tells a screen reader where the keyboard is and what is there', async (t) => {
        const page = await openOrder(t, '?sample');
        const client = await page.createCDPSession();
        /** What the box points at, or the box itself, in Chromium's own tree. */
        const active = async () => {
            // The tree follows the picture.
            await page.evaluate(() => new Promise((resolve) => setTimeout(resolve, 250)));
            const { nodes } = await client.send('Accessibility.getFullAXTree');
            const property = (node, name) => node?.properties?.find((each) => each.name === name)?.value;
            const box = nodes.find((each) => each.role?.value === 'textbox' && property(each, 'focused')?.value);
            const [related] = property(box, 'activedescendant')?.relatedNodes ?? [];
            const node = related
                ? nodes.find((each) => each.backendDOMNodeId === related.backendDOMNodeId)
                : box;
            const { node: element } = await client.send('DOM.describeNode', {
                backendNodeId: node.backendDOMNodeId,
            });
            const attributes = Object.fromEntries(
                element.attributes.flatMap((each, place, all) => (place % 2 ? [] : [[each, all[place + 1]]])),
            );
            const row = nodes.find((each) => each.nodeId === node.parentId);
            return {
                label: box.name.value,
                role: node.role.value,
                name: node.name.value,
                row: row?.role?.value === 'row' ? row.name.value.split(' ', 2).join(' ') : '',
                column: attributes['aria-colindex'],
                selected: property(node, 'selected')?.value,
                readonly: property(node, 'readonly')?.value,
            };
        };
        const move = (row, col) => page.$eval('tablio-grid', (grid, ...cell) => grid.cellFocus(...cell), row, col);
        await move(3, 8);
        assert.deepEqual(await active(), {
            label: 'Delivered', role: 'gridcell', name: 'checked', row: '3 LAMP-LED',
            column: '9', selected: undefined, readonly: false,
        });
        await move(2, Column.Total);
        assert.deepEqual(await active(), {
            label: 'Total', role: 'gridcell', name: '756.00', row: '2 CHAIR-02',
            column: '6', selected: undefined, readonly: true,
        });
        await move(2, Column.Quantity);
        await page.keyboard.type('7');
        const { label, role, name } = await active();
        assert.deepEqual([label, role, name], ['Quantity', 'textbox', 'Quantity']);
        const { nodes } = await client.send('Accessibility.getFullAXTree');
        const grid = nodes.find((each) => each.role?.value === 'grid');
        assert.equal(grid.name.value, 'Order lines');
        assert.equal(nodes.filter((each) => each.role?.value === 'columnheader').length, 9);
    });
});
