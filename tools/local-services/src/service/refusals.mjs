// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// Who may ask: programs of this machine that know the key, and no web page in a browser.

import { host } from '../settings/service-address.mjs';

/** A browser tells the page that asks; a page that had its name point here tells its own host. */
function isFromBrowser({ headers }) {
    return headers.origin !== undefined || headers['sec-fetch-site'] !== undefined;
}

function isForUs({ headers, socket }) {
    return [`${host}:${socket.localPort}`, `localhost:${socket.localPort}`].includes(headers.host);
}

/**
 * Why a request is not even looked at.
 *
 * @param {import('node:http').IncomingMessage} request
 * @param {function(object): boolean} isKeyed whether its headers show that who asks knows the key
 * @returns {{status: number, reason: string}|undefined}
 */
export function refusal(request, isKeyed) {
    if (!isForUs(request)) return { status: 403, reason: 'The Host header names another server.' };
    if (isFromBrowser(request)) return { status: 403, reason: 'Web pages are not served.' };
    if (request.method !== 'POST') return { status: 405, reason: 'Only POST is served.' };
    if (!isKeyed(request.headers)) return { status: 401, reason: 'The key is missing or wrong.' };
    if (!/^application\/json\s*(;|$)/i.test(request.headers['content-type'] ?? ''))
        return { status: 415, reason: 'The body has to be application/json.' };
    return undefined;
}
