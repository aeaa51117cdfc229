// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { createServer } from 'node:http';

import { bodyPatience, headersPatience, refusedBodyPatience } from '../settings/service-limits.mjs';
import { refusal } from './refusals.mjs';
import { readBody } from './request-body.mjs';

/**
 * The HTTP server for all services.
 *
 * @param {object[]} handlers each with a `path`, `isKeyed(headers, key)`, `handle(request,
 *     response, query)` and `refuse(response, status, reason)`
 * @param {string} key what every request has to know
 * @param {function(function): Promise} during does the work of a request that knew the key
 * @returns {import('node:http').Server} not listening yet
 */
export function serviceServer(handlers, key, during = (work) => work()) {
    const patience = {
        connectionsCheckingInterval: 1000,
        headersTimeout: headersPatience,
        keepAliveTimeout: headersPatience,
        requestTimeout: headersPatience + bodyPatience,
    };
    const server = createServer(patience, (request, response) => {
        response.on('error', () => {});
        dispatch(request, response).catch(() => response.destroy());
    });
    // Nothing is said on a connection that was only opened ahead, before it is dropped.
    server.on('clientError', (_error, socket) => socket.destroy());

    async function dispatch(request, response) {
        const url = new URL(`http://local${request.url.startsWith('/') ? request.url : '/'}`);
        const handler = handlers.find(({ path }) => path === url.pathname);
        const reason = handler
            ? refusal(request, (headers) => handler.isKeyed(headers, key))
            : { status: 404, reason: 'There is no such service.' };
        if (reason) return refuse(request, response, handler, reason);
        return await during(() => handler.handle(request, response, url.searchParams));
    }
    return server;
}

async function refuse(request, response, handler, { status, reason }) {
    // Dropped, not left unread: closing on unread bytes would take the answer along.
    await readBody(request, 0, refusedBodyPatience).catch(() => {});
    if (handler) return handler.refuse(response, status, reason);
    response.writeHead(status, { 'Content-Type': 'text/plain' });
    return response.end(reason);
}
