// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// The process that runs the engine. It is one of its own because the engine ends the process it
// runs in when a model is bad. Talks to RecognitionWorker.

import { createRequire } from 'node:module';
import { join } from 'node:path';

let recognizer;

async function load({ engineFolder, options }) {
    try {
        const engine = createRequire(join(engineFolder, 'package.json'))('sherpa-onnx-node');
        recognizer = await engine.OfflineRecognizer.createAsync(options);
        process.send({});
    } catch (error) {
        process.send({ problem: error.message }, () => process.exit(1));
    }
}

async function recognise({ id, samples, sampleRate, hotwords }) {
    try {
        const stream = recognizer.createStream(hotwords);
        stream.acceptWaveform({ samples, sampleRate });
        const { text } = await recognizer.decodeAsync(stream);
        process.send({ id, text });
    } catch (error) {
        process.send({ id, problem: error.message });
    }
}

process.on('message', (message) => (message.samples ? recognise(message) : load(message)));
process.on('disconnect', () => process.exit());
// Whoever ends the companion from a terminal ends this through the companion.
process.on('SIGINT', () => {});
