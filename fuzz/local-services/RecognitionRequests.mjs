// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';

import {
    parseRecognition,
    RecognitionFailure,
} from '../../tools/local-services/src/service/recognition-request.mjs';

export { RecognitionFailure as Refusal };

export function fuzz(bytes) {
    const { recording, terms } = parseRecognition(bytes);
    assert(recording.samples.length >= recording.sampleRate / 10);
    assert(terms.every((term) => term.trim()));
}
