// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { execFileSync, spawnSync } from 'node:child_process';
import { mkdirSync, readFileSync } from 'node:fs';
import { join } from 'node:path';

import { mandarinSentences } from './mandarin-sentences.mjs';
import { sentences } from './sentences.mjs';
import { ordinary } from './term-sentences.mjs';

const voices = ['slt', 'rms', 'awb'];
const speeds = [0.85, 1, 1.2];
// Pink noise so many decibels below the speech.
const noises = [
    { name: 'clean', below: undefined },
    { name: 'noise 20 dB below', below: 20 },
    { name: 'noise 10 dB below', below: 10 },
];

const sox = (...args) => execFileSync('sox', ['-R', ...args.flat()], { stdio: 'pipe' });

function rmsAmplitude(file) {
    // sox tells it on the error output.
    const { stderr } = spawnSync('sox', [file, '-n', 'stat'], { encoding: 'utf8' });
    return Number(stderr.match(/^RMS .*amplitude: *(\S+)/m)[1]);
}

/** Adds noise to a sound file, in another one. */
function addNoise(speech, below, result) {
    const seconds = execFileSync('soxi', ['-D', speech], { encoding: 'utf8' }).trim();
    const noise = `${result}.noise.wav`;
    sox(['-n', '-r', '16000', '-c', '1', noise, 'synth', seconds, 'pinknoise', 'vol', '0.2']);
    const gain = (rmsAmplitude(speech) / rmsAmplitude(noise)) * 10 ** (-below / 20);
    sox(['-m', '-v', '1', speech, '-v', String(gain), noise, '-b', '16', result]);
}

/**
 * Speaks every sentence into a WAV file of 16 kHz: each with one of three voices, at one of three
 * speeds, and in turn clean and in two strengths of noise.
 *
 * @returns {{name: string, file: string, seconds: number, text: string, noise: string}[]}
 */
export function makeCorpus(folder) {
    mkdirSync(folder, { recursive: true });
    return sentences.map((text, index) => {
        const noise = noises[index % 3];
        const voice = voices[Math.floor(index / 3) % 3];
        const speed = speeds[Math.floor(index / 9) % 3];
        const name = `s${String(index).padStart(2, '0')}`;
        const [spoken, clean, file] = ['spoken', 'clean', ''].map((part) =>
            join(folder, part ? `${name}.${part}.wav` : `${name}.wav`),
        );
        const stretch = `duration_stretch=${(1 / speed).toFixed(3)}`;
        execFileSync('flite', ['-voice', voice, '--setf', stretch, '-t', text, '-o', spoken]);
        sox([spoken, '-r', '16000', '-c', '1', '-b', '16', clean, 'gain', '-n', '-6']);
        if (noise.below === undefined) sox([clean, file]);
        else addNoise(clean, noise.below, file);
        const seconds = (readFileSync(file).length - 44) / 32000;
        return { name, file, seconds, text, noise: noise.name };
    });
}

/** Makes WAV files of sentences in turns of a program's arguments. */
function speak(folder, name, texts, program) {
    return texts.map((text, index) => {
        const file = join(folder, `${name}${String(index).padStart(2, '0')}.wav`);
        const [command, ...args] = program(text, file, index);
        execFileSync(command, args);
        return { text, file };
    });
}

const mandarinVoices = ['', '+m3', '+f2', '+f4', '+m5', '+m7'];

/**
 * A hundred sentences in English and fifty in Mandarin, by a robotic voice: there is no better.
 *
 * @returns {{english: {text: string, file: string}[], mandarin: {text: string, file: string}[]}}
 */
export function makeLanguages(folder) {
    const english = speak(folder, 'english', ordinary, (text, file, index) => [
        'flite',
        '-voice',
        voices[index % 3],
        '-t',
        text,
        '-o',
        file,
    ]);
    const mandarin = speak(folder, 'mandarin', mandarinSentences, (text, file, index) => {
        const voice = `cmn-latn-pinyin${mandarinVoices[index % 6]}`;
        return [
            'espeak-ng',
            '-v',
            voice,
            '-s',
            String([130, 150, 175][index % 3]),
            '-w',
            file,
            text,
        ];
    });
    return { english, mandarin };
}
