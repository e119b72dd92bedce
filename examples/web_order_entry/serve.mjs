/** Serves the order form from its files and the built package: node serve.mjs [PORT] */

import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';

import { serve } from '../../frontends/web/serve.mjs';

const here = dirname(fileURLToPath(import.meta.url));
const { address } = await serve({
    directories: { '/': here, '/tablio/': join(here, '../../build/web/package') },
    port: Number(process.argv[2] ?? 8080),
});
console.log(`Order entry: ${address}/?sample  (Ctrl+C ends it)`);
