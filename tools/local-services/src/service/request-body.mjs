// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { bodyPatience } from '../settings/service-limits.mjs';

/** A body longer than is taken. */
export class BodyTooLarge extends Error {}

// What is read and dropped of a body that is too long, so that its sender reads our answer instead
// of failing to write.
const mostDropped = 1 << 29;

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
    let chunks = [];
    let size = 0;
    try {
        for await (const chunk of request) {
            size += chunk.length;
            if (size > mostDropped) request.destroy();
            if (size <= limit) chunks.push(chunk);
            else chunks = [];
        }
    } finally {
        clearTimeout(timer);
    }
    if (size > limit) throw new BodyTooLarge(`${size} bytes`);
    return Buffer.concat(chunks);
}
