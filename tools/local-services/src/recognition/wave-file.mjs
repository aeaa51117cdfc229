// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

/** Bytes that are no sound file, or one of a kind that is not read. */
export class WaveError extends Error {}

const formats = { pcm: 1, float: 3, extensible: 0xfffe };

const readers = {
    pcm8: [1, (view, at) => (view.getUint8(at) - 128) / 128],
    pcm16: [2, (view, at) => view.getInt16(at, true) / 32768],
    pcm24: [3, (view, at) => (view.getInt16(at + 1, true) * 256 + view.getUint8(at)) / 8388608],
    pcm32: [4, (view, at) => view.getInt32(at, true) / 2147483648],
    float32: [4, (view, at) => view.getFloat32(at, true)],
};

const tagAt = (view, at) =>
    String.fromCharCode(...[0, 1, 2, 3].map((offset) => view.getUint8(at + offset)));

/** The chunks by their tags; one whose size is a lie ends with the file. */
function chunks(view) {
    if (view.byteLength < 12 || tagAt(view, 0) !== 'RIFF' || tagAt(view, 8) !== 'WAVE')
        throw new WaveError('not a WAV file');
    const found = {};
    for (let at = 12; at + 8 <= view.byteLength;) {
        const size = Math.min(view.getUint32(at + 4, true), view.byteLength - at - 8);
        found[tagAt(view, at)] ??= new DataView(view.buffer, view.byteOffset + at + 8, size);
        at += 8 + size + (size % 2);
    }
    return found;
}

function description(format) {
    if (!format || format.byteLength < 16)
        throw new WaveError('a WAV file without a description of its format');
    let kind = format.getUint16(0, true);
    if (kind === formats.extensible && format.byteLength >= 26) kind = format.getUint16(24, true);
    const bits = format.getUint16(14, true);
    return {
        reader: readers[{ [formats.pcm]: 'pcm', [formats.float]: 'float' }[kind] + bits],
        channels: format.getUint16(2, true),
        sampleRate: format.getUint32(4, true),
    };
}

/**
 * Decodes a WAV file: PCM of 8 to 32 bits or float, 8000 to 192000 Hz, 1 to 8 channels, which are
 * mixed into one.
 *
 * @param {Uint8Array} bytes
 * @returns {{samples: Float32Array, sampleRate: number}} samples from -1 to 1; rate in Hz
 * @throws {WaveError}
 */
export function decodeWave(bytes) {
    const found = chunks(new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength));
    const { reader, channels, sampleRate } = description(found['fmt ']);
    if (!reader || channels < 1 || channels > 8 || sampleRate < 8000 || sampleRate > 192000)
        throw new WaveError('a WAV file of a format that is not read');
    const data = found['data'] ?? new DataView(new ArrayBuffer(0));
    const [width, read] = reader;
    const samples = new Float32Array(Math.floor(data.byteLength / (width * channels)));
    for (let index = 0, at = 0; index < samples.length; ++index) {
        let sum = 0;
        for (let channel = 0; channel < channels; ++channel, at += width) sum += read(data, at);
        // Floats can be anything.
        samples[index] = Math.max(-1, Math.min(1, sum / channels)) || 0;
    }
    return { samples, sampleRate };
}
