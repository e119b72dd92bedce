/** Another engine, Debian's Firefox: what is typed and what goes through its clipboard arrives. */

import assert from 'node:assert/strict';
import { existsSync } from 'node:fs';
import { after, before, describe, test } from 'node:test';

import puppeteer from 'puppeteer-core';

import { assertNoFaults, blockScript, openPage, serveBeside, skip } from './browser.mjs';

const firefox = '/usr/bin/firefox-esr';

const body = `<!doctype html><html lang="en"><head><title>Firefox</title></head><body>
    <tablio-grid></tablio-grid><script type="module" src="/page.js"></script></body></html>`;
const script = `import '/tablio/tablio-grid.js';
    ${blockScript}
    const grid = document.querySelector('tablio-grid');
    const { searchParams } = new URL(location.href);
    grid.entryRules = 1;
    grid.cols = 3;
    grid.rows = 200;
    grid.setColProperty(0, 'Name', 2000, 0);
    grid.setColProperty(1, 'Amount', 2000, 0, 1, 1, 7, 12, '###,##0.00');
    grid.setColProperty(2, 'Date', 2000, 0, 3, 1, 1, 10, '##/##/####');
    for (const name of ['editOnChange', 'cellKeyPress', 'cellFocus', 'tableKeyDown'])
        grid.addEventListener(name, () => window.block(Number(searchParams.get('block'))));
    grid.focus();
    grid.cellFocus(1, 0);
    document.title = 'ready';`;

describe('Firefox', { skip: skip || (!existsSync(firefox) && `no ${firefox} here`) }, () => {
    let browser, server;
    before(async () => {
        browser = await puppeteer.launch({
            browser: 'firefox', executablePath: firefox, headless: true, protocolTimeout: 3_600_000, timeout: 120_000,
        });
        server = await serveBeside({ pages: { '/': body, '/page.js': script } });
    });
    after(async () => {
        await browser?.close();
        await server?.close();
    });
    const open = async (query = '') => {
        const page = await openPage(browser, `${server.address}/${query}`);
        await page.waitForFunction(() => document.title === 'ready');
        return page;
    };
    const texts = (page, ...block) => page.$eval('tablio-grid', (grid, ...where) => grid.texts(...where), ...block);

    // The long run is by hand: TABLIO_TYPIST=5000 node --test firefox.test.mjs
    const keys = Number(process.env.TABLIO_TYPIST ?? 0);
    for (const [block, few] of [[0, 900], [20, 90], [200, 0]])
        test(`every key arrives while handlers block for ${block} ms`, { skip: keys + few === 0 && 'by hand', timeout: 7_200_000 }, async () => {
            const page = await open(`?block=${block}`);
            const wanted = [];
            const rows = Math.ceil((keys || few) / 24);
            await page.$eval('tablio-grid', (grid, rows) => (grid.rows = rows + 2), rows);
            for (let row = 1; row <= rows; ++row) {
                const line = [`name ${row}`, String(row * 1000 + 25 / 100), `0${(row % 9) + 1}/12/2026`];
                wanted.push(...line);
                for (const text of line) {
                    await page.keyboard.type(text);
                    await page.keyboard.press('Enter');
                }
            }
            assert.deepEqual(await texts(page, 1, 0, rows, 3), wanted);
            assertNoFaults(page);
            await page.close();
        });

    test("copies, cuts and pastes by the browser's own clipboard", async () => {
        const page = await open();
        const control = async (key) => {
            await page.keyboard.down('Control');
            await page.keyboard.press(key);
            await page.keyboard.up('Control');
        };
        const enter = async (row, text, ...keys) => {
            await page.$eval('tablio-grid', (grid, row) => grid.cellFocus(row, 0), row);
            await page.keyboard.type(text);
            for (const key of keys) await control(key);
        };
        await enter(1, 'copied', 'a', 'c');
        await enter(2, '', 'v');
        await enter(3, 'cut', 'a', 'x');
        await page.keyboard.type('left');
        await enter(4, '', 'v');
        await page.keyboard.press('Enter');
        assert.deepEqual(await texts(page, 1, 0, 4, 1), ['copied', 'copied', 'left', 'cut']);
        assertNoFaults(page);
    });
});
