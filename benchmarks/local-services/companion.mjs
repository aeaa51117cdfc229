// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { spawn } from 'node:child_process';
import { once } from 'node:events';
import { mkdirSync, readFileSync } from 'node:fs';
import { request } from 'node:http';
import { connect } from 'node:net';
import { dirname } from 'node:path';
import { fileURLToPath } from 'node:url';

import { socketFile } from '../../tools/local-services/src/settings/folders.mjs';
import { recognitionPath } from '../../tools/local-services/src/settings/service-address.mjs';
import { writeSettings } from '../../tools/local-services/src/settings/settings.mjs';

const program = fileURLToPath(
    new URL('../../tools/local-services/wrenfold-local.mjs', import.meta.url),
);

const settings = { socket: socketFile(), key: 'key-of-the-benchmark' };

/**
 * The companion as the service manager starts it, with the first connection. Its settings go to the
 * home folder.
 */
export class Companion {
    #child;

    static async waitingForItsFirstConnection() {
        const companion = new Companion();
        writeSettings(settings);
        mkdirSync(dirname(settings.socket), { recursive: true });
        const variables = ['HOME', 'PATH', 'XDG_DATA_HOME'].flatMap((name) => ['-E', name]);
        const command = ['-l', settings.socket, ...variables, process.execPath, program, 'serve'];
        companion.#child = spawn('systemd-socket-activate', command, {
            stdio: ['ignore', 'ignore', 'pipe'],
        });
        await once(companion.#child.stderr, 'data');
        companion.#child.stderr.resume();
        return companion;
    }

    /** Opens a connection, as the application does when a recording begins. */
    openAhead() {
        connect(settings.socket).on('error', () => {}); // it is dropped when nothing is said
    }

    /** @returns {Promise<{text: string, milliseconds: number}>} the words in a WAV file */
    async recognise(file) {
        const body = JSON.stringify({ audio: { data: readFileSync(file, 'base64') }, request: {} });
        const headers = { 'Content-Type': 'application/json', 'X-Api-Key': settings.key };
        const to = { socketPath: settings.socket, path: recognitionPath, method: 'POST' };
        const start = performance.now();
        const sent = request({ ...to, agent: false, headers });
        sent.end(body);
        const [response] = await once(sent, 'response');
        sent.on('error', () => {}); // it has been answered
        const { result } = JSON.parse(Buffer.concat(await response.toArray()));
        return { text: result?.text ?? '', milliseconds: performance.now() - start };
    }

    /** Memory of its processes in MB, what they share with others in proportion. */
    memory() {
        const children = readFileSync(
            `/proc/${this.#child.pid}/task/${this.#child.pid}/children`,
            'utf8',
        );
        const pids = [this.#child.pid, ...children.trim().split(' ')];
        const kilobytes = (pid) =>
            Number(readFileSync(`/proc/${pid}/smaps_rollup`, 'utf8').match(/^Pss: +(\d+)/m)[1]);
        return pids.map(kilobytes).reduce((a, b) => a + b, 0) / 1024;
    }

    async stop() {
        this.#child.kill();
        await once(this.#child, 'exit');
    }
}
