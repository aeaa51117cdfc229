// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { createServer } from 'node:http';

import { refusal } from './refusals.mjs';
import { readBody } from './request-body.mjs';

const minute = 60_000;

/**
 * The HTTP server for both services.
 *
 * @param {object[]} handlers each with a `path`, `keyOf(headers)`, `handle(request, response,
 *     query)` and `refuse(response, status, reason)`
 * @param {string} key what every request has to know
 * @returns {import('node:http').Server} not listening yet
 */
export function serviceServer(handlers, key) {
    const server = createServer((request, response) => {
        response.on('error', () => {});
        dispatch(handlers, key, request, response).catch(() => response.destroy());
    });
    server.maxConnections = 32;
    // The application opens its connections when a recording begins, and uses them when it ends.
    server.keepAliveTimeout = 15 * minute;
    server.headersTimeout = 15 * minute;
    server.requestTimeout = 16 * minute;
    return server;
}

async function dispatch(handlers, key, request, response) {
    const url = new URL(`http://local${request.url.startsWith('/') ? request.url : '/'}`);
    const handler = handlers.find(({ path }) => path === url.pathname);
    const reason = handler
        ? refusal(request, { key, keyOf: handler.keyOf })
        : { status: 404, reason: 'There is no such service.' };
    if (!reason) return handler.handle(request, response, url.searchParams);
    // Dropped, not left unread: closing on unread bytes would take the answer along.
    await readBody(request, 0).catch(() => {});
    if (handler) return handler.refuse(response, reason.status, reason.reason);
    response.writeHead(reason.status, { 'Content-Type': 'text/plain' });
    return response.end(reason.reason);
}
