// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { Recogniser } from '../recognition/recogniser.mjs';
import { engineFolder, modelsFolder } from '../settings/folders.mjs';
import { IdleTimer } from './idle-timer.mjs';
import { isSocketInherited, listen } from './listening-socket.mjs';
import { PolishingHandler } from './polishing-handler.mjs';
import { RecognitionHandler } from './recognition-handler.mjs';
import { serviceServer } from './server.mjs';
import { StatusHandler } from './status-handler.mjs';

const log = (line) => process.stderr.write(`wrenfold-local: ${line}\n`);

/**
 * Serves until a signal comes; when a service manager started it for a connection, until nobody who
 * knows the key has asked for a while.
 *
 * @param {{socket: string, key: string, language: string}} settings
 * @param {number} idle milliseconds without requests after which it ends
 * @returns {Promise<void>} when it serves
 */
export async function serve({ socket, key, language }, idle) {
    const recogniser = new Recogniser(engineFolder());
    const recognition = new RecognitionHandler(recogniser, modelsFolder(), log);
    const handlers = [recognition, new PolishingHandler(log), new StatusHandler()];
    const end = () => {
        recogniser.stop();
        process.exit(0);
    };
    const timer = isSocketInherited() ? new IdleTimer(idle, end) : undefined;
    const server = serviceServer(handlers, key, timer && ((work) => timer.during(work)));
    await listen(server, socket);
    log(`Listening on ${socket}.`);
    // What started it is the connection that is opened while the user begins to speak.
    recognition.prepare(language);
    for (const signal of ['SIGINT', 'SIGTERM', 'SIGHUP']) process.once(signal, end);
}
