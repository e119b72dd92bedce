/**
 * A page with two grids and a field, and hands for it: keys and compositions by the browser's own
 * input, sent without waiting, and what the first grid has come to.
 */

import { blockScript, openBrowser, openPage, serveBeside } from './browser.mjs';

const body = `<!doctype html><html lang="en-GB"><head><title>waiting</title></head><body>
    <input id="field"><tablio-grid id="first"></tablio-grid><tablio-grid id="second"></tablio-grid>
    <div id="elsewhere"></div><script type="module" src="/page.js"></script></body></html>`;
const script = `import '/tablio/tablio-grid.js';
    ${blockScript}
    for (const grid of document.querySelectorAll('tablio-grid')) {
        grid.entryRules = 1;
        grid.cols = 4;
        grid.rows = 120;
        grid.setColProperty(0, 'Name', 2000, 0);
        grid.setColProperty(1, 'Amount', 2000, 0, 1, 1, 7, 12, '###,##0.00');
        grid.setColProperty(2, 'Note', 2000, 0);
        grid.setColProperty(3, 'Fixed', 2000, 2);
    }
    first.focus();
    first.cellFocus(1, 0);
    document.title = 'ready';`;

export async function openGrids() {
    const browser = await openBrowser();
    const server = await serveBeside({ pages: { '/': body, '/page.js': script } });
    await browser.defaultBrowserContext();
    const open = async () => {
        const page = await openPage(browser, `${server.address}/`);
        const input = await page.createCDPSession();
        await input.send('Browser.grantPermissions', {
            origin: server.address, permissions: ['clipboardReadWrite', 'clipboardSanitizedWrite'],
        });
        await page.waitForFunction(() => document.title === 'ready');
        return { page, input, ...handsOf(page, input) };
    };
    const close = async () => {
        await browser.close();
        await server.close();
    };
    return { open, close };
}

function handsOf(page, input) {
    return {
        cell: (row, col) => page.evaluate((row, col) => first.textMatrix(row, col), row, col),
        goTo: (row, col) => page.evaluate((row, col) => first.cellFocus(row, col), row, col),
        /** What the box holds, and whether it is seen. */
        box: () =>
            page.evaluate(() => {
                const box = first.shadowRoot.querySelector('input');
                return [box.value, box.parentElement.classList.contains('parked') ? 'parked' : 'open'];
            }),
        compose: (text) =>
            input.send('Input.imeSetComposition', {
                text, selectionStart: text.length, selectionEnd: text.length,
            }),
        commit: (text) => input.send('Input.insertText', { text }),
        /** All at once, or with so many milliseconds between. */
        strike: async (text, pause = 0) => {
            const sent = [];
            for (const character of text) {
                const isEnter = character === '\n';
                const code = isEnter ? 13 : character.toUpperCase().charCodeAt(0);
                const key = {
                    key: isEnter ? 'Enter' : character,
                    windowsVirtualKeyCode: character === '.' ? 190 : code,
                };
                sent.push(
                    input.send('Input.dispatchKeyEvent', {
                        ...key, type: 'keyDown', text: isEnter ? '\r' : character,
                    }),
                    input.send('Input.dispatchKeyEvent', { ...key, type: 'keyUp' }),
                );
                if (pause > 0) await new Promise((resolve) => setTimeout(resolve, pause));
            }
            await Promise.all(sent);
        },
        control: async (key) => {
            await page.keyboard.down('Control');
            await page.keyboard.press(key);
            await page.keyboard.up('Control');
        },
    };
}
