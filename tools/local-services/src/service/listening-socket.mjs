// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { once } from 'node:events';
import { mkdirSync, rmSync } from 'node:fs';
import { connect } from 'node:net';
import { dirname } from 'node:path';

import { ownName } from '../settings/own-name.mjs';

// The first descriptor that a service manager hands over.
const firstInherited = 3;

/** Whether a service manager has opened the socket for this process. */
export const isSocketInherited = (environment = process.env) =>
    Number(environment.LISTEN_PID) === process.pid && Number(environment.LISTEN_FDS) === 1;

/** Makes room for a socket where a process that was killed has left its own. */
async function removeAbandoned(path) {
    const connection = connect(path);
    try {
        await once(connection, 'connect');
    } catch (error) {
        if (error.code === 'ECONNREFUSED') rmSync(path);
    } finally {
        connection.destroy();
    }
}

/**
 * Listens on the inherited socket, else on one at a path that only this user can connect to.
 *
 * @param {import('node:http').Server} server
 * @param {string} path
 * @throws {Error} when somebody listens there, or the inherited socket is on a port
 */
export async function listen(server, path) {
    if (!isSocketInherited()) {
        process.umask(0o077);
        mkdirSync(dirname(path), { recursive: true });
        await removeAbandoned(path);
    }
    server.listen(isSocketInherited() ? { fd: firstInherited } : { path });
    await once(server, 'listening');
    const { port } = server.address() ?? {};
    if (port === undefined) return;
    server.close();
    throw new Error(`others could reach or replace a service on a port: ${ownName} enable`);
}
