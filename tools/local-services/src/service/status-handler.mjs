// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { answerProof, isSameText, questionProof } from '../settings/key-proof.mjs';
import { statusPath } from '../settings/service-address.mjs';
import { sendJson } from './answer.mjs';
import { readBody } from './request-body.mjs';

/** Answers the companion's own program: that it is the companion that has the port, and since when. */
export class StatusHandler {
    path = statusPath;
    #key;
    #since = new Date();

    /** @param {string} key */
    constructor(key) {
        this.#key = key;
    }

    isKeyed(headers, key) {
        const challenge = headers['x-challenge'] ?? '';
        return isSameText(headers['x-proof'] ?? '', questionProof(key, challenge));
    }

    async handle(request, response) {
        await readBody(request, 0);
        const answer = { process: process.pid, since: this.#since };
        const { 'x-challenge': challenge } = request.headers;
        const { localPort } = request.socket;
        const proof = answerProof(this.#key, challenge, localPort, JSON.stringify(answer));
        sendJson(response, 200, answer, { 'X-Proof': proof });
    }

    refuse(response, status, reason) {
        sendJson(response, status, { reason });
    }
}
