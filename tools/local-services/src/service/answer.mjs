// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/** Sends a whole answer. */
export function sendJson(response, status, body, headers = {}) {
    const bytes = Buffer.from(JSON.stringify(body));
    response.writeHead(status, {
        'Content-Type': 'application/json',
        'Content-Length': bytes.length,
        ...headers,
    });
    response.end(bytes);
}
