// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { Readable } from 'node:stream';

import { PolishingHandler } from '../../tools/local-services/src/service/polishing-handler.mjs';

const handler = new PolishingHandler((line) => assert.doesNotMatch(line, /Unexpected|sk-secret/));

/** Nothing that is thrown is a refusal: the handler answers with one. */
export class Refusal {}

export async function fuzz(bytes) {
    const request = Object.assign(Readable.from([bytes]), { headers: {} });
    await handler.handle(request, { writeHead() {}, end: JSON.parse });
}
