/** Every sample of docs/web.md, as it stands there, in a page with a strict content policy. */

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { join } from 'node:path';
import { after, before, test } from 'node:test';

import { compile } from '@vue/compiler-dom';
import { build } from 'esbuild';

import { assertNoFaults, openBrowser, openPage, root, serveBeside, skip } from './browser.mjs';

const document = readFileSync(join(root, 'docs/web.md'), 'utf8');
const samples = document.split(/^## /m).flatMap((section) => {
    const heading = section.split('\n', 1)[0];
    return [...section.matchAll(/^```(\w+)\n(.*?)^```$/gms)].map(([, language, text]) => ({
        heading,
        language,
        text,
    }));
});
const sample = (heading, language = 'js') => {
    const found = samples.find((each) => each.heading === heading && each.language === language);
    assert.ok(found, `no sample in ${language} under "${heading}"`);
    return found.text.replaceAll("'@tablio/grid'", "'/tablio/tablio-grid.js'");
};
const textAt = (page, row, col) =>
    page.$eval('tablio-grid', (grid, ...cell) => grid.textMatrix(...cell), row, col);
const enter = async (page, row, col, text) => {
    await page.$eval('tablio-grid', (grid, ...cell) => grid.cellFocus(...cell), row, col);
    await page.keyboard.type(text);
    await page.keyboard.press('Enter');
};

/** What an operator sees of each sample, once it runs in a page with the first grid. */
const checks = {
    'A first grid': async (page) => {
        assert.equal(await textAt(page, 1, 1), '1250.5');
        await page.keyboard.type('Pencil');
        await page.keyboard.press('Enter');
        assert.equal(await textAt(page, 1, 0), 'Pencil');
    },
    'Columns from saved settings': async (page) => {
        assert.deepEqual(
            await page.$eval('tablio-grid', (grid) => [grid.cols, grid.colTextHeader(1), grid.colWidth(0)]),
            [2, 'Price', 3000],
        );
        assert.match(await page.$eval('tablio-grid', (grid) => grid.settings), /^ColWidth0 Long 3000$/m);
    },
    Validation: async (page) => {
        await enter(page, 2, 0, 'No#1');
        await enter(page, 2, 1, '900');
        await enter(page, 2, 1, '1001');
        await enter(page, 11, 0, 'late');
        assert.deepEqual(
            [await textAt(page, 2, 0), await textAt(page, 2, 1), await textAt(page, 11, 0)],
            ['No№1', '900', ''],
        );
    },
    'Look-up': async (page) => {
        await page.$eval('tablio-grid', (grid) => grid.cellFocus(3, 0));
        await page.keyboard.press('F10');
        await page.waitForFunction(
            () => document.querySelector('tablio-grid').textMatrix(3, 0) === 'PEN-BL',
        );
    },
    Saving: async (page) => {
        await enter(page, 4, 0, 'kept');
        assert.equal(await page.evaluate(() => localStorage.getItem('4,0')), 'kept');
        await page.$eval('tablio-grid', (grid) => grid.cellFocus(5, 0));
        await page.keyboard.type('half');
        await page.goto('about:blank');
        await page.goBack();
        assert.equal(await page.evaluate(() => localStorage.getItem('5,0')), 'half');
    },
    Looks: async (page) => {
        const entry = await page.$eval('tablio-grid', (grid) => {
            grid.popUpMenu(0, 0);
            return grid.shadowRoot.querySelector('#entry-0').textContent;
        });
        assert.equal(entry, 'Zeile markieren');
    },
};

/** The samples of frameworks, as their compilers make them. */
const frameworks = {
    jsx: (text) => `
        import { createRoot } from 'react-dom/client';
        const { settings, save } = window;
        createRoot(document.querySelector('main')).render(${text});`,
    vue: (text) => `
        import { createApp } from 'vue';
        ${compile(text, { mode: 'module', isCustomElement: (tag) => tag === 'tablio-grid' }).code}
        const { settings, save } = window;
        createApp({ setup: () => ({ settings, save }), render }).mount('main');`,
};

test('samples of web.md', { skip, concurrency: false }, async (context) => {
    const browser = await openBrowser();
    after(() => browser.close());
    const open = async (t, pages) => {
        const page = (title, body) =>
            `<!doctype html><html lang="en"><head><title>${title}</title></head><body>${body}</body></html>`;
        const server = await serveBeside({
            pages: { ...pages, '/': page(t.name, pages.body), '/article.txt': 'PEN-BL\n' },
        });
        t.after(() => server.close());
        const opened = await openPage(browser, server.address + '/');
        await opened.waitForFunction(() => customElements.get('tablio-grid') && window.isRun !== false);
        return opened;
    };
    for (const [heading, check] of Object.entries(checks))
        await context.test(heading, async (t) => {
            const first = sample('A first grid');
            const page = await open(t, {
                body: `${sample('A first grid', 'html')}
                    <script type="module" src="/first.js"></script>
                    <script type="module" src="/sample.js"></script>
                    <script type="module" src="/end.js"></script>`,
                '/first.js': first,
                '/sample.js': heading === 'A first grid' ? '' : sample(heading),
                '/end.js': 'window.isRun = true;',
            });
            await page.waitForFunction(() => window.isRun);
            await check(page);
            assertNoFaults(page);
        });
    for (const [language, around] of Object.entries(frameworks))
        await context.test(language, async (t) => {
            const { outputFiles } = await build({
                stdin: {
                    contents: around(sample('In frameworks', language)),
                    resolveDir: import.meta.dirname ?? join(root, 'frontends/web'),
                    loader: language === 'jsx' ? 'jsx' : 'js',
                },
                jsx: 'automatic',
                bundle: true,
                write: false,
                format: 'esm',
                define: { 'process.env.NODE_ENV': '"production"', __VUE_OPTIONS_API__: 'true' },
                logLevel: 'error',
            });
            const settings = sample('Columns from saved settings').match(/`(.*)`/s)[1];
            const page = await open(t, {
                body: `<main></main><script type="module" src="/page.js"></script>`,
                '/page.js': `import '/tablio/tablio-grid.js';
                    window.settings = ${JSON.stringify(settings)};
                    window.saved = [];
                    window.save = (detail) => saved.push(detail.newData);
                    await import('/framework.js');`,
                '/framework.js': outputFiles[0].text,
            });
            const grid = await page.waitForSelector('tablio-grid');
            await grid.evaluate((each) => each.focus());
            await enter(page, 1, 0, 'Pencil');
            assert.deepEqual(await page.evaluate(() => window.saved), ['Pencil']);
            assert.equal(await grid.evaluate((each) => each.cols), 2);
            assertNoFaults(page);
        });
});
