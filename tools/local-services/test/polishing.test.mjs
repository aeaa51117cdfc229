// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import test from 'node:test';

import { paragraphing } from '../src/polishing/paragraphs.mjs';
import { polish } from '../src/polishing/polish.mjs';
import { sentenceRows } from './support/sentence-rows.mjs';

const rows = sentenceRows(new URL('./polishing-sentences.tsv', import.meta.url));
const polished = (said) => polish(said, paragraphing(''));

test('Only what means nothing goes, and marks are written as the language writes them', () => {
    for (const [said, written] of rows) assert.equal(polished(said), written, said);
    assert.equal(polished(' \n '), '');
});

test('No word is ever added or moved, and polishing again changes nothing', () => {
    const words = (text) =>
        text.toLowerCase().match(/\p{sc=Han}|[^\p{sc=Han}\P{L}]+|\p{N}+/gu) ?? [];
    // Whatever follows whatever: each sentence before a dozen others.
    const joined = rows.flatMap(([said], index) =>
        rows.filter((_, other) => (index + other) % 15 === 0).map(([next]) => `${said} ${next}`),
    );
    for (const said of joined) {
        const source = words(said)[Symbol.iterator]();
        const written = polished(said);
        for (const word of words(written)) assert.ok(isAhead(source, word), `${word} in: ${said}`);
        assert.equal(polished(written), written, said);
    }
});

/** Whether the word is in what is left of the source, which is then behind it. */
function isAhead(source, word) {
    for (let next = source.next(); !next.done; next = source.next())
        if (next.value === word) return true;
    return false;
}

test('The prompt decides about paragraphs, and about nothing else', () => {
    const said = 'One thing. Then another. We stop. Finally it ends.';
    const [clean, script, structured] = ['clean', 'script', 'structured'].map((name) => {
        const file = new URL(`../../../resources/prompts/builtin.${name}.txt`, import.meta.url);
        // As the application reads it: the last line feed is the file's.
        return polish(said, paragraphing(readFileSync(file, 'utf8').slice(0, -1)));
    });
    assert.equal(clean, 'One thing.\nThen another.\nWe stop.\nFinally it ends.');
    assert.equal(script, 'One thing. Then another.\n\nWe stop. Finally it ends.');
    assert.equal(structured, 'One thing.\n\nThen another. We stop.\n\nFinally it ends.');
    assert.equal(polish(said, paragraphing('Translate into French.')), said);
    assert.equal(polish('好。走吧', paragraphing('')), '好。走吧。');
});

test('The longest request is polished while one waits', () => {
    for (const unit of ['um, ', '嗯。', '. ', 'Mr. ', 'the a ', '我x', 'you know, ']) {
        const start = performance.now();
        polished(unit.repeat(250_000 / unit.length));
        assert.ok(performance.now() - start < 8000, unit);
    }
});
