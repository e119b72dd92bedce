/** The page that one grid is measured in: loads the peer, creates it, and says how long it took. */

import { cellOf, painted } from './works.js';

/** Loads what a peer needs, in its order. */
async function load(needs) {
    for (const address of needs) {
        if (address.endsWith('?module')) {
            await import(address);
            continue;
        }
        const isStyle = address.endsWith('.css');
        const element = document.createElement(isStyle ? 'link' : 'script');
        if (isStyle) Object.assign(element, { rel: 'stylesheet', href: address });
        else element.src = address;
        await new Promise((resolve, reject) => {
            element.onload = resolve;
            element.onerror = () => reject(new Error(`cannot load ${address}`));
            document.head.append(element);
        });
    }
}

const { searchParams } = new URL(location.href);
const peer = await import(`./peers/${searchParams.get('peer')}.js`);
const size = { rows: Number(searchParams.get('rows')), cols: Number(searchParams.get('cols')) };
await load(peer.needs);
const begin = performance.now();
const grid = await peer.create(document.getElementById('host'), size, cellOf(size.cols));
await painted();
const end = performance.now();
/** Milliseconds; the start is from the moment when the page was asked for. */
window.bench = { grid, created: end - begin, started: end };
