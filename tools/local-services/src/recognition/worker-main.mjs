// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
// The process that runs the engine. It is one of its own because the engine ends the process it
// runs in when a model is bad, and for work that would keep others waiting. Talks to
// RecognitionWorker.

import { createRequire } from 'node:module';
import { join } from 'node:path';

import { readLanguage } from './language.mjs';
import { correctTerms } from './terms.mjs';

const correctionMilliseconds = 2000;

let recognizer;
let language;

async function load({ engineFolder, options }) {
    try {
        const engine = createRequire(join(engineFolder, 'package.json'))('sherpa-onnx-node');
        const loading = engine.OfflineRecognizer.createAsync(options);
        language = readLanguage(engineFolder);
        recognizer = await loading;
        process.send({});
    } catch (error) {
        process.send({ problem: error.message }, () => process.exit(1));
    }
}

async function recognise({ samples, sampleRate, hotwords }) {
    const stream = recognizer.createStream(hotwords);
    stream.acceptWaveform({ samples, sampleRate });
    const { text } = await recognizer.decodeAsync(stream);
    return text;
}

function correct({ transcript, terms }) {
    const end = performance.now() + correctionMilliseconds;
    return correctTerms(transcript, terms, language, () => performance.now() > end);
}

async function answer({ id, ...request }) {
    try {
        process.send({ id, text: await (request.samples ? recognise(request) : correct(request)) });
    } catch (error) {
        process.send({ id, problem: error.message });
    }
}

process.on('message', (message) => (message.options ? load(message) : answer(message)));
process.on('disconnect', () => process.exit());
// Whoever ends the companion from a terminal ends this through the companion.
process.on('SIGINT', () => {});
