// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { once } from 'node:events';
import { request } from 'node:http';

import { statusPath } from '../settings/service-address.mjs';

const patience = 3000; // milliseconds
const longestAnswer = 1000;

/**
 * What the companion that listens on a socket says of itself. No key is told.
 *
 * @param {string} socket
 * @returns {Promise<{process: number, since: string}|undefined>} nothing when none answers
 */
export async function runningCompanion(socket) {
    const headers = { 'Content-Type': 'application/json' };
    const signal = AbortSignal.timeout(patience);
    const to = { socketPath: socket, path: statusPath, method: 'POST', agent: false };
    try {
        const [response] = await once(request({ ...to, headers, signal }).end(), 'response');
        let text = '';
        for await (const chunk of response.setEncoding('utf8'))
            if (text.length < longestAnswer) text += chunk;
        return JSON.parse(text);
    } catch {
        return undefined;
    }
}
