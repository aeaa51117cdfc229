// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import test from 'node:test';

import { paragraphing } from '../src/polishing/paragraphs.mjs';
import { polish } from '../src/polishing/polish.mjs';

const rows = [
    // Fillers, and words that only look like one.
    ['Um, please please move it to uh three.', 'Please move it to three.'],
    ['We deploy, you know, on Friday, you know.', 'We deploy on Friday.'],
    ['"Um," I would. "Uh, please" go', 'I would. "Please" go.'],
    ['do you know him', 'Do you know him.'],
    ['I went home, um, and slept. Uh, then I I woke up', 'I went home, and slept. Then I woke up.'],
    ['uh-huh uh oh the ER and 5 mm', 'Uh-huh uh oh the ER and 5 mm.'],
    ['那个,我想要那个，呃，蓝色的那个人', '我想要那个，蓝色的那个人。'],
    ['嗯嗯，好的', '嗯嗯，好的。'],
    ['嗯', '嗯。'],
    ['um', 'Um.'],
    // Repeats, and what is said twice on purpose.
    ['we should we should go to the, the town', 'We should go to the town.'],
    [
        'I think that that had had a very very long day',
        'I think that that had had a very very long day.',
    ],
    ['call five five five one two one two', 'Call five five five one two one two.'],
    ['New York, New York, please, Please, go', 'New York, New York, please, Please, go.'],
    ['Please, please come, come in', 'Please come in.'],
    ['我们我们今天开会，然后然后讨论讨论', '我们今天开会，然后讨论讨论。'],
    ['一二三一二三，哈哈哈哈哈哈，妈妈谢谢', '一二三一二三，哈哈哈哈哈哈，妈妈谢谢。'],
    // Marks, spaces and capitals.
    ['嗯 我们今天ship新版本,下午3点review?', '我们今天 ship 新版本，下午 3 点 review？'],
    ['Version 3.5 at 10:30 costs 1,000 yuan', 'Version 3.5 at 10:30 costs 1,000 yuan.'],
    ["the cat，and i。i'm fine ！", "The cat, and I. I'm fine!"],
    [
        'iPhone and https://a.com/b are it. npm.js too',
        'iPhone and https://a.com/b are it. npm.js too.',
    ],
    ['Mr. Smith met J. Doe. ok', 'Mr. Smith met J. Doe. Ok.'],
    ['她说：“你好”', '她说：“你好”'],
    [' \n ', ''],
];

test('Fillers and repeats go, marks and capitals are written as the language writes them', () => {
    for (const [said, written] of rows) {
        assert.equal(polish(said, paragraphing('')), written, said);
        assert.equal(polish(written, paragraphing('')), written, 'polished again');
    }
});

test('No word is ever added or moved', () => {
    const words = (text) =>
        text.toLowerCase().match(/\p{sc=Han}|[^\p{sc=Han}\P{L}]+|\p{N}+/gu) ?? [];
    const parts = rows.map(([said]) => said);
    const joined = parts.flatMap((part) => parts.map((other) => `${part} ${other}`));
    for (const said of joined) {
        const source = words(said)[Symbol.iterator]();
        for (const word of words(polish(said, paragraphing(''))))
            assert.ok(isAhead(source, word), `${word} in: ${said}`);
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
    for (const unit of ['um, ', '嗯，', '. ', 'Mr. ', 'the a ', '我x']) {
        const start = performance.now();
        polish(unit.repeat(250_000 / unit.length), paragraphing(''));
        assert.ok(performance.now() - start < 8000, unit);
    }
});
