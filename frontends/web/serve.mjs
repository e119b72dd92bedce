/**
 * A small server of files for the demo, the tests and the benchmark. It knows the types that a page
 * of ours is made of, and serves directories under paths.
 */

import { createReadStream } from 'node:fs';
import { stat } from 'node:fs/promises';
import { createServer } from 'node:http';
import { extname, join, normalize } from 'node:path';

const types = {
    '.css': 'text/css; charset=utf-8',
    '.html': 'text/html; charset=utf-8',
    '.js': 'text/javascript; charset=utf-8',
    '.mjs': 'text/javascript; charset=utf-8',
    '.svg': 'image/svg+xml',
    '.wasm': 'application/wasm',
};

/** No inline scripts or styles, no eval; a module of WebAssembly may be compiled. */
export const strictPolicy =
    "default-src 'none'; script-src 'self' 'wasm-unsafe-eval'; style-src 'self'; " +
    "connect-src 'self'; img-src 'self'; base-uri 'none'; form-action 'none'";

/**
 * Serves directories by the paths that they stand under, such as { '/': …, '/tablio/': … }, on this
 * machine alone. `pages` are texts by their whole path, or functions that promise one and are given
 * what is asked for behind it. Port 0 is any that is free.
 * @returns the address, without a slash at its end, and close()
 */
export async function serve({
    directories,
    pages = {},
    policy = strictPolicy,
    headers: more = {},
    port = 0,
}) {
    const paths = Object.keys(directories).sort((one, other) => other.length - one.length);
    const server = createServer(async (request, response) => {
        const { pathname, searchParams } = new URL(request.url, 'http://here');
        const path = normalize(decodeURIComponent(pathname));
        const headers = {
            'Cache-Control': 'no-store',
            'X-Content-Type-Options': 'nosniff',
            ...more,
        };
        if (policy) headers['Content-Security-Policy'] = policy;
        const send = (status, type, body) => {
            response.writeHead(status, { ...headers, 'Content-Type': type });
            response.end(body);
        };
        if (path in pages) {
            const page = pages[path];
            const text = typeof page === 'function' ? await page(searchParams) : page;
            return send(200, types[extname(path)] ?? types['.html'], text);
        }
        if (path === '/favicon.ico') return send(204, 'text/plain');
        const base = paths.find((each) => path.startsWith(each));
        if (base === undefined) return send(404, 'text/plain', 'Not found');
        let file = join(directories[base], path.slice(base.length));
        if (path.endsWith('/')) file = join(file, 'index.html');
        const isFile = await stat(file).then((each) => each.isFile(), () => false);
        if (!isFile) return send(404, 'text/plain', 'Not found');
        response.writeHead(200, {
            ...headers,
            'Content-Type': types[extname(file)] ?? 'application/octet-stream',
        });
        createReadStream(file).pipe(response);
    });
    await new Promise((resolve, reject) => {
        server.once('error', reject);
        server.listen(port, '127.0.0.1', resolve);
    });
    return {
        address: `http://127.0.0.1:${server.address().port}`,
        close() {
            server.closeAllConnections();
            return new Promise((resolve) => server.close(resolve));
        },
    };
}
