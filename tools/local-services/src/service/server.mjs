// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { createServer } from 'node:http';

import {
    connectionPatience,
    mostConnections,
    requestPatience,
} from '../settings/service-limits.mjs';
import { refusal } from './refusals.mjs';
import { readBody } from './request-body.mjs';

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
    server.maxConnections = mostConnections;
    server.keepAliveTimeout = connectionPatience;
    server.headersTimeout = connectionPatience;
    server.requestTimeout = requestPatience;
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
