// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// How the companion's program and its service show each other that they know the key, without
// telling it to whoever else may have the port.

import { createHash, createHmac, timingSafeEqual } from 'node:crypto';

const digest = (text) => createHash('sha256').update(text).digest();

/** Whether two texts are equal, in a time that does not depend on where they differ. */
export const isSameText = (given, wanted) => timingSafeEqual(digest(given), digest(wanted));

const proof = (key, ...parts) =>
    createHmac('sha256', key).update(JSON.stringify(parts)).digest('hex');

/** What who asks has to know of the key; `challenge` is a random text that is never used again. */
export const questionProof = (key, challenge) => proof(key, 'question', challenge);

/** What who answers has to know of it. The port keeps an answer from being handed on by another. */
export const answerProof = (key, challenge, port, answer) =>
    proof(key, 'answer', challenge, port, answer);
