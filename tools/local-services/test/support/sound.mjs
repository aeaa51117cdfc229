// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { execFileSync } from 'node:child_process';
import { mkdtempSync, readFileSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';

/** A WAV file of 16 bits from samples between -1 and 1. */
export function wave(samples, { sampleRate = 16000, channels = 1, format = 1, bits = 16 } = {}) {
    const file = Buffer.alloc(44 + samples.length * 2);
    const width = channels * (bits / 8);
    file.write('RIFF', 0);
    file.writeUInt32LE(file.length - 8, 4);
    file.write('WAVEfmt ', 8);
    file.writeUInt32LE(16, 16);
    [format, channels].forEach((value, index) => file.writeUInt16LE(value, 20 + index * 2));
    file.writeUInt32LE(sampleRate, 24);
    file.writeUInt32LE(sampleRate * width, 28);
    [width, bits].forEach((value, index) => file.writeUInt16LE(value, 32 + index * 2));
    file.write('data', 36);
    file.writeUInt32LE(samples.length * 2, 40);
    samples.forEach((value, index) => file.writeInt16LE(Math.round(value * 32767), 44 + index * 2));
    return file;
}

export const silence = (seconds, sampleRate = 16000) =>
    wave(new Float32Array(Math.round(seconds * sampleRate)), { sampleRate });

/** Numbers between -1 and 1 without order, the same for the same seed. */
export function noiseSource(seed) {
    let state = seed;
    return () => {
        state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
        return state / 2 ** 31 - 1;
    };
}

/** Pieces of sound one after another. */
export const joined = (parts) => Float32Array.from(parts.flatMap((part) => [...part]));

/** Mandarin, in Pinyin with tones, by a variant of the voice, as a WAV file. */
export const mandarin = (pinyin, variant, speed) =>
    execFileSync('espeak-ng', [
        '-v',
        `cmn-latn-pinyin+${variant}`,
        '-s',
        speed,
        '--stdout',
        pinyin,
    ]);

/**
 * A spoken sentence as a WAV file.
 *
 * @param {string} text
 * @param {string[]} output how sox is to write it, such as ['-r', '44100', '-c', '2']
 * @param {string[]} effects what sox is to do to it before
 */
export function speech(text, output = [], effects = []) {
    const folder = mkdtempSync(join(tmpdir(), 'wrenfold-speech-'));
    const [spoken, changed] = [join(folder, 'spoken.wav'), join(folder, 'changed.wav')];
    try {
        execFileSync('flite', ['-voice', 'slt', '-t', text, '-o', spoken]);
        execFileSync('sox', ['-q', spoken, ...output, changed, ...effects], { stdio: 'ignore' });
        return readFileSync(changed);
    } finally {
        rmSync(folder, { recursive: true });
    }
}
