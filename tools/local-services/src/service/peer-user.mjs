// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { readFileSync } from 'node:fs';

const hexadecimal = (number, digits) => number.toString(16).toUpperCase().padStart(digits, '0');

/** An IPv4 address and a port as the kernel's tables have them. */
function endPoint(address, port) {
    const bytes = address.split('.').map((byte) => hexadecimal(Number(byte), 2));
    return `${bytes.reverse().join('')}:${hexadecimal(port, 4)}`;
}

/**
 * The user whose program is at the other end of a connection within this machine.
 *
 * @param {import('node:net').Socket} socket
 * @returns {number|undefined} the user's id; nothing when the program has closed its end already
 */
export function peerUser({ localAddress, localPort, remoteAddress, remotePort }) {
    if (!remoteAddress) return undefined;
    const ends = `${endPoint(remoteAddress, remotePort)} \\w*${endPoint(localAddress, localPort)}`;
    const row = new RegExp(`^ *\\d+: \\w*${ends} \\w+ \\S+ \\S+ \\w+ +(\\d+) +\\d+ +(\\d+)`, 'm');
    for (const table of ['tcp', 'tcp6']) {
        const [, user, inode] = readFileSync(`/proc/self/net/${table}`, 'utf8').match(row) ?? [];
        // Connections without a program are listed as root's.
        if (user !== undefined && inode !== '0') return Number(user);
    }
    return undefined;
}
