// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
//
// usage: node run.mjs MODULE SECONDS FAULT FILE...
// Runs the target that a module is with each of the files, then for so long with what comes of
// mutating them, always the same. The first fault ends it; its input is written to the file FAULT.

import assert from 'node:assert/strict';
import { readFileSync, writeFileSync } from 'node:fs';
import { resolve } from 'node:path';

import { noiseSource } from '../local-services/test/support/sound.mjs';

const [target, seconds, fault, ...files] = process.argv.slice(2);
const { fuzz, Refusal } = await import(resolve(target));
const corpus = files.map((file) => readFileSync(file));
const noise = noiseSource(1);
const below = (limit) => Math.floor(((noise() + 1) / 2) * limit);

function mutated(bytes) {
    const start = below(bytes.length + 1);
    const other = corpus[below(corpus.length)];
    const from = below(other.length);
    const inserted = [
        Buffer.alloc(0),
        Buffer.of(below(256)),
        Buffer.alloc(4, 0xff),
        other.subarray(from, from + below(16)),
    ][below(4)];
    const rest = bytes.subarray(start + below(2) * below(16));
    return Buffer.concat([bytes.subarray(0, start), inserted, rest]);
}

async function run(bytes) {
    try {
        await fuzz(bytes);
    } catch (error) {
        try {
            assert(error instanceof Refusal, error);
            assert.doesNotMatch(error.message, /sk-secret/);
        } catch (found) {
            writeFileSync(fault, bytes);
            throw found;
        }
    }
}

for (const bytes of corpus) await run(bytes);
let runs = corpus.length;
for (const end = Date.now() + seconds * 1000; Date.now() < end; ++runs) {
    let bytes = corpus[below(corpus.length)];
    for (let count = below(4); count >= 0; --count) bytes = mutated(bytes);
    await run(bytes);
}
process.stdout.write(`Done ${runs} runs\n`);
