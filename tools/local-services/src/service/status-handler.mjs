// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { statusPath } from '../settings/service-address.mjs';
import { sendJson } from './answer.mjs';
import { readBody } from './request-body.mjs';

/** Answers the companion's own program, which does not tell the key: that it runs, and since when. */
export class StatusHandler {
    path = statusPath;
    #since = new Date();

    isKeyed() {
        return true;
    }

    async handle(request, response) {
        await readBody(request, 0);
        sendJson(response, 200, { process: process.pid, since: this.#since });
    }

    refuse(response, status, reason) {
        sendJson(response, status, { reason });
    }
}
