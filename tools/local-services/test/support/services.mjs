// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { once } from 'node:events';
import { request } from 'node:http';

import { Recogniser } from '../../src/recognition/recogniser.mjs';
import { PolishingHandler } from '../../src/service/polishing-handler.mjs';
import { RecognitionHandler } from '../../src/service/recognition-handler.mjs';
import { serviceServer } from '../../src/service/server.mjs';
import { engineFolder } from '../../src/settings/folders.mjs';
import { polishingPath, recognitionPath } from '../../src/settings/service-address.mjs';
import { temporaryHome } from './home.mjs';

export const key = 'key-of-the-test';
export { polishingPath as polishing, recognitionPath as recognition };

/** Both services with the installed engine and the models of a folder, on a socket. */
export async function startServices(context, models) {
    const lines = [];
    const log = (line) => lines.push(line);
    const recogniser = new Recogniser(engineFolder());
    const handler = new RecognitionHandler(recogniser, models, log);
    const server = serviceServer([handler, new PolishingHandler(log)], key);
    const socket = temporaryHome(context).path('socket');
    server.listen(socket);
    await once(server, 'listening');
    context.after(() => {
        recogniser.stop();
        server.close();
        server.closeAllConnections();
    });
    return { socket, lines };
}

/**
 * One request with the right headers, unless others are given.
 *
 * @returns {Promise<{status: number, code: string, message: string, text: string, body: *}>}
 */
export async function ask(
    socketPath,
    path,
    body,
    { headers = {}, method = 'POST', key: known = key, agent = false } = {},
) {
    const bytes = Buffer.from(typeof body === 'string' ? body : JSON.stringify(body));
    const usual = {
        'Content-Type': 'application/json',
        'Content-Length': bytes.length,
        'X-Api-Key': known,
        Authorization: `Bearer ${known}`,
    };
    const to = { socketPath, path, method, agent };
    const sent = request({ ...to, headers: { ...usual, ...headers } });
    // Who answers may close before all that it has read counts as written here.
    sent.on('error', () => {});
    sent.end(bytes);
    const [response] = await once(sent, 'response');
    const text = Buffer.concat(await response.toArray()).toString();
    const isJson = response.headers['content-type'] === 'application/json';
    return {
        status: response.statusCode,
        code: response.headers['x-api-status-code'],
        message: response.headers['x-api-message'],
        body: isJson ? JSON.parse(text) : text,
        text: isJson ? JSON.parse(text).result?.text : undefined,
    };
}

/** The body of a recognition, as the application sends it. */
export const recording = (file, terms = []) => ({
    user: { uid: key },
    audio: { data: file.toString('base64') },
    request: {
        model_name: 'bigmodel',
        enable_itn: true,
        enable_punc: true,
        enable_ddc: true,
        ...(terms.length && {
            corpus: { context: JSON.stringify({ hotwords: terms.map((word) => ({ word })) }) },
        }),
    },
});
