/**
 * Bundles the element around a built module into the package that is published:
 *
 *   node build.mjs MODULE.wasm DIRECTORY
 *
 * Its version is the project's. The directory holds nothing else afterwards, so that `npm pack`
 * ships just what is named here.
 */

import { copyFileSync, mkdirSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { basename, dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { brotliCompressSync } from 'node:zlib';

import { build } from 'esbuild';

const face = dirname(fileURLToPath(import.meta.url));
const root = join(face, '../..');
const [module, directory] = process.argv.slice(2);
if (directory === undefined) throw new Error('usage: node build.mjs MODULE.wasm DIRECTORY');

const version = readFileSync(join(root, 'CMakeLists.txt'), 'utf8').match(/VERSION (\d+\.\d+\.\d+)/)[1];
const { name, description, license } = JSON.parse(readFileSync(join(face, 'package.json'), 'utf8'));

rmSync(directory, { recursive: true, force: true });
mkdirSync(directory, { recursive: true });
await build({
    entryPoints: [join(face, 'index.ts')],
    outfile: join(directory, 'tablio-grid.js'),
    bundle: true,
    format: 'esm',
    target: 'es2022',
    minify: true,
    loader: { '.css': 'text' },
    banner: { js: `/*! Tablio ${version}, MIT license */` },
    logLevel: 'warning',
});
copyFileSync(module, join(directory, 'tablio.wasm'));
for (const file of [join(face, 'tablio-grid.d.ts'), join(face, 'README.md'), join(root, 'LICENSE')])
    copyFileSync(file, join(directory, basename(file)));
writeFileSync(
    join(directory, 'package.json'),
    JSON.stringify(
        {
            name,
            version,
            description,
            keywords: ['grid', 'data-entry', 'custom-element', 'webassembly'],
            license,
            type: 'module',
            types: './tablio-grid.d.ts',
            exports: {
                '.': { types: './tablio-grid.d.ts', default: './tablio-grid.js' },
                './tablio.wasm': './tablio.wasm',
            },
        },
        null,
        2,
    ) + '\n',
);

let total = 0;
for (const file of ['tablio-grid.js', 'tablio.wasm']) {
    const bytes = readFileSync(join(directory, file));
    const packed = brotliCompressSync(bytes).length;
    total += packed;
    console.log(`${file}: ${bytes.length} bytes, ${packed} with Brotli`);
}
console.log(`${name} ${version}: ${total} bytes with Brotli`);
