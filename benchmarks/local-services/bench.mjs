// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
//
// usage: node bench.mjs FOLDER ROWS
// Measures the local recogniser on spoken sentences, beside pocketsphinx on the same sound. The
// sound goes to the folder, the rows are appended to the file.

import { setTimeout } from 'node:timers/promises';

import { readLanguage } from '../../tools/local-services/src/recognition/language.mjs';
import { editDistance } from '../../tools/local-services/src/recognition/spelling-distance.mjs';
import { correctTerms } from '../../tools/local-services/src/recognition/terms.mjs';
import { engineFolder } from '../../tools/local-services/src/settings/folders.mjs';
import { Companion } from './companion.mjs';
import { makeCorpus, makeLanguages } from './corpus.mjs';
import { disturbed } from './disturbances.mjs';
import { recogniseWithPocketsphinx } from './pocketsphinx.mjs';
import { Results } from './results.mjs';
import { misheard, ordinary, terms } from './term-sentences.mjs';
import { wordErrorRate } from './word-errors.mjs';

const rounds = 5;
const [folder, rows] = process.argv.slice(2);
const results = new Results(rows);
const recordings = makeCorpus(folder);
const [first] = recordings;

/** The first request of a companion that began to start as long ago as the sentence is spoken. */
async function requestAfterSpeaking() {
    const companion = await Companion.waitingForItsFirstConnection();
    companion.openAhead();
    await setTimeout(first.seconds * 1000);
    const { milliseconds } = await companion.recognise(first.file);
    await companion.stop();
    return milliseconds;
}

async function firstRequests() {
    const cold = [];
    const ahead = [];
    const warm = [];
    for (let round = 0; round < rounds; ++round) {
        const companion = await Companion.waitingForItsFirstConnection();
        cold.push((await companion.recognise(first.file)).milliseconds);
        warm.push((await companion.recognise(first.file)).milliseconds);
        await companion.stop();
        ahead.push(await requestAfterSpeaking());
    }
    const sentence = `${first.seconds.toFixed(1)} s of speech`;
    results.add({
        name: `Local: first request, nothing runs, ${sentence}`,
        unit: 'ms',
        values: cold,
    });
    results.add({ name: 'Local: first request, opened ahead', unit: 'ms', values: ahead });
    results.add({ name: `Local: next request, ${sentence}`, unit: 'ms', values: warm });
}

async function accuracy() {
    const companion = await Companion.waitingForItsFirstConnection();
    await companion.recognise(first.file);
    const heard = [];
    const factors = [];
    for (const { file, seconds } of recordings) {
        const { text, milliseconds } = await companion.recognise(file);
        heard.push(text);
        factors.push(milliseconds / 1000 / seconds);
    }
    const memory = companion.memory();
    await companion.stop();

    const peer = 'pocketsphinx';
    const other = recogniseWithPocketsphinx(folder, recordings);
    for (const noise of new Set(recordings.map((recording) => recording.noise))) {
        const part = (_, index) => recordings[index].noise === noise;
        const rate = (texts) => wordErrorRate(recordings.filter(part), texts.filter(part));
        const name = `Local: word errors, ${noise}`;
        results.add({
            name,
            unit: '%',
            values: [rate(heard)],
            peer,
            peerValues: [rate(other.heard)],
        });
    }
    const spoken = recordings.reduce((sum, { seconds }) => sum + seconds, 0);
    const peerValues = [other.seconds / spoken];
    results.add({
        name: 'Local: seconds for a second of speech',
        unit: 's',
        values: factors,
        peer,
        peerValues,
    });
    results.add({ name: 'Local: memory, both processes', unit: 'MB', values: [memory] });
}

async function losses() {
    const companion = await Companion.waitingForItsFirstConnection();
    const clean = recordings.filter(({ noise }) => noise === 'clean');
    const all = disturbed(folder, clean);
    let lost = 0;
    for (const { file } of all) if (!(await companion.recognise(file)).text) ++lost;
    await companion.stop();
    const name = `Local: lost of ${all.length} with clicks, noise, pauses`;
    results.add({ name, unit: '', values: [lost] });
}

function dictionary() {
    const language = readLanguage(engineFolder());
    const corrected = (sentence) => correctTerms(sentence, terms, language);
    const changes = (sentence) => editDistance(sentence.split(' '), corrected(sentence).split(' '));
    const changed = ordinary.map(changes).reduce((a, b) => a + b, 0);
    const right = misheard.filter(([heard, meant]) => corrected(heard) === meant).length;
    const added = (name, value) => results.add({ name, unit: '', values: [value] });
    added(`Local: words changed in ${ordinary.length} sentences`, changed);
    added(`Local: terms put right of ${misheard.length} misheard`, right);
}

async function languages() {
    const { english, mandarin } = makeLanguages(folder);
    const companion = await Companion.waitingForItsFirstConnection();
    const answered = async (all) => {
        let count = 0;
        for (const { file } of all) if ((await companion.recognise(file)).text) ++count;
        return count;
    };
    const refused = english.length - (await answered(english));
    const invented = await answered(mandarin);
    await companion.stop();
    const added = (name, value) => results.add({ name, unit: '', values: [value] });
    added(`Local: refused of ${english.length} in English`, refused);
    added(`Local: English invented for ${mandarin.length} in Mandarin`, invented);
}

dictionary();
await firstRequests();
await accuracy();
await losses();
await languages();
