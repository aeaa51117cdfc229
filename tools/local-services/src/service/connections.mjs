// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { mostUnkeyed } from '../settings/service-limits.mjs';
import { peerUser } from './peer-user.mjs';

/**
 * The connections of a server that have not shown the key. Other users' are closed at once; of this
 * user's the oldest are when there are many, so that there is always room for one more.
 */
export class UnkeyedConnections {
    #sockets = new Set(); // in the order they came

    /** @param {import('node:http').Server} server */
    constructor(server) {
        server.on('connection', (socket) => this.#take(socket));
    }

    /** Tells that a request on the connection knew the key. */
    remove(socket) {
        this.#sockets.delete(socket);
    }

    #take(socket) {
        const user = peerUser(socket);
        if (user !== undefined && user !== process.geteuid()) {
            socket.destroy();
            return;
        }
        this.#sockets.add(socket);
        socket.once('close', () => this.#sockets.delete(socket));
        const [oldest] = this.#sockets;
        if (this.#sockets.size > mostUnkeyed) oldest.destroy();
    }
}
