// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { once } from 'node:events';
import { createServer } from 'node:http';

/**
 * Serves one archive on loopback as a registry of packages does, and notes the range that each
 * request asks for.
 *
 * @param {Buffer} archive
 * @param {(request: number) => {status?: number, ignoresRange?: boolean, breaksAt?: number}} how
 */
export async function registryOf(context, archive, how) {
    const ranges = [];
    const server = createServer((request, response) => {
        ranges.push(request.headers.range ?? 'all');
        const { status = 200, ignoresRange = false, breaksAt } = how(ranges.length);
        const asked = Number(request.headers.range?.match(/=(\d+)-/)?.[1] ?? 0);
        const begin = ignoresRange ? 0 : asked;
        const length = { 'content-length': archive.length - begin };
        const last = archive.length - 1;
        const range = { 'content-range': `bytes ${begin}-${last}/${archive.length}` };
        response.writeHead(begin ? 206 : status, { ...length, ...(begin ? range : {}) });
        if (breaksAt) response.write(archive.subarray(begin, breaksAt), () => response.destroy());
        else response.end(archive.subarray(begin));
    });
    server.listen(0, '127.0.0.1');
    await once(server, 'listening');
    context.after(() => server.close());
    return { ranges, address: `http://127.0.0.1:${server.address().port}/` };
}
