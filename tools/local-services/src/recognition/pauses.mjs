// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

const frameSeconds = 0.1;
const silenceRms = 0.001; // -60 dBFS

function power(samples, from, to) {
    let sum = 0;
    for (let index = from; index < to; ++index) sum += samples[index] * samples[index];
    return sum / Math.max(1, to - from);
}

/** The quietest frame's middle between two positions. */
function quietest(samples, from, to, frame) {
    let best = to;
    let least = Infinity;
    for (let at = from; at + frame <= to; at += Math.ceil(frame / 2)) {
        const here = power(samples, at, at + frame);
        if (here < least) {
            least = here;
            best = at + Math.floor(frame / 2);
        }
    }
    return best;
}

/** Whether nothing is loud enough to be speech: every 0.1 s is below -60 dBFS. */
export function isSilent(samples, sampleRate) {
    const frame = Math.round(frameSeconds * sampleRate);
    for (let at = 0; at < samples.length; at += frame)
        if (power(samples, at, Math.min(at + frame, samples.length)) > silenceRms ** 2)
            return false;
    return true;
}

/**
 * Cuts a recording where it is quietest, since models take only so much at a time.
 *
 * @param {number} longest the most seconds a piece may have
 * @returns {Float32Array[]} pieces in order, which share the samples' memory
 */
export function splitAtPauses(samples, sampleRate, longest) {
    const most = Math.round(longest * sampleRate);
    const frame = Math.round(frameSeconds * sampleRate);
    const pieces = [];
    let begin = 0;
    while (samples.length - begin > most) {
        const end = quietest(samples, begin + Math.floor(most / 2), begin + most, frame);
        pieces.push(samples.subarray(begin, end));
        begin = end;
    }
    pieces.push(samples.subarray(begin));
    return pieces;
}

const edgeSeconds = 0.3;
const edgeFrameSeconds = 0.01;

/**
 * The same sound with equally much silence before and behind it: how long somebody waits with the
 * first word must not change what is heard.
 *
 * @returns {Float32Array} 0.3 s longer on both sides than what is louder than 2 % of the loudest
 */
export function withEvenEdges(samples, sampleRate) {
    const frame = Math.round(edgeFrameSeconds * sampleRate);
    const powers = [];
    for (let at = 0; at + frame <= samples.length; at += frame)
        powers.push(power(samples, at, at + frame));
    const loudest = powers.reduce((a, b) => Math.max(a, b), 0);
    const isLoud = (each) => each >= Math.max(silenceRms, 0.02 * Math.sqrt(loudest)) ** 2;
    const first = powers.findIndex(isLoud);
    if (first < 0) return samples;
    const edge = Math.round(edgeSeconds * sampleRate);
    const [begin, end] = [first * frame - edge, (powers.findLastIndex(isLoud) + 1) * frame + edge];
    const even = new Float32Array(end - begin);
    even.set(samples.subarray(Math.max(0, begin), end), Math.max(0, -begin));
    return even;
}
