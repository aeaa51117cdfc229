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

const edgeFrameSeconds = 0.01;
// A click or a knock is over sooner than a syllable; a pause inside speech is shorter than one
// before it.
const shortestSpeechSeconds = 0.12;
const longestGapSeconds = 0.3;
// How long a sound has to last for its loudness to be that of the speech.
const loudnessSeconds = 0.2;

/** How the edges of speech are found: the least loudness beside the loudest, and what is kept. */
export const edgeCuts = [
    { least: 0.05, edgeSeconds: 0.3 },
    { least: 0.2, edgeSeconds: 0.1 },
];

/** The greatest mean of so many neighbouring numbers. */
function greatestMean(numbers, count) {
    let sum = 0;
    let greatest = 0;
    numbers.forEach((number, index) => {
        sum += number - (numbers[index - count] ?? 0);
        greatest = Math.max(greatest, sum);
    });
    return greatest / count;
}

/** Where frames are active, as [first, last, how many], gaps of a few frames bridged. */
function stretches(isActive, longestGap) {
    const found = [];
    isActive.forEach((active, index) => {
        if (!active) return;
        const last = found.at(-1);
        if (last && index - last[1] <= longestGap) last.splice(1, 2, index, last[2] + 1);
        else found.push([index, index, 1]);
    });
    return found;
}

/**
 * The same sound with equally much silence before and behind the speech: how long somebody waits
 * with the first word, and what clicks meanwhile, must not change what is heard.
 *
 * @param {{least: number, edgeSeconds: number}} cut one of `edgeCuts`
 * @returns {Float32Array} from the first to the last sound that lasts like a syllable, and the edge
 *     on both sides
 */
export function withEvenEdges(samples, sampleRate, { least, edgeSeconds }) {
    const frame = Math.round(edgeFrameSeconds * sampleRate);
    const frames = (seconds) => Math.round(seconds / edgeFrameSeconds);
    const powers = [];
    for (let at = 0; at + frame <= samples.length; at += frame)
        powers.push(power(samples, at, at + frame));
    const loudness = Math.sqrt(greatestMean(powers, frames(loudnessSeconds)));
    const threshold = Math.max(silenceRms, least * loudness) ** 2;
    const all = stretches(
        powers.map((each) => each >= threshold),
        frames(longestGapSeconds),
    );
    const lasting = all.filter(([, , count]) => count >= frames(shortestSpeechSeconds));
    const speech = lasting.length ? lasting : all;
    if (!speech.length) return samples;
    const edge = Math.round(edgeSeconds * sampleRate);
    const [begin, end] = [speech[0][0] * frame - edge, (speech.at(-1)[1] + 1) * frame + edge];
    const even = new Float32Array(end - begin);
    even.set(samples.subarray(Math.max(0, begin), end), Math.max(0, -begin));
    return even;
}
