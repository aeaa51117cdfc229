// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';

import { decodeWave, WaveError } from '../../tools/local-services/src/recognition/wave-file.mjs';

export { WaveError as Refusal };

export function fuzz(bytes) {
    const { samples, sampleRate } = decodeWave(bytes);
    assert(sampleRate >= 8000 && sampleRate <= 192000);
    assert(samples.every((sample) => Math.abs(sample) <= 1));
}
