// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import { decodeWave, WaveError } from '../recognition/wave-file.mjs';
import { longestSound, shortestSound } from '../settings/service-limits.mjs';

/** The recognition service's codes for how a request ended. */
export const statusCodes = {
    success: '20000000',
    silence: '20000003',
    badRequest: '45000001',
    emptyAudio: '45000002',
    badAudio: '45000151',
    failure: '55000000',
    busy: '55000031',
};

/** A recognition that is answered with one of the service's codes and a text in ASCII. */
export class RecognitionFailure extends Error {
    constructor(code, message) {
        super(message);
        this.code = code;
    }
}

const bad = (message) => new RecognitionFailure(statusCodes.badRequest, message);

function parsed(text, what) {
    try {
        const value = JSON.parse(text);
        if (value !== null && typeof value === 'object') return value;
    } catch {
        // Reported below: what the parser says would quote the text.
    }
    throw bad(`${what} is not a JSON object`);
}

function decodeAudio(data) {
    if (typeof data !== 'string') throw bad('audio.data is missing');
    if (data.length % 4 || !/^[A-Za-z0-9+/]*={0,2}$/.test(data))
        throw bad('audio.data is not base64');
    if (!data) throw new RecognitionFailure(statusCodes.emptyAudio, 'the audio is empty');
    try {
        return decodeWave(Buffer.from(data, 'base64'));
    } catch (error) {
        if (!(error instanceof WaveError)) throw error;
        throw new RecognitionFailure(statusCodes.badAudio, error.message);
    }
}

function checkDuration({ samples, sampleRate }) {
    const seconds = samples.length / sampleRate;
    if (seconds < shortestSound)
        throw new RecognitionFailure(
            statusCodes.emptyAudio,
            `the audio is shorter than ${shortestSound} s`,
        );
    if (seconds > longestSound) throw bad(`the audio is longer than ${longestSound} s`);
}

function termsOf(context) {
    if (context === undefined) return [];
    if (typeof context !== 'string') throw bad('request.corpus.context is not a text');
    const { hotwords } = parsed(context, 'request.corpus.context');
    if (!Array.isArray(hotwords)) return [];
    return hotwords
        .map((hotword) => hotword?.word)
        .filter((word) => typeof word === 'string' && word.trim() && word.length <= 100)
        .slice(0, 1000);
}

/**
 * What a body asks for.
 *
 * @param {Buffer} body
 * @returns {{recording: {samples: Float32Array, sampleRate: number}, terms: string[]}}
 * @throws {RecognitionFailure}
 */
export function parseRecognition(body) {
    const { audio, request } = parsed(body.toString('utf8'), 'the body');
    const terms = termsOf(request?.corpus?.context);
    const recording = decodeAudio(audio?.data);
    checkDuration(recording);
    return { recording, terms };
}
