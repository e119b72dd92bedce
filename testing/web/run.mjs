/**
 * Plays scenario files through the element in a browser, by events that the page makes itself:
 *
 *   node run.mjs MODULE.wasm [--outside] [--only TEXT] FILE.scenario… | DIRECTORY
 *
 * With --outside it is the browser's own input, step by step, and members and events are the
 * element's.
 */

import {
    copyFileSync, mkdtempSync, readFileSync, readdirSync, rmSync, statSync, writeFileSync,
} from 'node:fs';
import { tmpdir } from 'node:os';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';

import { openBrowser, openPage } from '../../frontends/web/tests/browser.mjs';
import { serve } from '../../frontends/web/serve.mjs';

const here = dirname(fileURLToPath(import.meta.url));
const { build } = await import('../../frontends/web/node_modules/esbuild/lib/main.js');
const bundle = await build({
    entryPoints: [join(here, 'driver.ts')], bundle: true, format: 'esm', write: false,
    loader: { '.css': 'text' },
});

const [module, ...words] = process.argv.slice(2);
const isOutside = words.includes('--outside');
const only = words.includes('--only') ? words[words.indexOf('--only') + 1] : '';
const files = words
    .flatMap((word) =>
        statSync(word, { throwIfNoEntry: false })?.isDirectory()
            ? readdirSync(word, { recursive: true }).map((file) => join(word, file))
            : word,
    )
    .filter((file) => file.endsWith('.scenario'));

const scratch = mkdtempSync(join(tmpdir(), 'tablio-scenarios-'));
writeFileSync(join(scratch, 'driver.js'), bundle.outputFiles[0].text);
copyFileSync(module, join(scratch, 'scenarios.wasm'));
const site = await serve({
    directories: { '/': scratch }, policy: null,
    pages: { '/': '<!doctype html><meta charset="utf-8"><title>Scenarios</title><body>' },
});
const browser = await openBrowser();
const page = await openPage(browser, `${site.address}/`);
const input = await page.createCDPSession();
await input.send('Browser.grantPermissions', {
    origin: site.address, permissions: ['clipboardReadWrite', 'clipboardSanitizedWrite'],
});
await page.evaluate(async () => {
    globalThis.driver = await import('/driver.js');
    await driver.load('/scenarios.wasm');
});

const inPage = (name, ...values) =>
    page.evaluate((name, values) => driver[name](...values), name, values);

async function mouse(type, button, [x, y], clickCount) {
    await input.send('Input.dispatchMouseEvent', {
        type: { mousedown: 'mousePressed', mousemove: 'mouseMoved', mouseup: 'mouseReleased' }[type], x, y,
        clickCount, button: ['none', 'left', 'right', '', 'middle'][button],
        buttons: type === 'mouseup' ? 0 : [0, 1, 2, 0, 4][button],
    });
}

async function click(at) {
    await mouse('mousedown', 1, at, 1);
    await mouse('mouseup', 1, at, 1);
}

/** What the browser's own input does, by the names that driver.ts has for it. */
const hands = {
    async enterFocus() {
        await page.evaluate(() => driver.other.focus());
        await hands.strike(9, 0, 0);
    },
    leaveFocus: async () => click(await page.evaluate(() => {
        const { left, top } = driver.other.getBoundingClientRect();
        return [left + 5, top + 5];
    })),
    async strike(code, shift, character) {
        const { key } = await inPage('keyOf', code, shift, character);
        const command = shift === 2 ? { c: 'copy', x: 'cut', v: 'paste' }[key] : undefined;
        if (command === 'paste')
            await page.evaluate(() => navigator.clipboard.writeText(driver.clipboardText()));
        const event = {
            key, windowsVirtualKeyCode: code,
            modifiers: (shift & 4 ? 1 : 0) + (shift & 2 ? 2 : 0) + (shift & 1 ? 8 : 0),
        };
        const text = code === 13 ? '\r' : character > 31 ? key : undefined;
        await Promise.all([
            input.send('Input.dispatchKeyEvent', {
                ...event, type: text === undefined ? 'rawKeyDown' : 'keyDown', text,
                commands: command === undefined ? [] : [command],
            }),
            input.send('Input.dispatchKeyEvent', { ...event, type: 'keyUp' }),
        ]);
        if (command === 'copy' || command === 'cut')
            await page.evaluate(async () => driver.keepClipboard(await navigator.clipboard.readText()));
    },
    async compose(text) {
        await input.send('Input.imeSetComposition', {
            text, selectionStart: text.length, selectionEnd: text.length,
        });
        if (await inPage('isEditing')) await input.send('Input.insertText', { text });
    },
    enterText: (text) => input.send('Input.insertText', { text }),
    mouse: async (type, button, x, y, count) =>
        mouse(type, button, await inPage('pointOf', null, x, y), count),
    // A thumb is dragged by pixels that no two systems have alike.
    scrollTo: (row, col) => page.evaluate((row, col) => (driver.scroll(row, col), driver.settled()), row, col),
    async press(...parts) {
        for (const part of parts) await click(await inPage('pointOf', part));
    },
};
const asides = ['strike', 'compose', 'enterText', 'mouse'];

let count = 0;
let failed = 0;
const started = performance.now();
for (const file of files) {
    const scenarios = await page.evaluate(
        (text, names) => driver.open(text, names), readFileSync(file, 'utf8'), isOutside ? Object.keys(hands) : [],
    );
    for (const [index, name] of scenarios.entries()) {
        if (!name.includes(only)) continue;
        count++;
        let failures;
        if (!isOutside) {
            failures = await page.evaluate((index) => driver.play(index), index);
        } else {
            await page.evaluate((index) => driver.begin(index), index);
            for (let action; (action = await page.evaluate(() => driver.advance())); ) {
                if (asides.includes(action.name)) await page.evaluate(() => driver.putAside());
                await hands[action.name](...action.values);
            }
            failures = await page.evaluate(() => driver.finish());
        }
        if (failures === '') continue;
        failed++;
        console.log(`${file}: in "${name}"\n${failures}`);
    }
}
console.log(`${count} scenarios, ${failed} failed, ${Math.round(performance.now() - started)} ms`);
await browser.close();
await site.close();
rmSync(scratch, { recursive: true });
process.exitCode = failed === 0 && count > 0 ? 0 : 1;
