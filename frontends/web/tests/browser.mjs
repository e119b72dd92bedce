/**
 * What the tests of the web face share: Debian's Chromium on pages that are served from the built
 * package, and what went wrong in them. A test file opens one browser and closes it at its end.
 */

import assert from 'node:assert/strict';
import { existsSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';

import puppeteer from 'puppeteer-core';

import { serve, strictPolicy } from '../serve.mjs';

export const root = join(dirname(fileURLToPath(import.meta.url)), '../../..');
/** The package as scripts/web makes it. */
export const built = process.env.TABLIO_WEB_PACKAGE ?? join(root, 'build/web/package');

const chromium = process.env.TABLIO_CHROMIUM ?? '/usr/bin/chromium';

/** Why these tests cannot be run here, for node:test's `skip`; false where they can. */
export const skip =
    (!existsSync(chromium) && `no ${chromium} here`) ||
    (!existsSync(join(built, 'tablio-grid.js')) && 'no package; scripts/web builds it');

export async function openBrowser(flags = []) {
    return puppeteer.launch({
        executablePath: chromium,
        args: [
            '--headless=new',
            '--no-sandbox',
            '--disable-gpu',
            '--disable-quic',
            '--no-first-run',
            '--disable-background-networking',
            '--disable-component-update',
            '--disable-sync',
            // A handler that blocks must not be taken for a page that hangs.
            '--disable-hang-monitor',
            ...flags,
        ],
        // Keys that are sent ahead are answered when handlers that block let them be.
        protocolTimeout: 3_600_000,
        defaultViewport: { width: 1000, height: 600 },
    });
}

/**
 * Serves the package under /tablio/ and the given directories and pages beside it. `policy` is the
 * strict content policy when nothing else is said.
 */
export function serveBeside({ directories = {}, pages = {}, policy = strictPolicy } = {}) {
    const wait = (query) => new Promise((done) => setTimeout(done, Number(query.get('ms')), ''));
    return serve({
        directories: { '/tablio/': built, ...directories }, pages: { '/wait': wait, ...pages }, policy,
    });
}

/** For a page: a handler of a host that asks its server blocks it for so long, without working. */
export const blockScript = `window.block = (ms) => {
    const request = new XMLHttpRequest();
    request.open('GET', '/wait?ms=' + ms, false);
    if (ms > 0) request.send();
};`;

/** Opens a page. What it throws or reports as an error stands in `page.faults`. */
export async function openPage(browser, address) {
    const page = await browser.newPage();
    page.faults = [];
    page.on('pageerror', (error) => page.faults.push(String(error)));
    page.on('console', (message) => {
        if (message.type() === 'error') page.faults.push(message.text());
    });
    await page.goto(address, { waitUntil: 'load' });
    return page;
}

export function assertNoFaults(page) {
    assert.deepEqual(page.faults, []);
}
