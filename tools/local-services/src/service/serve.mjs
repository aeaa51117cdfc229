// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { Recogniser } from '../recognition/recogniser.mjs';
import { engineFolder, modelsFolder } from '../settings/folders.mjs';
import { host } from '../settings/service-address.mjs';
import { isSocketInherited, listen } from './listening-socket.mjs';
import { PolishingHandler } from './polishing-handler.mjs';
import { RecognitionHandler } from './recognition-handler.mjs';
import { serviceServer } from './server.mjs';

const log = (line) => process.stderr.write(`wrenfold-local: ${line}\n`);

/**
 * Serves until a signal comes; when a service manager started it for a connection, until nobody has
 * been connected for a while.
 *
 * @param {{port: number, key: string, language: string}} settings `language` is loaded ahead
 * @param {number} idle milliseconds without connections after which it ends
 * @returns {Promise<void>} when it serves
 */
export async function serve({ port, key, language }, idle) {
    const recogniser = new Recogniser(engineFolder());
    const recognition = new RecognitionHandler(recogniser, modelsFolder(), log);
    const server = serviceServer([recognition, new PolishingHandler(log)], key);
    const bound = await listen(server, port);
    recognition.prepare(language);
    log(`Listening on ${host}:${bound}.`);
    const end = () => {
        recogniser.stop();
        process.exit(0);
    };
    for (const signal of ['SIGINT', 'SIGTERM', 'SIGHUP']) process.once(signal, end);
    if (isSocketInherited()) endWhenIdle(server, idle, end);
}

function endWhenIdle(server, idle, end) {
    let open = 0;
    let timer = setTimeout(end, idle);
    server.on('connection', (socket) => {
        ++open;
        clearTimeout(timer);
        socket.once('close', () => {
            if (--open === 0) timer = setTimeout(end, idle);
        });
    });
}
