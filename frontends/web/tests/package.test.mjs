/** The package as others use it: what `npm pack` ships, through a bundler, from a plain page. */

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdirSync, mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { dirname, join } from 'node:path';
import { after, before, describe, test } from 'node:test';

import { build as bundle } from 'vite';

import { serve, strictPolicy } from '../serve.mjs';
import { assertNoFaults, built, openBrowser, openPage, root, skip } from './browser.mjs';

const archive = () => {
    const { version } = JSON.parse(readFileSync(join(built, 'package.json'), 'utf8'));
    return join(dirname(built), `tablio-grid-${version}.tgz`);
};

describe('the package', { skip }, () => {
    /** A program of somebody else that has the archive installed. */
    const program = mkdtempSync(join(tmpdir(), 'tablio-package-'));
    const installed = join(program, 'node_modules/@tablio/grid');
    let browser;
    before(async () => {
        mkdirSync(installed, { recursive: true });
        execFileSync('tar', ['-xzf', archive(), '-C', installed, '--strip-components=1']);
        browser = await openBrowser();
    });
    after(async () => {
        await browser?.close();
        rmSync(program, { recursive: true, force: true });
    });

    test('ships what it needs and no more', () => {
        assert.deepEqual(readdirSync(installed).sort(), [
            'LICENSE',
            'README.md',
            'package.json',
            'tablio-grid.d.ts',
            'tablio-grid.js',
            'tablio.wasm',
        ]);
        const version = readFileSync(join(root, 'CMakeLists.txt'), 'utf8').match(/VERSION ([\d.]+)\n/)[1];
        const described = JSON.parse(readFileSync(join(installed, 'package.json'), 'utf8'));
        assert.equal(described.version, version);
        assert.ok(!('dependencies' in described));
        // Neither our paths nor a map of our sources.
        for (const file of ['tablio-grid.js', 'tablio.wasm'])
            assert.doesNotMatch(readFileSync(join(installed, file), 'latin1'), /sourceMappingURL|\/work\/|\/src\/model/);
    });

    test('has types that a program compiles with', () => {
        writeFileSync(
            join(program, 'typed.ts'),
            `import { TColumnStyle, TablioError, type TablioGrid } from '@tablio/grid';
            const grid: TablioGrid = document.createElement('tablio-grid');
            grid.setColStyle(0, TColumnStyle.ColumnInput);
            grid.addEventListener('editPostValidation', ({ detail }) => {
                detail.valid = detail.newData.length < 5;
                // @ts-expect-error a row is told, not asked for
                detail.row = 1;
            });
            // @ts-expect-error there is no such style
            grid.setColStyle(0, 17);
            export const kind = (error: unknown) => error instanceof TablioError && error.kind === 'Grid';
            export { TablioGrid } from '@tablio/grid';`,
        );
        const compilerOptions = {
            noEmit: true, strict: true, types: [],
            target: 'es2022', module: 'es2022', moduleResolution: 'bundler',
        };
        writeFileSync(join(program, 'tsconfig.json'), JSON.stringify({ compilerOptions }));
        execFileSync(join(root, 'frontends/web/node_modules/.bin/tsc'), ['-p', program], {
            stdio: ['ignore', 'inherit', 'inherit'],
        });
    });

    const script = `import '@tablio/grid';
        const grid = document.querySelector('tablio-grid');
        grid.setColProperty(0, 'Name', 3000, 0);
        grid.setTextMatrix(1, 0, 'shown');
        document.title = grid.textMatrix(1, 0);`;
    const pageOf = (address) =>
        `<!doctype html><html lang="en"><head><title>waiting</title></head><body>
        <tablio-grid></tablio-grid><script type="module" src="${address}"></script></body></html>`;
    const assertShown = async (directories, pages) => {
        const server = await serve({ directories, pages, policy: strictPolicy });
        const page = await openPage(browser, server.address + '/');
        await page.waitForFunction(() => document.title === 'shown');
        assertNoFaults(page);
        await page.close();
        await server.close();
    };

    test('works from a plain page with a strict content policy', () =>
        assertShown(
            { '/package/': installed },
            {
                '/': pageOf('/plain.js'),
                '/plain.js': script.replace('@tablio/grid', '/package/tablio-grid.js'),
            },
        ));

    test('works from a bundler, which gives the module a name of its own', async () => {
        writeFileSync(join(program, 'main.js'), script);
        writeFileSync(join(program, 'index.html'), pageOf('/main.js'));
        await bundle({
            root: program,
            configFile: false,
            logLevel: 'error',
            build: { target: 'es2022', assetsInlineLimit: 0 },
        });
        assert.ok(readdirSync(join(program, 'dist/assets')).some((file) => /^tablio-.+\.wasm$/.test(file)));
        await assertShown({ '/': join(program, 'dist') });
    });
});
