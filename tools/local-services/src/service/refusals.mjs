// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/**
 * Why a request is not even looked at.
 *
 * @param {import('node:http').IncomingMessage} request
 * @param {function(object): boolean} isKeyed whether its headers show that who asks knows the key
 * @returns {{status: number, reason: string}|undefined}
 */
export function refusal({ method, headers }, isKeyed) {
    if (method !== 'POST') return { status: 405, reason: 'Only POST is served.' };
    if (!isKeyed(headers)) return { status: 401, reason: 'The key is missing or wrong.' };
    if (!/^application\/json\s*(;|$)/i.test(headers['content-type'] ?? ''))
        return { status: 415, reason: 'The body has to be application/json.' };
    return undefined;
}
