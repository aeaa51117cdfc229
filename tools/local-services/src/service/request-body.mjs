// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { bodyPatience } from '../settings/service-limits.mjs';

/** A body longer than is taken. */
export class BodyTooLarge extends Error {}

// What is read and dropped of a body that is too long, so that its sender reads our answer instead
// of failing to write.
const mostDropped = 1 << 29;

const announcedSize = ({ headers }) => Number(headers['content-length'] ?? 0);

/**
 * The whole body of a request.
 *
 * @param {import('node:http').IncomingMessage} request
 * @param {number} limit the most bytes that are kept
 * @param {number} patience milliseconds until the last byte has to be there
 * @returns {Promise<Buffer>}
 * @throws {BodyTooLarge} when all of it was read, so that an answer can be sent
 * @throws {Error} when the connection ends or the time is up
 */
export async function readBody(request, limit, patience = bodyPatience) {
    const timer = setTimeout(
        () => request.destroy(new Error('the body is not complete')),
        patience,
    );
    // Of the size that was announced, so that no second copy is needed.
    let body = Buffer.allocUnsafe(Math.min(announcedSize(request), limit));
    let size = 0;
    try {
        for await (const chunk of request) {
            const start = size;
            size += chunk.length;
            if (size > mostDropped) request.destroy();
            if (size > limit) continue;
            if (size > body.length) body = Buffer.concat([body], Math.min(2 * size, limit));
            chunk.copy(body, start);
        }
    } finally {
        clearTimeout(timer);
    }
    if (size > limit) throw new BodyTooLarge(`${size} bytes`);
    return body.subarray(0, size);
}
