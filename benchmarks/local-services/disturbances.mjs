// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { readFileSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';

import { decodeWave } from '../../tools/local-services/src/recognition/wave-file.mjs';
import { joined, noiseSource, wave } from '../../tools/local-services/test/support/sound.mjs';

const rate = 16000;
const count = 80;

const samplesOf = (seconds, value) =>
    Float32Array.from({ length: Math.round(seconds * rate) }, (_, index) => value(index / rate));

// What is heard beside the speech, by the loudest sample of the speech; each dies away.
const sounds = {
    click: (loudest, noise) =>
        samplesOf(0.015, (t) => 0.08 * loudest * noise() * Math.exp(-t / 0.004)),
    'mouse button': (loudest, noise) =>
        samplesOf(0.12, (t) => 0.25 * loudest * noise() * Math.exp(-(t % 0.08) / 0.003)),
    breath: (loudest, noise) =>
        samplesOf(0.25, (t) => 0.05 * loudest * noise() * Math.sin((Math.PI * t) / 0.25)),
    'knock on the desk': (loudest) =>
        samplesOf(0.1, (t) => 0.3 * loudest * Math.sin(440 * t) * Math.exp(-t / 0.02)),
};

/** Speech with a sound and a pause before, behind, on both sides, or between its halves. */
function arranged(place, speech, sound, pause) {
    const middle = Math.floor(speech.length / 2);
    const arrangements = {
        before: [sound, pause, speech],
        after: [speech, pause, sound],
        'on both sides': [sound, pause, speech, pause, sound],
        between: [speech, pause, sound, pause, speech.subarray(0, middle)],
    };
    return joined(arrangements[place]);
}

const places = ['before', 'after', 'on both sides', 'between'];
const pauses = [0.6, 1, 1.6, 2.5];
// Beside the loudest sample of the speech, too.
const roomNoises = [0, 0.006, 0.03];

/**
 * Clean speech with clicks, noise and pauses before, between and after it.
 *
 * @param {{file: string}[]} recordings of clean speech, 16 kHz
 * @returns {{name: string, file: string}[]} 80
 */
export function disturbed(folder, recordings) {
    return Array.from({ length: count }, (_, index) => {
        const noise = noiseSource(index + 1);
        const { samples } = decodeWave(readFileSync(recordings[index % recordings.length].file));
        const loudest = samples.reduce((most, value) => Math.max(most, Math.abs(value)), 0);
        const kind = Object.keys(sounds)[index % 4];
        const place = places[Math.floor(index / 4) % 4];
        const seconds = pauses[Math.floor(index / 16) % 4];
        const pause = new Float32Array(Math.round(seconds * rate));
        const room = roomNoises[index % 3] * loudest;
        const all = arranged(place, samples, sounds[kind](loudest, noise), pause);
        const file = join(folder, `disturbed${String(index).padStart(2, '0')}.wav`);
        writeFileSync(file, wave(all.map((value) => value + room * noise())));
        return { name: `${kind}, ${seconds} s, ${place}`, file };
    });
}
