// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { once } from 'node:events';

import { host } from '../settings/service-address.mjs';

// The first descriptor that a service manager hands over.
const firstInherited = 3;

/** Whether a service manager has opened the socket for this process. */
export const isSocketInherited = (environment = process.env) =>
    Number(environment.LISTEN_PID) === process.pid && Number(environment.LISTEN_FDS) === 1;

/**
 * Listens on the inherited socket, else on a port, and on 127.0.0.1 only.
 *
 * @param {import('node:http').Server} server
 * @param {number} port 0 for any
 * @returns {Promise<number>} the port
 * @throws {Error} when the port is taken, or the inherited socket hears other machines
 */
export async function listen(server, port) {
    server.listen(isSocketInherited() ? { fd: firstInherited } : { host, port });
    await once(server, 'listening');
    const { address, port: bound } = server.address();
    if (address !== host) {
        server.close();
        throw new Error(`the socket listens on ${address}, not on ${host}`);
    }
    return bound;
}
