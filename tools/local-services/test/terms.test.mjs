// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT

import assert from 'node:assert/strict';
import test from 'node:test';

import { correctTerms } from '../src/recognition/terms.mjs';

const rows = [
    // Case and spaces.
    [
        'we use git hub, chatgpt and you-tube.',
        'GitHub ChatGPT YouTube',
        'we use GitHub, ChatGPT and YouTube.',
    ],
    ['我们用docker部署', 'Docker', '我们用Docker部署'],
    ['请 张 三 来', '张三', '请 张三 来'],
    // A few letters, or as it sounds.
    ['kubernetis and postgre sequel', 'Kubernetes PostgreSQL', 'Kubernetes and PostgreSQL'],
    ['the ren fold of cooper netties', 'Wrenfold Kubernetes', 'the Wrenfold of Kubernetes'],
    ['meeting to thursday at three', 'THURSDAY Meating', 'meeting to THURSDAY at three'],
    ["two dockers and docker's file", 'Docker', "two Dockers and Docker's file"],
    // Other words, however short or common the term.
    ['it is up to us in the cloud where they docked', 'IT US Clowd Wares Docker', undefined],
    ['a doctor, a sander and the wheels', 'Docker Sanders Wheeler', undefined],
    ['the vene version of Kemprantice', 'Kubernetes', undefined],
    ['open. Source, git. Hub', 'OpenSource GitHub', undefined],
    ['anything', '', undefined],
    ['', 'Docker', undefined],
];

test('Terms replace what nearly is one, and nothing else', () => {
    for (const [heard, terms, expected = heard] of rows)
        assert.equal(correctTerms(heard, terms.split(' ')), expected);
});

test('A full dictionary and minutes of speech are no burden', () => {
    const terms = Array.from({ length: 300 }, (_, index) => `Product${index}name of ${index}`);
    const start = performance.now();
    correctTerms('production of names and other words of a long speech '.repeat(100), terms);
    assert.ok(performance.now() - start < 5000, `${performance.now() - start} ms`);
});
