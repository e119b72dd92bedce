/**
 * Measures <tablio-grid> beside AG Grid Community and Tabulator in one run of one Chromium:
 *
 *   node measure.mjs [--smoke]
 *
 * Prints a line a figure: peer, figure, and its value in each round. scripts/bench --web calls it and
 * writes the results down.
 */

import { readFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { brotliCompressSync, constants } from 'node:zlib';

import { built, openBrowser } from '../../frontends/web/tests/browser.mjs';
import { serve } from '../../frontends/web/serve.mjs';

const here = dirname(fileURLToPath(import.meta.url));
const isSmoke = process.argv.includes('--smoke');
const rounds = isSmoke ? 1 : 5;
const main = isSmoke ? { rows: 1000, cols: 20 } : { rows: 32766, cols: 20 };
const first = { rows: 1000, cols: 20 };
const wheels = isSmoke ? 5 : 60;
const lines = isSmoke ? 3 : 60;
/** Digits of a number and Enter, which commits it. */
const line = ['1', '2', '3', '4', '5', 'Enter'];
const numberCol = 10;

const bundles = {
    tablio: [join(built, 'tablio-grid.js'), join(built, 'tablio.wasm')],
    ag: [join(here, 'node_modules/ag-grid-community/dist/ag-grid-community.min.js')],
    tabulator: [join(here, 'node_modules/tabulator-tables/dist/js/tabulator.min.js')],
};
const peers = Object.keys(bundles);

const figures = new Map();
function note(peer, figure, value) {
    const key = `${peer},${figure}`;
    figures.set(key, [...(figures.get(key) ?? []), value]);
}

async function open(browser, address, peer, { rows, cols }) {
    const page = await browser.newPage();
    await page.setViewport({ width: 1200, height: 800 });
    page.on('pageerror', (error) => console.error(`bench: ${peer}: ${error}`));
    // Before anything of the page.
    await page.evaluateOnNewDocument(() => {
        // Of our module: its memory, and the time in its calls but not in showing what came of them.
        window.keyTimes = [];
        window.coreTimes = [];
        let spent = 0;
        let inCore = 0;
        let depth = 0;
        let calls = 0;
        const timed = (call, add) =>
            function (...values) {
                const begin = performance.now();
                try {
                    return call.apply(this, values);
                } finally {
                    add(performance.now() - begin);
                }
            };
        const keep = ({ instance: { exports } }) => {
            window.moduleMemory = exports.memory;
            const tell = (...values) => {
                ++calls;
                try {
                    return exports.tell(...values);
                } finally {
                    --calls;
                }
            };
            const outer = timed(tell, (time) => (inCore += time));
            return {
                instance: {
                    exports: { ...exports, tell: (...values) => (calls ? tell : outer)(...values) },
                },
            };
        };
        for (const name of ['instantiate', 'instantiateStreaming']) {
            const original = WebAssembly[name];
            WebAssembly[name] = (source, imports) => {
                const { tablio_page: page } = imports.env;
                const showing = timed(page, (time) => (inCore -= time));
                // What is asked first is to raise an event; all else is the page's own part.
                imports.env.tablio_page = (grid, what, ...values) =>
                    (what === 0 ? page : showing)(grid, what, ...values);
                return original.call(WebAssembly, source, imports).then(keep);
            };
        }
        // All that listeners do between a key going down and coming up again.
        const types = ['keydown', 'keypress', 'beforeinput', 'input', 'keyup'];
        const add = EventTarget.prototype.addEventListener;
        EventTarget.prototype.addEventListener = function (type, listener, options) {
            if (!types.includes(type) || !listener) return add.call(this, type, listener, options);
            const timed = function (event) {
                const begin = performance.now();
                ++depth;
                try {
                    return (listener.handleEvent ?? listener).call(listener.handleEvent ? listener : this, event);
                } finally {
                    if (--depth === 0) spent += performance.now() - begin;
                }
            };
            return add.call(this, type, timed, options);
        };
        const noteKey = () => {
            window.keyTimes.push(spent);
            window.coreTimes.push(inCore);
            spent = inCore = 0;
        };
        add.call(window, 'keyup', noteKey);
    });
    await page.goto(`${address}/page.html?peer=${peer}&rows=${rows}&cols=${cols}`);
    await page.waitForFunction(() => window.bench !== undefined, { timeout: 60000 });
    const client = await page.createCDPSession();
    await client.send('Performance.enable');
    return { page, client };
}

/** Milliseconds that the main thread has been busy in the meantime. */
async function busy(client, work) {
    const taskTime = async () => {
        const { metrics } = await client.send('Performance.getMetrics');
        return metrics.find((each) => each.name === 'TaskDuration').value * 1000;
    };
    const before = await taskTime();
    await work();
    return (await taskTime()) - before;
}

/** What runs by itself after a work belongs to it. */
const settle = () => new Promise((resolve) => setTimeout(resolve, 300));

async function memory(page, client) {
    await client.send('HeapProfiler.enable');
    await client.send('HeapProfiler.collectGarbage');
    const { usedSize } = await client.send('Runtime.getHeapUsage');
    const module = await page.evaluate(() => window.moduleMemory?.buffer.byteLength ?? 0);
    return (usedSize + module) / 1e6;
}

/** Three rows a turn of the wheel, each painted before the next. */
async function scroll(page, client) {
    await page.mouse.move(600, 400);
    const turn = async () => {
        await page.mouse.wheel({ deltaY: 72 });
        await page.evaluate(() => new Promise((resolve) => requestAnimationFrame(() => resolve())));
    };
    for (let i = 0; i < 5; ++i) await turn();
    await settle();
    // What the measuring itself takes is measured where no wheel turns.
    const idle = await busy(client, async () => {
        for (let i = 0; i < wheels; ++i)
            await page.evaluate(() => new Promise((resolve) => requestAnimationFrame(() => resolve())));
        await settle();
    });
    const all = await busy(client, async () => {
        for (let i = 0; i < wheels; ++i) await turn();
        await settle();
    });
    return (all - idle) / wheels;
}

/** Keys one behind the other without waiting for the page. */
async function type(page, client) {
    await page.evaluate((col) => window.bench.grid.focus(0, col), numberCol);
    await settle();
    await page.evaluate(() => (window.keyTimes.length = window.coreTimes.length = 0));
    const strike = (key) => {
        const code = key === 'Enter' ? 13 : key.charCodeAt(0);
        const common = { key, windowsVirtualKeyCode: code, code: key === 'Enter' ? 'Enter' : 'Digit' + key };
        const text = key === 'Enter' ? '\r' : key;
        return [
            client.send('Input.dispatchKeyEvent', { type: 'keyDown', text, ...common }),
            client.send('Input.dispatchKeyEvent', { type: 'keyUp', ...common }),
        ];
    };
    const all = await busy(client, async () => {
        const sent = [];
        for (let i = 0; i < lines; ++i) for (const key of line) sent.push(...strike(key));
        await Promise.all(sent);
        await settle();
    });
    const [cells, times, coreTimes] = await page.evaluate(
        (count, col) => [
            Array.from({ length: count }, (_, row) => window.bench.grid.text(row, col)),
            window.keyTimes,
            window.coreTimes,
        ],
        lines,
        numberCol,
    );
    if (cells.some((text) => Number(text) !== 12345))
        throw new Error(`typed 12345, but the cells hold ${cells.slice(0, 5)}`);
    const middle = (values) => values.sort((one, other) => one - other)[values.length >> 1];
    return {
        key: all / (lines * line.length),
        listeners: middle(times),
        core: middle(coreTimes) || null,
    };
}

const server = await serve({
    directories: { '/': here, '/tablio/': built },
    policy: null,
    // For a clock that counts microseconds.
    headers: {
        'Cross-Origin-Opener-Policy': 'same-origin',
        'Cross-Origin-Embedder-Policy': 'require-corp',
    },
});
const browser = await openBrowser(['--disable-smooth-scrolling']);
try {
    for (const peer of peers) {
        const packed = bundles[peer].map((file) =>
            brotliCompressSync(readFileSync(file), {
                params: { [constants.BROTLI_PARAM_QUALITY]: 11 },
            }).length,
        );
        note(peer, 'brotli KB', packed.reduce((sum, each) => sum + each) / 1000);
    }
    for (let round = 0; round < rounds; ++round) {
        for (const peer of peers) {
            console.error(`bench: ${peer}, round ${round + 1}`);
            const start = await open(browser, server.address, peer, first);
            note(peer, 'start ms', await start.page.evaluate(() => window.bench.started));
            await start.page.close();

            const { page, client } = await open(browser, server.address, peer, main);
            note(peer, 'created and filled ms', await page.evaluate(() => window.bench.created));
            note(peer, 'memory MB', await memory(page, client));
            note(peer, 'scroll ms', await scroll(page, client));
            if (await page.evaluate(() => window.bench.grid.focus !== null)) {
                const { key, listeners, core } = await type(page, client);
                note(peer, 'key ms', key);
                note(peer, 'key in listeners ms', listeners);
                if (core !== null) note(peer, 'core and events ms', core);
            }
            await page.close();
        }
    }
    for (const [key, values] of figures)
        console.log([key, ...values.map((each) => each.toFixed(4))].join(','));
    const version = (name) =>
        JSON.parse(readFileSync(join(here, 'node_modules', name, 'package.json'), 'utf8')).version;
    console.log(`version,${await browser.version()}`);
    console.log(`version,AG Grid Community ${version('ag-grid-community')}`);
    console.log(`version,Tabulator ${version('tabulator-tables')}`);
} finally {
    await browser.close();
    await server.close();
}
