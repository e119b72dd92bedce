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

const names = `Show Resize EnterFocus LeaveFocus Strike Compose EnterText Settle PressMouse MoveMouse
    ReleaseMouse DoubleClick ScrollTo PushButton ChooseMenuEntry ChooseItem PickDay`;
const Act = Object.fromEntries(names.split(/\s+/).map((name, index) => [name, index]));

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

/** Does it by the browser's own input. */
async function carryOut({ act, a, b, c, text, key, at }) {
    const mouse = async (type, button, [x, y], clickCount = 0) =>
        input.send('Input.dispatchMouseEvent', {
            type, x, y, clickCount, button: ['none', 'left', 'right', '', 'middle'][button],
            buttons: type === 'mouseReleased' ? 0 : [0, 1, 2, 0, 4][button],
        });
    if (act === Act.Strike) {
        await strike(key, c);
    } else if (act === Act.EnterFocus) {
        await page.evaluate(() => driver.other.focus());
        await strike({ key: 'Tab', code: 'Tab', keyCode: 9 }, 0);
    } else if (act === Act.LeaveFocus) {
        const there = await page.evaluate(() => driver.pointOf(driver.other));
        await mouse('mousePressed', 1, there, 1);
        await mouse('mouseReleased', 1, there, 1);
    } else if (act === Act.Compose) {
        await input.send('Input.imeSetComposition', {
            text, selectionStart: text.length, selectionEnd: text.length,
        });
        if (await page.evaluate(() => driver.isComposing()))
            await input.send('Input.insertText', { text });
    } else if (act === Act.EnterText) {
        await input.send('Input.insertText', { text });
    } else if (act === Act.PressMouse) {
        await mouse('mousePressed', a, at, 1);
    } else if (act === Act.MoveMouse) {
        await mouse('mouseMoved', a, at);
    } else if (act === Act.ReleaseMouse) {
        await mouse('mouseReleased', a, at, 1);
    } else if (act === Act.DoubleClick) {
        await mouse('mousePressed', a, at, 2);
    } else if (act === Act.ScrollTo) {
        // A thumb is dragged by pixels that no two systems have alike.
        await page.evaluate((a, b) => (driver.scrollBars(a, b), driver.settled()), a, b);
    } else {
        for (let isDone = false; !isDone; ) {
            const found = await page.evaluate((act, a) => driver.nextPoint(act, a), act, a);
            if (found === null) break;
            await mouse('mousePressed', 1, found.at, 1);
            await mouse('mouseReleased', 1, found.at, 1);
            isDone = found.isLast;
        }
    }
}

async function strike({ key, code, keyCode, shiftKey, ctrlKey, altKey }, character) {
    const command = ctrlKey ? { c: 'copy', x: 'cut', v: 'paste' }[key] : undefined;
    if (command === 'paste') await page.evaluate(() => navigator.clipboard.writeText(driver.clipboardText()));
    const event = {
        key, code, windowsVirtualKeyCode: keyCode,
        modifiers: (altKey ? 1 : 0) + (ctrlKey ? 2 : 0) + (shiftKey ? 8 : 0),
    };
    const text = key === 'Enter' ? '\r' : character > 31 ? String.fromCodePoint(character) : undefined;
    await Promise.all([
        input.send('Input.dispatchKeyEvent', {
            ...event, type: text === undefined ? 'rawKeyDown' : 'keyDown', text,
            commands: command === undefined ? [] : [command],
        }),
        input.send('Input.dispatchKeyEvent', { ...event, type: 'keyUp' }),
    ]);
    if (command === 'copy' || command === 'cut')
        await page.evaluate(async () => driver.keepClipboard(await navigator.clipboard.readText()));
}

let count = 0;
let failed = 0;
const started = performance.now();
for (const file of files) {
    const scenarios = await page.evaluate(
        (text, isOutside) => driver.open(text, isOutside), readFileSync(file, 'utf8'), isOutside,
    );
    for (const [index, name] of scenarios.entries()) {
        if (!name.includes(only)) continue;
        count++;
        let failures;
        if (!isOutside) {
            failures = await page.evaluate((index) => driver.play(index), index);
        } else {
            await page.evaluate((index) => driver.begin(index), index);
            for (let action; (action = await page.evaluate(() => driver.advance())); )
                await carryOut(action);
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
